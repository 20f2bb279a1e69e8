# SPDX-License-Identifier: MIT
# A desk for the built program: a virtual display with a window manager, hand-like mouse and key events,
# screenshots, and looks at windows. Sourced by the tour and by the end-to-end tests. Places on the screen
# are found through the catalogue of controls, so that nothing here repeats a position.

e2e_here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
catalogue=$e2e_here/../catalogue
# How many dots of the display a pixel of the designs takes: what Qt's own variable says, as 1.5. In percent, since the
# shell knows no fractions.
desk_scale=${QT_SCALE_FACTOR:-1}
desk_percent=$(awk -v s="$desk_scale" 'BEGIN { printf "%d", 100 * s + .5 }')
# dots PIXELS: a length or a place of the design on the display, rounded as Qt does it.
dots() { echo $((($1 * desk_percent + 50) / 100)); }
# What gives the two sizes of a window as "width height" in dots, to awk.
size_in_dots='function dots(pixels) { return int((pixels * percent + 50) / 100) } function size(w, h) { return dots(w) " " dots(h) }'

# start_display [SIZE]: a display of our own with a number that is free, by default of 1024 x 768 pixels of the designs;
# openbox lets frameless windows take their places.
start_display() {
    local size=${1:-$(dots 1024)x$(dots 768)x24} pipe
    pipe=$(mktemp -u)
    mkfifo "$pipe"
    # Without -noreset a look at the empty display that ends before the window manager is there would end this, too.
    Xvfb -displayfd 3 -screen 0 "$size" -nolisten tcp -noreset 3>"$pipe" >/dev/null 2>&1 &
    desk_xvfb=$!
    read -r -t 20 desk_number <"$pipe" || { rm -f "$pipe"; echo "Xvfb did not start" >&2; return 1; }
    rm -f "$pipe"
    export DISPLAY=:$desk_number QT_QPA_PLATFORM=xcb SDL_AUDIODRIVER=dummy
    unset WAYLAND_DISPLAY
    openbox >/dev/null 2>&1 &
    desk_openbox=$!
    wait_until 30 "xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'" || { echo "openbox did not start" >&2; return 1; }
    xsetroot -solid '#20242e' || true
    # Letters that the keyboard lacks would be put on it for each stroke, and lost on a busy machine.
    xmodmap -e 'keycode 248 = ntilde Ntilde' -e 'keycode 249 = uacute Uacute' || true
}

stop_display() {
    [ -n "${program_pid:-}" ] && kill "$program_pid" 2>/dev/null
    kill "${desk_openbox:-}" "${desk_xvfb:-}" 2>/dev/null
    wait 2>/dev/null
    return 0
}

