#!/bin/bash
# SPDX-License-Identifier: MIT
# Tests tree/emuladores/mgba-image.sh: which bytes the emulator gets, under which name, and what is left.
# Usage: mgba_image_test.sh PATH_OF_MGBA_SH. Exits 1 if a check fails and names it.
# shellcheck disable=SC2016 # the commands of the fake emulators are for another shell
# shellcheck source=tests/tree/mgba_support.sh
source "$(dirname "$0")/mgba_support.sh"
started=mgba-image.sh
gallery=$dir/roms/data/screenshots
tag=$'ID3TAG\xa7Acme\xa7Title\xa71/1/2026\xa7Info\xa732768\xa7\r\n'

# A library, a gallery, the tools of a Debian system, and an emulator that keeps a copy of the game it gets as
# "seen". $1 are commands for it, which find the game's path in $game and the test's folder in $test.
fresh_library() { # [COMMANDS]
    local tool
    fresh
    mkdir -p "$gallery" "$dir/home"
    for tool in mktemp mv rm rmdir mkdir find tr cat cp chmod wc tail head grep truncate sleep; do
        ln -s "$(command -v "$tool")" "$dir/bin/"
    done
    fake "$dir/bin" mgba
    sed -i '$d' "$dir/bin/mgba"
    printf '%s\n' "test='$dir'" 'for game; do :; done' 'cp -- "$game" "$test/seen"' "${1-}" >>"$dir/bin/mgba"
}
# An image of SIZE bytes: no byte of it is like its neighbour, and it does not end in a line end.
image() { # SIZE
    head -c "$1" < <(yes 'Torvane image 0123456789')
}
# Writes the image and what comes after it as a game.
game() { # NAME SIZE [APPENDED]
    image "$2" >"$dir/image"
    { cat "$dir/image"; printf '%b' "${3-}"; } >"$dir/roms/$1"
    cp "$dir/roms/$1" "$dir/before"
}
expect_image_played() {
    cmp -s "$dir/seen" "$dir/image" || fail "the emulator got $(wc -c <"$dir/seen") bytes, and not the image"
}
expect_game_played() { # NAME
    expect 'path' "$dir/roms/$1" "${calls[-1]}"
}
# The game is as it was, and nothing else is in the library and the gallery.
expect_untouched() { # NAME
    cmp -s "$dir/roms/$1" "$dir/before" || fail "$1 has changed"
    expect library $'data\ndata/screenshots\n'"$1" "$(cd "$dir/roms" && find . -mindepth 1 | cut -c 3- | LC_ALL=C sort)"
}
option() { # KEY
    local word
    for word in "${calls[@]}"; do [[ $word != "$1="* ]] || printf '%s' "${word#*=}"; done
}

test_the_emulator_gets_the_image_without_the_tag() {
    local size
    for size in 32768 1048576 4194304; do
        fresh_library
        game g.gb "$size" "$tag"
        play "$dir/roms/g.gb"
        expect_image_played
        expect 'file name' g.gb "${calls[-1]##*/}"
        expect_untouched g.gb
        expect errors '' "$errors"
    done
}

test_line_ends_of_earlier_saves_are_no_part_of_the_image() {
    fresh_library
    game g.gb 32768 "\r\n\r\n\r\n$tag"
    play "$dir/roms/g.gb"
    expect_image_played
    game g.gb 32768 '\r\n'
    play "$dir/roms/g.gb"
    expect_image_played
}

test_only_pairs_that_fill_the_rest_are_line_ends_of_saves() {
    local end
    for end in '\r\nx\r\n' '\n\n' '\n\r' '\r\r\n' 'x\r\n'; do
        fresh_library
        game g.gb 32768 "$end"
        cp "$dir/before" "$dir/image"
        printf '%s' "$tag" >>"$dir/roms/g.gb"
        play "$dir/roms/g.gb"
        expect_image_played
    done
}

test_an_image_of_whole_kib_keeps_its_own_line_ends() {
    fresh_library
    { image 32766; printf '\r\n'; } >"$dir/image"
    { cat "$dir/image"; printf '%s' "$tag"; } >"$dir/roms/g.gb"
    play "$dir/roms/g.gb"
    expect_image_played
}

