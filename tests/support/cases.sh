# SPDX-License-Identifier: MIT
# The cases of a test in bash: every function whose name begins with test_, each in a new folder below $dir. Sourced.

failures=0

fail() {
    printf 'FAILED %s: %s\n' "$case_name" "$1"
    failures=$((failures + 1))
}

expect() { # WHAT EXPECTED ACTUAL
    [[ $2 == "$3" ]] || fail "$1: expected $(printf %q "$2"), got $(printf %q "$3")"
}

# Runs them all. Fails if a check failed, or if there is no case.
run_cases() {
    local all
    mapfile -t all < <(compgen -A function test_)
    for case_name in "${all[@]}"; do
        mkdir "$dir/case" && cd "$dir/case" || exit 1
        "$case_name"
        cd "$dir" && rm -rf "$dir/case"
    done
    printf '%d cases, %d failed checks\n' "${#all[@]}" "$failures"
    ((failures == 0 && ${#all[@]} > 0))
}
