# shellcheck shell=bash
# Wine: prefixes of our own, a virtual display, and what stands in the registry before the desk starts.

# The loader of 64-bit programs. Debian's wrapper `wine` would first tell about a 32-bit one that nobody needs.
find_wine() {
    local candidate
    for candidate in /usr/lib/wine/wine64 wine64 wine64-stable; do
        wine_loader=$(command -v "$candidate") && break
    done
    for candidate in /usr/lib/wine/wineserver wineserver wineserver-stable; do
        wine_server=$(command -v "$candidate") && break
    done
    [[ -n $wine_loader && -n $wine_server ]] ||
        fail "Wine's 64-bit loader is not to be found; install it by: apt-get install wine64"
}

# usable_processors: the numbers of those that we may run on, one a line.
usable_processors() {
    local first last
    sed -n 's/^Cpus_allowed_list:[[:space:]]*//p' /proc/self/status | tr , '\n' |
        while IFS=- read -r first last; do seq "$first" "${last:-$first}"; done
}

# keep_to PROCESSORS: where we run from here on, and what we start. Programs below Wine mostly wait for each other: to wake the next
# one on another processor takes longer than what it then does.
keep_to() { taskset --pid --cpu-list "$1" "$BASHPID" >/dev/null; }

owned_prefix=

# wine_environment PREFIX [shared]: the surroundings of every Wine program from here on. What runs in the prefix is ended
# with us, unless it is shared with another ./tarnwell. The home is below build/, so that nothing touches the user's own folders.
wine_environment() {
    mkdir -p "$BUILD/home"
    # Without such a file, Wine's display driver looks for it with each font that a window takes.
    [[ -f $BUILD/home/.Xdefaults ]] || printf '! no resources\n' >"$BUILD/home/.Xdefaults"
    export XAUTHORITY=${XAUTHORITY:-${HOME:-/root}/.Xauthority}
    export WINEPREFIX=$1 WINEARCH=win64 WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe=' WINEDEBUG=-all
    export HOME=$BUILD/home TARNWELL_WINE=$wine_loader
    if [[ ${2:-} != shared && $owned_prefix != "$1" ]]; then
        at_end "stop_wine '$1'"
        owned_prefix=$1
    fi
}

# stop_wine [PREFIX]: ends every program of a prefix that is ours to end, by default the one in use, and only of it.
stop_wine() {
    local prefix=${1:-$owned_prefix}
    [[ -d $prefix ]] || return 0
    (export WINEPREFIX=$prefix && unlocked timeout 20 "$wine_server" -k) >/dev/null 2>&1 || true
    (export WINEPREFIX=$prefix && unlocked timeout 20 "$wine_server" -w) >/dev/null 2>&1 || true
}

# in_wine SECONDS PROGRAM ARGUMENT...: runs a program to its end, without output.
in_wine() {
    local seconds=$1
    shift
    (unlocked timeout --kill-after=5 "$seconds" "$wine_loader" "$@") >/dev/null 2>&1 </dev/null
}

# windows_path PATH: as the programs below Wine see it.
windows_path() {
    local path
    path=$(realpath -m -s -- "$1")
    printf 'Z:%s' "${path//\//\\}"
}

# start_display: a virtual screen with a small window manager, without which windows have no frame.
start_display() {
    local pipe=$BUILD/display.$$ number= manager i
    rm -f "$pipe"
    mkfifo "$pipe"
    (unlocked setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 1600x1200x24 -dpi 96 -nolisten tcp -noreset) \
        3>"$pipe" >>"$BUILD/logs/display.log" 2>&1 </dev/null &
    at_end "end_process $!"
    read -r -t 20 number <"$pipe" || true
    rm -f "$pipe"
    [[ -n $number ]] || {
        show_tail "$BUILD/logs/display.log"
        fail "the virtual display (Xvfb) did not start"
    }
    export DISPLAY=:$number
    (unlocked setpriv --pdeathsig TERM openbox --sm-disable) >>"$BUILD/logs/display.log" 2>&1 </dev/null &
    manager=$!
    at_end "end_process $manager"
    for ((i = 0; i < 100; i++)); do
        xdotool get_num_desktops >/dev/null 2>&1 && return 0
        kill -0 "$manager" 2>/dev/null || break
        sleep 0.1
    done
    fail "the window manager (openbox) did not start on the virtual display; $BUILD/logs/display.log tells more"
}

