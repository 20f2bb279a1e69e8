#!/bin/bash
# SPDX-License-Identifier: MIT
# Tests what tree/emuladores/mgba.sh does with screenshots, on a fake emulator that takes some. Needs netpbm.
# Usage: mgba_screenshots_test.sh PATH_OF_MGBA_SH. Exits 1 if a check fails and names it.
# shellcheck disable=SC2016 # the commands of the fake emulators are for another shell
# shellcheck source=tests/tree/mgba_support.sh
source "$(dirname "$0")/mgba_support.sh"
gallery=$dir/roms/data/screenshots

# An empty gallery, the pictures red.png and blue.png, and the tools of a Debian system: all, or without netpbm.
fresh_gallery() { # [without-netpbm]
    local tool tools=(mktemp mv rm rmdir mkdir find tr cat cp chmod)
    fresh
    mkdir -p "$gallery"
    [[ ${1-} == without-netpbm ]] || tools+=(pngtopnm ppmtobmp)
    for tool in "${tools[@]}"; do ln -s "$(command -v "$tool")" "$dir/bin/"; done
    ppmmake rgb:ff/12/07 160 144 | pnmtopng >"$dir/red.png" 2>/dev/null
    ppmmake rgb:05/34/fe 240 160 | pnmtopng >"$dir/blue.png" 2>/dev/null
}

# An emulator that runs COMMANDS in the folder for its screenshots; $1 is the test's folder.
emulator() { # COMMANDS [STATUS]
    fake "$dir/bin" mgba "${2:-0}"
    sed -i '$d' "$dir/bin/mgba"
    printf '%s\n' "cd \"\${3#screenshotPath=}\" && set -- '$dir'" "$1" "exit ${2:-0}" >>"$dir/bin/mgba"
}

# What the gallery holds, hidden files included, one name a line.
laid() { (cd "$gallery" && find . -mindepth 1 | cut -c 3- | LC_ALL=C sort); }

# Whether a BMP has the same pixels as a PNG.
has_pixels() { # BMP PNG
    [[ $(head -c 2 "$1") == BM ]] || return 1
    cmp -s <(bmptopnm "$1" 2>/dev/null | ppmtoppm) <(pngtopnm "$2" | ppmtoppm)
}
expect_pixels() { # NAME PNG
    has_pixels "$gallery/$1" "$dir/$2" || fail "$1 does not have the pixels of $2"
}

test_a_screenshot_stands_in_the_gallery_as_bmp() {
    fresh_gallery
    emulator 'cp "$1/red.png" "Night Garden-0.png"'
    play '/roms/Night Garden.gb'
    expect gallery 'Night Garden-0.bmp' "$(laid)"
    expect_pixels 'Night Garden-0.bmp' red.png
    expect errors '' "$errors"
}

test_the_emulator_gets_a_folder_of_its_own() {
    fresh_gallery
    emulator ''
    play '/my roms/a  b.gb'
    expect 'number of arguments' 6 "${#calls[@]}"
    expect option -C "${calls[2]}"
    [[ ${calls[3]} == screenshotPath=*/roms/data/screenshots/.mgba-* ]] || fail "folder: ${calls[3]}"
    expect path '/my roms/a  b.gb' "${calls[5]}"
    expect gallery '' "$(laid)"
}

test_pictures_keep_every_colour() {
    fresh_gallery
    pgmramp -lr 240 160 | rgb3toppm - <(pgmramp -tb 240 160) <(pgmramp -ellipse 240 160) | pnmtopng >"$dir/red.png" 2>/dev/null
    emulator 'cp "$1/red.png" a-0.png'
    play /a.gba
    expect_pixels a-0.bmp red.png
}

test_pictures_are_numbered_on_in_the_order_of_their_taking() {
    local n
    fresh_gallery
    emulator 'cp "$1/red.png" g-0.png; for n in 1 2 3 4 5 6 7 8 9 10 11; do cp "$1/blue.png" g-$n.png; done; cp "$1/red.png" g-12.png'
    play /g.gb
    play /g.gb
    expect 'number of pictures' 26 "$(laid | wc -l)"
    for n in 0 12 13 25; do expect_pixels g-$n.bmp red.png; done
    for n in 1 2 10 11 14 24; do expect_pixels g-$n.bmp blue.png; done
}

