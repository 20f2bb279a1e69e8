# SPDX-License-Identifier: MIT
# Cases of lay_out_test.sh, which reads this file: odd names, the manifest, failures, two runs at once, speed.
# shellcheck shell=bash disable=SC2016,SC2034,SC2154 # dollars in file names; names of lay_out_test.sh

test_odd_names_are_laid_and_followed() {
    local name names=('Night  Garden .gb' ' a' '-n' "it's" '"q"' '$(touch harm)' '`touch harm`' '*' '@' ']'
        '[x]' 'a]b' 'back\slash' '\n' $'two\nlines' $'tab\t' $'\xe9\xff' 'ñ' '~' '!' '%s' '#' 'a=b' '--help')
    for name in "${names[@]}"; do file "tree/-x y/$name" "one $name"; done
    lay
    for name in "${names[@]}"; do
        expect_file "dest/-x y/$name" "one $name"
        file "tree/-x y/$name" "two $name"
    done
    rm -- 'dest/-x y/@'
    file 'dest/-x y/*' mine
    lay
    for name in "${names[@]}"; do
        [[ $name == [@*] ]] || expect_file "dest/-x y/$name" "two $name"
    done
    expect_missing 'dest/-x y/@'
    expect_file 'dest/-x y/*' mine
    expect_missing harm
}

test_odd_names_of_the_folders_themselves_do_no_harm() {
    file '-tree $(x) *'/a one
    said=$("$lay_out" $'-dest\n 2' '-tree $(x) *' 2>&1) || fail "lay-out failed: $said"
    expect_file $'./-dest\n 2/a' one
}

test_absolute_paths_are_taken() {
    file tree/a one
    "$lay_out" "$PWD/dest" "$PWD/tree" >said 2>&1 || fail "lay-out failed: $(<said)"
    expect_file dest/a one
}

test_a_manifest_in_a_tree_is_not_laid() {
    file tree/data/.laid-out harm
    file tree/a one
    lay
    expect 'number of records' 1 "$(tr -cd '\0' <dest/data/.laid-out | wc -c)"
}

test_the_manifest_holds_checksum_and_path() {
    local expected
    file tree/a one
    lay
    expected=$(sha256sum <tree/a)
    [[ $(tr '\0' '\n' <dest/data/.laid-out) == "${expected%% *} "*' ./a' ]] || fail 'no such record'
}

test_without_manifest_files_are_left_alone_and_equal_ones_taken_on() {
    file tree/a one
    file tree/b one
    lay
    rm dest/data/.laid-out
    file dest/b mine
    lay
    file tree/a two
    file tree/b two
    lay
    expect_file dest/a two
    expect_file dest/b mine
}

test_a_spoiled_manifest_does_no_harm() {
    file tree/a one
    lay
    head -c 4096 /dev/urandom >dest/data/.laid-out
    file dest/a mine
    lay
    expect said "" "$said"
    file tree/a two
    lay
    expect_file dest/a mine
}

test_nothing_is_written_when_nothing_changed() {
    local before
    file tree/a one
    file tree/b one
    lay
    rm dest/b
    touch -d '2 hours ago' dest/a dest/data/.laid-out dest dest/data
    before=$(find dest -printf '%p %i %T@ %C@\n')
    lay
    expect 'said' '' "$said"
    expect 'files' "$before" "$(find dest -printf '%p %i %T@ %C@\n')"
}

test_a_touched_source_is_no_change() {
    local before
    file tree/a one
    lay
    before=$(stat -c '%i %y' dest/a)
    touch tree/a
    lay
    expect 'file' "$before" "$(stat -c '%i %y' dest/a)"
}

test_a_file_is_replaced_and_never_written_into() {
    local before
    file tree/a one
    lay
    ln dest/a reader
    before=$(stat -c %i dest/a)
    file tree/a two
    lay
    [[ $before != "$(stat -c %i dest/a)" ]] || fail 'written in place'
    expect_file reader one
}

test_no_temporary_files_stay() {
    file tree/a one
    file tree/roms/b one
    lay
    file tree/a two
    lay
    expect 'leftovers' '' "$(find dest -name '.torvane-*')"
}

