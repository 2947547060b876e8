"""What a screen reader sees of the settings window, through the desktop's accessibility bus:
every control and row by name and role, the alpha slider's value, and the switch toggled by its
action. Exits non-zero and says what is missing when something is."""
import sys
import time

import pyatspi

EXPECTED = [
    ("Badge preview: 1 on a sample icon", "image"),
    ("ENABLED", "label"),
    ("Enabled:", "list item"),
    ("Enabled", "check box"),
    ("BADGE", "label"),
    ("Visibility:", "list item"),
    ("Visibility", "panel"),
    ("Hide", "radio button"),
    ("Show", "radio button"),
    ("Text:", "list item"),
    ("Badge text", "text"),
    ("Tip", "push button"),
    ("Font: Verdana", "list item"),
    ("Background Color:", "list item"),
    ("Position: 0%, 0%", "list item"),
    ("Border Color:", "list item"),
    ("Border Width:", "list item"),
    ("Border Width", "slider"),
    ("Alpha: 40%", "list item"),
    ("Alpha: 40%", "slider"),
    ("RESET", "label"),
    ("Restore Defaults", "list item"),
    ("CONTACT US / DONATE", "label"),
    ("Contact Us", "list item"),
    ("Follow on Twitter", "list item"),
    ("View My Other Tweaks", "list item"),
    ("Donate", "list item"),
]


def find_application(name, seconds=20):
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        for app in pyatspi.Registry.getDesktop(0):
            if app is not None and app.name == name:
                return app
        time.sleep(0.1)
    names = [app.name for app in pyatspi.Registry.getDesktop(0) if app is not None]
    sys.exit(f"no application {name} on the accessibility bus, only {names}")


def showing(root):
    """Every showing element under root, in the tree's order."""
    found = []
    stack = [root]
    while stack:
        node = stack.pop()
        if node is None:
            continue
        if node.getState().contains(pyatspi.STATE_SHOWING):
            found.append(node)
        stack.extend(reversed([node.getChildAtIndex(i) for i in range(node.childCount)]))
    return found


def main():
    app = find_application("Settings")
    nodes = showing(app)
    seen = [(node.name, node.getRoleName()) for node in nodes]
    for name, role in seen:
        if name:
            print(f"{role}: {name}")
    missing = [item for item in EXPECTED if item not in seen]
    if missing:
        sys.exit(f"not found: {missing}")

    def node(name, role):
        return next(n for n in nodes if (n.name, n.getRoleName()) == (name, role))

    alpha = node("Alpha: 40%", "slider").queryValue().currentValue
    if abs(alpha - 0.4) > 1e-9:
        sys.exit(f"the alpha slider reads {alpha}, not 0.4")
    print(f"alpha slider value: {alpha}")

    toggle = node("Enabled", "check box")
    if not toggle.getState().contains(pyatspi.STATE_CHECKED):
        sys.exit("the switch is not on")
    action = toggle.queryAction()
    names = [action.getName(i) for i in range(action.nActions)]
    if "toggle" not in [n.lower() for n in names]:
        sys.exit(f"the switch offers no toggle action, only {names}")
    action.doAction([n.lower() for n in names].index("toggle"))
    print("toggled the switch")


if __name__ == "__main__":
    main()
