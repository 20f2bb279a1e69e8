#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A desktop's side of status icons in small: it takes the program's icon over the session bus, looks at it, clicks
it, shows its menu to nobody and chooses entries. Each step is checked by what is on the screen.
Usage: tray_host.py PROGRAM SCREENSHOT_FOLDER, on a display and a session bus of their own (see tray)."""
import os
import subprocess
import sys
import time

from gi.repository import Gio, GLib

NAME = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
INTERFACE = f"""<node><interface name="{NAME}">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
</interface></node>"""
SEEN = ["Torvane 1.0 Build 26b", "Menú Rápido :)", "---", "Cambiar a modo Torvette", "---", "Herramientas", "---",
        "Configuración", "Acerca de...", "---", "Cargar la ROM seleccionada", "---", "Salir"]
TOOLS = ["Editar la lista de ROMs", "Buscar nuevos juegos", "Editar la Base de Datos ID3", "Galería de Capturas"]


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def wait_for(condition, seconds=10):
    """Waits until the condition gives something true, and returns that; requests of the program are served."""
    end = time.monotonic() + seconds
    while True:
        while GLib.MainContext.default().iteration(False):
            pass
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise TimeoutError
        time.sleep(0.02)


class Desktop:
    def __init__(self):
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.registered = []
        node = Gio.DBusNodeInfo.new_for_xml(INTERFACE)
        self.bus.register_object("/StatusNotifierWatcher", node.interfaces[0], self._called, self._asked, None)

    def _called(self, _bus, sender, _path, _interface, method, _arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            self.registered.append(sender)
        invocation.return_value(None)

    @staticmethod
    def _asked(_bus, _sender, _path, _interface, name):
        return {"RegisteredStatusNotifierItems": GLib.Variant("as", []),
                "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
                "ProtocolVersion": GLib.Variant("i", 0)}[name]

    def _name(self, method, arguments):
        self.bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
                           arguments, None, Gio.DBusCallFlags.NONE, -1)

    def come(self):
        self._name("RequestName", GLib.Variant("(su)", (NAME, 0)))

    def go(self):
        self._name("ReleaseName", GLib.Variant("(s)", (NAME,)))

    def item(self):
        """Waits for an icon that announces itself; gives its owner on the bus."""
        return wait_for(lambda: self.registered and self.registered.pop())


class Icon:
    """The program's icon as the desktop knows it."""

    def __init__(self, bus, owner):
        self.bus, self.owner = bus, owner
        path, properties = "/StatusNotifierItem", "org.freedesktop.DBus.Properties"
        self.properties = self._call(path, properties, "GetAll", "(s)", ITEM)[0]

    def _call(self, path, interface, method, kinds, *arguments):
        return self.bus.call_sync(self.owner, path, interface, method, GLib.Variant(kinds, arguments), None,
                                  Gio.DBusCallFlags.NONE, -1)

    def click(self):
        self._call("/StatusNotifierItem", ITEM, "Activate", "(ii)", 0, 0)

    def ask_for_menu(self):
        self._call("/StatusNotifierItem", ITEM, "ContextMenu", "(ii)", 0, 0)

    def entries(self):
        """What the menu, opened now, shows: captions of the level, with the number, state and submenu of each."""
        self._call(self.properties["Menu"], MENU, "AboutToShow", "(i)", 0)
        layout = self._call(self.properties["Menu"], MENU, "GetLayout", "(iias)", 0, -1, [])[1]
        return self._seen(layout)

    def _seen(self, node):
        shown = {}
        for number, properties, children in node[2]:
            if not properties.get("visible", True):
                continue
            caption = "---" if properties.get("type") == "separator" else properties["label"]
            key = caption if caption != "---" else f"---{number}"
            shown[key] = (number, properties.get("enabled", True), self._seen((number, properties, children)))
        return shown

    def choose(self, number):
        self._call(self.properties["Menu"], MENU, "Event", "(isvu)", number, "clicked", GLib.Variant("i", 0), 0)


def captions(entries):
    return [caption[:3] if caption.startswith("---") else caption for caption in entries]


def is_offered(icon, caption):
    entries = icon.entries()
    return caption in entries and entries[caption][1]


class Screen:
    """The program's windows, told apart by their sizes in the catalogue."""

    def __init__(self):
        table = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../catalogue/windows.tsv")
        scale = int(os.environ.get("QT_SCALE_FACTOR", "1"))
        with open(table, encoding="utf-8") as rows:
            lines = [line.split("\t") for line in rows][1:]
        self.sizes = {line[0]: (int(line[2]) * scale, int(line[3]) * scale) for line in lines}

    @staticmethod
    def _shown():
        for number in output("xdotool", "search", "--onlyvisible", "--class", "torvane").split():
            words = dict(line.split("=") for line in
                         output("xdotool", "getwindowgeometry", "--shell", number).split() if "=" in line)
            if words:
                yield number, (int(words["WIDTH"]), int(words["HEIGHT"]))

    def window(self, name):
        return next((number for number, size in self._shown() if size == self.sizes[name]), None)

    def menu(self):
        known = set(self.sizes.values())
        return next((number for number, size in self._shown() if size not in known and size[1] > 60), None)

    @staticmethod
    def is_minimised(window):
        return "Iconic" in output("xprop", "-id", window, "WM_STATE")

    @staticmethod
    def is_active(window):
        return output("xdotool", "getactivewindow").strip() == window


