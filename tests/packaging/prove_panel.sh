# SPDX-License-Identifier: MIT
# The part "panel" of prove_package: the entry in the menu of a real panel, and a start from it. Sourced by it.

# The installed package in a world in which nothing else is in the menu.
make_panel_world() {
    local kind world=$work/world
    make_system unpacked && make_proven_packages && install_package "$work/new.deb" || return 1
    mkdir -p "$world" "$home/.cache"
    for kind in desktop-directories icons lxpanel mime themes; do
        [ ! -e /usr/share/$kind ] || ln -sfn /usr/share/$kind "$world/$kind"
    done
    chown -R --reference="$home" "$home"
    panel_as=()
    [ "$(id -u)" != 0 ] || panel_as=(setpriv --reuid=$user --regid=$user --clear-groups)
    panel_as+=(env -i HOME="$home" DISPLAY="$DISPLAY" LANG=C.UTF-8 XDG_CURRENT_DESKTOP=LXDE XDG_MENU_PREFIX=lxde-
        XDG_DATA_DIRS="$root/usr/share:$world" PATH="$root/usr/games:/usr/bin:/bin")
}
start_panel() {
    (cd / && exec "${panel_as[@]}" dbus-run-session lxpanel) >"$work/panel.log" 2>&1 &
    panel_pid=$!
    wait_until 20 'xdotool search --onlyvisible --class lxpanel'
}
# A menu is a window that no window manager knows.
how_many_menus() { xwininfo -root -children | grep -c '"lxpanel".*"Lxpanel"'; }
open_menu() {
    local before
    before=$(how_many_menus)
    "${panel_as[@]}" lxpanelctl menu && wait_until 10 "[ \"\$(how_many_menus)\" -gt $before ]"
}
# The games are the only group. Keys count as soon as the menu has taken the keyboard.
find_entry() {
    local before
    before=$(how_many_menus)
    wait_until 10 "xdotool key Home Right && [ \"\$(how_many_menus)\" -gt $before ]"
}
start_from_menu() {
    xdotool key Return && wait_until 30 'pgrep -u "$(stat -c %u "$home")" -x torvane' &&
        program_pid=$(pgrep -n -u "$(stat -c %u "$home")" -x torvane) && wait_window SelLangStartUp 30
}
is_the_installed_one() { [ "/proc/$program_pid/exe" -ef "$root/usr/games/torvane" ]; }
leave_panel() {
    kill "$program_pid" "$panel_pid"
    wait "$panel_pid" 2>/dev/null
    program_pid=$desk_openbox
    true
}

prove_panel() {
    local user=65534 # the bus has to know the user
    check 'the package is installed for a panel' make_panel_world
    check 'a panel runs' start_panel
    check 'its menu opens' open_menu
    check 'Torvane is among the games' find_entry
    check 'it starts from there' start_from_menu
    check 'that is the installed program' is_the_installed_one
    check 'the panel ends' leave_panel
}
