#!/usr/bin/python3 -W ignore::DeprecationWarning
# SPDX-License-Identifier: MIT
"""Walks all windows of the built program as an assistive tool does: everything has a name that a person would
say, everything that can be pressed is pressed, and each press does what a click does.
Usage: walk_windows.py PROGRAM_FOLDER WORK_FOLDER, on a display and a session bus of their own (see walk)."""
import os
import struct
import subprocess
import sys
import zipfile

from assistive import (Listener, do_action, field, fill_in, find, is_there, rows, states, text_of, top_of,
                       wait_for)
from walk import Walk, answer_box, answer_dialog, check_equal, content

MAIN = "Torvane 1.1 » Main menu"
ARCHIVE = "Torvane 1.1 » ZIP contents"
ASSISTANT = "ROM assistant"
QUESTION = "Are you sure you want to exit?"
DATABASE = "Torvane 1.1 » OnLine DataBase"
ENTRY = "OnLine DataBase ··· Entry"
CHOICE = "Torvane 1.1 » Use ROM.TAG"
GALLERY = "Torvane 1.1 » Screenshot gallery"
ENLARGED = "Torvane 1.1 » Enlarged screenshot"
COMPACT = "Torvane 1.1"
SEARCH = "Torvane 1.1 » Advanced search"
WEB_SEARCH = "Torvane 1.1 » Search for a ROM"
PANEL = "Configuration"
OPTIONS = "Torvane 1.1 » General settings"
LANGUAGE_CHOICE = "Torvane 1.1 » Select language"
ABOUT = "About Torvane v1.1"
WEB_LIST = "Torvane 1.1 » Web directory"
NEW_PAGE = "Torvane 1.1 » Add a personal link"
LANGUAGES = "Idioma · Llengua · Language"


def is_minimised(window_name):
    words = subprocess.run(["xdotool", "search", "--name", window_name], capture_output=True, text=True, check=False)
    for number in words.stdout.split():
        state = subprocess.run(["xprop", "-id", number, "WM_STATE"], capture_output=True, text=True, check=False)
        if "Iconic" in state.stdout:
            return number
    return None


def first_start(walk):
    with walk.start(language=None) as program:
        window = program.window(LANGUAGES)
        walk.look(window, "SelLangStartUp")
        for language in ("Español", "Català", "English"):
            walk.press(window, "SelLangStartUp", language)
            find(window, "OK")
            walk.look(window, "SelLangStartUp")
            walk.press(window, "SelLangStartUp", "no!")
            wait_for("the languages again", lambda: not is_there(window, "OK"))
        walk.press(window, "SelLangStartUp", "English")
        walk.press(window, "SelLangStartUp", "OK")
        wait_for("the chosen language", lambda: "lang_eng.tvl" in program.settings())


def intro(walk):
    with walk.start(Intro=1) as program:
        walk.look(program.window("Intro"), "Splash")
        subprocess.run(["xdotool", "key", "space"], check=True)
        program.window(MAIN)


def lists_games(walk, _, window):
    games = sorted(name[:-3] for name in os.listdir(walk.roms) if name.endswith(".gb"))
    check_equal([row.get_name() for row in rows(window)], games)


def chooses_row(_, __, window):
    """A row is chosen by its action; the panel shows the game, and arrow keys go on from there."""
    games = rows(window)
    with Listener("object:state-changed:focused") as focus:
        do_action(games[5], "Toggle")
        find(window, "#6/40")
        check_equal([row.get_name() for row in games if "selected" in states(row)], [games[5].get_name()])
        subprocess.run(["xdotool", "key", "Down"], check=True)
        focus.wait(games[6].get_name())
        find(window, "#7/40")
    do_action(games[0], "Toggle")
    find(window, "#1/40")


def reports_names(_, __, window):
    with Listener("object:property-change:accessible-name") as names:
        do_action(rows(window)[1], "Toggle")
        names.wait("#2/40")
    do_action(rows(window)[0], "Toggle")


