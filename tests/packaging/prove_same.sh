# SPDX-License-Identifier: MIT
# The part "same" of prove_package: one set of sources gives one package. Sourced by it.

# build_in FOLDER: a copy of the sources in a folder of the work, and the package from there. With a compiler cache a
# build would be compared with itself.
build_in() {
    local folder=$work/$1
    mkdir -p "$folder"
    git -C "$sources" ls-files -z | tar -C "$sources" --null -T - -c | tar -C "$folder" -x
    CCACHE_DISABLE=1 "$folder/package" >"$folder.log" 2>&1 || { tail -n 20 "$folder.log"; return 1; }
}
first_build() { (umask 022 && TZ=UTC LC_ALL=C.UTF-8 build_in one); }
second_build() { (umask 002 && TZ=Asia/Tokyo LC_ALL=C HOME=$work build_in another-folder-with-a-longer-name); }

is_same() {
    (cd "$work" && sha256sum ./*/build/torvane_*.deb)
    cmp "$work"/one/build/torvane_*.deb "$work"/another-folder-with-a-longer-name/build/torvane_*.deb
}

# In bytes: 6 MiB packed, 20 MiB installed (which dpkg counts in KiB).
is_small() {
    local package=("$work"/one/build/torvane_*.deb) packed installed
    packed=$(stat -c %s "${package[0]}")
    installed=$(dpkg-deb -f "${package[0]}" Installed-Size)
    echo "packed $packed bytes, installed $installed KiB"
    [ "$packed" -lt $((6 << 20)) ] && [ "$installed" -lt $((20 << 10)) ]
}
lintian_is_silent() {
    local said
    said=$(lintian --allow-root --fail-on error,warning "$work"/one/build/torvane_*.deb 2>&1) && [ -z "$said" ] && return
    echo "$said"
    return 1
}

prove_same() {
    check 'the package is built' first_build
    check 'it is built in another folder at another time' second_build
    check 'both are the same' is_same
    check 'it is small' is_small
    check 'lintian has nothing to say' lintian_is_silent
}
