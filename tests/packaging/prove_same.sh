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

# The pictures that the metadata name are on the web only when somebody publishes the package, and the address of the
# sources is an example. So they are served from here, under an address that is set as a publisher would; his will be
# secure.
metadata_are_valid() {
    local server port said status=1
    rm -f "$work/server.log"
    python3 -u -m http.server --bind 127.0.0.1 --directory "$sources/docs/pictures" 0 >"$work/server.log" 2>&1 &
    server=$!
    wait_until 10 "grep -q 'port [0-9]' '$work/server.log'" && port=$(sed -n '1s/.* port \([0-9]*\) .*/\1/p' "$work/server.log") &&
        cmake -S "$sources" -B "$work/site" -G Ninja -DTORVANE_TESTS=OFF \
            -DTORVANE_PICTURES_SITE="http://localhost:$port" >"$work/site.log" 2>&1 &&
        said=$(appstreamcli validate --strict --override=screenshot-media-url-not-secure=pedantic \
            "$work"/site/packaging/*.metainfo.xml) && status=0
    kill $server
    echo "$said"
    [ $status = 0 ] && [ "$(grep -c 'GET /.*\.png HTTP/[0-9.]*" 200' "$work/server.log")" -ge 3 ]
}

prove_same() {
    check 'the package is built' first_build
    check 'it is built in another folder at another time' second_build
    check 'both are the same' is_same
    check 'it is small' is_small
    check 'lintian has nothing to say' lintian_is_silent
    check 'the metadata are valid, and their pictures are there' metadata_are_valid
}
