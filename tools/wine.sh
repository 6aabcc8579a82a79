# Sourced by the project's commands: private Wine prefixes and virtual displays, taken away again when they end.

export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="

# use_prefix FOLDER: makes the prefix if it is not there yet and uses it from now on.
use_prefix() {
    export WINEPREFIX=$1 WINEARCH=win64
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        mkdir -p "$WINEPREFIX"
        echo "Making the Wine prefix ${WINEPREFIX#"$PWD"/}"
        DISPLAY= wineboot --init >/dev/null 2>&1
        wineserver -w
        # Debian keeps Wine's fonts where Wine does not look: without them dialogs come out in a font that is too wide.
        cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    fi
}

# The virtual displays have no window manager: without this Wine waits two seconds for one whenever a window closes.
without_window_manager() {
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null
}

# with_title_bars WIDTHxHEIGHT: programs show in a desktop window of Wine's own of that size, with title bars and borders.
with_title_bars() {
    wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >/dev/null
    wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d "$1" /f >/dev/null
}

# start_display WIDTHxHEIGHT: a virtual display of this command's own; sets DISPLAY.
start_display() {
    local number_file
    number_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 "${1}x24" -nolisten tcp 3>"$number_file" 2>/dev/null &
    display_process=$!
    for _ in $(seq 100); do
        [ -s "$number_file" ] && break
        sleep 0.1
    done
    DISPLAY=:$(cat "$number_file")
    export DISPLAY
    rm -f "$number_file"
}

# end_wine: ends the prefix's processes and the display, if this command started them and they still run.
end_wine() {
    if [ -n "${WINEPREFIX:-}" ]; then wineserver -k 2>/dev/null || true; fi
    if [ -n "${display_process:-}" ]; then kill "$display_process" 2>/dev/null || true; fi
}