def edits_tag(walk, program, window):
    walk.press(window, "MainFrm", "EDIT")
    walk.look(window, "MainFrm")
    fill_in(window, "Game title", "El ñandú")
    fill_in(window, "Company", "Casa")
    fill_in(window, "Information", "uno dos")
    check_equal(text_of(field(window, "Game title")), "El ñandú")
    walk.press(window, "MainFrm", "Apply ROM.TAG")
    answer_box(program, "Torvane", "OK")
    assert_tag = "ID3TAG§Casa§El ñandú§".encode("cp1252")
    wait_for("the tag in the file", lambda: assert_tag in content(walk.rom("a.gb")))
    walk.press(window, "MainFrm", "TAG")
    find(window, "El ñandú", ("label",))


def deletes_tag(walk, program, window):
    walk.press(window, "MainFrm", "EDIT")
    walk.press(window, "MainFrm", "Delete ROM.TAG")
    wait_for("a file without tag", lambda: b"ID3TAG" not in content(walk.rom("a.gb")))


def copies_game(walk, program, window):
    target = os.path.join(walk.outside, "copied.gb")
    walk.press(window, "MainFrm", "Copy the ROM…")
    answer_dialog(program, "Copy the ROM…a.gb", target, "Save")
    wait_for("the copy", lambda: os.path.exists(target) and content(target) == content(walk.rom("a.gb")))


def deletes_game(walk, program, window):
    walk.press(window, "MainFrm", "Delete the ROM")
    answer_box(program, "Torvane...", "Yes")
    wait_for("one game less", lambda: not os.path.exists(walk.rom("a.gb")))


def launches(walk, program, window):
    find(window, "Load this ROM")
    walk.press(window, "MainFrm", "Load this ROM")
    walk.wait_played(walk.rom("a.gb"))
    program.window(MAIN)


def refreshes(walk, program, window):
    os.remove(walk.rom("z.gb"))
    walk.press(window, "MainFrm", "Refresh the list")
    find(window, "0039")


def pages(walk, program, window):
    """A page down moves the rows up by the height of the list; a page up brings them back."""
    first = rows(window)[0]
    top = top_of(first)
    walk.press(window, "MainFrm", "Page down")
    wait_for("another page", lambda: top_of(first) < top - 300)
    walk.press(window, "MainFrm", "Page up")
    wait_for("the first page", lambda: top_of(first) == top)


def minimises(walk, program, window, name, title):
    walk.press(window, name, "Minimise")
    number = wait_for("a minimised window", lambda: is_minimised(title))
    subprocess.run(["wmctrl", "-i", "-a", number], check=True)
    wait_for("the window again", lambda: not is_minimised(title))


def asks_before_the_end(walk, program, window):
    walk.press(window, "MainFrm", "Close window")
    question = program.window(QUESTION)
    walk.look(question, "TorvMsg")
    walk.press(question, "TorvMsg", "No")
    program.wait_gone(QUESTION)
    walk.press(window, "MainFrm", "Close window")
    walk.press_last(program.window(QUESTION), "TorvMsg", "Yes")
    wait_for("the end of the program", program.has_ended)


def main_window(walk):
    walk.fill_library(["a.gb", "z.gb"] + [f"g{number:02}.gb" for number in range(38)])
    with walk.start(Intro=0) as program:
        window = program.window(MAIN)
        walk.look(window, "MainFrm")
        for text, step in {"the list gives its rows": lists_games, "a row is chosen": chooses_row,
                           "a new text is reported": reports_names, "a game is played": launches, "a tag is saved": edits_tag, "a tag is deleted": deletes_tag,
                           "a game is copied": copies_game, "pages are turned": pages,
                           "the list is read again": refreshes}.items():
            walk.check(text, step, walk, program, window)
        walk.check("the window is minimised", minimises, walk, program, window, "MainFrm", "Torvane 1.1")
        walk.check("a game is deleted", deletes_game, walk, program, window)
        walk.check("the program asks and ends", asks_before_the_end, walk, program, program.window(MAIN))


