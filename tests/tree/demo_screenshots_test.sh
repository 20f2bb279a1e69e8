#!/bin/bash
# SPDX-License-Identifier: MIT
# Tests the pictures that the build puts into the gallery's folder: two of each kind, each of a whole screen of a
# console, all different. Usage: demo_screenshots_test.sh FOLDER. Exits 1 if a check fails and names it.
set -u
folder=${1:?the folder of the pictures}
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT
failures=0

fail() {
    printf 'FAILED %s\n' "$1"
    failures=$((failures + 1))
}

# A converter reads nothing but its own format, so the content is what the extension says.
declare -A reader=([jpg]=jpegtopnm [gif]=giftopnm [bmp]=bmptopnm [png]=pngtopnm)
shopt -s nullglob
number=0
for kind in "${!reader[@]}"; do
    pictures=("$folder"/*."$kind")
    ((${#pictures[@]} == 2)) || fail "${#pictures[@]} pictures of the kind $kind"
    for picture in "${pictures[@]}"; do
        number=$((number + 1))
        pnm=$work/$number.pnm
        "${reader[$kind]}" "$picture" 2>/dev/null | pnmtopnm -plain 2>/dev/null >"$pnm"
        case $(sed -n 2p "$pnm") in
        '160 144' | '240 160') ;;
        *) fail "$picture has the wrong size or cannot be read" ;;
        esac
        (($(tail -n +4 "$pnm" | tr -s ' ' '\n' | sort -u | wc -l) > 3)) || fail "$picture is empty"
    done
done
[[ -z $(cksum "$work"/*.pnm | cut -d ' ' -f 1 | sort | uniq -d) ]] || fail 'two pictures are the same'
[[ $(find "$folder" -type f | wc -l) == 8 ]] || fail 'there are other files'
printf '%d pictures, %d failed checks\n' "$number" "$failures"
((failures == 0))