test_nothing_in_the_gallery_is_replaced() {
    fresh_gallery
    emulator 'cp "$1/red.png" g-0.png'
    echo mine >"$gallery/g-0.bmp"
    mkdir "$gallery/g-1.bmp"
    ln -s "$dir/nowhere" "$gallery/g-2.bmp"
    play /g.gb
    expect gallery $'g-0.bmp\ng-1.bmp\ng-2.bmp\ng-3.bmp' "$(laid)"
    expect content mine "$(<"$gallery/g-0.bmp")"
    expect link "$dir/nowhere" "$(readlink "$gallery/g-2.bmp")"
    expect_pixels g-3.bmp red.png
}

test_dots_in_a_name_do_not_hide_the_kind_of_the_picture() {
    fresh_gallery
    emulator 'cp "$1/red.png" game.rev.2-0.png; cp "$1/red.png" .hidden-0.png'
    play /game.rev.2.gb
    expect gallery $'_hidden-0.bmp\ngame_rev_2-0.bmp' "$(laid)"
}

test_names_of_every_kind_are_kept() {
    local stem
    for stem in "it's \"so\" \`date\`" '$(touch harm) ; touch harm' '-n' '%s %d \n' '* ? [a]' $'two\nlines' \
        $'Latin \xe9' 'jardín' ' blank ' 'a-0' '~' '#1'; do
        fresh_gallery
        printf '%s' "$stem" >"$dir/stem"
        emulator 'cp "$1/red.png" "./$(cat "$1/stem")-0.png"'
        play "/$stem.gb"
        [[ -f $gallery/$stem-0.bmp ]] || fail "$(printf %q "$stem") became $(laid)"
        expect "entries of $(printf %q "$stem")" 1 "$(find "$gallery" -mindepth 1 -printf x | wc -c)"
        [[ ! -e $dir/harm ]] || fail "a name was run as a command"
    done
}

test_without_a_converter_pictures_stay_png() {
    fresh_gallery without-netpbm
    emulator 'cp "$1/red.png" g-0.png'
    play /g.gb
    expect gallery g-0.png "$(laid)"
    cmp -s "$gallery/g-0.png" "$dir/red.png" || fail 'another picture'
}

test_a_broken_picture_is_kept_as_it_is() {
    fresh_gallery
    emulator 'printf "\211PNG and no more" >g-0.png; : >g-1.png; cp "$1/red.png" g-2.png'
    play /g.gb
    expect gallery $'g-0.bmp\ng-0.png' "$(laid)"
    expect errors '' "$errors"
}

test_a_converter_that_fails_is_not_believed() {
    fresh_gallery
    emulator 'cp "$1/red.png" g-0.png'
    pngtopnm "$dir/blue.png" >"$dir/blue.pnm"
    rm "$dir/bin/pngtopnm"
    printf '#!/bin/sh\ncat "%s"\nexit 1\n' "$dir/blue.pnm" >"$dir/bin/pngtopnm"
    chmod +x "$dir/bin/pngtopnm"
    play /g.gb
    expect gallery g-0.png "$(laid)"
    cmp -s "$gallery/g-0.png" "$dir/red.png" || fail 'another picture'
}

test_a_full_disk_loses_no_picture() {
    fresh_gallery
    emulator 'cp "$1/red.png" g-0.png'
    rm "$dir/bin/ppmtobmp"
    printf '#!/bin/sh\nprintf BM\nexit 1\n' >"$dir/bin/ppmtobmp"
    chmod +x "$dir/bin/ppmtobmp"
    play /g.gb
    expect gallery g-0.png "$(laid)"
}

test_the_status_of_the_emulator_is_handed_on() {
    fresh_gallery
    emulator 'cp "$1/red.png" g-0.png' 5
    play /g.gb
    expect status 5 "$status"
    expect gallery g-0.bmp "$(laid)"
}