def steps_and_plays(walk, program, window):
    """Each part of the window is pressed, those of the panel after it is folded out."""
    walk.look(window, "Torvette")
    walk.press(window, "Torvette", "Show the game’s details")
    walk.press(window, "Torvette", "Next game")
    find(window, "#0002")
    walk.press(window, "Torvette", "Previous game")
    find(window, "#0001")
    walk.press(window, "Torvette", "Load this ROM")
    walk.wait_played(walk.rom("a.gb"))
    walk.press(window, "Torvette", "Advanced search")
    walk.press(program.window(SEARCH), "AdvSearch", "Close window")
    program.wait_gone(SEARCH)
    for words in ("Keep on top", "Don’t keep on top"):
        find(window, words)
        walk.look(window, "Torvette")
        walk.press(window, "Torvette", words)
    walk.press(window, "Torvette", "Hide the game’s details")


def compact(walk):
    walk.fill_library(["a.gb", "b.gb"])
    with walk.start(Intro=0, Start=1) as program:
        window = program.window(COMPACT)
        walk.check("the compact window steps, plays, folds and is pinned", steps_and_plays, walk, program, window)
        walk.press(window, "Torvette", "Back to the main window")
        window = program.window(MAIN)
        walk.press(window, "MainFrm", "Switch to Torvette")
        program.window(COMPACT)


def make_archive(path):
    with zipfile.ZipFile(path, "w") as archive:
        archive.writestr("member.gb", bytes(3000))


def opens_archive(walk, program):
    for words in ("ZIP browser", "Open the ZIP"):
        window = program.window(MAIN)
        walk.press(window, "MainFrm", words)
        viewer = program.window(ARCHIVE)
        wait_for("the member", lambda: os.path.exists(os.path.join(walk.copy, "ziptemp", "pack", "member.gb")))
        walk.look(viewer, "ZIP_Viewer")
        do_action(find(viewer, "member.gb", ("table cell",)), "Toggle")
        subprocess.run(["xdotool", "key", "Return"], check=True)
        walk.wait_played(os.path.join(walk.copy, "ziptemp", "pack", "member.gb"))
        minimises(walk, program, viewer, "ZIP_Viewer", "Torvane 1.1")
        walk.press(viewer, "ZIP_Viewer", "Close window")
        program.wait_gone(ARCHIVE)
        program.window(MAIN)


def archive(walk):
    walk.fill_library([])
    make_archive(walk.rom("pack.zip"))
    with walk.start(Intro=0) as program:
        window = program.window(MAIN)
        find(window, "Open the ZIP")
        walk.look(window, "MainFrm")
        walk.check("an archive is opened and closed", opens_archive, walk, program)
        target = os.path.join(walk.outside, "copied.zip")
        walk.press(window, "MainFrm", "Copy the ZIP…")
        answer_dialog(program, "Copy the ROM…pack.zip", target, "Save")
        wait_for("the copy", lambda: os.path.exists(target))
        walk.press(window, "MainFrm", "Delete the ZIP")
        answer_box(program, "Torvane...", "Yes")
        wait_for("the end of the archive", lambda: not os.path.exists(walk.rom("pack.zip")))


def assistant(walk):
    walk.fill_library([])
    one, folder = walk.original("one.gb"), walk.outside
    with walk.start(Intro=0) as program:
        window = program.window(ASSISTANT)

        def press(words):
            walk.look(window, "NewAssistant")
            walk.press(window, "NewAssistant", words)

        press("Next >")
        press("< Start")
        press("A single game")
        press("Browse…")
        answer_dialog(program, "Choose the game you want to add", one, "Open")
        check_equal(text_of(field(window, "Chosen file")), one)
        press("Next >")
        press("Yes, go ahead")
        wait_for("the game without its original", lambda: os.path.exists(walk.rom("one.gb")) and not os.path.exists(one))
        press("Finish")
        program.wait_gone(ASSISTANT)
    walk.fill_library([])
    two = walk.original("two.gb")
    with walk.start(Intro=0) as program:
        window = program.window(ASSISTANT)
        press("Next >")
        press("A whole folder")
        answer_dialog(program, "Find the game or folder you want to add", folder, "Choose")
        press("No, leave as is")
        wait_for("the games with their originals", lambda: os.path.exists(walk.rom("two.gb")) and os.path.exists(two))
        press("Exit")
        program.wait_gone(ASSISTANT)


