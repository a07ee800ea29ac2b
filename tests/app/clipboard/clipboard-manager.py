"""A clipboard manager for one application: keeps the text that it hands over when it ends."""

import base64
import ctypes
import json
import pathlib
import plistlib
import subprocess
import sys
import threading
from ctypes import POINTER, Structure, Union, byref, c_int, c_long, c_ulong, c_void_p

SELECTION_REQUEST, SELECTION_NOTIFY = 30, 31
SECONDS = 150


class Notify(Structure):
    _fields_ = [("type", c_int), ("serial", c_ulong), ("send_event", c_int), ("display", c_void_p)] + [
        (name, c_ulong) for name in ("requestor", "selection", "target", "property", "time")
    ]


class Request(Structure):
    _fields_ = [("type", c_int), ("serial", c_ulong), ("send_event", c_int), ("display", c_void_p)] + [
        (name, c_ulong)
        for name in ("owner", "requestor", "selection", "target", "property", "time")
    ]


class Event(Union):
    _fields_ = [("type", c_int), ("request", Request), ("notify", Notify), ("pad", c_long * 24)]


def declare(name, result, *arguments):
    function = getattr(x11, name)
    function.restype, function.argtypes = result, arguments
    return function


x11 = ctypes.CDLL("libX11.so.6")
open_display = declare("XOpenDisplay", c_void_p, c_void_p)
root_window = declare("XDefaultRootWindow", c_ulong, c_void_p)
simple_window = declare(
    "XCreateSimpleWindow", c_ulong, c_void_p, c_ulong, *[c_int] * 5, c_ulong, c_ulong
)
intern = declare("XInternAtom", c_ulong, c_void_p, ctypes.c_char_p, c_int)
own = declare("XSetSelectionOwner", c_int, c_void_p, c_ulong, c_ulong, c_ulong)
convert = declare("XConvertSelection", c_int, c_void_p, *[c_ulong] * 5)
next_event = declare("XNextEvent", c_int, c_void_p, POINTER(Event))
send_event = declare("XSendEvent", c_int, c_void_p, c_ulong, c_int, c_long, POINTER(Event))
sync = declare("XSync", c_int, c_void_p, c_int)
get_property = declare(
    "XGetWindowProperty", c_int, c_void_p, c_ulong, c_ulong, c_long, c_long, c_int, c_ulong,
    POINTER(c_ulong), POINTER(c_int), POINTER(c_ulong), POINTER(c_ulong), POINTER(c_void_p),
)

display = open_display(None)
window = simple_window(display, root_window(display), 0, 0, 1, 1, 0, 0, 0)
manager, clipboard, utf8, place = (
    intern(display, name, 0)
    for name in (b"CLIPBOARD_MANAGER", b"CLIPBOARD", b"UTF8_STRING", b"FRELTA_TEST")
)


def next_of(kind):
    event = Event()
    while event.type != kind:
        next_event(display, byref(event))
    return event


def handed_over():
    """Waits until the owner of the clipboard asks for its text to be kept, and takes it."""
    request = next_of(SELECTION_REQUEST).request
    asked = Request.from_buffer_copy(request)
    convert(display, clipboard, utf8, place, window, asked.time)
    next_of(SELECTION_NOTIFY)
    kind, size, count, left, data = c_ulong(), c_int(), c_ulong(), c_ulong(), c_void_p()
    get_property(display, window, place, 0, 1 << 20, 1, 0, byref(kind), byref(size), byref(count),
                 byref(left), byref(data))
    text = ctypes.string_at(data, count.value)
    answer = Event()
    answer.notify = Notify(SELECTION_NOTIFY, 0, 0, None, asked.requestor, asked.selection,
                           asked.target, asked.property, asked.time)
    send_event(display, asked.requestor, 0, 0, byref(answer))
    sync(display, 0)
    return text


own(display, manager, window, 0)
sync(display, 0)
program, work = sys.argv[1], pathlib.Path(sys.argv[2])
kept = []
keeper = threading.Thread(target=lambda: kept.append(handed_over()), daemon=True)
keeper.start()
tour = subprocess.run(
    [program, "--root", work / "root", "--tour", work / "pictures"],
    stdout=subprocess.PIPE, text=True, timeout=SECONDS,
)
if tour.returncode != 0:
    raise SystemExit(f"FAILED: the tour\n{tour.stdout}")
keeper.join(5)
if not kept:
    raise SystemExit("FAILED: nothing was handed over")
preset = plistlib.loads((work / "root/Library/Frelta/Presets/Tour preset.plist").read_bytes())
if json.loads(base64.b64decode(kept[0], validate=True)) != preset:
    raise SystemExit(f"FAILED: {kept[0]} was handed over for {preset}")
print(f"the manager keeps {len(kept[0])} bytes, which are {preset}")
