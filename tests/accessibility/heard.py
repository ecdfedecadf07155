"""Drives a whole run through the accessibility bus, and checks that everything that is shown can be heard.

    heard.py MACHINE.json

The window runs on the simulated machine of that file. Exits with 1, and says what was not heard.
"""

import json
import sys
import time

import pyatspi

PATIENCE = 60  # seconds
FAULTS = []
# Roles that only hold or decorate others. A screen reader passes over them.
SILENT = {"filler", "panel", "separator", "scroll bar", "viewport", "layered pane", "unknown", "scroll pane",
          "window", "frame", "menu bar", "redundant object", "image"}


def fault(text):
    FAULTS.append(text)
    print("not as it should be:", text)


def window():
    for _ in range(PATIENCE * 4):
        for application in pyatspi.Registry.getDesktop(0):
            if application and "lurimo" in (application.name or ""):
                return application
        time.sleep(0.25)
    sys.exit("the window is not on the accessibility bus")


def shown(node):
    """All nodes on the screen below `node`, as (role, name, text, node)."""
    try:
        is_shown = node.getState().contains(pyatspi.STATE_SHOWING)
        role, name, count = node.getRoleName(), node.name or "", node.childCount
    except Exception:  # the node has gone meanwhile
        return
    if not is_shown and role not in ("application", "menu"):
        return
    text = ""
    try:
        text = node.queryText().getText(0, -1)
    except Exception:
        pass
    yield role, name, text, node
    for index in range(min(count, 200)):
        try:
            yield from shown(node.getChildAtIndex(index))
        except Exception:
            pass


def all_words(application):
    return [word for _, name, text, _ in shown(application) for word in (name, text) if word]


def until_heard(application, *parts):
    """Waits until one name or text holds all the parts, and returns it."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        for word in all_words(application):
            if all(part in word for part in parts):
                return word
        time.sleep(0.1)
    fault("never heard: " + " ... ".join(parts))
    return ""


def act(application, role, name, action):
    for found_role, found_name, _, node in shown(application):
        if (found_role, found_name) == (role, name):
            actions = node.queryAction()
            for index in range(actions.nActions):
                if actions.getName(index) == action:
                    actions.doAction(index)
                    return
    fault(f"there is no {role} {name!r} that one can {action}")


def check_names(application, when):
    focusable = {}
    nodes = 0
    for role, name, text, node in shown(application):
        nodes += 1
        if role not in SILENT and not name and not text:
            fault(f"{when}: a {role} without a name")
        if node.getState().contains(pyatspi.STATE_FOCUSABLE) and role not in SILENT | {"table cell", "tree item",
                                                                                         "menu item", "list item"}:
            if not name:
                fault(f"{when}: one can go to a {role} that has no name")
            if (role, name) in focusable:
                fault(f"{when}: two of role {role} are called {name!r}")
            focusable[role, name] = True
    print(f"{when}: {nodes} nodes, {len(focusable)} of them can have the keyboard")


def check_values(application, machine):
    words = "\n".join(all_words(application))
    for disk in machine["enclosures"][0]["bays"]:
        values = [disk["model"], disk["serial"]]
        if disk["bay"] != "A":
            values += [f"of bay {disk['bay']}: {disk['serial']}", disk["volumes"][0]["name"]]
        for value in values:
            if value not in words:
                fault(f"{value!r} is shown and not heard")
    for value in ("1.82 TB", "931.32 GB", "60 File(s)", "28.61 MB"):
        if value not in words:
            fault(f"{value!r} is shown and not heard")


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        machine = json.load(file)
    application = window()
    until_heard(application, "60 File(s)")
    check_names(application, "with an enclosure")
    check_values(application, machine)
    act(application, "check box", "Verify", "Toggle")
    act(application, "push button", "Start", "Press")
    until_heard(application, "Rate of bay B: ", "/s")
    until_heard(application, "Time left for bay C: ", "left")
    until_heard(application, "Waiting for bay B: ", "/s")
    until_heard(application, "The whole run: ", "%")
    check_names(application, "in a run")
    until_heard(application, "All files have been copied successfully.")
    act(application, "push button", "Done", "Press")
    for bay in ("B", "C"):
        print(until_heard(application, f"State of bay {bay}: \u2713"))
    check_names(application, "after a run")
    sys.exit(1 if FAULTS else 0)


main()