def short_database(walk):
    """Three entries: the walk asks each cell of the list for all that it says."""
    with open(os.path.join(walk.copy, "data", "site", "online_db.txt"), "wb") as file:
        for title in (b"One", b"Two", b"Three"):
            file.write(b"byn\xa7" + title + b"\xa7Acme\xa722/11/2026\xa7What it is\xa7USER\xa7somebody\r\n")


def opens_tool(walk, program, words, title, name):
    """Presses a button of the main window, and looks at the window that it opens, `name` in the catalogue."""
    walk.press(program.window(MAIN), "MainFrm", words)
    window = program.window(title)
    walk.look(window, name)
    return window


def check_page(opened, name):
    """The browser gets the page of that file name; `opened` is where it writes addresses to."""
    wait_for("an address", lambda: os.path.exists(opened))
    check_equal(os.path.basename(content(opened).decode()), name)


def record_addresses(walk):
    """Gives the file that the program's browser writes addresses to."""
    folder = os.path.join(walk.outside, "bin")
    opened = os.path.join(walk.outside, "opened")
    if os.path.exists(opened):
        os.remove(opened)
    os.makedirs(folder, exist_ok=True)
    browser = os.path.join(folder, "xdg-open")
    with open(browser, "w", encoding="utf-8") as script:
        script.write(f'#!/bin/sh\nprintf "%s" "$1" >"{opened}.new"\nmv "{opened}.new" "{opened}"\n')
    os.chmod(browser, 0o755)
    os.environ["PATH"] = folder + os.pathsep + os.environ["PATH"]
    return opened


def opens_database(walk, program):
    walk.press(program.window(MAIN), "MainFrm", "OnLine DataBase")
    window = program.window(DATABASE)
    use = find(window, "Use ROM.TAG", ("push button",))
    wait_for("the end of the download", lambda: "sensitive" in states(use))
    walk.look(window, "EditDB")
    return window


def filters_entries(walk, window):
    fill_in(window, "Game", "two")
    walk.press(window, "EditDB", "Apply filters")
    wait_for("one entry", lambda: [row.get_name() for row in rows(window)] == [
        "Two", "Acme", "22/11/2026", "USER", "somebody", "What it is"])


def views_entry(walk, program, window):
    for words in ("Close", "Close window"):
        do_action(find(window, "Two", ("table cell",)), "Toggle")
        subprocess.run(["xdotool", "key", "Return"], check=True)
        view = program.window(ENTRY)
        find(view, "Acme", ("label",))
        walk.look(view, "DB_Info")
        walk.press(view, "DB_Info", words)
        program.wait_gone(ENTRY)


def uses_entry(walk, program, window):
    for words in ("Cancel", "Close window", "OK"):
        walk.press(window, "EditDB", "Use ROM.TAG")
        chooser = program.window(CHOICE)
        do_action(find(chooser, "b.gb"), "Toggle")
        walk.look(chooser, "Form2")
        walk.press(chooser, "Form2", words)
        if words == "OK":
            answer_box(program, "Torvane", "OK")
        program.wait_gone(CHOICE)
    wait_for("the tag in the game", lambda: b"ID3TAG\xa7Acme\xa7Two\xa7" in content(walk.rom("b.gb")))


def publishes(walk, window, opened):
    walk.press(window, "EditDB", "Publish a ROM.TAG")
    check_page(opened, "modules-name-online_db-file-input_db.html")


def database(walk):
    walk.fill_library(["a.gb", "b.gb"])
    short_database(walk)
    opened = record_addresses(walk)
    with walk.start(Intro=0) as program:
        program.window(MAIN)
        window = opens_database(walk, program)
        walk.check("a filter is applied", filters_entries, walk, window)
        walk.check("an entry is viewed", views_entry, walk, program, window)
        walk.check("an entry is used", uses_entry, walk, program, window)
        walk.check("the page to publish opens", publishes, walk, window, opened)
        walk.press(window, "EditDB", "Close window")
        program.wait_gone(DATABASE)
        program.window(MAIN)


