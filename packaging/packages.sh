# SPDX-License-Identifier: MIT
# The Debian packages that this project's scripts need, and the function that installs them. Sourced by bash.

# For building the program and its folder: the painter of the pictures writes the credits in one of the fonts.
packages_build=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev libsimpleini-dev libssl-dev libxcb1-dev libzip-dev zlib1g-dev webp
    fonts-dejavu-core sdcc binutils-arm-none-eabi libmgba-dev netpbm)
# For making the Debian package.
packages_package=(dpkg-dev file)
# For checking what the package installs, and which program desktops then take for a file; and to install it in a folder
# without being root.
packages_validate=(desktop-file-utils appstream man-db bash-completion shared-mime-info libglib2.0-bin xdg-utils fakeroot)
# For checking the package as a whole, and for a fresh system to install it in.
packages_system=(lintian debootstrap)
# For seeing its entry in the menu of a panel.
packages_panel=(lxpanel lxmenu-data dbus-daemon)
# For running it: picture formats, Qt's own texts in the user's language, substitutes for the fonts of the designs,
# an emulator, what converts its screenshots, the command that prints.
packages_run=(libqt6gui6 libqt6widgets6 libqt6network6 libqt6printsupport6 libqt6svg6 libssl3 libxcb1 libzip4
    zlib1g qt6-image-formats-plugins qt6-translations-l10n fonts-dejavu-core fonts-dejavu-extra fonts-liberation fonts-cabin mgba-sdl netpbm
    cups-client)
# For running it on a virtual display, with synthetic input and screenshots.
packages_display=(xvfb openbox xdotool maim wmctrl x11-utils x11-xserver-utils)
# For its icon in the tray: a tray, and a bus and its client's side for Python to play a desktop.
packages_tray=(trayer dbus-daemon python3-gi)
# For running it on Wayland: two compositors, Qt's side of them, keys and screenshots; a mouse comes with the tests.
packages_wayland=(sway weston qt6-wayland grim wtype python3)
# For checking the form of the sources, making archives and certificates for tests, and measuring.
packages_check=(clang-format clang-tidy python3 openssl)
# To print in tests on a spooler of their own, and to measure what comes out.
packages_print=(cups-daemon cups-client cups-filters poppler-utils)
# To look at it as assistive tools do: their bus, and the client's side of it for Python.
packages_access=(at-spi2-core dbus-daemon gir1.2-atspi-2.0 python3-gi)
packages_bench=(unzip)
# For fuzzing with line coverage, and for finding memory errors.
packages_fuzz=(clang libclang-rt-14-dev llvm)
packages_memory=(valgrind)

# need_packages NAME...: installs what is missing, as root or via sudo. If neither is possible, prints the
# command to run and returns 1.
need_packages() {
    local missing
    mapfile -t missing < <(
        comm -23 <(printf '%s\n' "$@" | sort -u) \
            <(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null | sed -n 's/^installed //p' | sort -u)
    )
    [ ${#missing[@]} -eq 0 ] && return 0
    local install=(apt-get install -y --no-install-recommends "${missing[@]}")
    if [ "$(id -u)" -eq 0 ]; then
        apt_as_needed "${install[@]}"
    elif command -v sudo >/dev/null && { [ -t 0 ] || sudo -n true 2>/dev/null; }; then
        apt_as_needed sudo "${install[@]}"
    else
        printf 'Some packages are missing. Please run:\n  sudo %s\n' "${install[*]}" >&2
        return 1
    fi
}

# The package lists of a fresh machine may be empty or old: updates them if the first attempt fails.
apt_as_needed() {
    export DEBIAN_FRONTEND=noninteractive
    echo "Installing: ${*: -1} and what else is missing" >&2
    "$@" >/dev/null 2>&1 && return 0
    local root=()
    [ "$1" = sudo ] && root=(sudo)
    "${root[@]}" apt-get update >/dev/null || return 1
    "$@"
}
