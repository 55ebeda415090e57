"""The file skindata.xml: trees of texts, written out."""

from xml.sax.saxutils import escape

APP_VERSION = "1.2"


def document(title, sections):
    about = {"title": title, "author": "The zVR project", "for-app-version": APP_VERSION}
    return "\n".join(['<?xml version="1.0" encoding="utf-8"?>',
                      *element("skin", {"about": about, **sections}, 0)]) + "\n"


def element(name, content, depth):
    indent = "  " * depth
    if isinstance(content, dict):
        inner = [line for child, value in content.items() for line in element(child, value, depth + 1)]
        return [f"{indent}<{name}>", *inner, f"{indent}</{name}>"]
    return [f"{indent}<{name}>{escape(str(content))}</{name}>"]


def named(things):
    """{element name: thing}; a name that occurs twice gets a number."""
    seen, elements = {}, {}
    for thing in things:
        seen[thing.name] = count = seen.get(thing.name, 0) + 1
        elements[thing.name if count == 1 else f"{thing.name}-{count}"] = thing
    return elements


def place(box):
    return {"posx": box.x, "posy": box.y, "width": box.w, "height": box.h}


def number(value):
    return f"{round(value, 1):g}"
