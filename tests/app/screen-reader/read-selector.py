"""Reads the selector of images themes as a screen reader does, and switches styles there."""

import pathlib
import plistlib
import sys
import time

from reader import (
    SETTINGS,
    Atspi,
    GLib,
    application,
    check,
    descendants,
    press,
    read_page,
    top,
    wait_for,
)

# More than are read whole, so that the table has cells only near the screen.
STYLES = 240
NAMES = [f"Style {number}" for number in range(STYLES)]


def install(themes):
    for name in NAMES:
        (themes / f"{name}.theme" / "Images").mkdir(parents=True, exist_ok=True)


def named(app, name):
    return next((node for node in read_page(app) if node.get_name() == name), None)


def row_to_selector(app):
    buttons = [node for node in read_page(app) if node.get_role() == Atspi.Role.PUSH_BUTTON]
    return next((node for node in buttons if "images theme" in node.get_name().lower()), None)


def cards(app):
    """Each card on the screen: place, title, kind, names of the buttons in it, the button."""
    found = []
    for node in descendants(app):
        if node.get_role() != Atspi.Role.PANEL and node.get_role() != Atspi.Role.GROUPING:
            continue
        if not node.get_description():
            continue
        inside = list(descendants(node))
        buttons = [child for child in inside if child.get_role() == Atspi.Role.PUSH_BUTTON]
        texts = [child.get_name() for child in inside if child.get_role() == Atspi.Role.LABEL]
        names = [button.get_name() for button in buttons]
        found.append((top(node), node.get_name(), node.get_description(), names, texts, buttons))
    return found


def settled_cards(app):
    previous = None
    while True:
        try:
            now = cards(app)
        except (GLib.Error, AttributeError):
            now = None
        if now and previous and [card[:5] for card in now] == [card[:5] for card in previous]:
            return now
        previous = now
        time.sleep(0.3)


def check_cards(found, enabled):
    tops = [card[0] for card in found]
    check(tops == sorted(tops) and len(set(tops)) == len(tops), f"cards in visual order: {tops}")
    for _, title, kind, names, texts, _ in found:
        check(kind == "Images Theme", f"{title} says its kind, not {kind!r}")
        verb = "Disable" if title == enabled else "Enable"
        check(names == [f"{verb} {title}"], f"{title} has one button, not {names}")
        check(texts == [], f"{title} is told once, not with {texts}")


def stored(root):
    settings = root / SETTINGS
    if not settings.exists():
        return None
    return plistlib.loads(settings.read_bytes()).get("EnabledThemePath")


def main():
    root = pathlib.Path(sys.argv[1])
    app = wait_for(application, "the application is on the accessibility bus")
    themes = root / "Library/Frelta/Themes"
    wait_for(themes.is_dir, "the styles folder is made")
    install(themes)
    press(wait_for(lambda: named(app, "Images"), "there is a choice of backgrounds"))
    press(wait_for(lambda: row_to_selector(app), "there is a row that leads to the selector"))

    wait_for(lambda: cards(app), "the selector shows cards")
    found = settled_cards(app)
    for place, title, kind, names, _, _ in found:
        print(f"{place:5d}  {title:16s} {kind:14s} {names}")
    check_cards(found, None)
    seen = {card[1] for card in found}

    # Whoever listens goes on from button to button; the table follows.
    while True:
        last = found[-1]
        Atspi.Component.grab_focus(last[5][0])
        found = settled_cards(app)
        check_cards(found, None)
        seen |= {card[1] for card in found}
        if found[-1][1] == last[1]:
            break
    check(seen >= set(NAMES), f"every style is told, also {set(NAMES) - seen}")

    _, title, _, _, _, buttons = found[-2]
    press(buttons[0])
    wait_for(
        lambda: stored(root) == f"/Library/Frelta/Themes/{title}.theme",
        f"pressing its button switches {title} on",
    )
    check_cards(settled_cards(app), title)
    print(f"{title} is on; {len(seen)} styles were told")


main()
