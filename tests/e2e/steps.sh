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
    maim -u -g "$((width * desk_scale))x$((height * desk_scale))+$((x + left * desk_scale))+$((y + top * desk_scale))" "$3"
}
# Two pictures that are both there.
looks_different() { # FILE FILE
    cmp -s "$1" "$2"
    [ $? = 1 ]
}
