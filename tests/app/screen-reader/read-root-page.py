"""Reads the root page as a screen reader does, and presses every switch on it."""

import pathlib
import plistlib
import sys

from reader import (
    SETTINGS,
    Atspi,
    application,
    check,
    is_on,
    press,
    read_settled_page,
    top,
    wait_for,
)


def described(page):
    """What the rows of a fresh start are to be called, from the page's description."""
    hidden = (
        "backgroundImageContentModeInt FreltaImageCell FreltaThemesCell FreltaHTMLCell"
        " FreltaWidgetCell FreltaPresetsLightMode FreltaPresetsDarkMode FreltaPresetsInfo"
    ).split()
    names = []
    for item in plistlib.loads(page.read_bytes())["items"]:
        # The footer's text is not in the description.
        if item["cell"] == "PSGroupCell" or item["key"] in hidden + ["FreltaFooterCell"]:
            continue
        names += [item["label"]] if "label" in item else item["validTitles"]
    return names


def switches_of(page):
    items = plistlib.loads(page.read_bytes())["items"]
    return [item["label"] for item in items if item["cell"] == "PSSwitchCell"]


def main():
    root = pathlib.Path(sys.argv[1])
    page = pathlib.Path(sys.argv[2])
    settings = root / SETTINGS
    app = wait_for(application, "the application is on the accessibility bus")
    rows = read_settled_page(app)
    for row in rows:
        state = "on" if is_on(row) else "off"
        print(f"{top(row):5d}  {row.get_role_name():14s} {state:4s} {row.get_name()}")

    names = [row.get_name() for row in rows]
    told = iter(names)
    for expected in described(page):
        # A row with a value is told with it.
        found = any(name == expected or name.startswith(expected + ", ") for name in told)
        check(found, f"there is a row {expected}, in its place")
    check(len(names) == len(set(zip(names, map(top, rows)))), "no row is told twice")

    # Segments of one row stand side by side, so their tops are equal.
    tops = [top(row) for row in rows]
    check(tops == sorted(tops), f"rows are told in visual order: {tops}")

    switches = [row for row in rows if row.get_role() == Atspi.Role.CHECK_BOX]
    check([switch.get_name() for switch in switches] == switches_of(page), "each switch is one")
    # The master switch comes last: it takes the other rows away.
    switches.sort(key=lambda row: row.get_name() == "Enabled")
    pressed = 0
    for switch in switches:
        name = switch.get_name()
        before = is_on(switch)
        old = plistlib.loads(settings.read_bytes()) if settings.exists() else {}
        press(switch)

        def stored():
            if not settings.exists():
                return None
            now = plistlib.loads(settings.read_bytes())
            changed = [key for key in now if now.get(key) != old.get(key)]
            return changed if changed else None

        changed = wait_for(stored, f"pressing {name} changes the settings file")
        check(len(changed) == 1, f"pressing {name} changes one key, not {changed}")
        value = plistlib.loads(settings.read_bytes())[changed[0]]
        check(value == int(not before) and not isinstance(value, bool), f"{name} stores {value!r}")
        if name != "Enabled":
            wait_for(
                lambda: is_on(switch) != before or None, f"{name} is told in its new state"
            )
        pressed += 1
    print(f"{pressed} switches pressed")

    rows = wait_for(
        lambda: (lambda now: now if "Hide key caps" not in [n.get_name() for n in now] else None)(
            read_settled_page(app)
        ),
        "the rows go with the master switch",
    )
    print("With Frelta off:", [row.get_name() for row in rows])


main()