test_a_file_where_a_folder_should_be_stays_and_the_rest_is_laid() {
    file tree/a/b one
    file tree/c one
    file dest/a mine
    lay
    expect_file dest/c one
    expect_file dest/a mine
    rm dest/a
    lay
    expect_file dest/a/b one
}

# The disk is in a mount namespace of its own, and goes with it.
test_a_full_disk_is_reported_and_the_rest_laid_when_there_is_room() {
    local n
    mkdir tree dest
    for n in {10..49}; do head -c 4000 /dev/urandom >"tree/f$n"; done
    unshare -rm bash -c 'mount -t tmpfs -o size=100k tmpfs dest' 2>said ||
        { echo "skipped $case_name: $(<said)" && return; }
    unshare -rm bash -c '
        mount -t tmpfs -o size=100k tmpfs dest && cd dest || exit
        "$0" . ../tree >../full 2>&1
        echo "$?" >../status
        find . -name ".torvane-*" >../left
        for f in f*; do cmp "$f" "../tree/$f"; done >../cut 2>&1
        mount -t tmpfs -o remount,size=1m tmpfs . && "$0" . ../tree >../again 2>&1
        for f in ../tree/*; do cmp "$f" "${f#../tree/}"; done >>../again 2>&1' "$lay_out"
    expect 'status on the full disk' 1 "$(<status)"
    grep -q 'lay-out: cannot write .*: Disk full' full || fail "message: $(head -n 1 full)"
    expect 'leftovers' '' "$(<left)"
    expect 'files that are cut' '' "$(<cut)"
    [[ $(<again) == "Laid out: "*" new, 0 updated, 0 left as they are" ]] || fail "with room again: $(<again)"
}

test_the_version_is_recorded() {
    file tree/a one
    "$lay_out" --version 1.10 dest tree >said || fail "lay-out failed: $(<said)"
    expect 'first record' 'version 1.10' "$(tr '\0' '\n' <dest/data/.laid-out | head -n 1)"
}

test_a_newer_version_is_left_alone() {
    file tree/a one
    "$lay_out" --version 1.10 dest tree >said || fail "lay-out failed: $(<said)"
    file tree/a two
    "$lay_out" --version 1.9 dest tree >said || fail "lay-out failed: $(<said)"
    expect_file dest/a one
}

# A template for others: the record is its index.
test_the_record_of_a_tree_laid_out_onto_itself_is_the_same_anywhere() {
    file tree/a one
    file tree/b/c two
    cp -r tree other
    touch -d '2 hours ago' other/a
    "$lay_out" --version 1.1 tree tree >said || fail "lay-out failed: $(<said)"
    "$lay_out" --version 1.1 other other >said || fail "lay-out failed: $(<said)"
    cmp -s tree/data/.laid-out other/data/.laid-out || fail 'the records differ'
    expect 'number of records' 3 "$(tr -cd '\0' <tree/data/.laid-out | wc -c)"
}

test_wrong_usage_is_reported() {
    fails_with 2
    fails_with 2 dest
    fails_with 2 dest no-such-tree
    fails_with 2 dest ''
    expect_missing dest
}

test_two_runs_at_once_agree() {
    local n pids=() pid
    for n in {1..40}; do file "tree/f$n" "$n"; done
    for n in 1 2 3; do
        "$lay_out" dest tree >"said$n" 2>&1 &
        pids+=($!)
    done
    for pid in "${pids[@]}"; do wait "$pid" || fail 'a run failed'; done
    for n in {1..40}; do
        expect_file "dest/f$n" "$n"
        file "tree/f$n" "new $n"
    done
    lay
    for n in {1..40}; do expect_file "dest/f$n" "new $n"; done
}

# The stated limit is 0.3 s; the check leaves room for a busy machine.
test_a_second_run_is_quick() {
    local n begun
    for n in {1..400}; do file "tree/data/$((n % 7))/f$n" "$n"; done
    head -c 16M /dev/zero >tree/roms.bin
    lay
    begun=${EPOCHREALTIME/[.,]/}
    lay
    ((${EPOCHREALTIME/[.,]/} - begun < 1000000)) || fail "took $((${EPOCHREALTIME/[.,]/} - begun)) us"
}
