#!/usr/bin/python3
"""Meets every window of Quillon as a screen reader does, over AT-SPI.

    xvfb-run -a dbus-run-session -- tests/accessibility/walk.py PROGRAM

Starts the program with a home folder of its own, opens its windows by the actions of its menu items
and buttons, and fails where a control that can be seen has no role, no name or no value.
"""

import os
import subprocess
import sys
import tempfile
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# Atspi 2.46 calls the only names that it has for some functions deprecated.
warnings.filterwarnings("ignore", category=DeprecationWarning)

PATIENCE = 60  # seconds, after which a program counts as hung
DIALOG_REPLY = 500  # milliseconds; opening a modal dialog gives no reply before it is closed

# The title of each window, and what is pressed on the way to it: a menu item of the main window, then
# a button of the window that this opens.
WINDOWS = {
    "Open Source File": ["Open..."],
    "Save Source File As": ["Save as..."],
    "Print": ["Print..."],
    "Select Font": ["Font..."],
    "Find": ["Find"],
    "Preferences": ["Preferences..."],
    "Select Folder": ["Preferences...", "Browse..."],
    "Modes": ["Modes..."],
    "Paragraph": ["Paragraph..."],
    "Tengwar Calculator": ["Numerical tengwar"],
    "Special Characters": ["Special characters"],
    "Error launching the Mode Editor": ["Edit mode"],
    "Quillon Help": ["Contents"],
    "About Quillon": ["About..."],
}

Role = Atspi.Role
TOGGLES = {Role.CHECK_BOX, Role.RADIO_BUTTON, Role.TOGGLE_BUTTON}
TEXTS = {Role.ENTRY, Role.TEXT, Role.PASSWORD_TEXT, Role.DOCUMENT_TEXT}
LISTS = {Role.LIST, Role.TREE, Role.TREE_TABLE, Role.TABLE}
NUMBERS = {Role.SPIN_BUTTON, Role.SLIDER, Role.PROGRESS_BAR, Role.SPLIT_PANE}
OTHERS = {Role.PUSH_BUTTON, Role.COMBO_BOX, Role.MENU_ITEM, Role.PAGE_TAB, Role.TOOL_BAR, Role.LIST_ITEM,
          Role.TABLE_CELL, Role.TREE_ITEM}
NAMED = TOGGLES | TEXTS | LISTS | NUMBERS | OTHERS
FORBIDDEN = {Role.INVALID, Role.UNKNOWN}


def attempt(action):
    """What `action` returns; nothing where the control went away or its program is busy."""
    try:
        return action()
    except GLib.Error:
        return None


def wait_for(what, find):
    """What `find` returns once that is true."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        found = attempt(find)
        if found:
            return found
        time.sleep(0.02)
    sys.exit(f"there is no {what}")


def children(node):
    for index in range(attempt(node.get_child_count) or 0):
        child = attempt(lambda: node.get_child_at_index(index))
        if child:
            yield child


def tree(node):
    yield node
    for child in children(node):
        yield from tree(child)


def has(node, state):
    return node.get_state_set().contains(state)


def windows():
    """The windows of the program that are shown; it is the only one that offers itself here."""
    for program in children(Atspi.get_desktop(0)):
        yield from (each for each in children(program) if has(each, Atspi.StateType.SHOWING))


def window(title):
    return next((each for each in windows() if each.get_name() == title), None)


def press(parent, name):
    """Presses the first control of this name as soon as it is there."""

    def button():
        return next((node for node in tree(parent) if node.get_name() == name
                     and has(node, Atspi.StateType.SENSITIVE) and actions(node)), None)

    found = wait_for(name, button)
    attempt(lambda: found.do_action(actions(found).index("Press")))


def actions(node):
    names = [node.get_action_name(index) for index in range(node.get_n_actions())]
    return names if "Press" in names else []


def is_labelled(node):
    relations = [each.get_relation_type() for each in node.get_relation_set()]
    return Atspi.RelationType.LABELLED_BY in relations


def complaint(node):
    """What someone who can't see this control would miss."""
    role, interfaces = node.get_role(), node.get_interfaces()
    if role in FORBIDDEN and has(node, Atspi.StateType.FOCUSABLE):
        return "no role"
    # a folder in a list of files has no size
    is_detail = role == Role.TABLE_CELL and node.get_parent().get_role() != Role.TABLE
    # the toolkit gives this role also to what only holds two controls
    is_holder = role == Role.SPLIT_PANE and not has(node, Atspi.StateType.FOCUSABLE)
    if role not in NAMED or is_detail or is_holder:
        return None
    if not node.get_name() and not is_labelled(node):
        return "no name"
    # the name of a combo box is its value on this platform
    if role == Role.COMBO_BOX and not (is_labelled(node) or node.get_description()):
        return "no label"
    if role in TEXTS and "Text" not in interfaces:
        return "no text"
    if role in NUMBERS and "Value" not in interfaces:
        return "no value"
    if role in LISTS and not {"Table", "Selection"} & set(interfaces):
        return "no entries"
    return None


def seen(node):
    """The controls in a window that can be seen. A closed combo box keeps its list to itself."""
    yield node
    for child in children(node):
        is_closed_list = node.get_role() == Role.COMBO_BOX and child.get_role() == Role.LIST
        if has(child, Atspi.StateType.SHOWING) and not is_closed_list:
            yield from seen(child)


def complaints(title):
    count = 0
    for node in seen(wait_for(f"window {title}", lambda: window(title))):
        count += 1
        missing = attempt(lambda: complaint(node))
        if missing:
            yield f"{title}: {node.get_role_name()} '{node.get_name()}': {missing}"
    if count < 3:
        yield f"{title}: it has no controls"


def xdotool(*arguments):
    subprocess.run(["xdotool", *arguments], check=True, timeout=PATIENCE)


def give_focus(title):
    """What a window manager would do; the commands of the menus are about the pane with the focus."""
    xdotool("search", "--sync", "--onlyvisible", "--name", f"^{title}$", "windowfocus", "--sync")


def dismiss(title):
    give_focus(title)
    xdotool("key", "Escape")
    wait_for(f"end of {title}", lambda: not window(title))


def walk():
    main = wait_for("main window", lambda: window("Quillon"))
    give_focus("Quillon")
    yield from complaints("Quillon")
    for title, way in WINDOWS.items():
        opened = []
        parent = main
        for name in way:
            before = [each.get_name() for each in windows()]
            press(parent, name)
            parent = wait_for(f"window behind {name}", lambda: next(
                (each for each in windows() if each.get_name() not in before), None))
            opened.append(parent.get_name())
        yield from complaints(title)
        for name in reversed(opened):
            dismiss(name)
        give_focus("Quillon")


def main():
    Atspi.set_timeout(DIALOG_REPLY, PATIENCE * 1000)
    with tempfile.TemporaryDirectory() as home:
        environment = dict(os.environ, HOME=home, XDG_CONFIG_HOME=home, XDG_DATA_HOME=home,
                           XDG_CACHE_HOME=home, LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb",
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        with subprocess.Popen([sys.argv[1]], env=environment) as quillon:
            try:
                found = list(walk())
            finally:
                quillon.kill()
    for each in found:
        print(each)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
