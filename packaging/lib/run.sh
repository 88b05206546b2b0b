# shellcheck shell=bash
# `./tarnwell run` opens the desk for a person; `./tarnwell deliver` hands it mails.

run_folder=$BUILD/run
tour_folder=$BUILD/tour

display_usable() { [[ -n ${DISPLAY:-} ]] && timeout 10 xdotool getdisplaygeometry >/dev/null 2>&1; }

# friendly_rows: what a person would have switched on in the add-in's options.
friendly_rows() {
    local key='HKEY_CURRENT_USER\Software\Microsoft\Office\9.0\Outlook\Options\Tarnwell'
    row "$key" AutoFileSentEmails 1
    row "$key" EnableQuickView 1
}

run_command() {
    local fresh=
    while (($# > 0)); do
        case $1 in
            --fresh) fresh=1 ;;
            *) fail "'run' knows only the option --fresh, not '$1'" 2 ;;
        esac
        shift
    done
    prepare desk
    if display_usable; then open_desk "$fresh"; else show_tour; fi
}

# The desk in the foreground, on a working copy of the sample company that stays from one run to the next.
open_desk() {
    local fresh=$1 code=0 unattended=0 first_page=1 folder=$run_folder
    try_lock "$BUILD/run.lock" ||
        fail "the desk is open already; './tarnwell deliver FILE...' hands it mails"
    mkdir -p "$folder"
    use_prefix run
    install_programs "$folder/program"
    rm -rf "$folder/state"
    mkdir -p "$folder/state"
    if [[ -n $fresh || ! -f $folder/database/tarnwell.db ]]; then
        say "a fresh copy of the sample company: $folder/database"
        copy_database sample "$folder/database"
        fresh=1
    fi
    register_servers "$folder/program" "$fresh"
    set_up_desk "$folder"
    { document_rows "$folder/program" && family_rows "$folder/program" "$folder/database" &&
        { [[ -z $fresh ]] || friendly_rows; }; } | import_rows "$folder/desk.reg"
    start_desk "$folder/program" "$folder/state"
    [[ -z $fresh ]] || deliver_samples
    say "the desk is open; closing its window ends it"
    say "in another terminal, './tarnwell deliver FILE...' hands it mails, for example data/sample/mails/*.eml"
    wait "$desk_pid" || code=$?
    if ((code != 0)); then
        show_desk_log "$folder/state"
        fail "the desk died (exit code $code)"
    fi
    say "the desk was closed; its data stay in $folder/database ('./tarnwell run --fresh' starts anew)"
}

# deliver_samples: puts the sample mails into a fresh Inbox, so that there is something to read.
deliver_samples() {
    local folder=$run_folder/deliver log=$BUILD/logs/samples.log file given=()
    mkdir -p "$folder"
    for file in "$ROOT"/data/sample/mails/*.eml; do given+=("$(windows_path "$file")|${file##*/}"); done
    say "delivering ${#given[@]} sample mails"
    run_script 300 "$folder" "$ROOT/desk/scripts/deliver.js" "${given[@]}" >"$log"
    rm -rf "$folder"
    ((script_status == 0)) || {
        show_tail "$log"
        fail "the sample mails could not be delivered"
    }
}

# Without a display: the sample mails, delivered and read, and what the add-in made of each; then the ten steps of the first
# page. Both stand in one page with pictures.
show_tour() {
    local place=${TARNWELL_PLACE:-script} status=0
    say "there is no display, so this is a tour of the sample mails on a virtual one (with DISPLAY set, the desk opens)"
    lock "$BUILD/$place.lock" "a script runs; waiting for it"
    start_display
    use_prefix "$place"
    begin_tour
    tour_mails "$BUILD/$place" >"$tour_folder/mails.txt" || status=1
    cat "$tour_folder/mails.txt"
    say "going the ten steps of the first page"
    tour_steps "$BUILD/$place" || status=1
    make_tour_page
    exit "$status"
}

