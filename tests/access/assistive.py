# SPDX-License-Identifier: MIT
"""An assistive tool in small: looks at the program through at-spi2's own client library, finds things by the
names that a person would say, and presses them."""
import csv
import os
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))


class Missing(Exception):
    """Something did not come about in time."""


def wait_for(what, condition, seconds=10):
    """Waits until the condition gives something true, and returns that. Events are heard meanwhile."""
    end = time.monotonic() + seconds
    while True:
        try:
            result = condition()
        except GLib.Error:  # what is looked at has just gone
            result = None
        if result:
            return result
        if time.monotonic() > end:
            raise Missing(what)
        while GLib.MainContext.default().iteration(False):
            pass
        time.sleep(0.02)


def children(part):
    return [child for child in map(part.get_child_at_index, range(part.get_child_count())) if child]


def everything(part):
    """The part and all below it, in the order of the tree."""
    yield part
    for child in children(part):
        yield from everything(child)


def states(part):
    return {state.value_nick for state in part.get_state_set().get_states()}


def is_shown(part):
    return {"showing", "visible"} <= states(part)


def actions(part):
    if part.get_action_iface() is None:
        return []
    return [Atspi.Action.get_action_name(part, i) for i in range(Atspi.Action.get_n_actions(part))]


def do_action(part, name):
    names = actions(part)
    if name not in names:
        raise Missing(f"{part.get_name()!r} has no action {name!r}, only {names}")
    Atspi.Action.do_action(part, names.index(name))


class Listener:
    """Keeps the names of what events of one kind are about, for as long as it is used as a context."""

    def __init__(self, kind):
        self.kind = kind
        self.names = []
        self._listener = Atspi.EventListener.new(self._hear)

    def _hear(self, event):
        if event.detail1 or "name" in self.kind:  # of states only that they come, not that they go
            self.names.append(event.source.get_name())

    def __enter__(self):
        self._listener.register(self.kind)
        return self

    def __exit__(self, *_):
        self._listener.deregister(self.kind)

    def wait(self, name):
        wait_for(f"an event {self.kind} of {name!r}", lambda: name in self.names)


def catalogue_names():
    """For each window what the catalogue calls it and its controls: no words for a person, but for one heading of
    the gallery, which says "Format" in two languages."""
    names = {}
    with open(os.path.join(HERE, "../catalogue/controls.tsv"), encoding="utf-8") as table:
        for row in csv.DictReader(table, delimiter="\t", quoting=csv.QUOTE_NONE):
            names.setdefault(row["window"], {row["window"]}).add(row["control"])
    names["Compartir"].discard("Format")
    return names


def application_of(process):
    """What the process of that number shows on the bus; nothing before there is a window."""
    desktop = Atspi.get_desktop(0)
    desktop.set_cache_mask(Atspi.Cache.NONE)
    for part in children(desktop):
        if part.get_process_id() == process and part.get_child_count() > 0:
            return part
    return None


class Program:
    """The running program, as the tool sees it. Used as a context: it is ended in any case."""

    def __init__(self, folder, config, **settings):
        self.folder = folder
        self.conf = os.path.join(config, "Torvane", "Torvane.conf")
        os.makedirs(os.path.dirname(self.conf), exist_ok=True)
        with open(self.conf, "w", encoding="cp1252") as conf:
            conf.write("[Config]\n" + "".join(f"{key} = {value}\n" for key, value in settings.items()))
        environment = dict(os.environ, XDG_CONFIG_HOME=config, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.process = subprocess.Popen([os.path.join(folder, "torvane")], env=environment)

    def __enter__(self):
        self.application = wait_for("the program on the bus", lambda: application_of(self.process.pid))
        self.application.set_cache_mask(Atspi.Cache.NONE)
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def has_ended(self):
        return self.process.poll() is not None

    def settings(self):
        with open(self.conf, encoding="cp1252") as conf:
            return conf.read()

    def window_if_shown(self, name):
        for window in children(self.application):
            if window.get_name() == name and is_shown(window):
                return window
        return None

    def window(self, name, seconds=10):
        return wait_for(f"the window {name!r}", lambda: self.window_if_shown(name), seconds)

    def wait_gone(self, name):
        wait_for(f"the end of the window {name!r}", lambda: not self.window_if_shown(name))


def find(root, name, roles=None):
    """A part that is shown, by its name; waits for it."""

    def look():
        for part in everything(root):
            if part.get_name() == name and (not roles or part.get_role_name() in roles) and is_shown(part):
                return part
        return None

    return wait_for(f"{name!r} in {root.get_name()!r}", look)


def top_of(part):
    """The upper edge of a part on the screen, in pixels."""
    return Atspi.Component.get_extents(part, Atspi.CoordType.SCREEN).y


def is_there(root, name):
    return any(part.get_name() == name and is_shown(part) for part in everything(root))


def rows(root):
    """The rows of the lists in a window."""
    return [part for part in everything(root) if part.get_role_name() in ("list item", "table cell", "tree item")]


def field(root, name):
    return find(root, name, ("text", "entry"))


def text_of(part):
    return Atspi.Text.get_text(part, 0, Atspi.Text.get_character_count(part))


def fill_in(root, name, text):
    Atspi.EditableText.set_text_contents(field(root, name), text)
