# SPDX-License-Identifier: MIT
# A desk for the built program: a virtual display with a window manager, hand-like mouse and key events,
# screenshots, and looks at windows. Sourced by the tour and by the end-to-end tests. Places on the screen
# are found through the catalogue of controls, so that nothing here repeats a position.

e2e_here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
catalogue=$e2e_here/../catalogue
# How many dots of the display a pixel of the designs takes: what the toolkit's own variable says.
desk_scale=${QT_SCALE_FACTOR:-1}

# A display of our own with a number that is free; openbox lets frameless windows take their places.
start_display() {
    local size=${1:-1024x768x24} pipe
    pipe=$(mktemp -u)
    mkfifo "$pipe"
    Xvfb -displayfd 3 -screen 0 "$size" -nolisten tcp 3>"$pipe" >/dev/null 2>&1 &
    desk_xvfb=$!
    read -r -t 20 desk_number <"$pipe" || { rm -f "$pipe"; echo "Xvfb did not start" >&2; return 1; }
    rm -f "$pipe"
    export DISPLAY=:$desk_number QT_QPA_PLATFORM=xcb SDL_AUDIODRIVER=dummy
    unset WAYLAND_DISPLAY
    openbox >/dev/null 2>&1 &
    desk_openbox=$!
    wait_until 10 "xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'"
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

# wait_until SECONDS COMMAND...: tries ten times a second. The words are read by the shell again, so that
# pipes can be given in quotes.
wait_until() {
    local rounds=$(($1 * 10))
    shift
    while ! eval "$*" >/dev/null 2>&1; do
        rounds=$((rounds - 1))
        [ "$rounds" -le 0 ] && return 1
        sleep 0.1
    done
}

# start_program FOLDER CONFIG_FOLDER: the program of a laid-out folder with settings of its own.
start_program() {
    XDG_CONFIG_HOME=$2 "$1/torvane" >"$2.log" 2>&1 &
    program_pid=$!
}

program_runs() { kill -0 "$program_pid" 2>/dev/null; }

# The size of a window of the catalogue, as "width height" in dots.
size_of() { awk -F'\t' -v w="$1" -v s="$desk_scale" '$1 == w { print $3 * s, $4 * s }' "$catalogue/windows.tsv"; }

# The number of the program's visible window of that name; the windows all differ in size.
window_id() {
    local wanted id
    wanted=$(size_of "$1")
    for id in $(xdotool search --onlyvisible --class torvane 2>/dev/null); do
        eval "$(xdotool getwindowgeometry --shell "$id" 2>/dev/null)"
        [ "${WIDTH:-0} ${HEIGHT:-0}" = "$wanted" ] && { echo "$id"; return 0; }
    done
    return 1
}

# The number of a window by its title.
titled_window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1 | grep .; }

wait_window() { wait_until "${2:-10}" "window_id $1"; }
wait_no_window() { wait_until "${2:-10}" "! window_id $1"; }

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
    local id left top width height
    id=$(window_id "$1") || { echo "no window $1" >&2; return 1; }
    read -r left top width height < <(rect_of "$1" "$2")
    eval "$(xdotool getwindowgeometry --shell "$id")"
    xdotool mousemove $((X + (left + ${3:-$((width / 2))}) * desk_scale)) \
        $((Y + (top + ${4:-$((height / 2))}) * desk_scale))
    sleep 0.15
}

click() { point "$@" && xdotool click 1 && sleep 0.25; }
double_click() { point "$@" && xdotool click --repeat 2 --delay 60 1; }
# A row of the game list, counted from 0, that is in sight.
click_row() { click MainFrm Picture2 100 $((2 + $1 * 33 + 16)); }
double_click_row() { double_click MainFrm Picture2 100 $((2 + $1 * 33 + 16)); }

# fill_in CONTROL TEXT: replaces the text of an edit field of the main window.
fill_in() {
    click MainFrm "$1"
    xdotool key ctrl+a
    xdotool type --delay 15 -- "$2"
    sleep 0.2
}

# "Iconic", "Normal" or nothing.
state_of() { xprop -id "$1" WM_STATE 2>/dev/null | sed -n 's/.*window state: //p'; }

shot() { maim -u "$1" 2>/dev/null; }

# shot_of WINDOW FILE [MARGIN]: a window of the catalogue as it stands on the desk, with a margin in dots.
shot_of() {
    local id margin=${3:-0}
    id=$(window_id "$1") || { echo "no window $1" >&2; return 1; }
    eval "$(xdotool getwindowgeometry --shell "$id")"
    maim -u -g "$((WIDTH + 2 * margin))x$((HEIGHT + 2 * margin))+$((X - margin))+$((Y - margin))" "$2" 2>/dev/null
}