test_the_folder_that_the_user_has_chosen_is_used() {
    local chosen=$dir/$'my  "pictures"\n(100%) \xe9=x'
    fresh_gallery
    mkdir "$chosen"
    emulator 'cp "$1/red.png" g-0.png'
    play /g.gb TORVANE_SCREENSHOTS="$chosen"
    expect gallery '' "$(laid)"
    expect_pixels "../../../${chosen##*/}/g-0.bmp" red.png
}

test_without_a_gallery_the_emulator_decides() {
    local instead
    for instead in '' file; do
        fresh_gallery
        rmdir "$gallery"
        [[ -z $instead ]] || : >"$gallery"
        fake "$dir/bin" mgba 3
        play '/a b.gb'
        expect 'number of arguments' 4 "${#calls[@]}"
        expect path '/a b.gb' "${calls[3]}"
        expect status 3 "$status"
        expect errors '' "$errors"
    done
}

test_a_gallery_that_goes_away_does_no_harm() {
    fresh_gallery
    emulator 'cp "$1/red.png" g-0.png; rm -r "$1/roms"' 4
    play /g.gb
    expect status 4 "$status"
}

# Starts a game that takes a picture and then runs for ten seconds; returns when the picture is there. Sets
# $playing, whose status is that of the script, and $script_pid.
start_long_game() {
    fresh_gallery
    ln -s "$(command -v sleep)" "$dir/bin/"
    emulator 'trap "exit 7" TERM; cp "$1/red.png" g-0.png; echo $$ >"$1/emulator"
        n=0; while [ $n -lt 200 ]; do sleep 0.05; n=$((n + 1)); done'
    (play /g.gb; exit "$status") 2>/dev/null &
    playing=$!
    until [[ -s $dir/emulator ]] || ! kill -0 "$playing" 2>/dev/null; do sleep 0.02; done
    script_pid=$(ps -o ppid= -p "$(<"$dir/emulator")" | tr -d ' ')
}

test_a_signal_ends_the_game_and_keeps_its_pictures() {
    local signal
    for signal in TERM INT HUP QUIT; do
        start_long_game
        kill -s "$signal" "$script_pid"
        wait "$playing"
        expect "status after $signal" 7 "$?"
        expect "gallery after $signal" g-0.bmp "$(laid)"
        ! kill -0 "$(<"$dir/emulator")" 2>/dev/null || fail "$signal left the emulator running"
    done
}

# Has the script run COMMANDS after one of its lines, as a busy machine would hold it up there.
run_after() { # BEGINNING_OF_THE_LINE COMMANDS
    sed -i "s%^\( *$1.*\)\$%\1\n$2%" "$dir/emuladores/mgba.sh"
    grep -qxF "$2" "$dir/emuladores/mgba.sh" || fail "no line begins with $1"
}

# An emulator that ends with the status 7 as soon as it is asked to, in a script whose shell may run sleep.
prompt_emulator() {
    fresh_gallery
    ln -s "$(command -v sleep)" "$dir/bin/"
    emulator 'trap "exit 7" TERM; echo $$ >"$1/emulator"
        n=0; while [ $n -lt 2000 ]; do sleep 0.005; n=$((n + 1)); done'
}

test_a_script_that_is_slow_after_a_signal_hands_the_status_on() {
    prompt_emulator
    sed -i 's%kill "$playing" 2>/dev/null%{ kill "$playing"; sleep 0.5; }%' "$dir/emuladores/mgba.sh"
    (play /g.gb; exit "$status") 2>/dev/null &
    playing=$!
    until [[ -s $dir/emulator ]] || ! kill -0 "$playing" 2>/dev/null; do sleep 0.02; done
    kill "$(ps -o ppid= -p "$(<"$dir/emulator")" | tr -d ' ')"
    wait "$playing"
    expect status 7 "$?"
}

test_a_signal_right_after_the_start_ends_the_game() {
    prompt_emulator
    run_after '"$@" -- "$played" &' 'while [ ! -s "$dir_of_test/emulator" ]; do sleep 0.01; done; kill $$'
    SECONDS=0
    play /g.gb dir_of_test="$dir"
    expect status 7 "$status"
    ((SECONDS < 8)) || fail 'the signal was lost'
}

