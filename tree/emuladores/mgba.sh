#!/bin/sh
# SPDX-License-Identifier: MIT
# Starts mGBA with one game: the emulator of the list emus.dat. It joins the game's path, which comes cut into
# words, finds the emulator, and says so if there is none. All else about the game is mGBA's own affair.
#
# The program hands over its command line unquoted, cut at every single blank. The words, joined again with
# single blanks, are therefore the path, whatever it holds: two blanks in a row come as an empty word.
IFS=' '
game="$*"

# Times the console's own picture size.
scale=3

# The program stands still until the game ends. The plain emulator window is made for that: it opens with
# the game and closes with it. The one with menus, in which a player can go on to other games, comes second.
# Debian keeps both in a folder that is not in everybody's PATH.
for emulator in mgba /usr/games/mgba mgba-qt /usr/games/mgba-qt; do
    if found=$(command -v "$emulator") && [ -f "$found" ] && [ -x "$found" ]; then
        exec "$found" "-$scale" -- "$game"
    fi
done

case ${LC_ALL:-${LC_MESSAGES:-${LANG-}}} in
es*) text='No se encuentra el emulador mGBA. Instale el paquete mgba-sdl o mgba-qt.' ;;
ca*) text='No es troba el programa mGBA. Cal tenir el paquet mgba-sdl o mgba-qt.' ;;
*) text='The emulator mGBA was not found. Please install the package mgba-sdl or mgba-qt.' ;;
esac

has() {
    command -v "$1" >/dev/null 2>&1
}

# Fails without a desktop or a program for it. The text is plain text: where a program would look for markup
# in it, that is switched off.
show_window() {
    [ -n "${DISPLAY-}${WAYLAND_DISPLAY-}" ] || return 1
    if has zenity; then
        zenity --error --no-markup --title=Torvane --text="$1"
    elif has kdialog; then
        kdialog --title Torvane --error "$1"
    elif has yad; then
        yad --no-markup --title=Torvane --image=dialog-error --button=OK:0 --text="$1"
    elif has xmessage; then
        xmessage -center -title Torvane "$1"
    elif has notify-send; then
        notify-send Torvane "$1"
    else
        return 1
    fi
}

show_window "$text" || printf 'Torvane: %s\n' "$text" >&2
exit 127
