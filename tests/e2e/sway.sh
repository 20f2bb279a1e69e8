# SPDX-License-Identifier: MIT
# The desk of desk.sh on Wayland, without an X server: sway on a screen in memory, a mouse of its own
# (wayland_pointer.py), keys by wtype. Sourced after desk.sh, whose steps then run here. Windows of the program are
# known by their sizes, as there.

# sway refuses to run as root. as_user SCRIPT ARGUMENT...: runs the script once more as nobody, if need be.
as_user() {
    [ "$(id -u)" -eq 0 ] || return 0
    exec setpriv --reuid=65534 --regid=65534 --clear-groups env HOME=/nonexistent "$@"
}

desk_room='1280 900'

# start_sway FOLDER: a desk of that size in pixels. All windows float, as on most desktops.
start_sway() {
    export XDG_RUNTIME_DIR=$1/run
    mkdir -m 700 "$XDG_RUNTIME_DIR"
    printf '%s\n' "output HEADLESS-1 resolution ${desk_room/ /x} position 0,0" 'xwayland disable' 'default_border none' \
        'for_window [app_id=".*"] floating enable' 'focus_on_window_activation focus' >"$1/sway.conf"
    unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
    WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman sway -c "$1/sway.conf" >"$1/sway.log" 2>&1 &
    desk_xvfb=$!
    wait_until 20 'ls "$XDG_RUNTIME_DIR"/sway-ipc.*.sock && [ -S "$XDG_RUNTIME_DIR/wayland-1" ]' ||
        { echo "sway did not start:" >&2; cat "$1/sway.log" >&2; return 1; }
    SWAYSOCK=$(ls "$XDG_RUNTIME_DIR"/sway-ipc.*.sock)
    export SWAYSOCK WAYLAND_DISPLAY=wayland-1 SDL_VIDEODRIVER=wayland SDL_AUDIODRIVER=dummy
    coproc desk_mouse { exec python3 "$e2e_here/wayland_pointer.py"; }
    mouse wheel 0
}
# add_dense_screen: 960 x 540 pixels of two dots each, to the right of the first one.
add_dense_screen() {
    swaymsg -q create_output && swaymsg -q 'output HEADLESS-2 scale 2' && swaymsg -q 'output HEADLESS-2 position 1280 0'
    desk_room='2240 900'
}
stop_sway() {
    kill "${program_pid:-}" "${desk_mouse_PID:-}" "${desk_xvfb:-}" 2>/dev/null
    wait 2>/dev/null
    return 0
}

# mouse ORDER...: one of wayland_pointer.py's, and what has been done by then.
mouse() {
    local answer
    echo "$@" >&"${desk_mouse[1]}" && read -r -t 10 answer <&"${desk_mouse[0]}" && [ "$answer" = done ]
}

# Prints a token by which a program that is started may take the focus.
activation_token() {
    local answer
    echo token >&"${desk_mouse[1]}" && read -r -t 10 answer <&"${desk_mouse[0]}" && echo "$answer"
}

# All windows, one a line: id, left, top, width, height, whether it has the focus, app id, title.
windows_on_desk() {
    swaymsg -t get_tree | python3 -c '
import json, sys
def show(node):
    if node.get("pid"):
        place, inner = node["rect"], node["window_rect"]  # without the border
        left, top = place["x"] + inner["x"], place["y"] + inner["y"]
        print(node["id"], left, top, inner["width"], inner["height"], node["focused"], node["app_id"], node["name"])
    for child in node["nodes"] + node["floating_nodes"]:
        show(child)
show(json.load(sys.stdin))'
}
window_place() {
    local folded open=''
    folded=$(size_of "$1")
    [ "$1" = Torvette ] && open=$(open_size)
    windows_on_desk | awk -v folded="$folded" -v open="$open" '
        $7 == "torvane" && ($4 " " $5 == folded || $4 " " $5 == open) { print $1, $2, $3, $4, $5; found = 1; exit }
        END { exit !found }'
}
has_focus() { windows_on_desk | awk -v id="$(window_id "$1")" '$1 == id && $6 == "True" { found = 1 } END { exit !found }'; }
wait_active() { wait_until 10 "has_focus $1" && settle; }
has_box() {
    windows_on_desk | awk '$7 == "torvane" && $6 == "True" { print $4, $5 }' | grep . | grep -vxF -f <(sizes_of_windows) >/dev/null
}
# press WORDS...: keys, in the words of wtype. Each call gives the seat a keyboard of its own, and what is typed before
# the program knows its letters would be lost.
press() { wtype -s 300 "$@" && settle; }
answer_box() { wait_box && press -k "$1" && wait_no_box; }

point() {
    local id x y left top width height
    read -r id x y _ < <(window_place "$1") || { echo "no window $1" >&2; return 1; }
    read -r left top width height < <(rect_of "$1" "$2")
    pointed_at="$((x + left + ${3:-$((width / 2))})) $((y + top + ${4:-$((height / 2))}))"
    mouse move $pointed_at $desk_room && settle
}
click() { point "$@" && no_double_click && mouse press left && mouse release left && settle; }
right_click() { point "$@" && mouse press right && mouse release right && settle; }
# drag WINDOW CONTROL RIGHT DOWN: moves the window by a control of it, in pixels.
drag() {
    point "$1" "$2" && mouse press left && settle || return 1
    local x=${pointed_at% *} y=${pointed_at#* }
    mouse move $((x + $3 / 2)) $((y + $4 / 2)) $desk_room && mouse move $((x + $3)) $((y + $4)) $desk_room && mouse release left && settle
}
fill_in() { click MainFrm "$1" && press -M ctrl a -m ctrl && press -d 15 -- "$2"; }

shot() {
    settle
    grim "$1"
}
shot_of_part() { # WINDOW CONTROL FILE
    local x y left top width height
    settle
    read -r _ x y _ < <(window_place "$1") || return 1
    read -r left top width height < <(rect_of "$1" "$2")
    grim -g "$((x + left)),$((y + top)) ${width}x$height" "$3"
}
wait_game() { wait_until 20 'windows_on_desk | grep -w mgba'; }
end_game() { swaymsg -q '[app_id="mgba"] kill'; }
