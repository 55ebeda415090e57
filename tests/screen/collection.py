"""A music collection as one finds it on a stick: every format, tags of all sorts, names of any bytes, broken files."""

import random
import shutil
import struct
import subprocess

AUDIO = {"mp3": "-c:a libmp3lame", "ogg": "-c:a libvorbis", "opus": "-c:a libopus", "flac": "", "wav": "",
         "wma": "-c:a wmav2", "m4a": "-c:a aac"}
VIDEO = {"avi": "-c:v mpeg4 -c:a libmp3lame", "mpeg": "-c:v mpeg1video -c:a mp2", "mp4": "-c:v mpeg4 -c:a aac",
         "mkv": "-c:v mpeg4 -c:a libmp3lame", "wmv": "-c:v wmv2 -c:a wmav2"}

# Parts of names that something on the way from the folder to the loudspeaker may take for more than letters.
ODD = [b"plain", b"it's \"quoted\"", b"#1 hit", b"%41 of %s", b"two  blanks ", b"tab\there", b"caf\xe9", b"\xff\xfe bytes",
       "Straße".encode(), "🎵 note".encode(), "e\u0301 apart".encode(), "שיר".encode(), b"back\\slash", b"semi;colon",
       b"a & b <c>", b"what?query=1", b"http:", b"$HOME `id`", b"[1] {2} *", b"**TIME**", b"@+,=~^|", b"x" * 200]


def shown(name):
    """A name as zvrctl tells it: a byte that is no UTF-8 is the character of its number."""
    text = name.decode("utf-8", "surrogateescape")
    return "".join(chr(ord(c) - 0xDC00) if 0xDC80 <= ord(c) <= 0xDCFF else c for c in text)


def melody(seconds):
    """A MIDI file of one held note."""
    ticks = int(seconds * 960)
    events = bytes([0, 0x90, 60, 100, 0x80 | ticks >> 7, ticks & 0x7F, 0x80, 60, 0, 0, 0xFF, 0x2F, 0])
    return struct.pack(">4sIHHH4sI", b"MThd", 6, 0, 1, 480, b"MTrk", len(events)) + events


def encode(path, seconds, options="", metadata=()):
    command = ["ffmpeg", "-nostdin", "-hide_banner", "-loglevel", "error", "-y"]
    if path.suffix[1:] in VIDEO:
        command += ["-f", "lavfi", "-i", f"testsrc2=s=160x120:r=25:d={seconds}"]
    command += ["-f", "lavfi", "-i", f"sine=440:r=44100:d={seconds}", "-t", str(seconds), *options.split()]
    for text in metadata:
        command += ["-metadata", text]
    subprocess.run([*command, path], check=True, timeout=60)
    return path


def latin1_title(title):
    """An ID3 tag with a title of one byte a letter."""
    body = b"\0" + title.encode("latin-1")
    frame = b"TIT2" + struct.pack(">IH", len(body), 0) + body
    return b"ID3\3\0\0" + bytes([0, 0, len(frame) >> 7, len(frame) & 0x7F]) + frame


def break_file(path, kind, good):
    """Puts something that can't be played in the path's place."""
    noise = random.Random(kind).randbytes(5000)
    contents = [b"", b"<html>not found</html>", noise, good.read_bytes()[:40], bytes(4000)]
    path.write_bytes(contents[kind % len(contents)])


def path_with(folder, name):
    """The path of a name of any bytes."""
    return folder / name.decode("utf-8", "surrogateescape")


def make_mix(folder, good, broken, seconds):
    """Fills the folder with that many files, broken ones in between, each name beginning with its number; all formats
    and odd names come by. Gives the numbers of the good ones."""
    folder.mkdir()
    templates = [encode(folder.parent / f"template.{kind}", seconds, options) for kind, options in {**AUDIO, **VIDEO}.items()]
    templates.append(folder.parent / "template.mid")
    templates[-1].write_bytes(melody(seconds))
    every = (good + broken) // broken
    playable = []
    for number in range(good + broken):
        template = templates[number % len(templates)]
        name = b"%03d %s" % (number, ODD[number // 3 % len(ODD)]) + template.suffix.encode()
        if number % every == 1 and number // every < broken:
            break_file(path_with(folder, name), number // every, template)
        else:
            shutil.copyfile(template, path_with(folder, name))
            playable.append(number)
    return playable