test_the_first_of_two_tags_ends_the_image() {
    fresh_library
    game g.gb 32768 "$tag$tag"
    play "$dir/roms/g.gb"
    expect_image_played
}

test_a_marker_far_inside_the_image_is_a_part_of_it() {
    fresh_library
    { image 1000; printf 'ID3TAG\xa7'; image 64529; } >"$dir/image"
    { cat "$dir/image"; printf '%s' "$tag"; } >"$dir/roms/g.gb"
    play "$dir/roms/g.gb"
    expect_image_played
}

test_a_game_without_a_tag_is_played_itself() {
    fresh_library
    game g.gb 32768
    play "$dir/roms/g.gb"
    expect_game_played g.gb
    expect_untouched g.gb
    game g.gb 1500
    play "$dir/roms/g.gb"
    expect_game_played g.gb
}

test_a_file_that_is_a_tag_alone_is_played_itself() {
    fresh_library
    game g.gb 0 "$tag"
    play "$dir/roms/g.gb"
    expect_game_played g.gb
}

test_an_archive_is_played_itself_whatever_is_in_it() {
    local name
    for name in g.zip G.ZIP; do
        fresh_library
        game "$name" 32768 "$tag"
        play "$dir/roms/$name"
        expect_game_played "$name"
    done
}

test_the_other_script_plays_the_game_itself() {
    fresh_library
    game g.gb 32768 "$tag"
    started=mgba.sh play "$dir/roms/g.gb"
    expect_game_played g.gb
}

test_what_belongs_to_a_game_is_beside_it() {
    local key
    fresh_library 'for word; do case $word in savegamePath=*) echo save >"${word#*=}/g.sav" ;; esac; done'
    game g.gb 32768 "$tag"
    play "$dir/roms/g.gb"
    for key in savegamePath savestatePath cheatsPath patchPath; do
        expect "$key" "$dir/roms/" "$(option $key)"
    done
    expect save save "$(<"$dir/roms/g.sav")"
    [[ $(option screenshotPath) == */roms/data/screenshots/.mgba-* ]] || fail "pictures: $(option screenshotPath)"
}

test_a_folder_that_the_user_has_configured_stays() {
    local config
    for config in home/.config own; do
        fresh_library
        game g.gb 32768 "$tag"
        mkdir -p "$dir/$config/mgba"
        printf '[ports.sdl]\nsavegamePath=/mine\npatchPath=\n' >"$dir/$config/mgba/config.ini"
        if [[ $config == own ]]; then
            play "$dir/roms/g.gb" HOME="$dir/home" XDG_CONFIG_HOME="$dir/own"
        else
            play "$dir/roms/g.gb" HOME="$dir/home"
        fi
        expect savegamePath '' "$(option savegamePath)"
        expect patchPath "$dir/roms/" "$(option patchPath)"
    done
}

test_names_of_every_kind_are_kept() {
    local name
    for name in "it's \"so\" \`date\`.gb" '$(touch harm) ; touch harm.gb' '-n.gb' '%s \n =.gb' '* ? [a].gb' \
        $'two\nlines.gb' $'Latin \xe9.gb' ' a  b .gb' 'Dr. Mario (V1.1) [!].gb' 'none'; do
        fresh_library
        game "$name" 32768 "$tag"
        play "$dir/roms/$name"
        expect_image_played
        expect 'file name' "$name" "${calls[-1]##*/}"
        [[ ! -e $dir/harm ]] || fail "a name was run as a command"
    done
}

test_a_game_may_be_named_without_a_folder() {
    fresh_library
    game g.gb 32768 "$tag"
    (cd "$dir/roms" && play g.gb)
    mapfile -d '' calls <"$dir/calls"
    expect_image_played
    expect savegamePath . "$(option savegamePath)"
}

test_a_read_only_game_is_played_too() {
    fresh_library
    game g.gb 32768 "$tag"
    chmod 444 "$dir/roms/g.gb"
    if [[ $(id -u) == 0 ]]; then
        chmod -R a+rwX "$dir"
        chmod 444 "$dir/roms/g.gb"
        setpriv --reuid=65534 --regid=65534 --clear-groups env -i PATH="$dir/bin" \
            /bin/sh "$dir/emuladores/$started" "$dir/roms/g.gb"
    else
        play "$dir/roms/g.gb"
    fi
    expect_image_played
}

