"""From SVG to pixels and PNG files, by the library that rsvg-convert is made of: called in this process it draws a
picture in a millisecond, and there are thousands."""

import ctypes
import os
import shutil

_cairo = ctypes.CDLL("libcairo.so.2")
_gobject = ctypes.CDLL("libgobject-2.0.so.0")
_rsvg = ctypes.CDLL("librsvg-2.so.2")

_pointer, _integer = ctypes.c_void_p, ctypes.c_int


def _declare(library, name, result, *arguments):
    function = getattr(library, name)
    function.restype, function.argtypes = result, arguments
    return function


class _Rectangle(ctypes.Structure):
    _fields_ = [(name, ctypes.c_double) for name in ("x", "y", "width", "height")]


_new_surface = _declare(_cairo, "cairo_image_surface_create", _pointer, _integer, _integer, _integer)
_surface_data = _declare(_cairo, "cairo_image_surface_get_data", _pointer, _pointer)
_flush = _declare(_cairo, "cairo_surface_flush", None, _pointer)
_free_surface = _declare(_cairo, "cairo_surface_destroy", None, _pointer)
_write_png = _declare(_cairo, "cairo_surface_write_to_png", _integer, _pointer, ctypes.c_char_p)
_new_context = _declare(_cairo, "cairo_create", _pointer, _pointer)
_free_context = _declare(_cairo, "cairo_destroy", None, _pointer)
_new_document = _declare(_rsvg, "rsvg_handle_new_from_data", _pointer, ctypes.c_char_p, ctypes.c_size_t, _pointer)
_render = _declare(_rsvg, "rsvg_handle_render_document", _integer, _pointer, _pointer, ctypes.POINTER(_Rectangle),
                   _pointer)
_free_object = _declare(_gobject, "g_object_unref", None, _pointer)

_WITH_ALPHA = 0


class Raster:
    """A drawn picture. Use it in a `with` statement: the pixels belong to the library."""

    def __init__(self, svg, width, height):
        """Raises ValueError when the drawing cannot be read."""
        self.width, self.height = width, height
        text = svg.encode()
        document = _new_document(text, len(text), None)
        if not document:
            raise ValueError(f"not a drawing: {svg[:200]}")
        self.surface = _new_surface(_WITH_ALPHA, width, height)
        context = _new_context(self.surface)
        drawn = _render(document, context, _Rectangle(0, 0, width, height), None)
        _free_context(context)
        _free_object(document)
        if not drawn:
            raise ValueError(f"cannot be drawn: {svg[:200]}")
        _flush(self.surface)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        _free_surface(self.surface)

    def pixels(self):
        """Blue, green, red, alpha of each pixel, the colours multiplied by alpha; row by row without a gap."""
        return ctypes.string_at(_surface_data(self.surface), self.width * self.height * 4)

    def save(self, path):
        status = _write_png(self.surface, os.fsencode(path))
        if status:
            raise OSError(f"{path}: cannot be written (cairo status {status})")


class Writer:
    """Writes PNG files; one drawing is drawn once, however many files show it."""

    def __init__(self):
        self.files = {}    # SVG -> first file made of it

    def write(self, svg, width, height, path):
        first = self.files.setdefault(svg, path)
        if first != path:
            shutil.copyfile(first, path)
            return
        with Raster(svg, width, height) as raster:
            raster.save(path)


def remove_strangers(folder, keep):
    """Files and folders of an earlier drawing would stay for ever."""
    for entry in os.scandir(folder):
        if entry.name not in keep:
            shutil.rmtree(entry.path) if entry.is_dir() else os.remove(entry.path)
