# shellcheck shell=bash
# `./tarnwell script`: a script in the system's script host, against a desk of its own.

# run_script SECONDS FOLDER FILE ARGUMENT...: runs a script in the prefix in use and prints what it prints. FOLDER takes
# what is needed for it. Sets script_status: the script's own code, 1 if it failed, 124 if its time was over.
run_script() {
    local seconds=$1 folder=$2 script=$3 wrapped host reader i
    shift 3
    script=$(realpath -- "$script")
    wrapped=$folder/wrapped.js
    perl "$ROOT/packaging/script-host/wrap.pl" "$script" "$ROOT/packaging/script-host/prelude.js" \
        "$(windows_path "${script%/*}")" >"$wrapped"
    rm -f "$folder/outcome" "$folder/output"
    mkfifo "$folder/output"

    # Warnings of the JScript engine tell the line of an error, which a script itself can't learn.
    (unlocked perl "$ROOT/packaging/script-host/read-output.pl" "$folder/outcome") <"$folder/output" &
    reader=$!
    (
        export WINEDEBUG=-all,warn+jscript
        unlocked setpriv --pdeathsig TERM timeout --kill-after=5 "$seconds" "$wine_loader" \
            cscript.exe //nologo "$(windows_path "$wrapped")" "$@"
    ) >"$folder/output" 2>"$folder/trace" </dev/null &
    host=$!
    at_end "kill $host 2>/dev/null"
    script_status=0
    wait "$host" || script_status=$?

    # A program that the script has started may still hold the pipe; what the script printed is through by then.
    for ((i = 0; i < 30; i++)); do
        kill -0 "$reader" 2>/dev/null || break
        sleep 0.05
    done
    end_process "$reader"

    local outcome=
    [[ ! -f $folder/outcome ]] || outcome=$(<"$folder/outcome")
    if ((script_status == 124 || script_status == 137)) && [[ -z $outcome ]]; then
        script_status=124
        say "the script did not end within $seconds seconds and was ended: $script"
    elif [[ $outcome == error* ]]; then
        script_status=1
        say_script_error "$script" "$wrapped" "$folder/trace" "$outcome"
    elif [[ -z $outcome ]]; then
        say_script_stop "$script" "$wrapped" "$folder/trace" "$script_status"
        script_status=1
    fi
}

# An error that the prelude has caught: its number and text are known, in JScript the line stands in the trace.
say_script_error() {
    local script=$1 wrapped=$2 trace=$3 number description line
    IFS=$'\x1f' read -r _ number description line <<<"${4//$'\t'/$'\x1f'}" # a tab would swallow empty fields
    [[ -n $line ]] || line=$(perl "$ROOT/packaging/script-host/error-line.pl" "$wrapped" "$trace")
    [[ -z $number ]] || printf -v number ' 0x%08X (%d)' "$((number & 0xffffffff))" "$number"
    say "the script failed with error$number${line:+ in line $line}: ${description:-no description} ($script)"
}

# An end that the prelude has not seen: a script that is no JScript, or a script host that crashed.
say_script_stop() {
    local script=$1 wrapped=$2 trace=$3 status=$4 found
    found=$(perl "$ROOT/packaging/script-host/syntax-error.pl" "$wrapped" "$trace")
    if [[ -n $found ]]; then
        say "the script failed with error 0x800A03EA (-2146827286)$found ($script)"
    else
        say "the script failed: the script host ended with code $status before the end of the script ($script)"
    fi
}

# copy_database NAME FOLDER: a database by its name, or by the path of its file or folder, as a fresh copy.
copy_database() {
    local name=$1 folder=$2 file
    rm -rf "$folder"
    mkdir -p "$folder"
    if [[ $name == sample || $name == empty ]]; then
        cp -a "$BUILD/databases/$name/." "$folder/"
    elif [[ -d $name ]]; then
        cp -a "$name/." "$folder/"
    else
        for file in '' -wal -journal; do
            [[ ! -f $name$file ]] || cp "$name$file" "$folder/tarnwell.db$file"
        done
        file=$(dirname -- "$name")/twsystemfolder.ini
        [[ ! -f $file ]] || cp "$file" "$folder/"
    fi
    chmod -R u+w "$folder"
}

check_database() {
    local name=$1
    [[ $name == sample || $name == empty ]] && return 0
    if [[ -d $name ]]; then
        [[ -f $name/tarnwell.db ]] || fail "the folder '$name' holds no database: there is no tarnwell.db in it" 2
    elif [[ -f $name ]]; then
        [[ $(head -c 15 -- "$name" | tr -d '\0') == "SQLite format 3" ]] || fail "'$name' is not a database of the desk" 2
    else
        fail "there is no database '$name'; give sample, empty, a .db file or a folder with tarnwell.db" 2
    fi
}

# leave_out_rows NAME...: takes objects out of the registry. Programs have been left out when they were copied.
leave_out_rows() {
    local name
    for name in "$@"; do
        case ${name,,} in
            tarnwellnote.dll | createnote.connect)
                row '-HKEY_CURRENT_USER\Software\Microsoft\Office\Outlook\Addins\CreateNote.Connect'
                row '-HKEY_CLASSES_ROOT\CreateNote.Connect'
                ;;
            *.exe | *.dll) ;;
            *) row "-HKEY_CLASSES_ROOT\\$name" ;;
        esac
    done
}

check_left_out() {
    local name file
    for name in "$@"; do
        for file in TarnwellNote.dll TarnwellFamily.dll CreateNote.Connect MAPI.Session Search.CollatorDSO "${desk_programs[@]}"; do
            [[ ${name,,} != "${file,,}" ]] || continue 2
        done
        [[ ${name,,} != outlook.application && $name == *.* && $name != *[][\\/]* ]] &&
            grep -qiF -e "[Software\\\\Classes\\\\$name]" -e "[Software\\\\Classes\\\\$name\\\\" \
                "$WINEPREFIX/system.reg" ||
            fail "there is no object or program '$name' that could be left out" 2
    done
}

# trace_rows: where the add-in writes its trace, if it is to write one.
trace_rows() {
    local key='HKEY_CURRENT_USER\Software\Tarnwell\Note'
    row "-$key"
    [[ -n ${trace_file:-} ]] || return 0
    row "$key" TraceFile "$(windows_path "$trace_file")"
    row "$key" TraceContent "${trace_content:-0}"
}

check_trace() {
    local name=$1
    [[ -n $name ]] || return 0
    [[ ! -e $name || -f $name ]] || fail "the trace can not be written to '$name': it is no file" 2
    [[ -d $(dirname -- "$name") ]] || fail "the trace can not be written to '$name': there is no such folder" 2
    { : >>"$name"; } 2>/dev/null || fail "the trace can not be written to '$name'" 2
}

# prepare_desk FOLDER DATABASE [LEFT_OUT...]: a prefix as if new, with the desk, the add-in and the family registered
# from FOLDER/program, on a fresh copy of the database in FOLDER/database.
prepare_desk() {
    local folder=$1 database=$2 program
    shift 2
    rm -rf "$folder"
    mkdir -p "$folder/state"
    install_programs "$folder/program"
    register_servers "$folder/program" fresh
    rm -rf "$WINEPREFIX"/drive_c/users/*/Temp/* "$WINEPREFIX"/drive_c/windows/temp/*
    check_left_out "$@"
    for program in "${desk_programs[@]}" TarnwellFamily.dll; do
        [[ " ${*,,} " != *" ${program,,} "* ]] || rm "$folder/program/$program"
    done
    copy_database "$database" "$folder/database"
    set_up_desk "$folder"
    { document_rows "$folder/program" && family_rows "$folder/program" "$folder/database" && leave_out_rows "$@" &&
        row '-HKEY_CURRENT_USER\Software\Microsoft\Office\9.0\Outlook\Options\Tarnwell' && trace_rows; } |
        import_rows "$folder/desk.reg"
}

# desk_lives FOLDER: whether a desk of this folder runs, be it ours or one that a later CreateObject started.
desk_lives() {
    local file wanted
    wanted=$(windows_path "$1/program/desk.exe")
    for file in /proc/[0-9]*/cmdline; do
        if grep -qsF -- "$wanted" "$file"; then return 0; fi
    done
    return 1
}

# watch_end FOLDER: after the script: says so if the desk died meanwhile, and then counts it as a failure.
watch_end() {
    local folder=$1 code=0
    if ! kill -0 "$desk_pid" 2>/dev/null; then
        wait "$desk_pid" 2>/dev/null || code=$?
    fi
    if ((code != 0)) || { desk_is_on "$folder/state" && ! desk_lives "$folder"; }; then
        show_desk_log "$folder/state"
        say "the desk died while the script ran$( ((code == 0)) || echo " (exit code $code)")"
        ((script_status != 0)) || script_status=1
    fi
}

script_command() {
    local file= database=sample seconds=120 trace= trace_file= keep= left_out=() arguments=() place=${TARNWELL_PLACE:-script} folder kept
    local host_version= instant_search=0 language= event_order=host event_option=
    while (($# > 0)); do
        case $1 in
            --database | --host-version | --language | --without | --seconds | --trace)
                (($# > 1)) || fail "the option '$1' needs a value" 2
                case $1 in
                    --database) database=$2 ;;
                    --host-version) host_version=$2 ;;
                    --language) language=$2 ;;
                    --without) left_out+=("$2") ;;
                    --seconds) seconds=$2 ;;
                    --trace) trace=$2 ;;
                esac
                shift
                ;;
            --database=* | --host-version=* | --language=* | --without=* | --seconds=* | --trace=*)
                set -- "${1%%=*}" "${1#*=}" "${@:2}"
                continue
                ;;
            --instant-search) instant_search=1 ;;
            --deferred-events | --events-at-once)
                [[ -z $event_option || $event_option == "$1" ]] ||
                    fail "--deferred-events and --events-at-once exclude each other" 2
                event_option=$1
                event_order=$([[ $1 == --deferred-events ]] && echo deferred || echo at-once)
                ;;
            --keep) keep=1 ;;
            --)
                arguments=("${@:2}")
                break
                ;;
            -*) fail "'script' knows no option '$1'; './tarnwell help' lists them" 2 ;;
            *)
                [[ -z $file ]] || fail "'script' takes one file, and '$1' is a second one (arguments of the script stand after --)" 2
                file=$1
                ;;
        esac
        shift
    done
    [[ -n $file ]] || fail "'script' needs a script file" 2
    [[ -f $file && -r $file ]] || fail "there is no script '$file'" 2
    [[ ${file,,} == *.js || ${file,,} == *.vbs ]] || fail "'$file' is no script: its name must end in .js or .vbs" 2
    [[ $seconds =~ ^[1-9][0-9]{0,5}$ ]] || fail "--seconds needs a whole number above 0, not '$seconds'" 2
    [[ -z $language || $language =~ ^[1-9][0-9]{0,5}$ ]] || fail "--language needs a language's number like 1033, not '$language'" 2
    [[ -z $host_version || $host_version =~ ^[0-9]+(\.[0-9]+)*$ ]] || fail "--host-version needs a version like 9.0.0.3821, not '$host_version'" 2
    check_database "$database"
    check_trace "$trace"
    [[ -z $trace ]] || trace_file=$(realpath -s -- "$trace")

    prepare desk
    folder=$BUILD/$place # tests that run side by side have each its own
    lock "$folder.lock" "another script runs; waiting for it"
    keep_to "$(usable_processors | shuf -n 1)"
    start_display
    use_prefix "$place"
    prepare_desk "$folder" "$database" "${left_out[@]}"
    start_desk "$folder/program" "$folder/state"
    run_script "$seconds" "$folder" "$file" "${arguments[@]}"
    watch_end "$folder"
    stop_wine
    if [[ -n $keep ]]; then
        kept=$(mktemp -d "$BUILD/kept-XXXXXX")
        mv "$folder" "$kept/script"
        say "the working files are kept in $kept/script"
    else
        rm -rf "$folder"
    fi
    exit "$script_status"
}