# begin_tour: an empty folder for what the tour leaves, and the sample mails in `mails`.
begin_tour() {
    local file
    rm -rf "$tour_folder"
    mkdir -p "$tour_folder/raw" "$BUILD/logs"
    mails=()
    for file in "$ROOT"/data/sample/mails/*.eml; do mails+=("$(windows_path "$file")"); done
}

# tour_mails FOLDER: prints what became of each mail in `mails`. Fails if one could not be delivered.
tour_mails() {
    local folder=$1 trace_file=$BUILD/logs/tour-trace.txt trace_content=1
    rm -f "$trace_file"
    prepare_desk "$folder" sample
    start_desk "$folder/program" "$folder/state"
    run_script 300 "$folder" "$ROOT/desk/scripts/tour.js" "${mails[@]}"
    watch_end "$folder"
    stop_wine
    rm -rf "$folder"
    return "$script_status"
}

# tour_steps FOLDER: goes the steps with `mails`; what they tell is in steps.txt of the tour's folder. Says which of them failed.
tour_steps() {
    local folder=$1 first_page=1 number state title what result gone=0 failed=0
    prepare_desk "$folder" sample
    friendly_rows | import_rows "$folder/friendly.reg"
    start_desk "$folder/program" "$folder/state"
    run_script 120 "$folder" "$ROOT/desk/scripts/first_steps.js" "$(windows_path "$tour_folder/raw")" "${mails[@]}" \
        >"$tour_folder/steps.txt"
    watch_end "$folder"
    stop_wine
    rm -rf "$folder"
    while IFS=$'\t' read -r number state title what result; do
        [[ $state != done ]] || gone=$((gone + 1))
        [[ $state != failed ]] || {
            say "step $number did not do what it says: $title ($result)"
            failed=1
        }
    done <"$tour_folder/steps.txt"
    say "$gone of 10 steps did what they say"
    ((script_status == 0 && failed == 0 && gone == 10))
}

# make_tour_page: the page index.html of the tour, made of what both parts of the tour have left.
make_tour_page() {
    local file
    for file in "$tour_folder"/raw/*.png; do
        [[ -f $file ]] || continue
        convert "$file" -trim +repage -strip -define png:exclude-chunks=date,time "$tour_folder/${file##*/}" ||
            fail "the picture ${file##*/} could not be cut"
    done
    perl "$ROOT/packaging/tour/page.pl" "$tour_folder/steps.txt" "$tour_folder/mails.txt" "$tour_folder" >"$tour_folder/index.new" ||
        fail "the page of the tour could not be written"
    mv "$tour_folder/index.new" "$tour_folder/index.html"
    rm -rf "$tour_folder/raw"
    say "the page with the pictures: $tour_folder/index.html"
}

# deliver_command FILE...: one line for each file; one that fails does not keep the others back.
deliver_command() {
    (($# > 0)) || fail "'deliver' needs at least one mail file" 2
    local folder=$run_folder/deliver file path given=() names=() failed=0 i
    if try_lock "$BUILD/run.lock"; then
        unlock
        fail "no desk is open; './tarnwell run' opens one"
    fi
    desk_is_on "$run_folder/state" || fail "the desk is not ready yet; try again in a moment"
    lock "$BUILD/deliver.lock" "another delivery is under way; waiting for it"
    find_wine
    rm -rf "$folder"
    mkdir -p "$folder"
    at_end "rm -rf '$folder'"
    for file in "$@"; do
        if [[ ! -e $file ]]; then
            printf '%s: not delivered: there is no such file\n' "$file"
        elif [[ ! -f $file ]]; then
            printf '%s: not delivered: it is not a file\n' "$file"
        elif [[ ! -r $file ]]; then
            printf '%s: not delivered: it can not be read\n' "$file"
        else
            path=$(realpath -s -- "$file")
            # Windows has no such names; the desk gets a copy.
            if [[ $path == *[\\:*?\"\<\>\|[:cntrl:]]* ]] || ! iconv -f UTF-8 -t UTF-8 <<<"$path" >/dev/null 2>&1; then
                path=$folder/${#given[@]}.eml
                cp -- "$file" "$path"
            fi
            given+=("$(windows_path "$path")")
            names+=("$file")
            continue
        fi
        failed=1
    done
    ((${#given[@]} > 0)) || exit 1

    wine_environment "$BUILD/prefix-run" shared
    for ((i = 0; i < ${#given[@]}; i++)); do given[i]+="|${names[i]}"; done
    run_script $((60 + 10 * ${#given[@]})) "$folder" "$ROOT/desk/scripts/deliver.js" "${given[@]}"
    ((script_status == 0 && failed == 0)) || exit 1
}
