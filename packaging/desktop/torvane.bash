# SPDX-License-Identifier: MIT
# Completion of torvane's command line for bash.
_torvane() {
    local cur prev words cword split word
    _init_completion -s || return
    if [[ $prev == --folder ]]; then
        _filedir -d
        return
    fi
    # After "--" everything is a file.
    for word in "${words[@]:1:cword-1}"; do
        if [[ $word == -- ]]; then
            _filedir '@(gb|gbc|gba|zip)'
            return
        fi
    done
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--folder --help --version' -- "$cur")
    else
        _filedir '@(gb|gbc|gba|zip)'
    fi
} &&
    complete -F _torvane torvane
