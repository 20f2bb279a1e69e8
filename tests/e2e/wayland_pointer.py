#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
# A mouse for a Wayland compositor without any: it speaks the protocol wlr-virtual-pointer-unstable-v1, as sway does.
# Reads lines: "move X Y WIDTH HEIGHT" (pixels of a desk of that size), "press" or "release" with "left" or "right",
# "wheel STEPS". Answers each with "done" as soon as the compositor has dealt with it. "token" gives an activation
# token (xdg-activation-v1) instead, as launchers get it for the programs that they start.
import os
import socket
import struct
import sys

DISPLAY = 1
BUTTONS = {"left": 0x110, "right": 0x111}


class Connection:
    def __init__(self):
        path = os.path.join(os.environ["XDG_RUNTIME_DIR"], os.environ["WAYLAND_DISPLAY"])
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(path)
        self.newest = DISPLAY
        self.clock = 0

    def send(self, target, opcode, *words, text=None):
        body = b"".join(struct.pack("=i" if word < 0 else "=I", word) for word in words)
        if text is not None:  # the name of an interface comes second in the only request that has one
            name = text.encode() + b"\0"
            name = struct.pack("=I", len(name)) + name + b"\0" * (-len(name) % 4)
            body = body[:4] + name + body[4:]
        self.socket.sendall(struct.pack("=II", target, (len(body) + 8) << 16 | opcode) + body)

    # Numbers of objects have to follow each other.
    def new_object(self):
        self.newest += 1
        return self.newest

    def read(self, size):
        data = b""
        while len(data) < size:
            more = self.socket.recv(size - len(data))
            if not more:
                sys.exit("the compositor has closed the connection")
            data += more
        return data

    # The events until the compositor has handled all that was sent.
    def round_trip(self):
        callback = self.new_object()
        self.send(DISPLAY, 0, callback)
        while True:
            target, head = struct.unpack("=II", self.read(8))
            body = self.read((head >> 16) - 8)
            if target == callback:
                return
            if target == DISPLAY and head & 0xFFFF == 0:
                sys.exit("the compositor reports an error: " + body[12:].decode(errors="replace"))
            yield target, body

    def time(self):
        self.clock += 8
        return self.clock


def bind(connection, interface):
    registry = connection.new_object()
    connection.send(DISPLAY, 1, registry)
    for target, body in list(connection.round_trip()):
        if target != registry:
            continue
        name, length = struct.unpack("=II", body[:8])
        if body[8 : 8 + length - 1] == interface.encode():
            manager = connection.new_object()
            connection.send(registry, 0, name, 1, manager, text=interface)
            return manager
    sys.exit("the compositor has no " + interface)


def make_pointer(connection):
    manager = bind(connection, "zwlr_virtual_pointer_manager_v1")
    pointer = connection.new_object()
    connection.send(manager, 0, 0, pointer)
    return pointer


def make_token(connection):
    manager = bind(connection, "xdg_activation_v1")
    token = connection.new_object()
    connection.send(manager, 1, token)
    connection.send(token, 3)
    for target, body in list(connection.round_trip()):
        if target == token:
            return body[4 : 4 + struct.unpack("=I", body[:4])[0] - 1].decode()
    sys.exit("the compositor gives no token")


def obey(connection, pointer, order, *words):
    if order == "move":
        connection.send(pointer, 1, connection.time(), *(int(word) for word in words))
    elif order in ("press", "release"):
        connection.send(pointer, 2, connection.time(), BUTTONS[words[0]], order == "press")
    elif order == "wheel":
        steps = int(words[0])
        connection.send(pointer, 5, 0)
        connection.send(pointer, 7, connection.time(), 0, steps * 15 * 256, steps)
    connection.send(pointer, 4)
    list(connection.round_trip())


connection = Connection()
pointer = make_pointer(connection)
for line in sys.stdin:
    if line.strip() == "token":
        print(make_token(connection), flush=True)
        continue
    obey(connection, pointer, *line.split())
    print("done", flush=True)