def fill_gallery(walk):
    """Three pictures of 8 by 6 pixels; gives their folder."""
    folder = os.path.join(walk.roms, "data", "screenshots")
    os.makedirs(folder, exist_ok=True)
    for name in os.listdir(folder):
        os.remove(os.path.join(folder, name))
    for name in ("one.bmp", "two.bmp", "three.bmp"):
        with open(os.path.join(folder, name), "wb") as file:
            header = struct.pack("<IIIIiiHHIIiiII", 54 + 144, 0, 54, 40, 8, 6, 1, 24, 0, 144, 0, 0, 0, 0)
            file.write(b"BM" + header + bytes(144))
    return folder


def steps_through_gallery(walk, window):
    check_equal([row.get_name() for row in rows(window)], ["one", "three", "two"])
    find(window, "8x6 píxels", ("label",))
    for words in ("Next screenshot", "Next screenshot", "Previous screenshot"):
        walk.press(window, "Compartir", words)
    wait_for("the second row", lambda: ["selected" in states(row) for row in rows(window)] == [False, True, False])


def views_enlarged(walk, program, window):
    walk.press(window, "Compartir", "Enlarge the screenshot")
    view = program.window(ENLARGED)
    walk.look(view, "AmpliCaptura")
    for words in ("Zoom in", "Zoom out"):
        walk.press(view, "AmpliCaptura", words)
    walk.press(view, "AmpliCaptura", "Print the screenshot")
    answer_box(program, "Screenshot gallery", "No")
    walk.press(view, "AmpliCaptura", "Close window")
    program.wait_gone(ENLARGED)


def deletes_screenshot(walk, program, window, folder):
    walk.press(window, "Compartir", "Delete the screenshot")
    answer_box(program, "Torvane ··· Gallery", "Yes")
    wait_for("two pictures", lambda: sorted(os.listdir(folder)) == ["one.bmp", "two.bmp"])
    program.window(GALLERY)


def gallery(walk):
    walk.fill_library(["a.gb"])
    folder = fill_gallery(walk)
    with walk.start(Intro=0) as program:
        window = opens_tool(walk, program, "Image gallery", GALLERY, "Compartir")
        walk.check("pictures are stepped through", steps_through_gallery, walk, window)
        walk.check("a picture is enlarged", views_enlarged, walk, program, window)
        walk.press(window, "Compartir", "Print the screenshot")
        answer_box(program, "Impresión de Captura", "No")
        walk.check("the window is minimised", minimises, walk, program, window, "Compartir", "Torvane 1.1")
        walk.check("a picture is deleted", deletes_screenshot, walk, program, window, folder)
        walk.press(program.window(GALLERY), "Compartir", "Close window")
        program.wait_gone(GALLERY)
        program.window(MAIN)


def searches_list(walk, program):
    """By title the row is marked; by number, and to both ends, its game is selected."""
    window = program.window(MAIN)
    for option, box, words, position in (("Search by name", "Type the first letters of the game’s name.", "G0", "#1/40"),
                                         ("Search by position in the list", "Type the game’s number in the list.", "10",
                                          "#10/40"),
                                         ("Go to the end of the list", None, None, "#40/40"),
                                         ("Go to the top of the list", None, None, "#1/40")):
        walk.press(window, "MainFrm", "Advanced search")
        search = program.window(SEARCH)
        walk.look(search, "AdvSearch")
        do_action(find(search, option, ("radio button",)), "Toggle")
        if box:
            fill_in(search, box, words)
        walk.press(search, "AdvSearch", "Search")
        program.wait_gone(SEARCH)
        find(window, position)
    walk.press(window, "MainFrm", "Advanced search")
    walk.press(program.window(SEARCH), "AdvSearch", "Close window")
    program.wait_gone(SEARCH)


def searches_web(walk, program, opened):
    window = program.window(MAIN)
    walk.press(window, "MainFrm", "Search for a ROM")
    search = program.window(WEB_SEARCH)
    walk.look(search, "SearchROM")
    walk.press(search, "SearchROM", "Close window")
    program.wait_gone(WEB_SEARCH)
    walk.press(window, "MainFrm", "Search for a ROM")
    search = program.window(WEB_SEARCH)
    fill_in(search, "Type the name of the game you are looking for. The results will open in your web browser.",
            "two words")
    walk.press(search, "SearchROM", "Search")
    program.wait_gone(WEB_SEARCH)
    check_page(opened, "modules-name-Edonkey-d_op-search-query.html")


