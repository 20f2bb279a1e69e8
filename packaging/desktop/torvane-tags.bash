# SPDX-License-Identifier: MIT
# Completion of torvane-tags' command line for bash.
_torvane_tags() {
    local cur prev words cword split word command= options='--folder --help --version'
    _init_completion -s || return
    case $prev in
    --folder)
        _filedir -d
        return
        ;;
    --from)
        _filedir tsv
        return
        ;;
    --output)
        _filedir
        return
        ;;
    --title | --company | --info | --date | --author) return ;;
    --dat)
        _filedir '@(dat|xml|txt)'
        return
        ;;
    --only)
        mapfile -t COMPREPLY < <(compgen -W 'crc32 md5 sha1 sha256' -- "$cur")
        return
        ;;
    --title | --company | --info | --date) return ;;
    esac
    local i
    for ((i = 1; i < cword; i++)); do
        word=${words[i]}
        case $word in
        --folder) ((i++)) ;;
        -*) ;;
        *)
            command=$word
            break
            ;;
        esac
    done
    case $command in
    list | show | verify) options+=' --json --tsv' ;;
    set) options+=' --json --tsv --dry-run --title --company --info --date --from' ;;
    clear | copy-tags | undo | import) options+=' --json --tsv --dry-run' ;;
    export) options+=' --output --author' ;;
    hash) options+=' --json --tsv --only' ;;
    identify) options+=' --json --tsv --dat --deep --write --replace --dry-run' ;;
    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$cur")
    elif [[ -z $command ]]; then
        mapfile -t COMPREPLY < <(compgen -W 'list show set clear copy-tags undo verify hash identify export import play' -- "$cur")
    elif [[ $command == import && $prev == import ]]; then
        _filedir
    else
        _filedir '@(gb|gbc|gba|cgb|agb|zip|bin)'
    fi
} &&
    complete -F _torvane_tags torvane-tags
