# SPDX-License-Identifier: MIT
# A tray of the old kind (XEmbed), the program's icon in it, and its menu. Sourced after desk.sh.

# Readers read to the end: one that leaves early would end the writer with a signal, which counts as a failure.

# The icon's place on the screen as "left top width height"; smaller than any window of that title.
icon_place() {
    xwininfo -root -tree | awk '
        $2 ~ /^"Torvane":$/ && match($0, /[0-9]+x[0-9]+[+-][0-9]+[+-][0-9]+ +[+-][0-9]+[+-][0-9]+$/) {
            split(substr($0, RSTART), at, /[x+ ]+/)
            if (at[1] > 10 && at[1] < 100 && !found) { print at[5], at[6], at[1], at[2]; found = 1 }
        }
        END { exit !found }'
}
# On a busy machine an icon finds a new tray late.
has_icon() { wait_until 30 icon_place && settle; }
icon_click() { # BUTTON
    local x y width height
    read -r x y width height < <(icon_place) || { echo "no icon" >&2; return 1; }
    xdotool mousemove $((x + width / 2)) $((y + height / 2)) click "$1" && settle
}
start_tray() { # EDGE
    trayer --edge "$1" --align right --widthtype request --height 24 >/dev/null 2>&1 &
    tray_pid=$!
}
stop_tray() {
    kill "$tray_pid"
    wait "$tray_pid" 2>/dev/null
    wait_until 10 '! icon_place'
}

# The open menu as "left top width height": the program's visible window that is neither in the catalogue nor small.
menu_place() {
    xdotool search --onlyvisible --class torvane getwindowgeometry --shell %@ 2>/dev/null |
        awk -F= -v sizes="$(sizes_of_windows | tr '\n' ';')" '
            { value[$1] = $2 }
            !found && $1 == "HEIGHT" && $2 > 60 && index(";" sizes, ";" value["WIDTH"] " " $2 ";") == 0 {
                print value["X"], value["Y"], value["WIDTH"], $2
                found = 1
            }
            END { exit !found }'
}
menu_opens() { wait_until 10 menu_place && settle; }
menu_closes() { xdotool key Escape && wait_until 5 '! menu_place'; }