def searches(walk):
    walk.fill_library([f"g{number:02}.gb" for number in range(1, 41)])
    opened = record_addresses(walk)
    with walk.start(Intro=0) as program:
        program.window(MAIN)
        walk.check("the list is searched", searches_list, walk, program)
        walk.check("the web is searched", searches_web, walk, program, opened)


def changes_options(walk, program, panel):
    """Each option is used; the store has it at once. The folder is shown and chosen."""
    walk.press(panel, "ConfigNew", "General settings")
    window = program.window(OPTIONS)
    walk.look(window, "ConfGen")
    for words, role, line in (("Red", "radio button", "Icon = 3"), ("Top left", "radio button", "Mini = 0"),
                              ("Show the Torvane Agent in the tray", "check box", "Tray = 0"),
                              ("Always on top", "check box", "OnTop = 1"),
                              ("Show the intro at startup", "check box", "Intro = 1"),
                              ("Start directly in Torvette mode", "check box", "Start = 1")):
        do_action(find(window, words, (role,)), "Toggle")
        wait_for(line, lambda line=line: line in program.settings())
    walk.press(window, "ConfGen", "Show selected folder")
    answer_box(program, "Torvane 1.1", "OK")
    walk.press(window, "ConfGen", "Select…")
    answer_dialog(program, "Selecciona Directorio", os.path.join(walk.outside, "Este Directorio"), "Save")
    wait_for("the folder", lambda: f"Capturas = {walk.outside}/" in program.settings())
    walk.press(window, "ConfGen", "Close")
    program.wait_gone(OPTIONS)
    walk.press(panel, "ConfigNew", "General settings")
    walk.press(program.window(OPTIONS), "ConfGen", "Close window")
    program.wait_gone(OPTIONS)


def checks_version(walk, program, panel):
    walk.press(panel, "ConfigNew", "Check for updates")
    answer_box(program, "Torvane » Updater", "OK")


def opens_assistant(walk, program, panel):
    walk.press(panel, "ConfigNew", "ROM assistant")
    walk.press(program.window(ASSISTANT), "NewAssistant", "Exit")
    program.wait_gone(ASSISTANT)


def chooses_language(walk, program, panel):
    """A row is chosen, described and loaded; a file is added and deleted; the page of more languages opens."""
    opened = record_addresses(walk)
    added = os.path.join(walk.copy, "data", "lang", "own.tvl")
    with open(os.path.join(walk.outside, "own.tvl"), "wb") as file:
        file.write(b"[FileInfo]\r\nhisname=My\r\nlangname=own\r\n")
    walk.press(panel, "ConfigNew", "Languages")
    window = program.window(LANGUAGE_CHOICE)
    walk.look(window, "SelLang")
    walk.press(window, "SelLang", "Add")
    answer_dialog(program, "Torvane 1.1 » LangFile Loader", os.path.join(walk.outside, "own.tvl"), "Open")
    wait_for("the added file", lambda: os.path.exists(added))
    do_action(rows(window)[-1], "Toggle")
    find(window, "My own")
    walk.press(window, "SelLang", "Delete")
    answer_box(program, "Torvane 1.1", "Yes")
    wait_for("the file's end", lambda: not os.path.exists(added))
    walk.press(window, "SelLang", "More languages")
    check_page(opened, "index-section-tv_langfiles.html")
    walk.press(window, "SelLang", "Close window")
    program.wait_gone(LANGUAGE_CHOICE)
    walk.press(panel, "ConfigNew", "Languages")
    window = program.window(LANGUAGE_CHOICE)
    do_action(rows(window)[1], "Toggle")
    walk.press(window, "SelLang", "Load")
    answer_box(program, "LangFile Loaded", "OK")
    program.wait_gone(LANGUAGE_CHOICE)
    wait_for("the language", lambda: "lang_eng.tvl" in program.settings())


