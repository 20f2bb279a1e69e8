# SPDX-License-Identifier: MIT
# The steps of a test on the desk: each is checked, keeps a screenshot in the folder $shots, and is counted. Sourced
# after desk.sh.

failed=0
number=0

# check TEXT COMMAND...: a step; the command says whether it went well.
check() {
    number=$((number + 1))
    local text=$1 result=ok
    shift
    "$@" || { result=FAILED; failed=$((failed + 1)); }
    shot "$shots/$(printf '%02d' "$number")-$(echo "$text" | tr -c 'a-z0-9\n' '-').png"
    printf '%-7s %2d %s\n' "$result" "$number" "$text"
}

# Prints how many steps failed, and ends with 1 if any did.
report_steps() {
    echo "Screenshots: $shots"
    [ "$failed" -eq 0 ] || { echo "$failed of $number checks failed"; exit 1; }
    echo "All $number checks went well."
}

# shot_of_part WINDOW CONTROL FILE: what a control shows.
shot_of_part() {
    local x y left top width height
    settle
    read -r _ x y _ < <(window_place "$1") || return 1
    read -r left top width height < <(rect_of "$1" "$2")
    maim -u -g "$(dots "$width")x$(dots "$height")+$((x + $(dots "$left")))+$((y + $(dots "$top")))" "$3"
}
# Two pictures that are both there.
looks_different() { # FILE FILE
    cmp -s "$1" "$2"
    [ $? = 1 ]
}

# part_changes WINDOW CONTROL COMMAND...: afterwards the control shows something else.
part_changes() {
    local part=("$1" "$2")
    shift 2
    shot_of_part "${part[@]}" "$work/before.png" && "$@" &&
        wait_until 5 "shot_of_part ${part[*]@Q} '$work/after.png' && looks_different '$work/before.png' '$work/after.png'"
}

# configure [LINE...]: settings before the first start: the language $language, no intro, and these lines.
configure() {
    mkdir -p "$work/config/Torvane"
    { printf '[Config]\nLanguage = %s\nIntro = 0\n' "$copy\\data\\lang\\lang_$language.tvl" && printf '%s\n' "$@"; } \
        >"$work/config/Torvane/Torvane.conf"
}
# Instead of a browser: adds a line to $work/opened for each call, the number of words and the words. The program asks
# the desktop by this name.
record_addresses() {
    mkdir "$work/bin"
    printf '#!/bin/sh\nprintf "%%s\\n" "$# $*" >>"%s"\n' "$work/opened" >"$work/bin/xdg-open"
    chmod +x "$work/bin/xdg-open"
    export PATH=$work/bin:$PATH
}
# The program ends from the main window.
leaves() {
    click MainFrm chameleonButton1
    wait_window TorvMsg && click TorvMsg chameleonButton2
    wait_until 5 '! program_runs'
}