test_without_room_for_a_copy_the_game_itself_is_played() {
    local tool
    for tool in cp truncate mkdir; do
        fresh_library
        game g.gb 32768 "$tag"
        # The fake emulator must not need what fails.
        sed -i '$d' "$dir/bin/mgba" && sed -i '$d' "$dir/bin/mgba"
        rm "$dir/bin/$tool"
        printf '#!/bin/sh\nfor last; do :; done\nprintf half >"$last"\nexit 1\n' >"$dir/bin/$tool"
        chmod +x "$dir/bin/$tool"
        play "$dir/roms/g.gb"
        expect_game_played g.gb
        expect_untouched g.gb
    done
}

test_the_status_of_the_emulator_is_handed_on() {
    fresh_library 'exit 5'
    game g.gb 32768 "$tag"
    play "$dir/roms/g.gb"
    expect status 5 "$status"
    expect_untouched g.gb
}

# Starts a game that runs for ten seconds; returns when it plays. Sets $playing, whose status is that of the
# script, and $script_pid.
start_long_game() {
    fresh_library 'trap "exit 7" TERM; echo $$ >"$test/emulator"
        n=0; while [ $n -lt 200 ]; do sleep 0.05; n=$((n + 1)); done'
    game g.gb 32768 "$tag"
    (play "$dir/roms/g.gb"; exit "$status") 2>/dev/null &
    playing=$!
    until [[ -s $dir/emulator ]] || ! kill -0 "$playing" 2>/dev/null; do sleep 0.02; done
    script_pid=$(ps -o ppid= -p "$(<"$dir/emulator")" | tr -d ' ')
}

test_a_signal_ends_the_game_and_removes_the_copy() {
    local signal
    for signal in TERM INT HUP QUIT; do
        start_long_game
        [[ -n $(find "$gallery" -name g.gb) ]] || fail 'no copy while the game is played'
        kill -s "$signal" "$script_pid"
        wait "$playing"
        expect "status after $signal" 7 "$?"
        expect_untouched g.gb
    done
}

test_a_signal_during_the_copy_starts_no_game() {
    fresh_library
    game g.gb 32768 "$tag"
    rm "$dir/bin/truncate"
    printf '#!/bin/sh\nkill -s TERM "$PPID"\nexec %s "$@"\n' "$(command -v truncate)" >"$dir/bin/truncate"
    chmod +x "$dir/bin/truncate"
    play "$dir/roms/g.gb"
    expect status 143 "$status"
    expect calls 0 "${#calls[@]}"
    expect_untouched g.gb
}

test_the_copy_of_a_killed_script_is_removed_by_the_next() {
    start_long_game
    kill -s KILL "$script_pid"
    wait "$playing"
    kill -s KILL "$(<"$dir/emulator")"
    [[ -n $(find "$gallery" -name g.gb) ]] || fail 'a killed script has removed its copy'
    sed -i '$d' "$dir/bin/mgba" && sed -i '$d' "$dir/bin/mgba"
    started=mgba.sh play /other.gb
    expect_untouched g.gb
}

test_a_link_instead_of_the_copys_folder_is_removed_and_its_target_stays() {
    fresh_library
    game g.gb 32768 "$tag"
    mkdir "$gallery/.mgba-999999999-abcdef" "$dir/private"
    echo mine >"$dir/private/file"
    ln -s "$dir/private" "$gallery/.mgba-999999999-abcdef/image"
    play "$dir/roms/g.gb"
    expect 'private file' mine "$(<"$dir/private/file")"
    expect_untouched g.gb
}

test_the_script_itself_can_be_started() {
    [[ -x ${script%/*}/mgba-image.sh ]] || fail 'no execute permission'
    expect 'first line' '#!/bin/sh' "$(head -n 1 "${script%/*}/mgba-image.sh")"
    fresh_library
    game g.gb 32768 "$tag"
    (cd "$dir/emuladores" && PATH=$dir/bin /bin/sh mgba-image.sh "$dir/roms/g.gb")
    expect_image_played
}

run_tests
