# SPDX-License-Identifier: MIT
# A print spooler of the test's own: cupsd with a folder, a socket and a PDF printer that writes its paper into a
# file. Sourced after desk.sh. The program and the commands of CUPS use it through the variable CUPS_SERVER.

# spool_in FOLDER: where the spooler will be. Until it starts nobody answers, and nothing reaches the printers of
# whoever runs the test.
spool_in() {
    spool_folder=$1
    export CUPS_SERVER=$spool_folder/socket
    mkdir -p "$spool_folder"/{root,state,cache,spool/tmp,paper}
    # Filters run as another user.
    chmod 755 "$spool_folder"
    cat >"$spool_folder/root/cups-files.conf" <<END
ServerRoot $spool_folder/root
StateDir $spool_folder/state
RequestRoot $spool_folder/spool
CacheDir $spool_folder/cache
TempDir $spool_folder/spool/tmp
AccessLog $spool_folder/access
ErrorLog $spool_folder/errors
PageLog $spool_folder/pages
FileDevice Yes
END
    cat >"$spool_folder/root/cupsd.conf" <<END
Listen $CUPS_SERVER
LogLevel none
Browsing No
WebInterface No
DefaultAuthType None
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
<Limit All>
Order allow,deny
Allow all
</Limit>
</Policy>
END
}

# A spooler that accepts connections and never answers.
start_silent_spooler() {
    python3 - "$CUPS_SERVER" <<'END' &
import socket, sys
server = socket.socket(socket.AF_UNIX)
server.bind(sys.argv[1])
server.listen()
connections = []
while True:
    connections.append(server.accept())
END
    spooler_pid=$!
    wait_until 5 "[ -S '$CUPS_SERVER' ]"
}

# The real one, with the printer as the default. Fails if that can't be started here, as without Debian's packages
# cups-daemon and cups-filters.
start_spooler() { # PRINTER
    [ -x /usr/sbin/cupsd ] || return 1
    /usr/sbin/cupsd -f -c "$spool_folder/root/cupsd.conf" -s "$spool_folder/root/cups-files.conf" >/dev/null 2>&1 &
    spooler_pid=$!
    wait_until 20 "lpstat -r | grep -q 'is running'" &&
        lpadmin -p "$1" -E -v "file://$spool_folder/paper/$1.pdf" -P /usr/share/ppd/cupsfilters/Generic-PDF_Printer-PDF.ppd \
            -o PageSize=A4 2>/dev/null &&
        lpadmin -d "$1"
}
stop_spooler() {
    [ -n "${spooler_pid:-}" ] || return 0
    kill "$spooler_pid" 2>/dev/null
    wait "$spooler_pid" 2>/dev/null
    rm -f "$CUPS_SERVER"
    spooler_pid=
}

# take_paper PRINTER FILE: waits until a page is printed, and takes it out of the printer.
take_paper() {
    wait_until 20 "[ -s '$spool_folder/paper/$1.pdf' ] && [ -z \"\$(lpstat -o)\" ]" && mv "$spool_folder/paper/$1.pdf" "$2"
}

# on_paper PDF BMP LEFT TOP: the picture lies on the page in its own size, a pixel being 15 twips, and nothing touches
# it. Its corner in twips from that of the paper.
on_paper() {
    local width height
    read -r width height < <(bmptopnm "$2" 2>/dev/null | sed -n 2p) || return 1
    # A dot for each twip, and a white pixel around the picture.
    pdftoppm -r 1440 -x $(($3 - 15)) -y $(($4 - 15)) -W $((15 * (width + 2))) -H $((15 * (height + 2))) "$1" >"$1.ppm" || return 1
    bmptopnm "$2" 2>/dev/null | ppmtoppm | python3 "$e2e_here/paper.py" "$1.ppm"
}

# heading_on PDF: the first line on the page, if it begins at its printable corner: 18 points from the left, and so many
# from the top.
heading_on() { # PDF TOP
    pdftotext -bbox "$1" - | sed -n 's/.*xMin="\([0-9.]*\)" yMin="\([0-9.]*\)".*/\1 \2/p' | head -n 1 |
        awk -v top="$2" '{ found = $1 >= 18 && $1 < 20 && $2 >= top - 2 && $2 < top + 4 } END { exit !found }' &&
        pdftotext -layout "$1" - | head -n 1
}
