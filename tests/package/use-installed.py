"""Turns a switch of the installed application over as a screen reader does: ROOT VERSION."""

import pathlib
import plistlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "app" / "screen-reader"))

from reader import SETTINGS, application, check, is_on, press, read_settled_page, wait_for

SWITCH = "Hide key caps"
KEY = "HideKeyCaps"


def main():
    settings = pathlib.Path(sys.argv[1]) / SETTINGS
    version = sys.argv[2]
    app = wait_for(application, "the application is on the accessibility bus", 60)
    rows = read_settled_page(app)
    switch = next((row for row in rows if row.get_name() == SWITCH), None)
    check(switch is not None, f"there is a switch {SWITCH}")
    before = is_on(switch)
    press(switch)

    def stored():
        if not settings.exists():
            return False
        return plistlib.loads(settings.read_bytes()).get(KEY) == int(not before)

    wait_for(stored, f"pressing {SWITCH} stores {int(not before)}")
    wait_for(lambda: is_on(switch) != before, f"{SWITCH} is told in its new state")
    print(f"{SWITCH} was turned {'off' if before else 'on'}; the settings file says so.")

    footer = [row.get_name() for row in rows if version in row.get_name()]
    check(footer, f"the footer says version {version}")
    print(f"The footer says: {footer[0]}")


main()