# use_prefix NAME: makes build/prefix-NAME if need be. Needs a display. Its registry, as Wine made it, is put aside.
use_prefix() {
    local prefix=$BUILD/prefix-$1 version
    find_wine
    wine_environment "$prefix"
    version=$(dpkg-query --show --showformat='${Package} ${Version}\n' wine64 fonts-wine)
    if [[ ! -f $prefix/.made || $(<"$prefix/.made") != "$version" ]]; then
        stop_wine
        rm -rf "$prefix"
        mkdir -p "$prefix"
        with_progress "making the Wine prefix '$1'" "$BUILD/logs/prefix-$1.log" \
            timeout 300 "$wine_loader" wineboot.exe --init || {
            show_tail "$BUILD/logs/prefix-$1.log"
            fail "the Wine prefix $prefix could not be made"
        }
        (unlocked timeout 120 "$wine_server" -w) || true # the first start goes on behind wineboot
        stop_wine
        mkdir "$prefix/pristine"
        cp "$prefix"/*.reg "$prefix/pristine/"
        printf '%s\n' "$version" >"$prefix/.made"
    fi
    stop_wine # what a killed run may have left
}

# The rest of the registry, beside what programs enter there themselves: `row KEY [NAME [TEXT [dword]]]` says what is to be
# there, in the words of registry files. `@` is a key's default value; a key that begins with `-` is removed, a name
# without a text as well.
row() {
    local name=${2:-}
    printf '\r\n[%s]\r\n' "$1"
    (($# > 1)) || return 0
    [[ $name == @ ]] || name=$(quoted "$name")
    if (($# == 2)); then
        printf '%s=-\r\n' "$name"
    elif [[ ${4:-} == dword ]]; then
        printf '%s=dword:%08x\r\n' "$name" "$3"
    else
        printf '%s=%s\r\n' "$name" "$(quoted "$3")"
    fi
}

quoted() {
    local text=${1//\\/\\\\}
    printf '"%s"' "${text//\"/\\\"}"
}

# document_rows FOLDER: what the shell opens documents with: a program that notes which they were. A person gets what Wine has
# for them.
document_rows() {
    local id
    [[ ${unattended:-1} == 1 ]] || return 0
    row 'HKEY_CLASSES_ROOT\Tarnwell.Document' @ Document
    row 'HKEY_CLASSES_ROOT\Tarnwell.Document\shell\open\command' @ "\"$(windows_path "$1/DocumentViewer.exe")\" \"%1\""
    for id in txt doc docx xls xlsx csv pdf rtf htm html eml; do
        row "HKEY_CLASSES_ROOT\\.$id" @ Tarnwell.Document
    done
}

# family_rows FOLDER DATABASE: what the family's stand-ins answer.
family_rows() {
    local key='HKEY_CURRENT_USER\Software\Tarnwell\Family'
    row "-$key"
    row "$key" UserName 'Pat Example'
    row "$key" CurrentUserName 'Pat Example'
    row "$key" Alignment Left
    row "$key" EmailAutoFile 1
    row "$key" SpecialFolder "$(windows_path "$2")"
    row "$key" ProgramFolder "$(windows_path "$1")"
    [[ ${unattended:-1} == 1 ]] || row "$key" Menu 1 # nobody would choose anything there
}

# A crashed program ends at once, without a box that waits for somebody.
crash_rows() { row 'HKEY_CURRENT_USER\Software\Wine\WineDbg' ShowCrashDialog 0 dword; }

# import_rows FILE: makes a registry file of rows and hands it to the prefix in use.
import_rows() {
    local file=$1
    { printf '\xff\xfe' && { printf 'Windows Registry Editor Version 5.00\r\n' && cat; } | iconv -f UTF-8 -t UTF-16LE; } >"$file"
    in_wine 60 regedit.exe /S "$(windows_path "$file")" || fail "the registry of $WINEPREFIX could not be written"
}

# set_up_desk FOLDER: how the desk in FOLDER/program is to start on FOLDER/database, entered by itself.
set_up_desk() {
    local folder=$1
    cat >"$folder/desk.settings" <<SETTINGS
Database=$(windows_path "$folder/database/tarnwell.db")
IndexedFolder=$(windows_path "$folder/database/documents")
State=$(windows_path "$folder/state")
LogFile=$(windows_path "$folder/state/desk.log")
MailReader=$BUILD/native/bin/tarnwell-mail
HostVersion=${host_version:-16.0.0.0}
InstantSearch=${instant_search:-0}
Language=${language:-1033}
EventOrder=${event_order:-host}
Unattended=${unattended:-1}
FirstPage=${first_page:-0}
SETTINGS
    in_wine 60 "$(windows_path "$folder/program/desk.exe")" /Settings "$(windows_path "$folder/desk.settings")" ||
        fail "the desk could not take its settings from $folder/desk.settings"
}

# register_desk FOLDER: enters the classes that the desk of a folder serves.
register_desk() {
    in_wine 60 "$(windows_path "$1/desk.exe")" /RegServer || fail "the desk could not register itself in $WINEPREFIX"
}

# install_programs FOLDER [LEFT_OUT...]: the programs as they stand on a machine, in one folder of their own, so that
# one can be left out and what they write beside themselves does not outlive the run.
install_programs() {
    local folder=$1 file name
    shift
    rm -rf "$folder"
    mkdir -p "$folder"
    for file in desk.exe DocumentViewer.exe TarnwellNote.dll TarnwellFamily.dll TarnwellAdmin.exe "${desk_programs[@]}"; do
        for name in "$@"; do [[ ${name,,} != "${file,,}" ]] || continue 2; done
        [[ -f $BUILD/x64/bin/$file ]] || fail "$BUILD/x64/bin/$file is not there; the build is not complete"
        cp "$BUILD/x64/bin/$file" "$folder/"
    done
}

# copy_user_classes FILE: Wine finds the classes of the machine alone, so those that a library has entered for the user are
# copied there. FILE is for the work.
copy_user_classes() {
    local file=$1
    in_wine 60 regedit.exe /E "$(windows_path "$file")" 'HKEY_CURRENT_USER\Software\Classes' && [[ -s $file ]] ||
        fail "the user's classes of $WINEPREFIX could not be read"
    { printf '\xff\xfe' && iconv -f UTF-16 -t UTF-8 "$file" |
        sed 's/^\[HKEY_CURRENT_USER\\/[HKEY_LOCAL_MACHINE\\/' | iconv -f UTF-8 -t UTF-16LE; } >"$file.machine"
    in_wine 60 regedit.exe /S "$(windows_path "$file.machine")" || fail "the registry of $WINEPREFIX could not be written"
    rm "$file" "$file.machine"
}

# register_servers FOLDER [fresh]: lets the libraries of a folder and the desk register themselves. What comes of it is put
# aside and taken from there as long as they are the same. With `fresh`, the registry is otherwise as Wine made it.
register_servers() {
    local folder=$1 fresh=${2:-} library hash saved=$WINEPREFIX/registered
    hash=$(cd "$folder" && sha256sum ./*.dll desk.exe && printf '%s' "$folder")
    if [[ -f $saved/hash && $(<"$saved/hash") == "$hash" ]]; then
        [[ -z $fresh ]] || cp "$saved"/*.reg "$WINEPREFIX/"
        return 0
    fi
    [[ -z $fresh ]] || cp "$WINEPREFIX"/pristine/*.reg "$WINEPREFIX/"
    for library in "$folder"/*.dll; do
        say "registering ${library##*/}"
        in_wine 60 regsvr32.exe /s "$(windows_path "$library")" ||
            fail "${library##*/} could not register itself in $WINEPREFIX"
    done
    copy_user_classes "$folder/classes.reg"
    register_desk "$folder"
    crash_rows | import_rows "$folder/crash.reg"
    rm -f "$folder/crash.reg"
    stop_wine # writes the registry to its files
    rm -rf "$saved"
    mkdir "$saved"
    cp "$WINEPREFIX"/*.reg "$saved/"
    printf '%s\n' "$hash" >"$saved/hash"
}

# start_desk FOLDER STATE: starts the desk and waits until others can reach it and the add-in is loaded. Sets desk_pid.
start_desk() {
    local i
    mkdir -p "$2"
    rm -f "$2/desk.log"
    (unlocked setpriv --pdeathsig TERM "$wine_loader" "$(windows_path "$1/desk.exe")") >>"$2/output.log" 2>&1 \
        </dev/null &
    desk_pid=$!
    at_end 'end_process $desk_pid'
    for ((i = 0; i < 1200; i++)); do
        ! desk_is_on "$2" || return 0
        kill -0 "$desk_pid" 2>/dev/null || break
        sleep 0.05
    done
    show_desk_log "$2"
    if kill -0 "$desk_pid" 2>/dev/null; then
        fail "the desk is not ready after 60 seconds"
    fi
    fail "the desk ended before it was ready"
}

# desk_is_on STATE: whether the desk's log tells that it is ready and has not ended since. One that died is still on.
desk_is_on() {
    [[ -f $1/desk.log ]] && (($(grep -cx ready "$1/desk.log") > $(grep -cx ended "$1/desk.log")))
}

show_desk_log() {
    local log
    for log in "$1/output.log" "$1/desk.log"; do
        [[ ! -s $log ]] || tail -n 20 "$log" | tr -d '\r' >&2
    done
}
