"""Hears where the keyboard is as a screen reader does: at the start, on a page that opens, and back."""

import ctypes
import itertools

from reader import Atspi, GLib, application, press, read_page, wait_for


@ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
def pass_over_error(_display, _event):
    """Windows of that name that are not shown take no keyboard."""
    return 0


def move_keyboard(to_window):
    """What a window manager does: to the window, or away from it. True when the window is there."""
    x = ctypes.CDLL("libX11.so.6")
    x.XSetErrorHandler(pass_over_error)
    x.XOpenDisplay.restype = ctypes.c_void_p
    display = ctypes.c_void_p(x.XOpenDisplay(None))
    x.XDefaultRootWindow.restype = ctypes.c_ulong
    above, parent = ctypes.c_ulong(), ctypes.c_ulong()
    windows, count = ctypes.POINTER(ctypes.c_ulong)(), ctypes.c_uint()
    root = ctypes.c_ulong(x.XDefaultRootWindow(display))
    x.XQueryTree(
        display,
        root,
        ctypes.byref(above),
        ctypes.byref(parent),
        ctypes.byref(windows),
        ctypes.byref(count),
    )
    found = False
    for i in range(count.value):
        name = ctypes.c_char_p()
        window = ctypes.c_ulong(windows[i])
        if x.XFetchName(display, window, ctypes.byref(name)) and name.value == b"Frelta":
            no_window, revert_to_parent, current_time = ctypes.c_ulong(0), 2, 0
            x.XSetInputFocus(
                display,
                window if to_window else no_window,
                revert_to_parent,
                ctypes.c_ulong(current_time),
            )
            found = True
    x.XCloseDisplay(display)
    return found


def row_named(app, name):
    def look():
        try:
            rows = read_page(app)
            named = (row for row in rows if row.get_name().split(", ")[0] == name)
            return next((row for row in named if Atspi.Action.get_n_actions(row)), None)
        except (GLib.Error, AttributeError):
            return None

    return wait_for(look, f"there is {name}")


def main():
    told = []

    def hear(event):
        try:
            if event.detail1 and event.source.get_role() == Atspi.Role.LIST:
                told.append(event.source.get_name())
        except GLib.Error:
            # What had the keyboard is gone by now.
            pass

    def hears(name):
        while GLib.MainContext.default().iteration(False):
            pass
        return name in told

    listener = Atspi.EventListener.new(hear)
    app = wait_for(application, "the application is on the accessibility bus")
    row_named(app, "Advanced")
    turns = itertools.cycle([True] + [None] * 4 + [False] + [None] * 4)

    def hears_first_page():
        turn = next(turns)
        if turn:
            # The application misses who listens when it is told so while it starts.
            listener.register("object:state-changed:focused")
        if turn is not None:
            move_keyboard(to_window=turn)
        return hears("Frelta")

    wait_for(hears_first_page, f"the first page has the keyboard: {told}")
    for row in ("Advanced", "Presets"):
        told.clear()
        press(row_named(app, row))
        wait_for(lambda: hears(row), f"{row} is told when it opens: {told}")
        told.clear()
        press(row_named(app, "Back to Frelta"))
        wait_for(lambda: hears("Frelta"), f"the first page is told when it is back: {told}")
        print(f"{row} was told, and the first page after it")


main()