# wait_until SECONDS COMMAND...: tries twenty times a second. The words are read by the shell again, so that
# pipes can be given in quotes.
wait_until() {
    local end=$((${EPOCHREALTIME//[!0-9]/} + $1 * 1000000))
    shift
    while ! eval "$*" >/dev/null 2>&1; do
        [ "${EPOCHREALTIME//[!0-9]/}" -lt "$end" ] || return 1
        sleep 0.05
    done
}

# linger SECONDS: time for a person to watch, if there is one (see is_watched).
is_watched=
linger() { [ -z "$is_watched" ] || sleep "$1"; }

# start_program FOLDER CONFIG_FOLDER: the program of a laid-out folder with settings of its own; that of another user if
# the words of as_user say so.
as_user=()
start_program() {
    XDG_CONFIG_HOME=$2 "${as_user[@]}" "$1/torvane" >"$2.log" 2>&1 &
    program_pid=$!
}

program_runs() { kill -0 "$program_pid" 2>/dev/null; }

# is_asleep PROCESS: all its threads wait for something to happen.
is_asleep() {
    local file words
    for file in "/proc/$1"/task/*/stat; do
        read -r words 2>/dev/null <"$file" || continue
        words=${words##*) }
        [ "${words%% *}" = S ] || return 1
    done
}

# Waits until the program has done all that there was to do: neither it nor the display have anything left, in
# three looks. Timers that tick on do no harm; 5 seconds at most.
settle() {
    local calm=0 end=$((${EPOCHREALTIME//[!0-9]/} + 5000000))
    while [ $calm -lt 3 ] && [ "${EPOCHREALTIME//[!0-9]/}" -lt "$end" ]; do
        if is_asleep "$desk_xvfb" && is_asleep "$program_pid"; then calm=$((calm + 1)); else calm=0; fi
        sleep 0.01
    done
}

# The size of a window of the catalogue, as "width height" in dots.
size_of() {
    awk -F'\t' -v w="$1" -v percent="$desk_percent" "$size_in_dots"' $1 == w { print size($3, $4) }' "$catalogue/windows.tsv"
}

# The size of the compact window when its panel is folded out.
open_size() { echo "$(dots 300) $(dots 134)"; }
# All sizes that windows of the catalogue have, a line each.
sizes_of_windows() {
    awk -F'\t' -v percent="$desk_percent" "$size_in_dots"' { print size($3, $4) }' "$catalogue/windows.tsv" && open_size
}

# The program's visible window of that name as "id left top width height"; the windows all differ in size. The
# compact window has two: folded and open.
window_place() {
    local folded open='' id size
    folded=$(size_of "$1")
    [ "$1" = Torvette ] && open=$(open_size)
    read -r id size < <(xdotool search --onlyvisible --class torvane getwindowgeometry --shell %@ 2>/dev/null |
        awk -F= -v folded="$folded" -v open="$open" '
            { value[$1] = $2; size = value["WIDTH"] " " value["HEIGHT"] }
            $1 == "HEIGHT" && (size == folded || size == open) { print value["WINDOW"], size; exit }') || return 1
    # What xdotool says of the place of a window with a border is wrong.
    xwininfo -id "$id" 2>/dev/null | awk -v id="$id" -v size="$size" '
        /Absolute upper-left X/ { x = $NF }
        /Absolute upper-left Y/ { print id, x, $NF, size; found = 1 }
        END { exit !found }'
}
window_id() {
    local place
    place=$(window_place "$1") && echo "${place%% *}"
}

# The number of a window by its title.
titled_window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1 | grep .; }

# wait_window NAME [SECONDS]: until it is there and stays where it is.
wait_window() {
    known_place=
    wait_until "${2:-10}" stays_there "$1" && settle
}
stays_there() {
    local place
    place=$(window_place "$1") || return 1
    [ "$place" = "$known_place" ] && return 0
    known_place=$place
    return 1
}
wait_no_window() { wait_until "${2:-10}" "! window_id $1"; }
# Keys go to the active window.
wait_active() { wait_until 10 "[ \"\$(xdotool getactivewindow)\" = \"\$(window_id $1)\" ]" && settle; }

# A message box or a file dialog: the active window is the program's and none of the catalogue.
has_box() {
    local WINDOW X Y WIDTH HEIGHT SCREEN
    eval "$(xdotool getactivewindow getwindowgeometry --shell)"
    [ "$(xdotool getwindowpid "$WINDOW")" = "$program_pid" ] &&
        ! sizes_of_windows | grep -x "$WIDTH $HEIGHT" >/dev/null # -q would end the writer early, and fail by that
}
wait_box() { wait_until 10 has_box && settle; }
wait_no_box() { wait_until 10 '! has_box' && settle; }
# answer_box KEY...: presses keys in the box that is there, or is about to come.
answer_box() { wait_box && xdotool key "$@" && wait_no_box; }

# read_on WINDOW: where somebody watches, until its texts are typed: nothing in it changes for half a second.
read_on() {
    [ -n "$is_watched" ] || return 0
    local id last='' now calm=0 end=$((${EPOCHREALTIME//[!0-9]/} + 20000000))
    while [ $calm -lt 5 ] && [ "${EPOCHREALTIME//[!0-9]/}" -lt "$end" ] && id=$(window_id "$1"); do
        now=$(maim -u -f bmp -i "$id" 2>/dev/null | cksum)
        if [ "$now" = "$last" ]; then calm=$((calm + 1)); else calm=0; fi
        last=$now
        sleep 0.1
    done
    return 0
}

# The panel that a control of the main window lies in; nothing for those on the window itself.
panel_of() {
    case $1 in
    EditID3Title | EditID3Company | EditID3Info | chameleonButton9 | chameleonButton10 | chameleonButton11 | \
        chameleonButton19) echo 'Picture1(1)' ;;
    ChameleonButton16) echo 'Picture1(0)' ;;
    ChameleonButton13 | ChameleonButton17 | ChameleonButton18) echo 'Picture1(2)' ;;
    ListView1) echo Picture2 ;;
    esac
}

# left top width height of a control, in pixels of the design from the window's corner.
rect_of() {
    local window=$1 control=$2 panel offset='0 0'
    if [ "$window" = MainFrm ]; then
        panel=$(panel_of "$control")
        [ -n "$panel" ] && offset=$(rect_of "$window" "$panel" | cut -d' ' -f1,2)
    fi
    awk -F'\t' -v w="$window" -v c="$control" -v o="$offset" \
        '$1 == w && $2 == c { split(o, b, " "); print int($5 + b[1] + .5), int($6 + b[2] + .5), int($7), int($8) }' \
        "$catalogue/controls.tsv"
}

# point WINDOW CONTROL [DX DY]: moves the pointer to the middle of a control, or to a place from its corner.
point() {
    local id x y left top width height
    read -r id x y _ < <(window_place "$1") || { echo "no window $1" >&2; return 1; }
    read -r left top width height < <(rect_of "$1" "$2")
    pointed_at="$((x + $(dots $((left + ${3:-$((width / 2))}))))) $((y + $(dots $((top + ${4:-$((height / 2))})))))"
    xdotool mousemove $pointed_at && settle
}

# Two clicks on one place are two clicks only if time passes between them.
no_double_click() {
    while [ "$pointed_at" = "${clicked_at:-}" ] && [ "${EPOCHREALTIME//[!0-9]/}" -lt "$clicked_until" ]; do sleep 0.05; done
    clicked_at=$pointed_at
    clicked_until=$((${EPOCHREALTIME//[!0-9]/} + 500000))
}

click() { point "$@" && no_double_click && xdotool click 1 && settle; }
double_click() { point "$@" && no_double_click && xdotool click --repeat 2 --delay 60 1 && settle; }
# A row of the game list, counted from 0, that is in sight.
click_row() { click MainFrm Picture2 100 $((2 + $1 * 33 + 16)); }
double_click_row() { double_click MainFrm Picture2 100 $((2 + $1 * 33 + 16)); }

# fill_in CONTROL TEXT: replaces the text of an edit field of the main window.
fill_in() {
    click MainFrm "$1"
    xdotool key ctrl+a
    xdotool type --delay 15 -- "$2"
    settle
}

# In the file dialog that is there, or is about to come.
choose_file() { # PATH
    wait_box || return 1
    xdotool key ctrl+a
    xdotool type --delay 15 -- "$1"
    xdotool key Return
    wait_no_box
}

# "Iconic", "Normal" or nothing.
state_of() { xprop -id "$1" WM_STATE 2>/dev/null | sed -n 's/.*window state: //p'; }


# The emulator shows something: a picture with nothing on it would be packed to a few bytes.
game_is_shown() { [ "$(maim -u -i "$(titled_window mGBA)" 2>/dev/null | wc -c)" -gt 2000 ]; }
# The emulator runs, and the window that started it has made room.
wait_game() { # WINDOW_ID
    wait_until 15 'pgrep -P '"$program_pid"' && game_is_shown && [ "$(state_of '"$1"')" = Iconic ]'
}
end_game() { xdotool windowactivate --sync "$(titled_window mGBA)" key alt+F4; }

shot() {
    settle
    maim -u "$1" 2>/dev/null
}

# shot_of WINDOW FILE [MARGIN]: a window of the catalogue as it is on the desk, with a margin in dots.
shot_of() {
    local id x y width height margin=${3:-0}
    settle
    read -r id x y width height < <(window_place "$1") || { echo "no window $1" >&2; return 1; }
    maim -u -g "$((width + 2 * margin))x$((height + 2 * margin))+$((x - margin))+$((y - margin))" "$2" 2>/dev/null
}
