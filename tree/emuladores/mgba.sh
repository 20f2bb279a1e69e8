#!/bin/sh
# SPDX-License-Identifier: MIT
# Starts mGBA with one game: the emulator of the list emus.dat. It joins the game's path, which comes cut into
# words, finds the emulator, and says so if there is none. Screenshots that are taken in mGBA (F12) are in the
# gallery when the game has ended. With TORVANE_IMAGE_ONLY set, as by mgba-image.sh, mGBA gets the image without
# the tag. All else about the game is mGBA's own affair.
#
# The program hands over its command line unquoted, cut at every single blank. The words, joined again with
# single blanks, are therefore the path, whatever it holds: two blanks in a row come as an empty word.
IFS=' '
game="$*"

# Times the console's own picture size.
scale=3

# The gallery's folder: the program passes the one that the user has chosen.
case $0 in
*/*) here=${0%/*} ;;
*) here=. ;;
esac
gallery=${TORVANE_SCREENSHOTS:-$here/../roms/data/screenshots}

# The gallery can't show PNG, which is all that mGBA writes. Fails without Debian's package netpbm, and if the
# picture is broken.
make_bmp() { # PNG BMP
    pngtopnm "$1" >"$2.pnm" 2>/dev/null && ppmtobmp "$2.pnm" >"$2" 2>/dev/null
}

# Moves a picture into the gallery under the first free number. Fails if that can't be written to.
lay() { # FILE STEM EXTENSION
    number=0
    while [ -e "$1" ]; do
        target=$gallery/$2-$number.$3
        if [ -e "$target" ] || [ -L "$target" ]; then
            number=$((number + 1))
        else
            # Another game may take the name right now: mv tells only by leaving the file where it is.
            mv -nT -- "$1" "$target" 2>/dev/null || [ -e "$target" ] || return 1
        fi
    done
}

# Lays one picture of mGBA's, named "GAME-NUMBER.png", as BMP; one that can't be converted, as it is. For the
# gallery the extension of a file begins at its first dot, so the game's name must not have any.
lay_screenshot() { # PNG
    [ -s "$1" ] || return 0
    stem=${1##*/}
    stem=$(printf '%s' "${stem%-*}" | tr . _)
    if make_bmp "$1" "${1%/*}/picture"; then
        lay "${1%/*}/picture" "$stem" bmp && rm -f -- "$1"
    else
        lay "$1" "$stem" png
    fi
}

# Lays all pictures of a folder, in the order in which they were taken, and removes it. What can't be moved
# stays for the next time.
gather() { # FOLDER
    for picture in "$1"/*-[0-9].png "$1"/*-[0-9][0-9].png "$1"/*.png "$1"/.*.png; do
        lay_screenshot "$picture"
    done
    rm -f -- "$1/picture" "$1/picture.pnm"
    rm -rf -- "$1/image"
    find "$1" -type f -empty -delete 2>/dev/null
    rmdir -- "$1" 2>/dev/null
}

# Pictures of games whose script was killed. The folder's name has the process in it.
gather_left() {
    for left in "$gallery"/.mgba-*-*; do
        owner=${left##*/.mgba-}
        [ ! -d "$left" ] || [ -L "$left" ] || [ -e "/proc/${owner%%-*}" ] || gather "$left"
    done
}

# Waits for the emulator, whose exit status becomes this script's. A signal ends a wait early, with a status above 128.
# The shell may have noticed the emulator's end by then: only another wait gives its status, or 127 if there is none.
wait_for() { # PROCESS
    wait "$1"
    status=$?
    while [ -n "$stopped" ] && [ "$status" -gt 128 ]; do
        stopped=
        wait "$1"
        again=$?
        [ "$again" -eq 127 ] || status=$again
    done
}

# Where the image in the game's file ends, in bytes. A tag is known by its marker, the first one in the last
# 17 KiB. Each save of a tag leaves a line end after the image. Images are whole KiB, which tells the line ends.
image_end() {
    length=$(wc -c <"$game") || return 1
    start=$((length > 17408 ? length - 17408 : 0))
    found=$(tail -c 17408 <"$game" | LC_ALL=C grep -obaF -- "$(printf 'ID3TAG\247')" | head -n 1)
    end=$length
    [ -z "$found" ] || end=$((start + ${found%%:*}))
    whole=$((end - end % 1024))
    # A line that the sign "." ends is not counted: it lacks its second byte.
    lines=$({ tail -c "+$((whole + 1))" <"$game" | head -c "$((end - whole))" && printf .; } |
        LC_ALL=C grep -c "^$(printf '\r')\$")
    [ "$whole" -eq 0 ] || [ "$((whole + 2 * lines))" -ne "$end" ] || end=$whole
}

# Makes a copy of the game that ends where its image does; shares the blocks of the game's file where the file
# system can. Fails if the game is an archive or is its image already, and if there is no room.
copy_image() { # FOLDER
    case $game in
    *.[Zz][Ii][Pp]) return 1 ;;
    esac
    [ -f "$game" ] && image_end 2>/dev/null || return 1
    [ "$end" -gt 0 ] && [ "$end" -lt "$length" ] || return 1
    mkdir -- "$1" 2>/dev/null &&
        cp --reflink=auto --no-preserve=mode -- "$game" "$1/${game##*/}" 2>/dev/null &&
        truncate -s "$end" -- "$1/${game##*/}" 2>/dev/null
}

# Whether the user has set an option in mGBA's own configuration.
is_configured() { # OPTION
    grep -q "^$1=." "${XDG_CONFIG_HOME:-${HOME-}/.config}/mgba/config.ini" 2>/dev/null
}

# Plays the game with a folder for its screenshots that nobody else uses, so that all pictures in it are new.
# Where the gallery has no room for it, mGBA puts them where it likes. What mGBA keeps beside a game it keeps
# beside this one, even if it plays a copy.
play() { # EMULATOR
    gather_left
    own=$(mktemp -d -- "$gallery/.mgba-$$-XXXXXX" 2>/dev/null) || exec "$1" "-$scale" -- "$game"
    playing='' stopped=''
    # What would end the script ends the emulator, and the script after it.
    trap 'stopped=1; [ -z "$playing" ] || kill "$playing" 2>/dev/null' HUP INT QUIT TERM
    set -- "$1" "-$scale" -C "screenshotPath=$own"
    played=$game
    if [ -n "${TORVANE_IMAGE_ONLY-}" ] && copy_image "$own/image"; then
        played=$own/image/${game##*/}
        case $game in
        */*) folder=${game%/*}/ ;;
        *) folder=. ;;
        esac
        for option in savegamePath savestatePath cheatsPath patchPath; do
            is_configured "$option" || set -- "$@" -C "$option=$folder"
        done
    fi
    if [ -n "$stopped" ]; then
        gather "$own"
        exit 143
    fi
    "$@" -- "$played" &
    playing=$!
    # The signal may have come before the line above.
    [ -z "$stopped" ] || kill "$playing" 2>/dev/null
    wait_for "$playing"
    playing=
    gather "$own"
    exit "$status"
}

# The program stands still until the game ends. The plain emulator window is made for that: it opens with
# the game and closes with it. The one with menus, in which a player can go on to other games, comes second.
# Debian keeps both in a folder that is not in everybody's PATH.
for emulator in mgba /usr/games/mgba mgba-qt /usr/games/mgba-qt; do
    if found=$(command -v "$emulator") && [ -f "$found" ] && [ -x "$found" ]; then
        play "$found"
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
