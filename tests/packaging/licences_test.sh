#!/bin/bash
# SPDX-License-Identifier: MIT
# The licences that come with the program: each library that it is linked with is in the table, the texts that the
# table names are there and no others, and the program's own is among them. Usage: licences_test.sh PROGRAM_FOLDER
# LICENCE. Exits 1 if a check fails and names it.
set -u
programs=("${1:?the folder of the program}/torvane" "$1/torvane-tags")
folder=$1/data/licences
own=${2:?the licence of the program}
failures=0

fail() {
    printf 'FAILED: %s\n' "$1"
    failures=$((failures + 1))
}

# The names before ".so", without what the processor adds to that of the loader.
needed() {
    readelf -d "${programs[@]}" | sed -n 's/.*(NEEDED).*\[\(.*\)\.so.*\].*/\1/p' | sed 's/^ld-linux.*/ld-linux/' | sort -u
}
rows() { grep -v '^#' "$folder/libraries.tsv"; }

count=0
for library in $(needed); do
    rows | cut -f1 | tr ' ' '\n' | grep -qxF -- "$library" || fail "$library is not in the table"
    count=$((count + 1))
done
[ "$count" -ge 8 ] || fail "only $count libraries were found in ${programs[*]}"
for library in $(rows | cut -f1); do
    needed | grep -qxF -- "$library" || fail "$library is in the table, but the program is not linked with it"
done

named=$(rows | cut -f4 | tr ' ' '\n' | cat - <(echo torvane.txt) | sort -u)
present=$(cd "$folder" && printf '%s\n' *.txt | sort)
[ "$named" = "$present" ] || fail "texts: $(diff <(echo "$named") <(echo "$present") | tr '\n' ' ')"
for text in $named; do
    [ "$(wc -c <"$folder/$text")" -gt 500 ] || fail "$text is empty or cut"
done
rows | awk -F'\t' 'NF != 4 || $2 == "" || $3 == "" { exit 1 }' || fail 'a row of the table lacks a field'
cmp "$own" "$folder/torvane.txt" || fail "the program's own licence is another one"
# The three long ones end as their authors end them.
grep -q 'why-not-lgpl.html' "$folder/GPL-3.txt" && grep -q 'for you to choose that version for the$' "$folder/LGPL-3.txt" &&
    grep -q "That's all there is to it!" "$folder/LGPL-2.1.txt" || fail 'a licence of the FSF is cut'

[ "$failures" -eq 0 ]
