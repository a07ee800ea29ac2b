"""Hears as a screen reader does what could not be stored."""

import pathlib
import shutil
import sys
import time

from reader import SETTINGS, Atspi, GLib, application, check, press, read_page, wait_for


def named(app, name):
    def look():
        try:
            found = (node for node in read_page(app) if node.get_name().split(", ")[0] == name)
            return next((node for node in found if Atspi.Action.get_n_actions(node)), None)
        except (GLib.Error, AttributeError):
            return None

    return wait_for(look, f"there is {name}")


def main():
    root = pathlib.Path(sys.argv[1])
    told = []

    def hear(event):
        try:
            if event.detail1 and event.source.get_role() == Atspi.Role.NOTIFICATION:
                told.append(event.source.get_name())
        except GLib.Error:
            # What appeared is gone by now.
            pass

    listener = Atspi.EventListener.new(hear)

    def hears_after_press():
        # The application misses who listens when it is told so while it starts.
        listener.register("object:state-changed:showing")
        press(named(app, "Enabled"))
        end = time.monotonic() + 2
        while not told and time.monotonic() < end:
            GLib.MainContext.default().iteration(False)
        return told

    app = wait_for(application, "the application is on the accessibility bus")
    named(app, "Advanced")
    preferences = (root / SETTINGS).parent
    shutil.rmtree(preferences)
    preferences.write_text("No folder is here.")
    wait_for(hears_after_press, "what could not be stored is told")
    check(told[0].startswith("Not saved"), f"what is told: {told}")
    print(told[0])


main()