def settings(walk):
    walk.fill_library(["a.gb"])
    with walk.start(Intro=0) as program:
        panel = opens_tool(walk, program, "Configuration", PANEL, "ConfigNew")
        walk.check("options are changed", changes_options, walk, program, panel)
        walk.check("the version is checked", checks_version, walk, program, panel)
        walk.check("the assistant is opened", opens_assistant, walk, program, panel)
        walk.check("a language is chosen", chooses_language, walk, program, panel)
        walk.press(panel, "ConfigNew", "Back")
        program.wait_gone(PANEL)
        program.window(MAIN)


def reports_bug(walk, window, opened):
    walk.press(window, "Aboutfrm", "Report the bug")
    check_page(opened, "torvane-section-bugcenter.html")


def about(walk):
    walk.fill_library(["a.gb"])
    opened = record_addresses(walk)
    with walk.start(Intro=0) as program:
        window = opens_tool(walk, program, "About…", ABOUT, "Aboutfrm")
        walk.check("the page for bugs opens", reports_bug, walk, window, opened)
        walk.press(window, "Aboutfrm", "Close window")
        program.wait_gone(ABOUT)
        program.window(MAIN)


def adds_web_page(walk, program, window):
    walk.press(window, "URL", "Add a link")
    dialog = program.window(NEW_PAGE)
    walk.look(dialog, "AddPersonalWeb")
    walk.press(dialog, "AddPersonalWeb", "Cancel")
    program.wait_gone(NEW_PAGE)
    walk.press(window, "URL", "Add a link")
    dialog = program.window(NEW_PAGE)
    fill_in(dialog, "Page name", "My page")
    fill_in(dialog, "Page address (URL)", "http://mine.example/")
    walk.press(dialog, "AddPersonalWeb", "Add")
    program.wait_gone(NEW_PAGE)


def deletes_web_page(walk, program, window):
    """The page is the last row; its address is shown before it goes."""
    page = rows(window)[-1]
    check_equal(page.get_name(), "My page")
    do_action(page, "Toggle")
    find(window, "http://mine.example/")
    walk.press(window, "URL", "Delete the link")
    answer_box(program, "Torvane", "OK")
    pages = os.path.join(walk.copy, "data", "url_perso.dat")
    wait_for("a list without the page", lambda: b"My page" not in content(pages))


def web_list(walk):
    walk.fill_library(["a.gb"])
    opened = record_addresses(walk)
    with walk.start(Intro=0) as program:
        window = opens_tool(walk, program, "Web directory", WEB_LIST, "URL")
        walk.check("a page is added", adds_web_page, walk, program, window)
        walk.check("a page is deleted", deletes_web_page, walk, program, program.window(WEB_LIST))
        walk.press(program.window(WEB_LIST), "URL", "Look for new links")
        answer_box(program, "Torvane", "OK")
        window = program.window(WEB_LIST)
        find(window, "0023")
        walk.press(window, "URL", "Close window")
        program.wait_gone(WEB_LIST)
        walk.press(program.window(MAIN), "MainFrm", "Web directory")
        listed = program.window(WEB_LIST)
        wait_for("an active window", lambda: "active" in states(listed))
        subprocess.run(["xdotool", "key", "Return"], check=True)
        wait_for("an address", lambda: os.path.exists(opened))
        check_equal(content(opened).decode(), "https://gbdev.io/pandocs/")


def main():
    walk = Walk(*sys.argv[1:3])
    walk.check("the first start asks for the language", first_start, walk)
    walk.check("the intro can be left", intro, walk)
    walk.check("the main window", main_window, walk)
    walk.check("the compact window", compact, walk)
    walk.check("the archive window", archive, walk)
    walk.check("the assistant", assistant, walk)
    walk.check("the database", database, walk)
    walk.check("the gallery", gallery, walk)
    walk.check("the searches", searches, walk)
    walk.check("the settings", settings, walk)
    walk.check("the about window", about, walk)
    walk.check("the web list", web_list, walk)
    return 0 if walk.report() else 1


if __name__ == "__main__":
    sys.exit(main())
