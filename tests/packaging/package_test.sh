#!/bin/bash
# SPDX-License-Identifier: MIT
# What the package installs, without packing it: which files there are and with which permissions, and whether the
# desktop's own validators have something to say of them. Usage: package_test.sh BUILD_FOLDER SOURCE_FOLDER. Exits 1
# if a check fails and names it.
set -u
build=$(realpath -- "${1:?the folder of the build}")
source=$(realpath -- "${2:?the folder of the sources}")
dir=$(mktemp -d) || exit 1
trap 'rm -rf "$dir"' EXIT
failures=0
export LC_ALL=C.UTF-8 HOME=$dir

fail() {
    printf 'FAILED: %s\n' "$1"
    failures=$((failures + 1))
}

# is_silent WHAT COMMAND...: the command succeeds and prints nothing.
is_silent() {
    local what=$1 said
    shift
    said=$("$@" 2>&1) && [ -z "$said" ] || fail "$what: $said"
}

same() { [ "$2" = "$3" ] || fail "$1: $(diff <(printf '%s\n' "$2") <(printf '%s\n' "$3") | tr '\n' ' ')"; }

umask 022
usr=$dir/usr
# Installs from copies of the made trees in which files of an earlier build are left.
install_beside_leftovers() {
    local tree
    mkdir -p "$dir/art" "$dir/demo"
    for tree in art demo; do cp -a "$build/$tree/tree" "$dir/$tree" || return 1; done
    touch "$dir/art/tree/data/left.dat" "$dir/art/tree/data/tray/left.dat" "$dir/demo/tree/left.txt" \
        "$dir/demo/tree/roms/left.gb" "$dir/demo/tree/roms/data/screenshots/left.png"
    sed "s#\"$build/\(art\|demo\)/tree/#\"$dir/\1/tree/#g" "$build/cmake_install.cmake" >"$dir/install.cmake" || return 1
    grep -q "$dir/art/tree" "$dir/install.cmake" && grep -q "$dir/demo/tree" "$dir/install.cmake" &&
        cmake -DCMAKE_INSTALL_PREFIX="$usr" -P "$dir/install.cmake"
}
install_beside_leftovers >"$dir/log" 2>&1 || { cat "$dir/log"; exit 1; }
share=$usr/share
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:.*=//p' "$build/CMakeCache.txt")
# A value of CPack's configuration.
packed() { sed -n "s/^set(CPACK_DEBIAN_PACKAGE_$1 \"\(.*\)\")\$/\1/p" "$build/CPackConfig.cmake"; }

# Files and permissions.
made() {
    printf './data/%s\n' {intro,credits}{,@2x}.dat site/banner{,@2x}.swf tray/{0..6}.dat
    printf './roms/%s\n' {'Colour Loom.gbc','Day Garden.zip','Lantern Drift.gba','Night Garden.gb'}
    printf './roms/data/screenshots/%s\n' 'Colour Loom'{' 2.gif',.png} 'Day Garden'{' 2.png',.bmp} \
        {'Lantern Drift','Night Garden'}' 2.jpg' 'Lantern Drift.bmp' 'Night Garden.gif'
}
same 'the tree' "$(cd "$source/tree" && find . -type f | sort - <(made))" \
    "$(cd "$share/torvane/tree" && find . -type f ! -path ./data/.laid-out | sort)"
tr '\0' '\n' <"$share/torvane/tree/data/.laid-out" >"$dir/index"
same 'version of the index' "version $version" "$(head -n 1 "$dir/index")"
same 'files of the index' "$(cd "$share/torvane/tree" && find . -type f ! -path ./data/.laid-out | sort)" \
    "$(sed 1d "$dir/index" | cut -d ' ' -f 4- | sort)"
same 'executable files' "./games/torvane
./games/torvane-tags
./share/torvane/tree/emuladores/mgba-image.sh
./share/torvane/tree/emuladores/mgba.sh" "$(cd "$usr" && find . -type f -perm 755 | sort)"
same 'other permissions' '' "$(find "$usr" ! -type d ! -perm 644 ! -perm 755 -o -type d ! -perm 755)"
same 'files of the desktop' "applications/torvane.desktop
applications/zz-torvane-open.desktop
bash-completion/completions/torvane
bash-completion/completions/torvane-tags
doc/torvane/changelog.gz
doc/torvane/copyright
man/man6/torvane-tags.6.gz
man/man6/torvane.6.gz
metainfo/org.example.torvane.metainfo.xml" \
    "$(cd "$share" && find . -type f ! -path './torvane/*' ! -path './icons/*' | sed 's/^..//' | sort)"

