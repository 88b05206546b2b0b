# shellcheck shell=bash
# `./tarnwell hours`: a month of one busy user in one session of the desk.

hours_command() {
    local days=22 seed=1 load=100 folder=$BUILD/hours status=0
    while (($# > 0)); do
        case $1 in
            --days | --seed | --load)
                (($# > 1)) || fail "the option '$1' needs a value" 2
                [[ $2 =~ ^[1-9][0-9]{0,4}$ ]] || fail "$1 needs a whole number above 0, not '$2'" 2
                printf -v "${1#--}" %s "$2"
                shift
                ;;
            *) fail "'hours' knows the options --days, --seed and --load, not '$1'" 2 ;;
        esac
        shift
    done
    mkdir -p "$folder"
    prepare_programs '' hours desk
    lock "$BUILD/hours.lock" "another ./tarnwell hours runs; waiting for it"
    keep_to "$(usable_processors | shuf -n 1)"
    start_display
    use_prefix hours
    prepare_desk "$folder/desk" sample
    export TARNWELL_DATABASES=$BUILD/databases TARNWELL_MAILS=$ROOT/data/sample/mails
    (unlocked "$wine_loader" "$(windows_path "$BUILD/x64/bin/hours.exe")" month "$days" "$seed" "$load" "$(windows_path "$folder")") 2>"$folder/errors.log" </dev/null |
        sed -u 's,\r$,,' || status=1
    stop_wine
    rm -rf "$folder/desk"
    ((status == 0)) || fail "the desk did not bear it; the line that begins with WRONG says why"
    say "the table and the plot are in $folder: hours.txt, hours.svg"
}
