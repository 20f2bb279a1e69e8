# SPDX-License-Identifier: MIT
"""What a walk through the windows keeps: a copy of the program's folder to work in, how many parts each window
has, what is wrong with them, what could be pressed and what was."""
import os
import shutil
import time

from gi.repository import GLib

from assistive import (Missing, Program, actions, catalogue_names, do_action, everything, find, is_shown, states,
                       wait_for)

PRESSABLE = ("push button", "link")


def content(path):
    with open(path, "rb") as file:
        return file.read()


def check_equal(seen, expected):
    if seen != expected:
        raise Missing(f"{expected!r}; seen {seen!r}")


class Walk:
    def __init__(self, source, work):
        self.copy = os.path.join(work, "torvane")
        self.config = os.path.join(work, "config")
        self.outside = os.path.join(work, "outside")
        self.roms = os.path.join(self.copy, "roms")
        self.english = self.copy + r"\data\lang\lang_eng.tvl"
        self.played = os.path.join(work, "played")
        self.catalogue = catalogue_names()
        self.parts, self.faults, self.failed = {}, [], []
        self.offered, self.pressed = {}, {}
        shutil.copytree(source, self.copy, symlinks=True)
        os.makedirs(self.outside)
        self._record_plays()

    def _record_plays(self):
        folder = os.path.join(self.copy, "emuladores")
        with open(os.path.join(folder, "emus.dat"), "wb") as table:
            table.write(b"Recorder#\\record.sh\r\n")
        recorder = os.path.join(folder, "record.sh")
        with open(recorder, "w", encoding="utf-8") as script:
            script.write(f'#!/bin/sh\nprintf "%s" "$*" >"{self.played}.new"\nmv "{self.played}.new" "{self.played}"\n')
        os.chmod(recorder, 0o755)

    # The program and its files
    def start(self, language="eng", **settings):
        path = f"{self.copy}\\data\\lang\\lang_{language}.tvl"
        return Program(self.copy, self.config, **({"Language": path} if language else {}), **settings)

    def rom(self, name):
        return os.path.join(self.roms, name)

    def fill_library(self, names):
        for name in os.listdir(self.roms):
            if os.path.isfile(self.rom(name)):
                os.remove(self.rom(name))
        for name in names:
            with open(self.rom(name), "wb") as file:
                file.write(bytes(3000))

    def original(self, name):
        path = os.path.join(self.outside, name)
        with open(path, "wb") as file:
            file.write(name.encode())
        return path

    def wait_played(self, path):
        wait_for(f"a play of {path}", lambda: os.path.exists(self.played))
        game = content(self.played).decode()
        os.remove(self.played)
        check_equal(game, path)

    # What the walk does
    def check(self, text, step, *arguments):
        began = time.monotonic()
        try:
            step(*arguments)
            print(f"ok      {text} ({time.monotonic() - began:.1f} s)", flush=True)
        except (Missing, OSError, GLib.Error) as fault:
            self.failed.append(text)
            print(f"FAILED  {text}: {fault}", flush=True)

    def look(self, window, name):
        """Looks at all parts of a window, `name` in the catalogue."""
        parts = list(everything(window))
        self.parts[name] = max(self.parts.get(name, 0), len(parts))
        for part in parts:
            fault = self._fault_of(part, name)
            if fault:
                self.faults.append(f"{name}: {part.get_role_name()} {part.get_name()!r} {fault}")
            elif part.get_role_name() in PRESSABLE and is_shown(part) and "sensitive" in states(part):
                self.offered.setdefault(name, set()).add(part.get_name())

    def _fault_of(self, part, window):
        words = part.get_name().strip()
        if not words:
            time.sleep(0.5)  # the program may be about to write the words
            words = part.get_name().strip()
        if not words:
            return "has no name"
        if words in self.catalogue[window]:
            return "is named like the catalogue"
        if part.get_role_name() not in PRESSABLE:
            return None
        can_be_pressed = "Press" in actions(part)
        if "sensitive" in states(part):
            return None if can_be_pressed else "can't be pressed"
        return "is disabled and can be pressed" if can_be_pressed else None

    def press(self, window, name, words):
        """Presses what is called so in a window, `name` in the catalogue."""
        do_action(find(window, words, PRESSABLE), "Press")
        self.pressed.setdefault(name, set()).add(words)

    def press_last(self, window, name, words):
        """The same for what ends the program, which may be gone before it has answered."""
        try:
            self.press(window, name, words)
        except GLib.Error:
            self.pressed.setdefault(name, set()).add(words)

    def report(self):
        """Prints the totals. Gives whether all is well."""
        print("\n| Window | Parts | Can be pressed | Pressed |\n|---|--:|--:|--:|")
        for name in sorted(self.parts):
            offered, pressed = self.offered.get(name, set()), self.pressed.get(name, set())
            print(f"| {name} | {self.parts[name]} | {len(offered)} | {len(offered & pressed)} |")
            for words in sorted(offered - pressed):
                self.faults.append(f"{name}: {words!r} was never pressed")
        unnamed = sum("has no name" in fault for fault in self.faults)
        like_catalogue = sum("like the catalogue" in fault for fault in self.faults)
        print(f"\n{sum(self.parts.values())} parts, {unnamed} unnamed, {like_catalogue} named like the catalogue")
        for fault in dict.fromkeys(self.faults):
            print(f"FAILED  {fault}")
        return not self.faults and not self.failed


def answer_box(program, title, button):
    """Answers a message box."""
    do_action(find(program.window(title), button, PRESSABLE), "Press")
    program.wait_gone(title)


def answer_dialog(program, title, path, button):
    """Answers a file dialog with a path."""
    dialog = program.window(title)

    def first(condition):
        return lambda: next((part for part in everything(dialog) if is_shown(part) and condition(part)), None)

    entry = wait_for("the field of the dialog", first(lambda part: "editable" in states(part)))
    entry.get_editable_text_iface().set_text_contents(path)
    answer = wait_for(f"the button {button!r}", first(
        lambda part: part.get_name() == button and "sensitive" in states(part) and "Press" in actions(part)))
    do_action(answer, "Press")
    program.wait_gone(title)
