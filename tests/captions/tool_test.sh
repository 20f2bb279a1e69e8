#!/bin/bash
# SPDX-License-Identifier: MIT
# Tests what a translator gets from ./check-language: its lines and its exit code. Which faults it finds is tested
# in LanguageCheckTest.cpp. Usage: tool_test.sh PATH_OF_TORVANE_LANGUAGE_CHECK. Exits 1 if a check fails and names it.
set -u
tool=$(realpath -- "${1:?the path of torvane_language_check}")
top=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
english=$top/tree/data/lang/lang_eng.tvl
dir=$(mktemp -d) || exit 1
trap 'rm -rf "$dir"' EXIT
cd "$dir" || exit 1
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 XDG_RUNTIME_DIR=$dir
# shellcheck source-path=SCRIPTDIR source=../support/cases.sh
. "$top/tests/support/cases.sh"
whole='complete, and every text fits'
prefix=(env)

# The English file as FILE, with another line in place of one.
changed() { # FILE LINE NEW_LINE
    LC_ALL=C awk -v line="$2" -v now="$3" '{ sub(/\r$/, "") } $0 == line { $0 = now; found = 1 } { printf "%s\r\n", $0 }
        END { exit !found }' "$english" >"$1" || fail "no line $2 in the English file"
}

# Runs the program; afterwards `said` is what it printed, `errors` what it printed on standard error.
run() { # STATUS ARGUMENTS...
    local status
    said=$("${prefix[@]}" "$tool" "${@:2}" 2>errors)
    status=$?
    errors=$(<errors)
    expect "exit code for ${*:2}" "$1" "$status"
}

test_files_without_faults() {
    cp "$english" a.tvl
    run 0 a.tvl "$top/tree/data/lang/lang_esp.tvl"
    expect lines "a.tvl: $whole"$'\n'"$top/tree/data/lang/lang_esp.tvl: $whole" "$said"
    expect errors '' "$errors"
}
test_each_fault_is_a_line_with_the_name_of_the_file() {
    changed 'my language.tvl' 'report2=Report the bug' 'report3=Report the bug'
    run 1 'my language.tvl'
    expect lines 'my language.tvl: line 15: surplus: [About] report3
my language.tvl: missing: [About] report2' "$said"
    expect errors '' "$errors"
}
test_a_text_that_is_too_long() {
    changed long.tvl 'report2=Report the bug' $'report2=Report the bug to the developers, \xabnow\xbb'
    run 1 long.tvl
    expect lines 'long.tvl: too long: [About] report2 for ChameleonButton17 of Aboutfrm: “Report the bug to the developers, «now»”' "$said"
}
test_a_file_in_utf_8() {
    iconv -f CP1252 -t UTF-8 "$english" >utf8.tvl
    run 1 utf8.tvl
    expect 'first line' 'utf8.tvl: form: this is UTF-8; save the file in code page 1252 (Windows-1252)' "$(head -n 1 <<<"$said")"
}
test_an_empty_file_lacks_every_text() {
    : >empty.tvl
    run 1 empty.tvl
    # Keys that differ in case only are one.
    expect 'number of lines' "$(tr A-Z a-z <"$top/tests/tree/language_keys.tsv" | sort -u | wc -l)" "$(wc -l <<<"$said")"
    expect 'other lines' '' "$(grep -v '^empty\.tvl: missing: \[' <<<"$said")"
}
test_a_file_larger_than_the_program_reads() {
    { cat "$english" && head -c 100M /dev/zero; } >huge.tvl
    run 1 huge.tvl
    expect lines 'huge.tvl: form: the file is larger than 4 MiB, and the program reads nothing of it' "$said"
}
# In one line, which is measured for its place, and printed.
test_a_text_of_100000_letters() {
    changed wide.tvl 'report2=Report the bug' "report2=$(head -c 100000 /dev/zero | tr '\0' x)"
    run 1 wide.tvl
    [[ $said == 'wide.tvl: too long: [About] report2 for ChameleonButton17 of Aboutfrm: “xxxx'* ]] || fail "got ${said:0:200}"
}
test_a_file_that_can_not_be_read() {
    cp "$english" a.tvl
    cp "$english" closed.tvl
    chmod 0 closed.tvl
    mkdir folder.tvl
    # Root may read it all the same, unless it gives up that right.
    local prefix=(env)
    [[ $(id -u) != 0 ]] || prefix=(setpriv --bounding-set=-dac_override,-dac_read_search)
    run 2 gone.tvl closed.tvl folder.tvl a.tvl
    expect errors 'gone.tvl: No such file or directory
closed.tvl: Permission denied
folder.tvl: file to open is a directory' "$errors"
    expect 'the others are checked' "a.tvl: $whole" "$said"
}
test_wrong_usage() {
    run 2
    expect errors 'usage: torvane_language_check FILE...' "$errors"
    expect lines '' "$said"
}
# The script builds nothing then.
test_wrong_usage_of_the_script() {
    said=$("$top/check-language" 2>errors)
    expect 'exit code' 2 $?
    expect lines '' "$said"
    grep -qx 'Usage: ./check-language FILE.tvl...   See docs/languages.md.*' errors || fail "no usage: $(<errors)"
}

run_cases