test_a_game_that_a_signal_kills_has_its_status() {
    fresh_gallery
    emulator 'kill -s KILL $$'
    play /g.gb
    expect status 137 "$status"
    emulator 'trap "" TERM; kill $PPID; kill -s KILL $$'
    play /g.gb
    expect 'status after both' 137 "$status"
}

test_pictures_of_a_killed_script_appear_after_the_next_start() {
    start_long_game
    kill -s KILL "$script_pid"
    wait "$playing"
    kill -s KILL "$(<"$dir/emulator")"
    expect 'pictures before' '' "$(laid | grep -v '^\.mgba-')"
    emulator ''
    play /other.gb
    expect gallery g-0.bmp "$(laid)"
}

test_another_game_that_is_being_played_is_left_alone() {
    start_long_game
    emulator 'cp "$1/blue.png" h-0.png'
    play /h.gb
    expect 'pictures' h-0.bmp "$(laid | grep -v '^\.mgba-')"
    kill "$script_pid"
    wait "$playing"
    expect gallery $'g-0.bmp\nh-0.bmp' "$(laid)"
}

test_a_link_in_the_gallery_is_no_folder_of_pictures() {
    fresh_gallery
    mkdir "$dir/private"
    cp "$dir/red.png" "$dir/private/g-0.png"
    ln -s "$dir/private" "$gallery/.mgba-999999999-abcdef"
    emulator ''
    play /g.gb
    [[ -f $dir/private/g-0.png ]] || fail 'a picture was taken from behind a link'
}

# A program mv that runs COMMANDS before the real one; $4 is the target.
replace_mv() { # COMMANDS
    rm "$dir/bin/mv"
    printf '#!/bin/sh\n%s\nexec %s "$@"\n' "$1" "$(command -v mv)" >"$dir/bin/mv"
    chmod +x "$dir/bin/mv"
}

test_a_name_that_another_game_takes_at_the_same_time_is_not_replaced() {
    local taken='[ "${4##*/}" != g-0.bmp ] || [ -e "$4" ] ||' way
    for way in 'echo other >"$4"' 'mkdir "$4"' '{ echo other >"$4"; exit 1; }'; do
        fresh_gallery
        emulator 'cp "$1/red.png" g-100.png'
        replace_mv "$taken $way"
        play /g.gb
        expect "gallery after $way" $'g-0.bmp\ng-1.bmp' "$(laid)"
        [[ -d $gallery/g-0.bmp ]] || expect "content after $way" other "$(<"$gallery/g-0.bmp")"
        expect_pixels g-1.bmp red.png
    done
}

test_what_cannot_be_moved_appears_after_the_next_game() {
    fresh_gallery
    emulator 'cp "$1/red.png" g-0.png'
    replace_mv 'exit 1'
    play /g.gb
    expect 'pictures before' '' "$(laid | grep -v '^\.mgba-')"
    ln -sf "$(command -v mv)" "$dir/bin/mv"
    emulator ''
    play /other.gb
    expect gallery g-0.bmp "$(laid)"
    expect_pixels g-0.bmp red.png
}

test_an_empty_name_of_a_folder_is_none() {
    fresh_gallery
    emulator 'cp "$1/red.png" g-0.png'
    play /g.gb TORVANE_SCREENSHOTS=
    expect gallery g-0.bmp "$(laid)"
}

test_the_script_can_be_started_in_its_own_folder() {
    fresh_gallery
    emulator 'cp "$1/red.png" g-0.png'
    (cd "$dir/emuladores" && env -i PATH="$dir/bin" /bin/sh mgba.sh /g.gb)
    expect gallery g-0.bmp "$(laid)"
}

test_the_name_of_the_galleries_folder_may_look_like_one_of_a_game() {
    local chosen=$dir/.mgba-999999999-abcdef/pictures own
    fresh_gallery
    own=$chosen/.mgba-$$-abcdef
    mkdir -p "$own"
    cp "$dir/blue.png" "$own/h-0.png"
    emulator 'cp "$1/red.png" g-0.png'
    play /g.gb TORVANE_SCREENSHOTS="$chosen"
    [[ -f $chosen/g-0.bmp ]] || fail 'no picture'
    [[ -f $own/h-0.png ]] || fail 'a picture of a game that is being played was taken'
}

run_tests
