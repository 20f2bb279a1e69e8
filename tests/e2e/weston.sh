# SPDX-License-Identifier: MIT
# The desk of sway.sh with weston on it: a compositor in a window of sway, from whose mouse and keys it has its own. Weston tells nobody where its windows are and puts them where it likes, so they are found by what is on
# the screen. Sourced after sway.sh.

desk_room='1320 960' # with room for the frame of that window

# start_weston FOLDER: programs started from now on appear on weston.
start_weston() {
    printf '%s\n' '[core]' 'idle-time=0' '[input-method]' 'path=' '[shell]' 'background-color=0xffff00ff' 'panel-position=none' 'locking=false' \
        'animation=none' 'startup-animation=none' 'close-animation=none' 'focus-animation=none' >"$1/weston.ini"
    # Only a seat with a keyboard gives the focus to a window that is clicked: this one waits for an hour.
    wtype -s 3600000 -k Shift_L &
    keyboard_pid=$!
    weston --config="$1/weston.ini" --backend=wayland-backend.so --use-pixman --width=1280 --height=900 --socket=wayland-weston \
        --log="$1/weston.log" >/dev/null 2>&1 &
    weston_pid=$!
    wait_until 20 '[ -S "$XDG_RUNTIME_DIR/wayland-weston" ]' || { echo "weston did not start:" >&2; cat "$1/weston.log" >&2; return 1; }
    wait_until 20 "desk_is_painted '$1/desk.ppm'" || return 1
    program_display=wayland-weston
}
# Weston draws the mouse where it has found it, until that has come and gone.
desk_is_painted() {
    mouse move 600 400 $desk_room && look_at_desk "$1" && sleep 0.3 && look_at_desk "$1" && ! seen_place "$1"
}
# The mouse, which weston draws, is out of the way then, and not outside: the keys would go elsewhere.
look_at_desk() { mouse move 1296 930 $desk_room && grim -t ppm "$1"; } # FILE
start_program() {
    WAYLAND_DISPLAY=$program_display XDG_CONFIG_HOME=$2 "$1/torvane" >"$2.log" 2>&1 &
    program_pid=$!
}

# The place of all that has not the colour of the background, or that has changed since an earlier picture, as "left top
# width height".
seen_place() { # FILE [EARLIER_FILE]
    python3 - "$@" <<'PYTHON'
import os, sys

LEFT, TOP, RIGHT, BOTTOM = 24, 44, 1280, 936  # inside the frame, which changes with the focus

def rows(path):
    with open(path, "rb") as file:
        magic, size, depth = file.readline(), file.readline().split(), file.readline()
        width, height = int(size[0]), int(size[1])
        return [file.read(3 * width)[3 * LEFT : 3 * RIGHT] for _ in range(height)][TOP:BOTTOM]

def shared(one, other):  # whole pixels at the beginning
    return len(os.path.commonprefix([one, other])) // 3

now = rows(sys.argv[1])
earlier = rows(sys.argv[2]) if len(sys.argv) > 2 else [bytes([255, 0, 255]) * (RIGHT - LEFT)] * len(now)
found = []
for y, (one, other) in enumerate(zip(now, earlier)):
    if one != other:
        found.append((shared(one, other), RIGHT - LEFT - shared(one[::-1], other[::-1]), y))
if not found:
    sys.exit(1)
left, right = min(row[0] for row in found), max(row[1] for row in found)
print(LEFT + left, TOP + found[0][2], right - left, found[-1][2] + 1 - found[0][2])
PYTHON
}
# A window that is alone on the desk, by its size.
window_place() {
    local x y width height
    look_at_desk "$work/now.ppm" && read -r x y width height < <(seen_place "$work/now.ppm") || return 1
    [ "$width $height" = "$(size_of "$1")" ] || { [ "$1" = Torvette ] && [ "$width $height" = "$(open_size)" ]; } || return 1
    echo "$1 $x $y $width $height"
}
# The control panel lies above the main window, and has a border that Qt draws.
panel_opens() {
    settle && look_at_desk "$work/before.ppm" && click MainFrm chameleonButton8 && wait_until 20 has_panel
}
has_panel() {
    local width height
    look_at_desk "$work/now.ppm" && read -r _ _ width height < <(seen_place "$work/now.ppm" "$work/before.ppm") &&
        [ "$width" -gt 570 ] && [ "$height" -gt 334 ]
}
# Each look takes a picture, which takes its time on a busy machine.
wait_window() {
    known_place=
    wait_until "${2:-40}" stays_there "$1" && settle
}
# Nobody says who has the focus, and what boxes there are: keys show it.
wait_active() { wait_window "$1"; }
answer_box() { settle && press -k "$1"; }
wait_box() { settle; }

emulator() { pgrep -P "$(pgrep -P "$program_pid" || echo 1)" -x mgba || pgrep -P "$program_pid" -x mgba; }
wait_game() { wait_until 20 'emulator && ! window_id MainFrm && shows_window'; }
shows_window() { look_at_desk "$work/now.ppm" && seen_place "$work/now.ppm"; }
end_game() { kill "$(emulator)"; }
