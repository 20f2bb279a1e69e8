# SPDX-License-Identifier: MIT
# Completion of torvane's command line for bash.
_torvane() {
    local cur prev words cword place
    _init_completion -n = || return
    for ((place = 1; place < cword; place++)); do
        case ${words[place]} in
        --folder) ((++place)) ;; # its path, whatever that is
        --)
            # From here on everything is a file.
            _filedir '@(gb|gbc|gba|zip)'
            return
            ;;
        esac
    done
    if [[ $cur == --folder=* ]]; then
        cur=${cur#*=}
        _filedir -d
    elif ((place > cword)); then
        _filedir -d
    elif [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--folder --help --version' -- "$cur")
    else
        _filedir '@(gb|gbc|gba|zip)'
    fi
} &&
    complete -F _torvane torvane
