# SPDX-License-Identifier: MIT
# What a user does in the web list, in the control panel and in the windows that it opens. Sourced after steps.sh and
# tray.sh; the program is in $copy, its settings are in $work/config.

settings=$work/config/Torvane/Torvane.conf
language_files=$copy/data/lang
if [ "$language" = eng ]; then yes=alt+y; else yes=alt+s; fi
stores() { wait_until 5 "grep -qxF '$1' '$settings'"; } # LINE

own_pages() { iconv -f CP1252 -t UTF-8 "$copy/data/url_perso.dat" | tr -d '\r' | grep .; }
opens_list() {
    click MainFrm chameleonButton7
    wait_window URL && ! window_id MainFrm && wait_active URL
}
# page_opens ADDRESS COMMAND...: the browser gets the address as one word, and the main window makes room for it.
page_opens() {
    local address=$1
    shift
    "$@" && wait_no_window URL && wait_until 5 "tail -n 1 '$work/opened' | grep -qxF '1 $address'" &&
        wait_until 5 "[ \"\$(state_of '$main')\" = Iconic ]"
}
list_comes_back() { xdotool windowactivate "$main" && wait_window MainFrm && opens_list; }
# adds_page NAME ADDRESS: with the keyboard alone.
adds_page() {
    click URL chameleonButton4
    wait_window AddPersonalWeb && wait_active AddPersonalWeb || return 1
    xdotool type --delay 15 -- "$1"
    xdotool key Return ctrl+a
    xdotool type --delay 15 -- "$2"
    shot "$shots/dialog-$number.png"
    xdotool key Return
    wait_no_window AddPersonalWeb && wait_window URL && wait_active URL && own_pages | grep -qxF "$1;$2;perso"
}
# delete_page STEPS: the page so many steps before the last one, up to the box that shows its line.
delete_page() {
    xdotool key End
    for _ in $(seq "$1"); do xdotool key Up; done
    settle
    click URL ChameleonButton2
    wait_box && shot "$shots/line-$number.png"
}
# The installed list is older than that of the host, which is a folder of the tree.
updates() {
    cmp -s "$copy/data/url.dat" "$copy/data/site/url.dat" && return 1
    part_changes URL TotalRom eval "click URL chameleonButton5 && wait_box && shot '$shots/updated.png' && answer_box Return &&
        wait_window URL && wait_active URL" && cmp "$copy/data/url.dat" <(cat "$copy/data/site/url.dat"; printf '\r\n')
}

opens_panel() {
    click MainFrm chameleonButton8
    wait_window ConfigNew && wait_active ConfigNew && window_id MainFrm >/dev/null
}
opens_options() {
    click ConfigNew chameleonButton3
    wait_window ConfGen && wait_active ConfGen && window_id ConfigNew >/dev/null
}
shot_of_icon() { # FILE
    local x y width height
    read -r x y width height < <(icon_place) || return 1
    maim -u -g "${width}x$height+$x+$y" "$1"
}
# A radio button or a box lights its mark at its left.
mark() { click ConfGen "$1" 6 6; } # CONTROL
# Options in the panel of the colours.
mark_colour() { # NUMBER
    local top
    top=$(awk -F'\t' -v c="Option1($1)" '$1 == "ConfGen" && $2 == c { print $6 }' "$catalogue/controls.tsv")
    click ConfGen Picture1 26 $((top + 6))
}
changes_colour() {
    shot_of_icon "$work/before.png" && mark_colour 3 && stores 'Icon = 3' &&
        wait_until 5 "shot_of_icon '$work/after.png' && looks_different '$work/before.png' '$work/after.png'" &&
        settle && shot_of_icon "$work/after.png" # the icon may have been empty, about to be painted
}
# The words of the dialog are the same in every language.
chooser() { wait_until 10 "titled_window 'Selecciona Directorio'" && wait_box; }
# The name stays as it is proposed: only the folder is another one.
chooses_folder() {
    click ConfGen ChameleonButton17 && chooser || return 1
    xdotool key ctrl+a && xdotool type --delay 15 "$work/My Shots/" && xdotool key Return
    settle
    wait_box && xdotool key ctrl+a && xdotool type --delay 15 'Este Directorio' && shot "$shots/chosen.png" &&
        xdotool key Return && wait_no_box && stores "Capturas = $work/My Shots/"
}

compact_place() { window_place Torvette | cut -d' ' -f2,3; }
is_at() { wait_until 5 "[ '$1' = \"\$(compact_place)\" ]" && settle; }
# The menu of the icon; its first entry that can be used.
goes_compact() {
    icon_click 3 && menu_opens && xdotool key Down Return && wait_window Torvette && ! window_id MainFrm >/dev/null &&
        is_at "$((screen_width - $(dots 300))) 0" && window_id ConfGen >/dev/null
}
moves_left() { mark 'Option2(0)' && stores 'Mini = 0' && is_at '0 0'; }
leaves_compact() { click Torvette chameleonButton3 && wait_no_window Torvette && wait_window MainFrm; }

opens_assistant() { click ConfigNew chameleonButton2 && wait_window NewAssistant && window_id ConfigNew >/dev/null; }
leaves_assistant() {
    click NewAssistant ChameleonButton2 && wait_no_window NewAssistant && window_id ConfigNew >/dev/null
}
# A box about versions that asks nothing: its title is the same in every language. A picture of it is kept.
updater_box() { # NAME
    wait_until 5 "titled_window 'Torvane » Updater'" && wait_box && shot "$shots/$1.png" &&
        maim -u -i "$(xdotool getactivewindow)" "$work/$1.png"
}
finds_no_news() {
    local opened
    opened=$(cat "$work/opened" 2>/dev/null)
    click ConfigNew chameleonButton6 && updater_box no-news && xdotool key Return && wait_no_box &&
        [ -s "$copy/data/version.dat" ] && [ "$(cat "$work/opened" 2>/dev/null)" = "$opened" ]
}

# Their rows in the list.
declare -A row=([cat]=0 [eng]=1 [esp]=2 [own]=3)
opens_languages() { click ConfigNew chameleonButton4 && wait_window SelLang && wait_active SelLang; }
choose_language() { click SelLang File1 40 $((7 + 15 * row[$1])); }
adds_language() {
    printf '[FileInfo]\r\nhisname=My\r\nlangname=own\r\n' >"$work/own.tvl"
    click SelLang ChameleonButton4 && choose_file "$work/own.tvl" && wait_until 5 "cmp '$work/own.tvl' '$language_files/own.tvl'" &&
        part_changes SelLang TVLabel1 choose_language own
}
deletes_language() { click SelLang ChameleonButton3 && answer_box $yes && wait_until 5 "[ ! -e '$language_files/own.tvl' ]"; }

about_is_alone() { wait_window Aboutfrm && wait_active Aboutfrm && ! window_id MainFrm && ! window_id Torvette; }
opens_about() { click MainFrm chameleonButton5 && about_is_alone; }
# Another picture of the credits than the one that is kept.
has_moved() { shot_of_part Aboutfrm ShockwaveFlash1 "$work/now.png" && looks_different "$work/then.png" "$work/now.png"; }
credits_move() {
    wait_until 10 "shot_of_part Aboutfrm ShockwaveFlash1 '$work/then.png'" && wait_until 10 has_moved
}
