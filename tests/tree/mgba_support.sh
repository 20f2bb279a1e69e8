# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034 # the tests use what a run has set
# What the tests of tree/emuladores/mgba.sh share: fake programs, a run of the script, checks. Sourced by bash, with
# the path of mgba.sh as the first argument; whoever sources it calls run_tests at the end.
set -u
script=${1:?the path of mgba.sh}
dir=$(mktemp -d) || exit 1
trap 'rm -rf "$dir"' EXIT
failures=0

fail() {
    printf 'FAILED %s: %s\n' "$running" "$1"
    failures=$((failures + 1))
}

expect() { # WHAT EXPECTED ACTUAL
    [[ $2 == "$3" ]] || fail "$1: expected $(printf %q "$2"), got $(printf %q "$3")"
}

# Creates a program NAME in FOLDER that records its name and arguments (NUL-terminated) and exits with CODE.
fake() { # FOLDER NAME [CODE]
    mkdir -p "$1"
    # shellcheck disable=SC2016 # the dollars are for the fake program
    printf '#!/bin/sh\nprintf "%%s\\0" "${0##*/}" "$@" >"%s"\nexit %s\n' "$dir/calls" "${3:-0}" >"$1/$2"
    chmod +x "$1/$2"
}

# An empty environment: bin is the whole PATH, and games replaces /usr/games, which may hold a real emulator.
fresh() {
    find "${dir:?}" -mindepth 1 -delete
    mkdir "$dir/bin" "$dir/games" "$dir/emuladores"
    sed "s|/usr/games|$dir/games|g" "$script" >"$dir/emuladores/mgba.sh"
    cp "${script%/*}/mgba-image.sh" "$dir/emuladores/"
    chmod +x "$dir/emuladores/"*
    status=0 calls=() errors=
}

# Runs the script, or the one named by $started, with the arguments that the program passes: the command line cut at every blank.
play() { # PATH_OF_GAME [VARIABLE=VALUE...]
    local rest="$1 " words=()
    shift
    while [[ -n $rest ]]; do
        words+=("${rest%% *}")
        rest=${rest#* }
    done
    env -i PATH="$dir/bin" "$@" /bin/sh "$dir/emuladores/${started-mgba.sh}" "${words[@]}" 2>"$dir/errors"
    status=$?
    errors=$(<"$dir/errors")
    [[ ! -e $dir/calls ]] || mapfile -d '' calls <"$dir/calls"
}

# Runs all functions whose names begin with "test_". Fails if a check does.
run_tests() {
    local all running
    mapfile -t all < <(compgen -A function test_)
    for running in "${all[@]}"; do "$running"; done
    printf '%d cases, %d failed checks\n' "${#all[@]}" "$failures"
    ((failures == 0 && ${#all[@]} > 0))
}