# Icons, each of the size of its folder.
count=0
for icon in "$share"/icons/hicolor/*x*/apps/torvane.png; do
    size=${icon#"$share/icons/hicolor/"}
    size=${size%%/*}
    [ "$(pngtopnm -alpha "$icon" | sed -n 2p)" = "${size%x*} ${size#*x}" ] || fail "an icon is not $size"
    count=$((count + 1))
done
[ $count -eq 13 ] || fail "$count icons instead of 13"
cmp "$source/art/svg/torvane.svg" "$share/icons/hicolor/scalable/apps/torvane.svg" || fail 'another SVG'

# Validators.
is_silent desktop-file-validate desktop-file-validate "$share"/applications/*.desktop
said=$(appstreamcli validate --pedantic --strict --no-net "$share"/metainfo/*.xml) &&
    [ "$(wc -l <<<"$said")" = 1 ] || fail "appstreamcli: $said"
warnings_of_man() { man --warnings -E UTF-8 -l -Tutf8 -Z "$share/man/man6/$1.6.gz" 2>&1 >/dev/null; }
options_of() { "$usr/games/$@" --help | grep -o -- '--[a-z-]\+' | LC_ALL=C sort -u; } # PROGRAM [COMMAND]
changed=$(dpkg-parsechangelog -l "$source/packaging/debian/changelog" -S Date)
changed=$(date -d "${changed% *}" +%F)
for program in torvane torvane-tags; do
    is_silent "man $program" warnings_of_man "$program"
    gzip -dc "$share/man/man6/$program.6.gz" >"$dir/$program.6"
    grep -q "^.TH ${program^^} 6 \"$changed\" \"Torvane $version\"" "$dir/$program.6" || fail "the head of $program.6"
done
grep -q "<release version=\"$version\" date=\"$changed\"/>" "$share"/metainfo/*.xml || fail 'the release in the metadata'
commands=$("$usr/games/torvane-tags" --help | sed -n 's/^  \([a-z-]\+\) .*/\1/p' | LC_ALL=C sort)
[ "$(wc -l <<<"$commands")" -ge 5 ] || fail "only these commands: $commands"
options_in() { sed 's/\\-/-/g' "$dir/$1.6" | grep -o -- '--[a-z-]*[a-z]' | LC_ALL=C sort -u; } # PROGRAM
same 'options of the manual page' "$(options_of torvane)" "$(options_in torvane)"
same 'options of torvane-tags.6' "$(for name in '' $commands; do options_of torvane-tags $name; done | LC_ALL=C sort -u)" \
    "$(options_in torvane-tags)"
page=$(man -l "$share/man/man6/torvane-tags.6.gz")
for command in $commands; do grep -q "^ *$command " <<<"$page" || fail "the page lacks $command"; done
gzip -dc "$share/doc/torvane/changelog.gz" | cmp -s - "$source/packaging/debian/changelog" || fail 'another changelog'
# A name or a time inside would make another package of the same sources.
for file in "$share/doc/torvane/changelog.gz" "$share"/man/man6/*.gz; do
    same "flags and time of $file" ' 00 00 00 00 00' "$(od -An -tx1 -j 3 -N 5 "$file")"
done
grep -q '@' "$dir"/*.6 "$share"/metainfo/*.xml && fail 'a value was not filled in'

menu=$share/applications/torvane.desktop
opener=$share/applications/zz-torvane-open.desktop
value() { sed -n "s/^$2=//p" "$1"; } # FILE KEY

# What a desktop starts and shows. A game's name may begin with a dash. Of several programs for a type KDE takes the one
# with the highest preference.
same 'the desktop entry' "Exec=torvane -- %F
Icon=torvane
StartupNotify=true
StartupWMClass=torvane
Terminal=false" "$(grep -E '^(Exec|Icon|InitialPreference|Startup[A-Za-z]*|Terminal)=' "$menu" | sort)"
same 'the entry for "Open with"' "Exec=torvane -- %F
Icon=torvane
InitialPreference=0
StartupNotify=true
Terminal=false" "$(grep -E '^(Exec|Icon|InitialPreference|Startup[A-Za-z]*|Terminal)=' "$opener" | sort)"
same 'in the menu' ' true' "$(value "$menu" NoDisplay) $(value "$opener" NoDisplay)"
for key in Name GenericName; do same "$key" "$(value "$menu" $key)" "$(value "$opener" $key)"; done
launched=$(sed -n 's|.*<launchable type="desktop-id">\(.*\)</launchable>|\1|p' "$share"/metainfo/*.xml)
same 'what the metadata start' torvane.desktop "$launched"

# Opens the three consoles' files and archives, from the file that is not in the menu.
types=$(value "$opener" MimeType | tr ';' '\n' | sed '/^$/d' | sort)
same types "application/x-gameboy-color-rom
application/x-gameboy-rom
application/x-gba-rom
application/zip" "$types"
for type in $types; do grep -qx "$type" /usr/share/mime/types || fail "shared-mime-info lacks $type"; done
same 'types of the menu entry' '' "$(value "$menu" MimeType)"

# Never the default where another program is: not with any name, nor where nobody has chosen. What desktops then do is
# asked from GLib and xdg-utils, in a world with stand-ins for the others.
same 'default applications' '' "$(find "$usr" -name '*mimeapps.list' -o -name 'defaults.list')"
world=$dir/world
mkdir -p "$world/applications" "$world/bin" && ln -s /usr/share/mime "$world/mime"
cp "$share"/applications/*.desktop "$world/applications"
in_world() {
    env -u XDG_CURRENT_DESKTOP -u DESKTOP_SESSION PATH="$world/bin:$PATH" XDG_DATA_HOME="$world/home" XDG_CONFIG_HOME="$world/home" \
        XDG_CONFIG_DIRS="$world/home" XDG_DATA_DIRS="$world" "$@"
}
stand_in() { # NAME
    printf '#!/bin/sh\n' >"$world/bin/$1" && chmod +x "$world/bin/$1"
    printf '[Desktop Entry]\nType=Application\nName=%s\nExec=%s %%F\nMimeType=%s\n' "$1" "$1" "$(value "$opener" MimeType)" \
        >"$world/applications/$1.desktop"
}
# defaults TYPE: of GLib and of xdg-utils.
defaults() {
    update-desktop-database "$world/applications"
    in_world gio mime "$1" | sed -n '1s/.*: //p'
    in_world xdg-mime query default "$1"
}
stand_in torvane # that the program counts as installed
rm "$world/applications/torvane.desktop"
for other in xarchiver wxvbam zutty; do
    stand_in $other
    for type in $types; do
        same "default for $type beside $other" "$(printf '%s\n' $other.desktop $other.desktop)" "$(defaults "$type")"
        in_world gio mime "$type" | grep -q '[[:space:]]zz-torvane-open.desktop$' || fail "no offer for $type"
    done
    rm "$world/applications/$other.desktop"
done

# The changelog, the control file.
same 'version in the changelog' "$version" "$(dpkg-parsechangelog -l "$source/packaging/debian/changelog" -S Version)"
same 'maintainer in the changelog' "$(packed MAINTAINER)" \
    "$(dpkg-parsechangelog -l "$source/packaging/debian/changelog" -S Maintainer)"
grep -q "torvane_${version}_amd64.deb" "$source/README.md" || fail 'the README installs another version'
depends=$(packed DEPENDS | tr -d ' ' | tr ',' '\n')
recommends=$(packed RECOMMENDS | tr -d ' ' | tr ',|' '\n\n')
fonts=$(grep -o '"fonts-[a-z-]*"' "$source/src/platform/forms/Fonts.cpp" | tr -d '"' | sort -u)
[ "$(wc -l <<<"$fonts")" -ge 4 ] || fail "only these packages of fonts: $fonts"
same 'packages of fonts' "$fonts" "$(grep '^fonts-' <<<"$depends" | sort)"
# What ./run installs, the package asks for, too. Libraries are found by dpkg-shlibdeps.
source "$source/packaging/packages.sh"
for name in "${packages_run[@]}"; do
    [[ $name == lib* || $name == zlib1g ]] || grep -qx -- "$name" <<<"$depends"$'\n'"$recommends" || fail "it does not ask for $name"
done

# offered LINE WORD...: what bash offers for the last word, in a folder with these files. A line that has no more words
# than these is made from them.
mkdir -p "$dir/games/folder" && touch "$dir/games/"{one.gb,two.GBA,three.txt,-four.zip}
offered() {
    (cd "$dir/games" && bash -c '
        source /usr/share/bash-completion/bash_completion
        source "$0"
        # As bash itself finds the function.
        program=${0##*/}
        [[ $(complete -p "$program") =~ ^complete\ -F\ ([^ ]+)\ "$program"$ ]] || exit 1
        COMP_LINE=${1:-$program ${*:2}}
        COMP_WORDS=("$program" "${@:2}") COMP_CWORD=$(($# - 1)) COMP_POINT=${#COMP_LINE}
        "${BASH_REMATCH[1]}"
        printf "%s\n" "${COMPREPLY[@]}"' "$share/bash-completion/completions/$program" "$@" | LC_ALL=C sort)
}
files=$'-four.zip\nfolder\none.gb\ntwo.GBA'
program=torvane
same 'completion of options' "$(options_of torvane)" "$(offered '' --)"
same 'completion of --folder' folder "$(offered '' --folder '')"
same 'completion of --folder=' folder "$(offered 'torvane --folder=' --folder =)"
same 'completion of --folder=fol' folder "$(offered 'torvane --folder=fol' --folder = fol)"
same 'completion of files' "$files" "$(offered '' '')"
same 'completion after a folder' "$files" "$(offered '' --folder -- '')"
same 'completion after --' -four.zip "$(offered '' -- -)"
same 'completion after -- and what looks like an option' "$files" "$(offered '' -- --folder '')"
program=torvane-tags
same 'completion of commands' "$commands" "$(offered '' '')"
for command in $commands; do
    same "completion of $command" \
        "$(printf '%s\n' --folder --help --version | cat - <(options_of torvane-tags "$command") | LC_ALL=C sort)" \
        "$(offered '' "$command" --)"
done
same 'completion of games' "$files" "$(offered '' set --title x '')"
same 'completion of a table' $'folder\nlist.tsv' "$(touch "$dir/games/list.tsv"; offered '' set --from '')"

[ "$failures" -eq 0 ]
