# SPDX-License-Identifier: MIT
"""A generated collection, its list, and a reading of tags that shares nothing with the program: only the form of the
line at the end of a game."""
import io
import os
import random
import zipfile
import zlib
from xml.sax.saxutils import quoteattr

KIB = 1024
SIZES = [32 * KIB] * 4 + [64 * KIB] * 3 + [128 * KIB] * 2 + [256 * KIB, 512 * KIB, KIB * KIB]
KINDS = {"gb": "byn", "gbc": "color", "gba": "advance"}
MARKER = b"ID3TAG\xa7"
SHIFTED = b"V\xf6\xa7R\xe4N"


class Game:
    """A game, its place in the list, and how it lies in the library."""

    def __init__(self, number):
        make = random.Random(number)
        self.number = number
        self.kind = list(KINDS)[number % 3]
        self.image = make.randbytes(make.choice(SIZES))
        dots = "Dr. " if number % 4 == 1 else ""
        version = " (V1.1) [!]" if number % 4 in (1, 2) else " (Café & Söhne)"
        self.title = f"{dots}Game {number:04}{version}"
        self.company = "" if number % 9 == 0 else f"Société {number % 7}"
        self.year = str(1989 + number % 20)
        self.is_listed = number % 25 != 7
        self.has_two_titles = number % 50 == 11
        self.is_archived = number % 10 == 5
        self.has_tag = number % 7 == 3
        self.is_shifted = number % 49 == 24
        self.was_saved_twice = number % 14 == 10
        self.has_copy = number % 20 == 4
        stem = self.title.encode()
        name = (b"Juego \xe9\xff%04d" % number if number % 8 == 6 else stem) + b"." + self.kind.encode()
        self.member = f"St. Member {number:04} (Año V1.1).{self.kind}" if self.is_archived else None
        self.file = b"Archive %04d.zip" % number if self.is_archived else name
        self.copies = [self.file] + ([b"Copy of %04d." % number + self.kind.encode()] if self.has_copy else [])

    def own_tag(self):
        """The tag that the collector has given it before, as company, title, date and info."""
        company = SHIFTED if self.is_shifted else b"Own"
        return company, b"Own %04d" % self.number, b"1/2/03", "Año".encode("cp1252")

    def content(self):
        if not self.has_tag:
            return self.image
        body = self.image + (b"\r\n" if self.was_saved_twice else b"")
        return body + MARKER + b"\xa7".join(self.own_tag()) + b"\xa7%d\xa7\r\n" % len(body)

    def stored(self):
        """What the collector's file has."""
        if not self.is_archived:
            return self.content()
        archive = io.BytesIO()
        with zipfile.ZipFile(archive, "w", zipfile.ZIP_DEFLATED, compresslevel=1) as file:
            file.writestr(self.member, self.content())
            # Otherwise the end of the archive could show the tag of its member.
            file.writestr("readme.txt", random.Random(self.number).randbytes(2048))
        return archive.getvalue()

    def is_filled_in(self):
        return self.is_listed and not (self.is_archived or self.has_tag or self.has_two_titles)

    def tag(self):
        """The tag after the list was written: company, title, date and info; None if there is none."""
        if self.is_archived:
            return None
        if self.has_tag:
            return self.own_tag()
        texts = (self.company or " ", self.title, self.year, " ")
        return tuple(text.encode("cp1252") for text in texts) if self.is_filled_in() else None

    def titles(self):
        if not self.is_listed:
            return []
        return [self.title] + ([self.title + " (Other)"] if self.has_two_titles else [])


def entries(games, sums):
    """The list: title, company, year, name, size, CRC and SHA-1 of each entry, with some that nobody has."""
    for game in games:
        for title in game.titles():
            yield title, game.company, game.year, game.title + "." + game.kind, len(game.image), \
                zlib.crc32(game.image), sums[game.number]
    for number in range(max(1, len(games) // 50)):
        yield f"Missing {number}", "Nobody", "1999", f"missing {number}.gb", 32768, number, f"{number:040x}"


def write_lists(games, sums, xml, text):
    with open(xml, "w", encoding="utf-8") as file:
        file.write('<?xml version="1.0"?>\n<datafile>\n<header><name>Evening</name></header>\n')
        for title, company, year, rom, size, crc, sha1 in entries(games, sums):
            element = "manufacturer" if size % 3 == 0 else "publisher"
            company = f"<{element}>{company}</{element}>" if company else ""
            file.write(f"<game name={quoteattr(title)}>{company}<year>{year}</year>"
                       f'<rom name={quoteattr(rom)} size="{size}" crc="{crc:08X}" sha1="{sha1}"/></game>\n')
        file.write("</datafile>\n")
    with open(text, "w", encoding="cp1252", newline="\r\n") as file:
        for title, company, year, rom, size, crc, sha1 in entries(games, sums):
            company = f'manufacturer "{company}"' if company else ""
            file.write(f'game (\n\tname "{title}"\n\t{company}\n\tyear {year}\n'
                       f'\trom ( name "{rom}" size {size} crc {crc:08x} sha1 {sha1.upper()} )\n)\n')


def tag_of(path):
    """The image before the tag, and company, title, date, info and size of the tag; None without one."""
    with open(path, "rb") as file:
        content = file.read()
    start = content.rfind(MARKER)
    if start < 0:
        return content, None
    line = content[start + len(MARKER):]
    company = SHIFTED if line.startswith(SHIFTED) else line.split(b"\xa7")[0]
    pieces = line[len(company):].split(b"\xa7")
    if len(pieces) != 6 or pieces[0] != b"" or pieces[5] != b"\r\n":
        raise ValueError(f"{path}: the tag is damaged")
    return content[:start], (company, *pieces[1:5])


def write(folder, name, content):
    with open(os.path.join(os.fsencode(folder), name), "wb") as file:
        file.write(content)
