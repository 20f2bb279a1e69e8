# SPDX-License-Identifier: MIT
# The parts "system" and "unpacked" of prove_package, and the test of the installed package: a life of the package in
# a system of its own. Sourced by both.

user=4242 # nobody's number on this machine or in the new system
is_fresh= # set if the system is Debian's; else it has the package and nothing more

# The mirror that this machine's own packages come from.
mirror() {
    apt-get indextargets --format '$(RELEASE) $(REPO_URI)' 'Created-By: Packages' | sed -n "s/^$1 //p" | head -n 1
}

make_fresh_system() {
    local release from
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    from=$(mirror "$release")
    [ "$(id -u)" = 0 ] && [ -n "$from" ] || return 1
    [ -x "$root/usr/bin/apt-get" ] ||
        debootstrap --variant=minbase "$release" "$root" "$from" >"$work/debootstrap.log" 2>&1 || return 1
    cp /etc/resolv.conf "$root/etc/" && mount -t proc proc "$root/proc" &&
        chroot "$root" apt-get update >"$work/apt.log" 2>&1 && is_fresh=yes
}
make_unpacked_system() {
    mkdir -p "$root/var/lib/dpkg/"{info,updates} "$root/home"
    touch "$root/var/lib/dpkg/"{status,available}
}
# make_system fresh|unpacked: a fresh one falls back to an unpacked one.
make_system() {
    is_fresh=
    root=$work/fresh
    mkdir -p "$root"
    if [ "$1" = fresh ] && make_fresh_system; then
        echo "Debian, installed from its mirror"
    else
        root=$work/unpacked
        make_unpacked_system || return 1
        echo "a folder with this machine's libraries"
    fi
    home=$root/home/player
    library=$home/.local/share/torvane
    rm -rf "$home"
    mkdir -p "$home" && { [ "$(id -u)" != 0 ] || chown $user:$user "$home"; }
}
leave_system() { [ -z "${root:-}" ] || ! mountpoint -q "$root/proc" || umount "$root/proc"; }

# make_packages PACKAGE LAY_OUT_TOOL: the package as it is, and one with an older version made from it, in which one
# file is not there yet, one is that the new version lacks, and two have other contents.
make_packages() {
    local old=$work/old tree=$work/old/usr/share/torvane/tree
    rm -rf "$old" && cp "$1" "$work/new.deb" && dpkg-deb -R "$work/new.deb" "$old" || return 1
    sed -i 's/^Version: .*/Version: 1.0~older/' "$old/DEBIAN/control"
    printf '; of the older version\r\n' >>"$tree/data/hosts.ini"
    printf 'An older page;https://www.example.org/;system\r\n' >"$tree/data/url.dat"
    printf 'older' >"$tree/data/older.txt"
    rm "$tree/roms/Day Garden.zip" "$tree/data/.laid-out" "$old/DEBIAN/md5sums"
    "$2" --version 1.0~older "$tree" "$tree" && dpkg-deb --root-owner-group -Znone -b "$old" "$work/old.deb" >/dev/null
}
# From the package that the part "same" has built, or one that is built now.
make_proven_packages() {
    [ -f "$work"/one/build/torvane_*.deb ] || first_build || return 1
    make_packages "$work"/one/build/torvane_*.deb "$work/one/build/torvane_lay_out"
}

install_package() { # FILE
    if [ -n "$is_fresh" ]; then
        cp "$1" "$root/tmp/package.deb"
        DEBIAN_FRONTEND=noninteractive chroot "$root" apt-get install -y --allow-downgrades /tmp/package.deb \
            >>"$work/apt.log" 2>&1
    else
        unpacked_dpkg --force-depends -i "$1"
    fi
    [ "$(installed_version)" = "$(dpkg-deb -f "$1" Version)" ]
}
# dpkg sets owners, which only root can do, and others pretend.
unpacked_dpkg() {
    local as=()
    [ "$(id -u)" = 0 ] || as=(fakeroot)
    "${as[@]}" dpkg --root="$root" --force-script-chrootless --force-not-root --force-unsafe-io --log=/dev/null "$@" >>"$work/dpkg.log" 2>&1
}
installed_version() { dpkg-query --admindir="$root/var/lib/dpkg" -W -f '${Version}' torvane 2>/dev/null; }
take_away() { # remove|purge
    if [ -n "$is_fresh" ]; then
        chroot "$root" apt-get "$1" -y torvane >>"$work/apt.log" 2>&1
    else
        unpacked_dpkg "--$1" torvane
    fi
    [ -z "$(find "$root/usr" -path '*torvane*' -print -quit 2>/dev/null)" ]
}

