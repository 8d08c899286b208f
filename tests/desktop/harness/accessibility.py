# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The desktop as assistive technology sees it. A process binds to one accessibility bus for life, so this one talks
to a helper of its own in each desktop: the same file, run as a program."""

import json
import subprocess
import sys
from dataclasses import dataclass, field

ANSWER_SECONDS = 10.0

# What newer releases of at-spi2 call otherwise.
OLDER_ROLE_NAMES = {"button": "push button"}


@dataclass
class Node:
    path: list
    role: str
    name: str
    states: list
    extents: list  # x, y, width, height on the screen
    text: str
    children: list = field(default_factory=list)

    def walk(self):
        yield self
        for child in self.children:
            yield from child.walk()

    def all(self, role=None, name=None, states=()):
        return [node for node in self.walk()
                if (role is None or node.role == role) and (name is None or node.name == name)
                and all(state in node.states for state in states)]

    def outline(self, depth=0):
        lines = [f"{'  ' * depth}{self.role} {self.name!r} {' '.join(self.states)} {self.extents} {self.text!r}"]
        return "\n".join(lines + [child.outline(depth + 1) for child in self.children])

    @property
    def centre(self):
        x, y, width, height = self.extents
        return x + width // 2, y + height // 2


class Accessibility:
    def __init__(self, desktop):
        self._desktop = desktop
        self._errors = desktop.directory / "accessibility-helper.txt"
        self._child = None

    def tree(self, pid):
        """The tree of the program with this process id, or None as long as it shows none."""
        answer = self._ask({"tree": pid})
        return _node(answer["tree"]) if answer["tree"] else None

    def act(self, pid, node, action):
        """Does the action of that name ("Press", "Toggle", …) on a node of the last tree. True when it was done."""
        return self._ask({"act": action, "pid": pid, "path": node.path})["done"]

    def _ask(self, question):
        if self._child is None or self._child.poll() is not None:
            with self._errors.open("wb") as errors:
                self._child = subprocess.Popen(
                    ["/usr/bin/setpriv", "--pdeathsig", "KILL", "--", "/usr/bin/python3", __file__],
                    env=self._desktop.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=errors,
                    start_new_session=True,
                )
        self._child.stdin.write(json.dumps(question).encode() + b"\n")
        self._child.stdin.flush()
        answer = self._child.stdout.readline()
        if not answer:
            raise RuntimeError(f"the accessibility helper has ended: {self._errors.read_text(errors='replace')}")
        return json.loads(answer)

    def stop(self):
        if self._child:
            self._child.kill()
            self._child.wait(ANSWER_SECONDS)
            self._child.stdin.close()
            self._child.stdout.close()
            self._child = None


def _node(data):
    children = [_node(child) for child in data.pop("children")]
    return Node(children=children, **data)


def _serve():
    import gi

    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib

    Atspi.init()
    Atspi.set_timeout(2000, 5000)

    def application(pid):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            try:
                if child and child.get_process_id() == pid:
                    return child
            except GLib.Error:
                continue
        return None

    # An interface's methods are called by the interface's name: from at-spi2 2.56 on, what the getters give is the
    # node itself, whose own deprecated methods have the same names.
    def describe(node, path):
        states = [state.value_nick for state in node.get_state_set().get_states()]
        component = node.get_component_iface()
        extents = Atspi.Component.get_extents(component, Atspi.CoordType.SCREEN) if component else None
        text = node.get_text_iface()
        role = node.get_role_name()
        children = []
        for index in range(node.get_child_count()):
            child = node.get_child_at_index(index)
            if child:
                children.append(describe(child, [*path, index]))
        return {
            "path": path, "role": OLDER_ROLE_NAMES.get(role, role), "name": node.get_name() or "", "states": states,
            "extents": [extents.x, extents.y, extents.width, extents.height] if extents else [0, 0, 0, 0],
            "text": Atspi.Text.get_text(text, 0, Atspi.Text.get_character_count(text)) if text else "",
            "children": children,
        }

    def answer(question):
        if "tree" in question:
            root = application(question["tree"])
            try:
                root and root.clear_cache()
                return {"tree": describe(root, []) if root else None}
            except GLib.Error:
                return {"tree": None}
        node = application(question["pid"])
        for index in question["path"]:
            node = node and node.get_child_at_index(index)  # none while the program is changing what it shows
        actions = node and node.get_action_iface()
        for index in range(Atspi.Action.get_n_actions(actions) if actions else 0):
            if Atspi.Action.get_action_name(actions, index) == question["act"]:
                return {"done": bool(Atspi.Action.do_action(actions, index))}
        return {"done": False}

    context = GLib.MainContext.default()
    for line in sys.stdin:
        while context.pending():
            context.iteration(False)
        print(json.dumps(answer(json.loads(line))), flush=True)


if __name__ == "__main__":
    _serve()