class Checks:
    def __init__(self, program, shots):
        self.shots, self.failed, self.number = shots, 0, 0
        self.desktop, self.screen = Desktop(), Screen()
        self.desktop.come()
        self.process = subprocess.Popen([program])

    def check(self, text, step):
        self.number += 1
        try:
            good = step()
        except (TimeoutError, GLib.Error, KeyError) as fault:
            good = False
            print(repr(fault))
        self.failed += not good
        name = "".join(c if c.isalnum() else "-" for c in text)
        output("maim", "-u", os.path.join(self.shots, f"bus-{self.number:02}-{name}.png"))
        print(f"{'ok' if good else 'FAILED':7} {self.number:2} {text}", flush=True)

    def announces_itself(self):
        self.icon = Icon(self.desktop.bus, self.desktop.item())
        self.main = wait_for(lambda: self.screen.window("MainFrm"))
        known = self.icon.properties
        return known["Status"] == "Active" and known["Title"] == "Torvane" and known["ToolTip"][2] == "Torvane"

    def has_picture(self):
        width, height, pixels = self.icon.properties["IconPixmap"][0]
        return len(pixels) == width * height * 4 and len(set(pixels)) > 10

    def has_menu(self):
        entries = self.icon.entries()
        return captions(entries) == SEEN and captions(entries["Herramientas"][2]) == TOOLS

    def minimise(self):
        output("xdotool", "windowminimize", self.main)
        return wait_for(lambda: self.screen.is_minimised(self.main))

    def is_back(self):
        return wait_for(lambda: not self.screen.is_minimised(self.main) and self.screen.is_active(self.main))

    def restores_minimised(self):
        self.minimise()
        self.icon.click()
        return self.is_back()

    def comes_from_behind(self):
        with subprocess.Popen(["xmessage", "-geometry", "600x500+240+120", "In front of everything"],
                              stderr=subprocess.DEVNULL) as cover:
            wait_for(lambda: not self.screen.is_active(self.main))
            self.icon.click()
            result = self.is_back()
            cover.kill()
        return result

    def opens_own_menu(self):
        self.icon.ask_for_menu()
        wait_for(self.screen.menu)
        output("xdotool", "key", "Escape")
        return wait_for(lambda: not self.screen.menu())

    def offers_minimised(self):
        self.minimise()
        self.icon.choose(wait_for(lambda: self.icon.entries().get("Ver Torvane"))[0])
        return self.is_back() and "Ver Torvane" not in self.icon.entries()

    def asks_once(self):
        exit_number = self.icon.entries()["Salir"][0]
        load_number = self.icon.entries()["Cargar la ROM seleccionada"][0]
        for number in (exit_number, exit_number, load_number):
            self.icon.choose(number)
        wait_for(lambda: self.screen.window("TorvMsg"))
        return not is_offered(self.icon, "Salir") and not is_offered(self.icon, "Cargar la ROM seleccionada")

    def calls_off(self):
        output("xdotool", "windowactivate", "--sync", self.screen.window("TorvMsg"), "key", "alt+F4")
        wait_for(lambda: not self.screen.window("TorvMsg"))
        return is_offered(self.icon, "Salir") and is_offered(self.icon, "Cargar la ROM seleccionada")

    def goes_compact(self):
        self.icon.choose(self.icon.entries()["Cambiar a modo Torvette"][0])
        return wait_for(lambda: self.screen.window("Torvette") and not self.screen.window("MainFrm"))

    def survives_desktop(self):
        self.desktop.go()
        self.desktop.come()
        self.icon = Icon(self.desktop.bus, self.desktop.item())
        return captions(self.icon.entries()) == SEEN

    def ends(self):
        self.icon.choose(self.icon.entries()["Salir"][0])
        question = wait_for(lambda: self.screen.window("TorvMsg"))
        output("xdotool", "windowactivate", "--sync", question, "mousemove", "--window", question, "70", "55", "click",
               "1")
        return wait_for(lambda: self.process.poll() is not None)

    def run(self):
        self.check("the icon announces itself on the bus", self.announces_itself)
        self.check("it has a picture", self.has_picture)
        self.check("and the whole menu without spare separators", self.has_menu)
        self.check("a click restores the minimised window", self.restores_minimised)
        self.check("and brings it from behind another one", self.comes_from_behind)
        self.check("a desktop without menus of its own gets the menu of the program", self.opens_own_menu)
        self.check("the menu offers the minimised window", self.offers_minimised)
        self.check("exit asks once and nothing else is done meanwhile", self.asks_once)
        self.check("called off it leaves all as it was", self.calls_off)
        self.check("the compact window replaces the main one", self.goes_compact)
        self.check("the icon comes back with a new desktop and so does its menu", self.survives_desktop)
        self.check("exit ends the program", self.ends)
        self.process.kill()
        return self.failed


if __name__ == "__main__":
    sys.exit(1 if Checks(*sys.argv[1:]).run() else 0)