# The program as the ordinary user, who has none of this machine's variables.
start_installed() {
    local as=() start=$root/usr/games/torvane in=$home
    if [ -n "$is_fresh" ]; then
        as=(chroot --userspec=$user:$user "$root") start=torvane in=/home/player
    elif [ "$(id -u)" = 0 ]; then
        as=(setpriv --reuid=$user --regid=$user --clear-groups)
    fi
    (cd / && exec "${as[@]}" env -i HOME="$in" DISPLAY="$DISPLAY" LANG=C.UTF-8 SDL_AUDIODRIVER=dummy \
        PATH=/usr/local/bin:/usr/bin:/bin:/usr/local/games:/usr/games "$start" "$@") >"$work/program.log" 2>&1 &
    program_pid=$!
}

first_start() { start_installed && wait_window SelLangStartUp 60 && read_on SelLangStartUp; }
# Neither the program nor a file that it has open or mapped is one of the sources or of their build.
uses_nothing_of_the_sources() {
    [ "$(stat -L -c %u "/proc/$program_pid")" = "$(stat -c %u "$home")" ] &&
        # Whoever runs the tests may hand on his own record of them.
        ! { readlink /proc/"$program_pid"/{exe,cwd} /proc/"$program_pid"/fd/*; cat "/proc/$program_pid/maps"; } |
        grep -F -- "$sources/" | grep -v /Testing/Temporary/
}
choose_language() { click SelLangStartUp Label6 && click SelLangStartUp ok; }
see_main_window() { wait_window Splash 30 && wait_active Splash && xdotool key space && wait_window MainFrm 30; }
library_is_laid_out() {
    # Files that differ from those of the package.
    ! (cd "$root/usr/share/torvane/tree" &&
        find . -type f ! -path ./data/.laid-out ! -exec cmp -s {} "$library/{}" \; -print) | grep . &&
        [ "$(stat -c %u "$library/roms/Night Garden.gb")" = "$(stat -c %u "$home")" ]
}
play_game() {
    local main_window
    main_window=$(window_id MainFrm)
    click_row 3 && click MainFrm ChameleonButton16 && wait_game "$main_window" && end_game && wait_window MainFrm
}
leave() {
    click MainFrm chameleonButton1 && wait_window TorvMsg && click TorvMsg chameleonButton2
    wait_until 10 '! program_runs'
}
start_again() {
    sed -i '/^Intro/d;/^\[Config\]/a Intro = 0' "$home/.config/Torvane/Torvane.conf"
    start_installed && wait_window MainFrm 60
}

change_library() {
    printf 'update=http://localhost:8000\r\n' >>"$library/data/hosts.ini"
    printf 'mine' >"$library/roms/mine.gb"
    rm "$library/roms/Colour Loom.gbc"
}
kept_changes() {
    grep -q localhost:8000 "$library/data/hosts.ini" && grep -q 'older version' "$library/data/hosts.ini" &&
        [ "$(cat "$library/roms/mine.gb")" = mine ] && [ ! -e "$library/roms/Colour Loom.gbc" ]
}
is_updated() {
    cmp "$library/data/url.dat" "$root/usr/share/torvane/tree/data/url.dat" &&
        cmp "$library/roms/Day Garden.zip" "$root/usr/share/torvane/tree/roms/Day Garden.zip"
}
sums() { (cd "$home" && find . -type f -exec sha256sum {} + | sort); }
user_data_is_as_it_was() { [ -s "$library/roms/mine.gb" ] && [ "$(sums)" = "$before" ]; }
program_is_gone() { [ ! -e "$root/usr/games/torvane" ]; }

live_in() { # fresh|unpacked
    check 'a system of its own' make_system "$1"
    check 'an older package is made' make_proven_packages
    live_through_an_upgrade play_game
}
# live_through_an_upgrade [STEP]: from the installation of the older version to the purge; STEP is for the first start.
live_through_an_upgrade() {
    check 'the older version is installed' install_package "$work/old.deb"
    check 'an ordinary user starts it' first_start
    check 'it uses nothing of the sources' uses_nothing_of_the_sources
    check 'a language is chosen' choose_language
    check 'the main window opens' see_main_window
    check 'the library is laid out' library_is_laid_out
    [ -z "${1:-}" ] || { [ -z "$is_fresh" ] && [ ! -x /usr/games/mgba ]; } || check 'a game is played' "$1"
    check 'the program ends' leave
    change_library
    check 'the new version is installed over it' install_package "$work/new.deb"
    check 'it starts again' start_again
    check 'what the user changed, added and deleted stays' kept_changes
    check 'what he did not change is updated' is_updated
    check 'the program ends again' leave
    before=$(sums)
    check 'the package is removed' take_away remove
    check 'and purged' take_away purge
    check 'no program is left' program_is_gone
    check 'the data of the user is as it was' user_data_is_as_it_was
    leave_system
}
prove_system() { live_in fresh; }
prove_unpacked() { live_in unpacked; }
