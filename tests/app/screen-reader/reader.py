"""What a screen reader does: finds the application on the accessibility bus, reads and presses."""

import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

SETTINGS = "var/mobile/Library/Preferences/com.tarno.freltaprefs.plist"


def wait_for(get, what, seconds=20):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        result = get()
        if result:
            return result
        time.sleep(0.1)
    raise SystemExit(f"FAILED: {what}")


def application():
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        child = desktop.get_child_at_index(i)
        if child is not None and child.get_name() == "frelta-settings":
            return child
    return None


def descendants(node):
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is None:
            continue
        yield child
        yield from descendants(child)


def top(node):
    return Atspi.Component.get_extents(node, Atspi.CoordType.WINDOW).y


def is_on(node):
    return node.get_state_set().contains(Atspi.StateType.CHECKED)


def press(node):
    count = Atspi.Action.get_n_actions(node)
    names = [Atspi.Action.get_action_name(node, i) for i in range(count)]
    for wanted in ("Press", "Toggle"):
        if wanted in names:
            return Atspi.Action.do_action(node, names.index(wanted))
    raise SystemExit(f"FAILED: {node.get_name()} has no press action but {names}")


def read_page(app):
    roles = (
        Atspi.Role.CHECK_BOX,
        Atspi.Role.PUSH_BUTTON,
        Atspi.Role.RADIO_BUTTON,
        Atspi.Role.LABEL,
        Atspi.Role.STATIC,
        Atspi.Role.HEADING,
    )
    return [node for node in descendants(app) if node.get_role() in roles and node.get_name()]


def read_settled_page(app):
    """The page once it reads the same twice: rows come and go while it is laid out."""
    previous = None
    while True:
        try:
            rows = read_page(app)
            now = [(row.get_name(), top(row)) for row in rows]
        except (GLib.Error, AttributeError):
            now = None
        if now and now == previous:
            return rows
        previous = now
        time.sleep(0.3)


def check(condition, message):
    if not condition:
        raise SystemExit(f"FAILED: {message}")
