#!/bin/sh
# SPDX-License-Identifier: MIT
# Starts mGBA as mgba.sh does, with the game's image alone: mGBA sees no tag, and the size that the cartridge had.
case $0 in
*/*) here=${0%/*} ;;
*) here=. ;;
esac
TORVANE_IMAGE_ONLY=1 exec "$here/mgba.sh" "$@"
