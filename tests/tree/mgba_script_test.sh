#!/bin/bash
# SPDX-License-Identifier: MIT
# Tests tree/emuladores/mgba.sh: any path reaches the emulator as one argument, and what happens without an
# emulator. Usage: mgba_script_test.sh PATH_OF_MGBA_SH. Exits 1 if a check fails and names it.
# shellcheck source=tests/tree/mgba_support.sh
source "$(dirname "$0")/mgba_support.sh"

reaches_emulator_whole() { # PATH_OF_GAME
    fresh
    fake "$dir/bin" mgba
    play "$1"
    expect "number of arguments" 4 "${#calls[@]}"
    expect "scale" -3 "${calls[1]-}"
    expect "end of options" -- "${calls[2]-}"
    expect "path" "$1" "${calls[3]-}"
    expect "status" 0 "$status"
}

test_a_plain_path_reaches_the_emulator() { reaches_emulator_whole '/roms/game.gb'; }
test_blanks_are_kept() { reaches_emulator_whole '/my roms/Night Garden.gb'; }
test_doubled_blanks_are_kept() { reaches_emulator_whole '/roms/a  b   c.gb'; }
test_leading_blank_is_kept() { reaches_emulator_whole ' game.gb'; }
test_trailing_blank_is_kept() { reaches_emulator_whole '/roms/game.gb '; }
test_only_blanks_are_kept() { reaches_emulator_whole '   '; }
test_quotes_are_kept() { reaches_emulator_whole "/roms/it's \"so\" \`date\`.gb"; }
test_a_command_in_a_name_is_kept() { reaches_emulator_whole "/roms/\$(touch $dir/harm);touch $dir/harm&.gb"; }
test_patterns_are_not_expanded() { reaches_emulator_whole "/* ? [a-z] ~ *"; }
test_backslashes_and_percents_are_kept() { reaches_emulator_whole '/roms/a\n %s %% \\.gb'; }
test_non_ascii_is_kept() { reaches_emulator_whole $'/roms/Pok\xe9 jard\xc3\xadn \xff.gb'; }
test_newline_and_tab_are_kept() { reaches_emulator_whole $'/roms/two\nlines \tand \n tab\n.gb'; }
test_leading_dash_is_no_option() { reaches_emulator_whole '--version'; }

test_commands_in_names_leave_no_trace() {
    fresh
    fake "$dir/bin" mgba
    play "\$(touch $dir/harm) ;touch $dir/harm \`touch $dir/harm\`"
    [[ ! -e $dir/harm ]] || fail 'a name was run as a command'
}

test_emulator_status_is_handed_on() {
    fresh
    fake "$dir/bin" mgba 5
    play /g.gb
    expect status 5 "$status"
}

test_plain_emulator_comes_before_the_one_with_menus() {
    fresh
    fake "$dir/bin" mgba-qt
    fake "$dir/games" mgba
    play /g.gb
    expect emulator mgba "${calls[0]-}"
}

test_emulator_with_menus_serves_too() {
    fresh
    fake "$dir/bin" mgba-qt
    play /g.gb
    expect emulator mgba-qt "${calls[0]-}"
    expect path /g.gb "${calls[3]-}"
}

test_folder_of_games_need_not_be_in_path() {
    local name
    for name in mgba mgba-qt; do
        fresh
        fake "$dir/games" "$name"
        play '/a b.gb'
        expect emulator "$name" "${calls[0]-}"
        expect path '/a b.gb' "${calls[3]-}"
    done
}

test_file_without_execute_permission_is_no_emulator() {
    fresh
    : >"$dir/games/mgba"
    fake "$dir/bin" mgba-qt
    play /g.gb
    expect emulator mgba-qt "${calls[0]-}"
}

test_missing_emulator_is_reported_on_standard_error() {
    fresh
    play /g.gb DISPLAY=:0
    expect status 127 "$status"
    [[ $errors == *mGBA* ]] || fail "message: $errors"
}

test_missing_emulator_is_reported_in_a_window() {
    local name
    for name in zenity kdialog yad xmessage notify-send; do
        fresh
        fake "$dir/bin" "$name"
        play /g.gb DISPLAY=:0
        expect "status with $name" 127 "$status"
        expect "message program" "$name" "${calls[0]-}"
        [[ ${calls[*]} == *mGBA* ]] || fail "message of $name: ${calls[*]}"
        expect "standard error with $name" '' "$errors"
    done
}

test_message_programs_have_an_order() {
    local names=(zenity kdialog yad xmessage notify-send) name
    fresh
    for name in "${names[@]}"; do fake "$dir/bin" "$name"; done
    for name in "${names[@]}"; do
        calls=()
        play /g.gb WAYLAND_DISPLAY=wayland-0
        expect 'message program' "$name" "${calls[0]-}"
        rm "$dir/bin/$name"
    done
}

test_message_is_never_markup() {
    local name
    for name in zenity yad; do
        fresh
        fake "$dir/bin" "$name"
        play '/<b>&amp;.gb' DISPLAY=:0
        [[ " ${calls[*]} " == *' --no-markup '* ]] || fail "markup is not off: ${calls[*]}"
    done
    for name in kdialog xmessage notify-send; do
        fresh
        fake "$dir/bin" "$name"
        play '/<b>&amp;.gb' DISPLAY=:0
        [[ ${calls[*]} != *[\<\>\&]* ]] || fail "markup in the text: ${calls[*]}"
    done
}

test_without_a_desktop_no_window_is_tried() {
    fresh
    fake "$dir/bin" zenity
    play /g.gb
    expect 'calls' 0 "${#calls[@]}"
    expect status 127 "$status"
    [[ $errors == *mGBA* ]] || fail "message: $errors"
}

test_failing_message_program_leaves_the_message_on_standard_error() {
    fresh
    fake "$dir/bin" xmessage 1
    play /g.gb DISPLAY=:0
    expect status 127 "$status"
    [[ $errors == *mGBA* ]] || fail "message: $errors"
}

test_message_follows_the_language() {
    fresh
    play /g.gb LANG=es_ES.UTF-8
    [[ $errors == *encuentra* ]] || fail "Spanish: $errors"
    play /g.gb LANG=es_ES.UTF-8 LC_MESSAGES=ca_ES.UTF-8
    [[ $errors == *troba* ]] || fail "Catalan: $errors"
    play /g.gb LANG=es_ES.UTF-8 LC_MESSAGES=ca_ES.UTF-8 LC_ALL=C
    [[ $errors == *'not found'* ]] || fail "English: $errors"
}

test_the_script_itself_can_be_started() {
    fresh
    [[ -x $script ]] || fail 'no execute permission'
    expect 'first line' '#!/bin/sh' "$(head -n 1 "$script")"
}

run_tests
