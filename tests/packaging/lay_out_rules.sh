# SPDX-License-Identifier: MIT
# Cases of lay_out_test.sh, which reads this file: what lay-out may do to a file, rule by rule.
# shellcheck shell=bash disable=SC2154 # the names are those of lay_out_test.sh

test_a_new_file_is_laid() {
    file tree/data/lang/a.tvl one
    lay
    expect_file dest/data/lang/a.tvl one
}

test_the_later_tree_wins() {
    file tree/a one
    file tree/b two
    file other/b three
    lay tree other
    expect_file dest/a one
    expect_file dest/b three
    lay other tree
    expect_file dest/b two
}

test_the_folders_of_the_layout_are_made() {
    local folder
    mkdir tree
    lay
    for folder in roms roms/data/screenshots ziptemp emuladores data/lang data/tray; do
        [[ -d dest/$folder ]] || fail "$folder is missing"
    done
}

test_an_unchanged_file_is_updated() {
    file tree/a one
    lay
    file tree/a two
    lay
    expect_file dest/a two
    file tree/a three
    lay
    expect_file dest/a three
}

test_a_file_that_the_user_changed_is_left_alone() {
    file tree/a one
    lay
    file dest/a mine
    lay
    expect_file dest/a mine
    file tree/a two
    lay
    lay
    expect_file dest/a mine
}

test_a_change_of_the_user_with_the_old_size_and_time_is_seen() {
    file tree/a one
    lay
    touch -r dest/a when
    file dest/a two
    touch -r when dest/a
    file tree/a six
    lay
    expect_file dest/a two
}

test_a_file_that_the_user_deleted_does_not_come_back() {
    file tree/a one
    lay
    rm dest/a
    lay
    expect_missing dest/a
    file tree/a two
    lay
    lay
    expect_missing dest/a
}

test_a_deleted_folder_comes_back_empty() {
    file tree/roms/a.gb one
    lay
    rm -r dest/roms
    lay
    [[ -d dest/roms ]] || fail 'roms is missing'
    expect_missing dest/roms/a.gb
}

test_a_file_put_back_as_it_was_laid_is_updated_again() {
    file tree/a one
    lay
    file dest/a mine
    file tree/a two
    lay
    file dest/a one
    lay
    expect_file dest/a two
}

test_an_unknown_file_is_left_alone() {
    file tree/a one
    file dest/a mine
    lay
    expect_file dest/a mine
    file tree/a two
    lay
    expect_file dest/a mine
}

test_an_unknown_link_is_left_alone() {
    file tree/a one
    mkdir dest
    ln -s nowhere dest/a
    lay
    expect link nowhere "$(readlink dest/a)"
    expect_missing dest/nowhere
}

test_the_mode_of_an_unknown_file_is_left_alone() {
    file tree/a one
    chmod 644 tree/a
    file dest/a one
    chmod 600 dest/a
    lay
    expect mode 600 "$(stat -c %a dest/a)"
}

test_an_unknown_file_that_goes_away_makes_room() {
    file tree/a one
    file dest/a mine
    lay
    rm dest/a
    lay
    expect_file dest/a one
}

test_files_of_the_users_own_are_left_alone() {
    file tree/a one
    file dest/roms/mine.gb mine
    lay
    file tree/a two
    lay
    expect_file dest/roms/mine.gb mine
}

test_a_link_or_folder_in_a_files_place_is_left_alone() {
    file tree/a one
    file tree/b one
    file tree/c one
    lay
    file elsewhere one
    rm dest/a dest/b dest/c
    ln -s ../elsewhere dest/a
    ln -s nowhere dest/b
    mkdir dest/c
    file tree/a two
    file tree/b two
    file tree/c two
    lay
    expect 'link' ../elsewhere "$(readlink dest/a)"
    expect 'dangling link' nowhere "$(readlink dest/b)"
    [[ -d dest/c ]] || fail 'the folder is gone'
    expect_file elsewhere one
}

test_a_folder_that_is_a_link_is_followed() {
    file tree/roms/a.gb one
    mkdir -p dest big
    ln -s ../big dest/roms
    lay
    expect_file big/a.gb one
    file tree/roms/a.gb two
    lay
    expect_file big/a.gb two
}

test_a_file_that_leaves_the_trees_stays_and_is_remembered() {
    file tree/a one
    file tree/b one
    lay
    rm tree/a tree/b dest/b
    lay
    expect_file dest/a one
    file tree/a two
    file tree/b two
    lay
    expect_file dest/a two
    expect_missing dest/b
}

test_modes_are_kept() {
    file tree/run.sh one
    file tree/a one
    chmod 755 tree/run.sh
    chmod 640 tree/a
    lay
    expect 'mode of run.sh' 755 "$(stat -c %a dest/run.sh)"
    expect 'mode of a' 640 "$(stat -c %a dest/a)"
}

test_a_new_mode_reaches_an_unchanged_file_alone() {
    file tree/run.sh one
    file tree/mine.sh one
    chmod 644 tree/run.sh tree/mine.sh
    lay
    file dest/mine.sh mine
    chmod 755 tree/run.sh tree/mine.sh
    lay
    expect 'mode of run.sh' 755 "$(stat -c %a dest/run.sh)"
    expect 'mode of mine.sh' 644 "$(stat -c %a dest/mine.sh)"
}

test_a_mode_that_the_user_chose_stays() {
    file tree/a one
    chmod 644 tree/a
    lay
    chmod 600 dest/a
    lay
    expect 'mode' 600 "$(stat -c %a dest/a)"
}
