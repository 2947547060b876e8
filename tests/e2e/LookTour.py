"""Walks the settings window through its looks by its accessibility actions, so that it needs no
input device the display server would have to offer: the page, the font sheet, the notice after
Restore Defaults and a color grid. Each is photographed by the command given, with {file}
replaced by the picture's path.
    LookTour.py SHOOT_COMMAND OUTPUT_PREFIX"""
import os
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

from AccessibilityClient import find_application, showing


def wait_for(app, name, role, present=True, seconds=20):
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        try:
            if any((n.name, n.getRoleName()) == (name, role) for n in showing(app)) == present:
                return
        except GLib.GError:
            pass  # an element went while the tree was read: read it again
        time.sleep(0.05)
    sys.exit(f"{role} '{name}' {'never showed' if present else 'did not go'}")


def press(app, name, role):
    node = next((n for n in showing(app) if (n.name, n.getRoleName()) == (name, role)), None)
    if node is None:
        sys.exit(f"no {role} '{name}' to press")
    action = node.queryAction()
    if action.nActions == 0:
        sys.exit(f"{role} '{name}' has no action")
    action.doAction(0)


def same(a, b):
    result = subprocess.run(["compare", "-metric", "AE", a, b, "null:"], capture_output=True, text=True)
    return result.stderr.strip() == "0"


def shoot(command, prefix, look):
    """Photographs until two pictures in a row agree: what the window drew has then reached the
    screen, however busy the machine."""
    file = f"{prefix}-{look}.png"
    pictures = [f"{prefix}-{look}-{i}.png" for i in range(2)]
    for attempt in range(60):
        time.sleep(0.2)
        subprocess.run(command.format(file=pictures[attempt % 2]), shell=True, check=True)
        if attempt > 0 and same(*pictures):
            os.replace(pictures[0], file)
            os.remove(pictures[1])
            print(f"photographed {look}")
            return
    sys.exit(f"the {look} never kept still on the screen")


def main():
    command, prefix = sys.argv[1], sys.argv[2]
    app = find_application("Settings")
    wait_for(app, "Font: Verdana", "list item")
    shoot(command, prefix, "page")
    press(app, "Font: Verdana", "list item")
    wait_for(app, "Done", "push button")
    shoot(command, prefix, "font-sheet")
    press(app, "Done", "push button")
    wait_for(app, "Done", "push button", present=False)
    press(app, "Restore Defaults", "list item")
    wait_for(app, "Defaults restored", "label")
    shoot(command, prefix, "notice")
    press(app, "Background Color:", "list item")
    wait_for(app, "Select Color", "label")
    shoot(command, prefix, "grid")


if __name__ == "__main__":
    main()
