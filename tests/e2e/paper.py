# SPDX-License-Identifier: MIT
"""Compares a picture, on standard input, with a part of a printed page that shows it with a margin of one pixel, both
as raw PPM. Each pixel is 15 by 15 dots of the page, of which the middle counts. Fails if they differ, or if the margin
is not white. Usage: paper.py PAGE"""
import sys

DOTS = 15


def read(file):
    words = []
    while len(words) < 4:
        words += file.readline().split(b"#")[0].split()
    width, height = int(words[1]), int(words[2])
    return width, height, file.read()


def main(path):
    width, height, picture = read(sys.stdin.buffer)
    with open(path, "rb") as file:
        across, down, page = read(file)
    if (across, down) != (DOTS * (width + 2), DOTS * (height + 2)):
        sys.exit(f"a page of {across} by {down} dots")
    for y in range(-1, height + 1):
        for x in range(-1, width + 1):
            at = 3 * (across * (DOTS * (y + 1) + DOTS // 2) + DOTS * (x + 1) + DOTS // 2)
            own = 3 * (width * y + x)
            is_inside = 0 <= x < width and 0 <= y < height
            expected = picture[own:own + 3] if is_inside else b"\xff\xff\xff"
            if page[at:at + 3] != expected:
                sys.exit(f"{x}, {y}: {page[at:at + 3].hex()} instead of {expected.hex()}")


main(*sys.argv[1:])
