#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the archives of this folder, sound ones and hostile ones, and expected.tsv next to them.

Each entry of LIST is one archive: its name, what is wrong with it, its bytes, the files that must come out of it
(and no others; a list of alternatives where versions of libzip differ), and why no game comes out (damaged by
default). The records follow PKWARE's APPNOTE.TXT, section 4.3. Run this script after changing it.
"""
import bz2
import lzma
import os
import stat
import struct
import sys
import urllib.parse
import zlib

UTF8, ENCRYPTED, DESCRIPTOR = 0x800, 1, 8
UNIX, DOS = 3, 0
STORED, DEFLATED, BZIP2, LZMA = 0, 8, 12, 14


def packed(data, method):
    if method == DEFLATED:
        maker = zlib.compressobj(9, zlib.DEFLATED, -15)
        return maker.compress(data) + maker.flush()
    if method == BZIP2:
        return bz2.compress(data)
    if method == LZMA:
        filters = [{"id": lzma.FILTER_LZMA1, "dict_size": 1 << 16}]
        return b"\x09\x14\x05\x00\x5d\x00\x00\x01\x00" + lzma.compress(data, lzma.FORMAT_RAW, filters=filters)
    return data


class Entry:
    """One entry. `lies` replace true values in both headers, or with the prefix `local_` only in the local one."""

    def __init__(self, name, data=b"rom", method=STORED, **lies):
        self.name = name.encode() if isinstance(name, str) else name
        self.data, self.method, self.lies = data, method, lies
        self.raw = lies.get("raw", packed(data, method))

    def value(self, key, truth, local):
        return self.lies.get("local_" + key, self.lies.get(key, truth)) if local else self.lies.get(key, truth)

    def head(self, local, offset=0):
        def field(key, truth):
            return self.value(key, truth, local)

        name, extra, comment = field("name_bytes", self.name), field("extra", b""), field("comment", b"")
        common = struct.pack(
            "<HHHHHIII", field("needed", 20), field("flags", 0), field("method", self.method), 0, 0x21,
            field("crc", zlib.crc32(self.data)), field("packed_size", len(self.raw)), field("size", len(self.data)))
        if local:
            return b"PK\3\4" + common + struct.pack("<HH", len(name), len(extra)) + name + extra
        mode = field("mode", 0)
        return (b"PK\1\2" + bytes([20, field("system", UNIX if mode else DOS)]) + common + struct.pack(
            "<HHHHHII", len(name), len(extra), len(comment), field("disk", 0), 0, mode << 16 | field("attributes", 0),
            field("offset", offset)) + name + extra + comment)


def end(entries, size, offset, comment=b"", disk=0, comment_length=None):
    length = len(comment) if comment_length is None else comment_length
    return struct.pack("<4sHHHHIIH", b"PK\5\6", disk, disk, entries & 0xFFFF, entries & 0xFFFF, size, offset,
                       length) + comment


def end64(entries, size, offset, place, record=None):
    """The 64-bit end record, its locator, and an end record that refers to them."""
    made = struct.pack("<4sQHHIIQQQQ", b"PK\6\6", 44, 45, 45, 0, 0, entries, entries, size, offset)
    return (made + struct.pack("<4sIQI", b"PK\6\7", 0, place if record is None else record, 1) +
            end(0xFFFF, 0xFFFFFFFF, 0xFFFFFFFF))


def archive(*entries, prefix=b"", shift=0, zip64=None, tail=b"", **lies):
    body, directory = prefix, b""
    for entry in entries:
        directory += entry.head(False, len(body) + shift)
        body += entry.head(True) + entry.raw + entry.lies.get("behind", b"")
    count, size = lies.pop("count", len(entries)), lies.pop("size", len(directory))
    offset = lies.pop("offset", len(body) + shift)
    if zip64 is not None:
        return body + directory + end64(zip64.get("count", count), size, offset, len(body + directory),
                                        zip64.get("record")) + tail
    return body + directory + end(count, size, offset, **lies) + tail


def descriptor(data, crc=None):
    return struct.pack("<4sIII", b"PK\7\10", zlib.crc32(data) if crc is None else crc, len(data), len(data))


def unicode_path(name, crc):
    path = name.encode()
    return struct.pack("<HHBI", 0x7075, 5 + len(path), 1, crc) + path


def sizes64(size, packed_size):
    return struct.pack("<HHQQ", 1, 16, size, packed_size)


def file(kind, permissions=0o644):
    return {"system": UNIX, "mode": kind | permissions}


GAME = Entry("game.gb", b"game")
SOUND = archive(GAME)
LONG = bytes(range(256)) * 2
# A record that claims a million entries, and a locator that finds it in an archive whose first entry holds it.
MANY = end64(1_000_000, 1, 1, 0)[:56]
LOCATOR = struct.pack("<4sIQI", b"PK\6\7", 0, 34, 1)
ALL = {"game.gb": b"game"}
E = Entry

# name, what is wrong, bytes, the files that come out, why no game comes out (damaged by default)
LIST = [
    ("sound", "nothing: stored, deflated, bzip2 and an empty entry", archive(
        GAME, E("b.gbc", LONG, DEFLATED), E("c.gba", LONG, BZIP2), E("empty", b"")),
     {**ALL, "b.gbc": LONG, "c.gba": LONG, "empty": b""}),
    ("nothing", "it has no entries", archive(), {}, "nothingWanted"),
    ("zero", "it has no bytes", b"", {}),
    ("text", "it is no archive", b"This is a game.\n" * 20, {}),
    # Names that lead out of the folder.
    ("parent", "a name leads out of the folder", archive(E("../out.gb"), E("a/../../out.gb"), GAME), ALL),
    ("parent-inside", "a name leads out and in again", archive(E("x/../in.gb"), E("../target/in.gb"), GAME), ALL),
    ("absolute", "names begin at the root", archive(E("/out.gb"), E("//out.gb"), E("/tmp/out.gb"), GAME), ALL),
    ("backslashes", "folders are separated by backslashes", archive(
        E("..\\out.gb"), E("sub\\in.gb"), E("\\out.gb"), E("\\\\host\\out.gb"), E("end.gb\\"), GAME), ALL),
    ("drives", "names begin with a drive", archive(E("C:out.gb"), E("c:\\out.gb"), E("z:/out.gb"), GAME), ALL),
    ("colon", "nothing: a colon that is no drive's", archive(E("ab: c.gb")), {"ab: c.gb": b"rom"}),
    ("subfolders", "entries lie in subfolders", archive(E("sub/", b""), E("sub/a.gb"), E("sub/t/b.gb"), GAME), ALL),
    ("here", "names begin with the folder itself", archive(E("./game.gb", b"game"), E("././b.gb"), E(".//out.gb")),
     {**ALL, "b.gb": b"rom"}),
    ("here-out", "the folder itself and out of it", archive(E("./../out.gb"), E("./."), E("./.."), GAME), ALL),
    ("dots", "names of dots, and none at all", archive(
        E(""), E("."), E(".."), E("..."), E(". ."), E("./"), E("../"), E("/"), GAME), ALL),
    ("hidden", "names that no list shows, and our own hidden ones", archive(
        E(".hidden"), E(".torvane-abc123"), E(".torvane-append-abc123"), E(".bashrc"), GAME), ALL),
    ("devices-elsewhere", "names of devices of another system", archive(
        E("CON"), E("nul.gb"), E("Com1.gba"), E("LPT9.tar.gz"), E("aux .gb"), E("prn"), E("com10.gb"), E("cons.gb")),
     {"com10.gb": b"rom", "cons.gb": b"rom"}),
    ("blank-ends", "names end with dots and blanks", archive(
        E("game.gb. .", b"game"), E("b.gb "), E(" c.gb"), E("  "), E(".. ")), {**ALL, "b.gb": b"rom", " c.gb": b"rom"}),
    ("controls", "names hold control characters", archive(
        E("a\nb.gb"), E("a\tb.gb"), E("a\rb.gb"), E("\x7f.gb"), E("\x7fé", flags=UTF8), E("\x85é", flags=UTF8),
        E("\u2028.gb", flags=UTF8), GAME), ALL),
    ("controls-utf8", "a name in UTF-8 holds an escape character", archive(E("\x1b[2Jé.gb", flags=UTF8), GAME), ALL),
    ("controls-cp437", "control characters are signs in the format's own code page", archive(E(b"\1\x1b.gb"), GAME),
     {**ALL, "☺←.gb": b"rom"}),
    ("zeros", "names hold zeros, which end them elsewhere", archive(
        E("a.gb\0.txt"), E("..\0/out.gb"), E("\0", b"x"), GAME), {**ALL, "a.gb .txt": b"rom"}),
    ("directions", "names are read from the other side", archive(
        E("game\u202ebg.exe", flags=UTF8), E("\u2066a", flags=UTF8), E("a\u200f", flags=UTF8), GAME), ALL),
    ("wildcards", "nothing: signs that have a meaning elsewhere", archive(
        E("a*b?.gb"), E("$(x)`y`.gb"), E("-rf"), E("a|b<c>\"d'.gb"), E("%s%n.gb")),
     {"a*b?.gb": b"rom", "$(x)`y`.gb": b"rom", "-rf": b"rom", "a|b<c>\"d'.gb": b"rom", "%s%n.gb": b"rom"}),
    ("cp437", "nothing: names in the format's own code page", archive(E(b"\xa4andu.gb"), E(b"\x82\x9c.gb")),
     {"ñandu.gb": b"rom", "é£.gb": b"rom"}),
    ("utf8", "nothing: names in UTF-8", archive(E("ñandú.gb", flags=UTF8), E("日本🎮.gba", flags=UTF8)),
     {"ñandú.gb": b"rom", "日本🎮.gba": b"rom"}),
    ("utf8-unmarked", "names in UTF-8 that are not marked so", archive(E("Pokémon.gb")), {"Pokémon.gb": b"rom"}),
    ("utf8-wrong", "a name is marked as UTF-8 and is none", archive(E(b"a\xff.gb", flags=UTF8), GAME), ALL),
    ("utf8-wrong-names", "several names are marked as UTF-8 and are none", archive(
        E(b"\xff", flags=UTF8), GAME, E(b"b\xc3.gb", flags=UTF8), E("é.gb", flags=UTF8), E(b"\xa4andu.gb"),
        E(b"c\xed\xa0\x80", flags=UTF8), prefix=b"#!/bin/sh\n", comment=b"PK\5\6" * 9),
     {**ALL, "é.gb": b"rom", "ñandu.gb": b"rom"}),
    ("utf8-wrong-zip64", "a name is marked as UTF-8 and is none, and records are of 64 bits", archive(
        E(b"a\xff.gb", flags=UTF8), GAME, zip64={}), ALL),
    ("utf8-wrong-comment", "a comment is marked as UTF-8 and is none", archive(
        E("é.gb", flags=UTF8, comment=b"\xff\1"), E("b\1.gb", flags=UTF8, comment=b"\xff"), GAME),
     {**ALL, "é.gb": b"rom"}),
    ("utf8-wrong-empty", "a name is empty and its comment is no UTF-8", archive(
        E("", flags=UTF8, comment=b"\xff"), GAME), ALL),
    ("utf8-overlong", "a slash in a form that is no UTF-8", archive(E(b"..\xc0\xafout.gb"), GAME), ALL),
    ("unicode-path", "a second name leads out", archive(
        E("a.gb", extra=unicode_path("../out.gb", zlib.crc32(b"a.gb"))),
        E("b.gb", extra=unicode_path("ñ.gb", zlib.crc32(b"b.gb"))),
        E("c.gb", extra=unicode_path("d.gb", 0))), {"ñ.gb": b"rom", "c.gb": b"rom"}),
    ("long", "names of 255 bytes and more", archive(
        E("a" * 252 + ".gb"), E("b" * 253 + ".gb"), E("c" * 4096), E("é" * 128, flags=UTF8), E("d" * 30000)),
     {"a" * 252 + ".gb": b"rom"}),
    ("long-ends", "a name of 4096 bytes, of which most are cut off", archive(E("a.gb" + " " * 4092)),
     {"a.gb": b"rom"}),
    # Names that collide.
    ("twice", "a name stands there twice", archive(GAME, E("game.gb", b"other")), ALL),
    ("twice-damaged", "the first of two equal names is damaged", archive(E("game.gb", b"gone", crc=1), GAME), ALL),
    ("case-twins", "names differ in their case", archive(GAME, E("GAME.GB"), E("É.gb"), E("é.gb", b"x")),
     {**ALL, "É.gb": b"rom"}),
    ("blank-twins", "names differ in what is cut off", archive(GAME, E("game.gb."), E("./game.gb "), E("game.gb/x")),
     ALL),
    ("file-and-folder", "a name is that of a file and of a folder", archive(E("a"), E("a/", b""), E("a/b"), GAME),
     {**ALL, "a": b"rom"}),
    # Entries that are not files.
    ("links", "entries are links", archive(
        E("link", b"../out", **file(stat.S_IFLNK, 0o777)), E("link", b"/etc/passwd", **file(stat.S_IFLNK)),
        E("link/out.gb"), GAME), ALL),
    ("link-elsewhere", "a link from a system that has none", archive(
        E("link", b"out", mode=stat.S_IFLNK | 0o777, system=DOS), GAME), ALL),
    ("devices", "entries are devices, pipes and sockets", archive(
        E("chr", **file(stat.S_IFCHR)), E("blk", **file(stat.S_IFBLK)), E("pipe", **file(stat.S_IFIFO)),
        E("sock", **file(stat.S_IFSOCK)), E("strange", **file(0o170000)), GAME), ALL),
    ("rights", "files are to run with the rights of their maker", archive(
        E("game.gb", b"game", **file(stat.S_IFREG, 0o7777)), E("b.gb", **file(0, 0o777)), E("c", **file(0o100000, 0))),
     {**ALL, "b.gb": b"rom", "c": b"rom"}),
    ("folder-attribute", "a folder is one by its attribute alone", archive(
        E("dir", b"", attributes=0x10), E("label", b"", attributes=8), E("ro.gb", attributes=0x27), GAME),
     {**ALL, "ro.gb": b"rom"}),
    # False values about the data.
    ("crc", "a checksum is wrong", archive(E("a.gb", LONG, crc=1), E("b.gb", LONG, DEFLATED, crc=1), GAME), ALL),
    ("size-larger", "sizes are given too large", archive(
        E("a.gb", LONG, DEFLATED, size=900), E("b.gb", LONG, size=900), GAME), ALL),
    ("size-smaller", "sizes are given too small", archive(
        E("a.gb", LONG, DEFLATED, size=10), E("b.gb", LONG, DEFLATED, size=0), GAME), ALL),
    ("packed-larger", "packed sizes reach beyond the end; a deflated one ends by itself", archive(
        E("a.gb", LONG, DEFLATED, packed_size=1 << 30), E("b.gb", LONG, packed_size=1 << 30), GAME), {**ALL, "a.gb": LONG}),
    ("packed-smaller", "packed sizes cut what comes", archive(
        E("a.gb", LONG, DEFLATED, packed_size=100), E("b.gb", LONG, packed_size=100), GAME), ALL),
    ("garbage", "what is to be unpacked is garbage", archive(
        E("a.gb", LONG, DEFLATED, raw=LONG), E("b.gb", LONG, BZIP2, raw=LONG), E("c.gb", b"", DEFLATED, raw=b"\6"),
        GAME), ALL),
    ("cut-stream", "a packed stream has no end", archive(
        E("a.gb", LONG, DEFLATED, raw=packed(LONG, DEFLATED)[:-60]),
        E("b.gb", LONG, BZIP2, raw=packed(LONG, BZIP2)[:-60]), GAME), ALL),
    ("endless-nothing", "a packed stream of empty blocks", archive(
        E("a.gb", b"a", DEFLATED, raw=b"\0\0\0\xff\xff" * 2000), GAME), ALL),
    ("local-name", "the header before the data has another name", archive(
        E("a.gb", local_name_bytes=b"../out.gb"), E("b.gb", local_name_bytes=b""), GAME),
     {**ALL, "a.gb": b"rom", "b.gb": b"rom"}),
    ("local-lies", "the header before the data has other sizes", archive(
        E("a.gb", LONG, DEFLATED, local_size=1, local_packed_size=1, local_crc=1), GAME), {**ALL, "a.gb": LONG}),
    ("local-missing", "there is no header where an entry is to begin", archive(
        E("a.gb", offset=3), E("b.gb", offset=0x7FFFFFFF), E("c.gb", offset=0xFFFFFFFE), GAME), ALL),
    ("overlap", "entries share their bytes", archive(
        E("a.gb", LONG, DEFLATED, behind=b"x"), E("b.gb", LONG, DEFLATED, offset=0), E("c.gb", LONG, crc=0, offset=0)),
     {"a.gb": LONG, "b.gb": LONG}),
    ("inside-out", "an entry reaches over the directory to the end", archive(
        E("a.gb", b"rom", packed_size=400, size=400), GAME), ALL),
    ("descriptor", "nothing: sizes are after the data", archive(
        E("a.gb", LONG, DEFLATED, flags=DESCRIPTOR, local_crc=0, local_size=0, local_packed_size=0,
          behind=descriptor(LONG)), GAME), {**ALL, "a.gb": LONG}),
    ("descriptor-lies", "what is after the data is wrong", archive(
        E("a.gb", LONG, flags=DESCRIPTOR, behind=descriptor(b"", 1)), GAME), {**ALL, "a.gb": LONG}),
    ("claims-4g", "an entry calls itself 4 GiB large", archive(E("a.gb", LONG, DEFLATED, size=0xFFFFFFFE), GAME), ALL),
    ("claims-8e", "an entry calls itself larger than any disk", archive(
        E("a.gb", b"rom", size=0xFFFFFFFF, packed_size=0xFFFFFFFF, extra=sizes64(1 << 63, 1 << 63)), GAME), ALL),
    # Encryption and rare methods.
    ("encrypted", "entries are encrypted", archive(
        E("a.gb", b"r" * 30, flags=ENCRYPTED), E("b.gb", flags=ENCRYPTED | 0x40),
        E("c.gb", b"r" * 40, method=99, flags=ENCRYPTED, extra=struct.pack("<HHH2sBH", 0x9901, 7, 2, b"AE", 3, 8)),
        GAME), ALL),
    ("methods", "entries are packed in rare ways", archive(
        E("shrunk", method=1), E("imploded", method=6), E("deflate64", method=9), E("ppmd", method=98),
        E("zstd", method=93), E("unknown", method=77), E("lzma.gb", LONG, LZMA), E("xz", method=95), GAME), ALL),
    ("method-lies", "stored is declared as deflated, and the other way", archive(
        E("a.gb", LONG, method=STORED, raw=packed(LONG, DEFLATED)), E("b.gb", LONG, DEFLATED, raw=LONG), GAME), ALL),
    # Several disks, long archives.
    ("disks", "it is one of several disks", archive(GAME, disk=1), {}),
    ("disk-entry", "an entry lies on another disk", archive(E("a.gb", disk=7), GAME), {**ALL, "a.gb": b"rom"}),
    ("spanned-mark", "it was to lie on several disks and lies on one", archive(GAME, prefix=b"PK\7\10"), ALL),
    ("zip64", "nothing: records of 64 bits", archive(
        GAME, E("b.gb", LONG, DEFLATED, size=0xFFFFFFFF, packed_size=0xFFFFFFFF,
                extra=sizes64(len(LONG), len(packed(LONG, DEFLATED)))), zip64={}), {**ALL, "b.gb": LONG}),
    ("zip64-count", "it claims more entries than there are bytes", archive(GAME, zip64={"count": 1 << 40}), {}),
    ("zip64-many", "it claims a million entries", archive(GAME, zip64={"count": 1_000_000}), {}),
    ("zip64-place", "its record of 64 bits lies nowhere", archive(GAME, zip64={"record": 1 << 62}), {}),
    ("zip64-minus", "its record of 64 bits lies before the beginning", archive(GAME, zip64={"record": 2**64 - 8}), {}),
    ("zip64-field", "a field of 64 bits is too short", archive(
        E("a.gb", size=0xFFFFFFFF, extra=struct.pack("<HHI", 1, 4, 3)), GAME), {}),
    ("locator-data", "nothing: a game holds a locator, and another one the end of an archive too", archive(
        E("a.gb", LOCATOR), E("b.gb", LOCATOR + end(1, 1, 1)), GAME),
     {**ALL, "a.gb": LOCATOR, "b.gb": LOCATOR + end(1, 1, 1)}),
    ("locators-data", "nothing: a game holds signs of locators and ends in one", archive(
        GAME, E("a.gb", b"PK\6\7" * 99)), {**ALL, "a.gb": b"PK\6\7" * 99}),
    ("locator-many", "nothing: a game claims a million entries where no archive ends", archive(
        E("a.gb", MANY), E("b.gb", LOCATOR), GAME), {**ALL, "a.gb": MANY, "b.gb": LOCATOR}),
    # The directory and its end.
    ("count-larger", "it claims more entries than it has", archive(GAME, count=9), {}),
    ("count-smaller", "it claims fewer entries than it has", archive(GAME, E("b.gb"), count=1), {}),
    ("directory-place", "its directory lies elsewhere", archive(GAME, offset=3), {}),
    ("directory-behind", "its directory reaches over its end", archive(GAME, size=5000), {}),
    ("directory-short", "its directory is given too small", archive(GAME, size=20), {}),
    ("extra-behind", "extra fields reach beyond the directory", archive(
        GAME, E("a.gb", extra=struct.pack("<HH", 0xCAFE, 0xFFFF))), {}),
    ("comment-long", "its comment is given too long", archive(GAME, comment=b"c", comment_length=500), [{}, ALL]),
    ("comment-end", "its comment holds another end", archive(GAME, comment=end(0, 0, 0)), [{}, ALL]),
    ("behind", "garbage follows it", archive(GAME, tail=b"\0garbage" * 40), ALL),
    ("in-front", "nothing: a program stands in front", archive(GAME, prefix=b"#!/bin/sh\nexit\n"), ALL),
    ("in-front-unminded", "a program stands in front that no place takes into account", b"MZ" + SOUND, {}),
    ("two-archives", "an archive follows another one", SOUND + archive(E("b.gb"), shift=len(SOUND)),
     [{"b.gb": b"rom"}, ALL]),
    ("within", "nothing: an archive lies in an archive", archive(E("in.zip", SOUND)), {"in.zip": SOUND},
     "nothingWanted"),
    ("cut", "its last byte is missing", SOUND[:-1], {}),
    # Folders at the top level.
    ("folder-one", "nothing: the games lie in one folder", archive(
        E("readme.txt"), E("Games/", b"", attributes=0x10), E("Games/game.gb", b"game"),
        E("Games/b.gba", LONG, DEFLATED), E("Games/license"), E("Games/more/c.gb")),
     {"readme.txt": b"rom", **ALL, "b.gba": LONG}),
    ("folder-spelled", "one folder is spelled in several ways", archive(
        E("Games/game.gb", b"game"), E("GAMES/b.gb"), E("./Games/c.gb"), E("games./d.gb"), E("Games/./e.gb")),
     {**ALL, "b.gb": b"rom", "c.gb": b"rom", "d.gb": b"rom", "e.gb": b"rom"}),
    ("folder-macos", "nothing: a system adds a folder of its own", archive(
        E("Games/game.gb", b"game"), E("__MACOSX/Games/._game.gb"), E("__MACOSX/._Games")), ALL),
    ("folder-two", "games lie in two folders", archive(E("one/a.gb"), E("two/b.gb")), {}, "inSubfolders"),
    ("folder-two-empty", "an empty folder lies beside the one with the games", archive(
        E("one/a.gb"), E("two/", b"")), {}, "inSubfolders"),
    ("folder-attribute-two", "the second folder is one by its attribute alone", archive(
        E("one/a.gb"), E("two", b"", attributes=0x10), E("three.txt", b"")), {"three.txt": b""}, "inSubfolders"),
    ("folder-deep", "games lie in a folder of a folder", archive(E("one/two/a.gb")), {}, "inSubfolders"),
    ("folder-beside", "a game lies beside the folder", archive(GAME, E("one/a.gb")), ALL),
    ("folder-beside-encrypted", "the game beside the folder is encrypted", archive(
        E("game.gb", flags=ENCRYPTED), E("one/a.gb")), {}, "encrypted"),
    ("folder-no-game", "no game lies in the folder", archive(E("one/readme.txt"), E("one/license")), {},
     "nothingWanted"),
    ("folder-out", "names lead out of the one folder", archive(
        E("Games/../out.gb"), E("Games/../target/in.gb"), E("Games//out.gb"), E("Games/..\\out.gb"),
        E("Games/\\out.gb"), E("Games/C:out.gb"),
        E("Games/sub/../../../out.gb"), E("Games/.."), E("Games/."), E("../out.gb"), E("/out.gb"),
        E("Games/game.gb", b"game")), ALL),
    ("folder-names", "names in the one folder are like those that are left out at the top", archive(
        E("Games/.hidden.gb"), E("Games/.torvane-abc123.gb"), E("Games/NUL.gb"), E("Games/a\nb.gb"),
        E("Games/" + "a" * 253 + ".gb"), E("Games/\u202ebg.gb", flags=UTF8), E("Games/game.gb. .", b"game")), ALL),
    ("folder-utf8-wrong", "names in the one folder are marked as UTF-8 and are none", archive(
        E(b"Games/\xff.gb", flags=UTF8), E(b"\xff/a.gb", flags=UTF8), E("Games/game.gb", b"game")), ALL),
    ("folder-twins", "names in the one folder differ in their case", archive(
        E("Games/game.gb", b"gone", crc=1), E("Games/game.gb", b"game"), E("Games/GAME.GB"), E("games/Game.gb ")), ALL),
    ("folder-parent", "the one folder is another one than the archive's", archive(
        E("../a.gb"), E("/b.gb"), E("./../c.gb"), E("..\\d.gb"), E("//e.gb")), {}, "nothingWanted"),
    ("folder-unnamed", "the folders have names that are left out", archive(
        E(".hidden/a.gb"), E("NUL/b.gb"), E("C:/c.gb"), E("a\\b/d.gb"), E("..../e.gb"), E("\n/f.gb")), {},
     "nothingWanted"),
    ("folder-links", "the folder and what lies in it are links", archive(
        E("Games", b"../other", **file(stat.S_IFLNK, 0o777)),
        E("Games/in.gb", b"../../other/in.gb", **file(stat.S_IFLNK)),
        E("Games/pipe.gb", **file(stat.S_IFIFO)), E("Games/game.gb", b"game")), ALL),
    # Nothing comes out.
    ("encrypted-all", "all entries are encrypted", archive(
        E("a.gb", b"r" * 30, flags=ENCRYPTED), E("b.gb", flags=ENCRYPTED | 0x40),
        E("c.gb", b"r" * 40, method=99, flags=ENCRYPTED, extra=struct.pack("<HHH2sBH", 0x9901, 7, 2, b"AE", 3, 8))), {},
     "encrypted"),
    ("encrypted-folder", "the games in the one folder are encrypted", archive(E("Games/a.gb", flags=ENCRYPTED)), {},
     "encrypted"),
    ("methods-all", "all entries are packed in rare ways", archive(E("a.gb", method=9), E("b.gb", LONG, LZMA)), {},
     "unknownMethod"),
    ("damaged-all", "all entries are damaged", archive(E("a.gb", crc=1), E("b.gb", LONG, DEFLATED, raw=LONG)), {}),
    ("mixed-all", "entries stay in for several reasons", archive(
        E("a.gb", crc=1), E("b.gb", flags=ENCRYPTED), E("c.gb", method=9)), {}),
    ("mixed-no-damage", "entries are encrypted, packed in rare ways or too large", archive(
        E("a.gb", flags=ENCRYPTED), E("b.gb", method=9), E("c.gb", size=0xFFFFFFFE)), {}, "unknownMethod"),
    ("large-all", "all entries call themselves too large", archive(E("a.gb", size=0xFFFFFFFE)), {}, "noRoom"),
    ("no-game", "no game is in it", archive(E("readme.txt"), E("license"), E("docs/a.txt")),
     {"readme.txt": b"rom", "license": b"rom"}, "nothingWanted"),
]


def quoted(text):
    return urllib.parse.quote(text, safe=" ")


def described(files):
    return "/".join(quoted(name) + "=" + quoted(content) for name, content in files.items())


def answers(expected):
    return expected if isinstance(expected, list) else [expected]


def reason(files, given):
    return "none" if any(".gb" in name.lower() for name in files) else given


def main():
    folder = os.path.dirname(os.path.abspath(sys.argv[0]))
    for old in os.listdir(folder):
        if old.endswith(".zip"):
            os.remove(os.path.join(folder, old))
    with open(os.path.join(folder, "expected.tsv"), "w", encoding="utf-8") as table:
        table.write("archive\twrong\texpected\treason\n")
        for name, wrong, content, expected, *given in LIST:
            with open(os.path.join(folder, name + ".zip"), "wb") as made:
                made.write(content)
            reasons = [reason(files, *(given or ["damaged"])) for files in answers(expected)]
            table.write("\t".join([name, wrong, "|".join(map(described, answers(expected))), "|".join(reasons)]) + "\n")


if __name__ == "__main__":
    main()
