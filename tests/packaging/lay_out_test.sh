#!/bin/bash
# SPDX-License-Identifier: MIT
# Tests torvane_lay_out, and with it the rules of src/home/LayOut.h. The cases are in lay_out_rules.sh and
# lay_out_robustness.sh; here is what they use.
# Usage: lay_out_test.sh PATH_OF_TORVANE_LAY_OUT. Exits 1 if a check fails and names it.
set -u
lay_out=$(realpath -- "${1:?the path of lay-out}")
here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
dir=$(mktemp -d) || exit 1
trap 'rm -rf "$dir"' EXIT
cd "$dir" || exit 1
# shellcheck source-path=SCRIPTDIR source=../support/cases.sh
. "$here/../support/cases.sh"

file() { # PATH CONTENT
    mkdir -p -- "$(dirname -- "$1")"
    printf '%s' "$2" >"$1"
}

expect_file() { # PATH CONTENT
    if [[ -f $1 ]]; then expect "content of $1" "$2" "$(<"$1")"; else fail "$1 is missing"; fi
}

expect_missing() { # PATH
    [[ ! -e $1 && ! -L $1 ]] || fail "$1 is there"
}

# Runs lay-out on the trees (default: tree) and expects success; what it says is in `said`.
lay() {
    (($#)) || set -- tree
    said=$("$lay_out" dest "$@" 2>&1) || fail "lay-out failed: $said"
}

fails_with() { # STATUS ARGUMENTS...
    local status
    said=$("$lay_out" "${@:2}" 2>&1)
    status=$?
    expect "status of lay-out ${*:2}" "$1" "$status"
}

# shellcheck source-path=SCRIPTDIR source=lay_out_rules.sh
. "$here/lay_out_rules.sh"
# shellcheck source-path=SCRIPTDIR source=lay_out_robustness.sh
. "$here/lay_out_robustness.sh"

run_cases
