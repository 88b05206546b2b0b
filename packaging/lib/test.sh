# shellcheck shell=bash
# `./tarnwell test`: every test and check there is. Whatever is skipped or not found counts as failed.

passed=0
failed=0

# count NAME PASSED FAILED: one suite's result.
count() {
    printf '%-44s %5d passed, %d failed\n' "$1" "$2" "$3"
    passed=$((passed + $2))
    failed=$((failed + $3))
}

# run_ctest NAME FOLDER JOBS: the tests of one build, counted from CTest's own report. What is not run counts as failed.
run_ctest() {
    local name=$1 folder=$2 jobs=$3 report=$BUILD/logs/ctest-$1.xml log=$BUILD/logs/ctest-$1.log good all
    rm -f "$report"
    # The names of failed tests and their output are shown at once; the whole stands in the log.
    (unlocked ctest --test-dir "$folder" --output-junit "$report" --output-on-failure --timeout 300 -j "$jobs") \
        >"$log" 2>&1 || true
    all=$(sed -n 's/^.*[[:space:]]tests="\([0-9]*\)".*$/\1/p' "$report" 2>/dev/null | head -n 1)
    good=$(grep -c '<testcase .*status="run"' "$report" 2>/dev/null || true)
    if [[ -z $all || $all == 0 ]]; then
        say "$name: no test was found; $log tells more"
        count "$name" 0 1
        return
    fi
    if ((good < all)); then grep -vE '^ *[0-9]+/[0-9]+ Test .* Passed |^ +Start ' "$log" || true; fi
    count "$name" "$good" "$((all - good))"
}

# The tests that were built for Windows, as many at a time as there are lanes: what such a test does most is wait.
run_wine_tests() {
    local lane lanes=(script second)
    local TARNWELL_PICTURES= TARNWELL_LANES=$BUILD/lanes
    # The surroundings of Wine end with this suite: the suites after it start their own.
    local HOME=${HOME:-} DISPLAY=${DISPLAY:-} XAUTHORITY=${XAUTHORITY:-} WINEPREFIX= WINEARCH= WINEDLLOVERRIDES= WINEDEBUG=
    lock "$BUILD/script.lock" "a script runs; waiting for it"
    rm -rf "$TARNWELL_LANES"
    mkdir -p "$TARNWELL_LANES" "$BUILD/pictures"
    for lane in "${lanes[@]}"; do prepare_lane "$lane"; done
    export TARNWELL_LANES TARNWELL_PICTURES # each window at several resolutions, for a person's eyes
    TARNWELL_PICTURES=$(windows_path "$BUILD/pictures")
    run_ctest x64 "$BUILD/x64" "${#lanes[@]}"
    for lane in "${lanes[@]}"; do
        stop_wine "$BUILD/prefix-$lane"
        rm -rf "${BUILD:?}/$lane"
    done
    unlock
}

# prepare_lane NAME: what one Wine test at a time needs for itself: a prefix with the desk and the family registered, and a
# screen to show windows on. packaging/in-lane finds it by a file in build/lanes.
prepare_lane() {
    WINEPREFIX='' start_display # it stays to the end, and belongs to no prefix
    use_prefix "$1"
    prepare_desk "$BUILD/$1" sample
    stop_wine # one that runs would not become persistent
    (unlocked "$wine_server" -p) # else each test would wait for a new one
    warm_up_wine "$BUILD/$1"
    printf 'export WINEPREFIX=%q DISPLAY=%q\n' "$WINEPREFIX" "$DISPLAY" >"$TARNWELL_LANES/$1"
}

# warm_up_wine FOLDER: starts the services that stay while the server does, so that no test has to wait for them.
warm_up_wine() {
    local folder=$1
    start_desk "$folder/program" "$folder/state"
    cat >"$folder/end.js" <<'SCRIPT'
new ActiveXObject("Outlook.Application").Quit();
SCRIPT
    in_wine 60 cscript.exe //nologo "$(windows_path "$folder/end.js")" >"$BUILD/logs/warm-up.log" 2>&1
    wait "$desk_pid" || true
}

# Each script in tests/scripts/ is one test. Its first line may name options: `// options: --database empty`.
run_script_tests() {
    local file options log good=0 bad=0 begin=$SECONDS
    for file in "$ROOT"/tests/scripts/*.js "$ROOT"/tests/scripts/*.vbs; do
        [[ -f $file ]] || continue
        options=$(sed -n "1s,^\(//\|'\) options: *,,p" "$file" | tr -d '\r')
        log=$BUILD/logs/script-${file##*/}.log
        # shellcheck disable=SC2086 # the options are words
        if (unlocked "$ROOT/tarnwell" script "$file" $options) >"$log" 2>&1; then
            good=$((good + 1))
        else
            bad=$((bad + 1))
            say "${file#"$ROOT"/} failed:"
            tail -n 20 "$log" >&2
        fi
        if ((SECONDS - begin >= 10)); then
            say "  $((good + bad)) scripts are through"
            begin=$SECONDS
        fi
    done
    ((good + bad > 0)) || {
        say "there is no script in tests/scripts"
        bad=1
    }
    count "scripts" "$good" "$bad"
}

# Each file in tests/shell/ is one test of ./tarnwell itself.
run_shell_tests() {
    local file log good=0 bad=0
    for file in "$ROOT"/tests/shell/*.sh; do
        [[ -f $file ]] || continue
        log=$BUILD/logs/shell-${file##*/}.log
        if (cd "$ROOT" && unlocked timeout --kill-after=10 600 bash "$file") >"$log" 2>&1; then
            good=$((good + 1))
        else
            bad=$((bad + 1))
            say "${file#"$ROOT"/} failed:"
            tail -n 20 "$log" >&2
        fi
    done
    ((good + bad > 0)) || {
        say "there is no test in tests/shell"
        bad=1
    }
    count "the command line" "$good" "$bad"
}

# our_sources SUFFIX...: the tree's own files with these endings, relative to the root.
our_sources() {
    local suffix patterns=()
    for suffix in "$@"; do patterns+=(-o -name "*.$suffix"); done
    (cd "$ROOT" && find addin automation bench desk family forms fuzz tests -type f \( "${patterns[@]:1}" \) | LC_ALL=C sort)
}

check_format() {
    local files log=$BUILD/logs/format.log file good=0 bad=0
    mapfile -t files < <(our_sources cpp h)
    for file in "${files[@]}"; do
        if (cd "$ROOT" && clang-format --dry-run --Werror "$file") >"$log" 2>&1; then
            good=$((good + 1))
        else
            bad=$((bad + 1))
            say "$file is not formatted as .clang-format says"
        fi
    done
    count "formatting" "$good" "$bad"
}

# tidy_units BUILD: for each source file that a build compiles, a hash of all that decides about its findings: its text and
# that of each header of ours below it, the configuration, the tool. As lines of hash, build and file.
tidy_units() {
    local build=$1 tool unit sums
    tool=$(clang-tidy --version | sha256sum && sha256sum <"$ROOT/.clang-tidy")
    (cd "$BUILD/$build" && ninja -t deps) | awk -v root="$ROOT/" '
        /^[^ ].*: #deps / { unit = ""; next }
        /^ / {
            path = $0; sub(/^ +/, "", path); sub(/^(\.\.\/)+/, root, path)
            if (index(path, root) != 1) next
            path = substr(path, length(root) + 1)
            if (path ~ /^(build|node_modules)\//) next
            if (unit == "") { unit = path }
            print unit "\t" path
        }' | LC_ALL=C sort -u >"$BUILD/tidy/deps"
    cut -f 2 "$BUILD/tidy/deps" | LC_ALL=C sort -u | (cd "$ROOT" && xargs -d '\n' sha256sum) >"$BUILD/tidy/sums"
    awk -F '\t' 'NR == FNR { split($0, part, "  "); sum[part[2]] = part[1]; next }
        { all[$1] = all[$1] sum[$2] }
        END { for (unit in all) if (unit ~ /\.cpp$/) print unit "\t" all[unit] }' "$BUILD/tidy/sums" "$BUILD/tidy/deps" |
        LC_ALL=C sort | while IFS=$'\t' read -r unit sums; do
        printf '%s %s %s\n' "$(sha256sum <<<"$tool$sums" | cut -c 1-64)" "$build" "$unit"
    done
}

# tidy_one HASH BUILD FILE: looks at one file; a clean one is remembered. Clang needs to be told where MinGW's library is.
tidy_one() {
    local hash=$1 build=$2 unit=$3 extra=() headers
    if [[ $build == x64 ]]; then
        extra=(--extra-arg=--target=x86_64-w64-mingw32)
        for headers in /usr/lib/gcc/x86_64-w64-mingw32/*-posix/include/c++{,/x86_64-w64-mingw32}; do
            extra+=("--extra-arg=-isystem$headers")
        done
    fi
    cd "$ROOT" || return
    clang-tidy --quiet -p "$BUILD/$build" "${extra[@]}" "$unit" >"$BUILD/tidy/logs/$hash" 2>&1 || return 0
    : >"$BUILD/tidy/clean/$hash"
}

# Clang's checks, for what has changed since it was last found clean: the native build's files, then those that only the
# Windows build has.
check_tidy() {
    local hash build unit good=0 bad=0 pending=() line seen=" "
    mkdir -p "$BUILD/tidy/clean" "$BUILD/tidy/logs"
    while read -r hash build unit; do
        [[ $seen != *" $unit "* ]] || continue
        seen+="$unit "
        if [[ -f $BUILD/tidy/clean/$hash ]]; then good=$((good + 1)); else pending+=("$hash $build $unit"); fi
    done < <(tidy_units native && tidy_units x64)
    if ((${#pending[@]} > 0)); then
        say "clang-tidy looks at ${#pending[@]} changed files"
        printf '%s\n' "${pending[@]}" >"$BUILD/tidy/pending"
        export BUILD ROOT
        export -f tidy_one
        with_progress "clang-tidy" "$BUILD/logs/tidy.log" xargs -P "$(nproc)" -L 1 -a "$BUILD/tidy/pending" \
            bash -c 'tidy_one "$1" "$2" "$3" && echo "$3"' tidy || true
    fi
    for line in "${pending[@]}"; do
        read -r hash build unit <<<"$line"
        if [[ -f $BUILD/tidy/clean/$hash ]]; then good=$((good + 1)); else
            bad=$((bad + 1))
            grep -E '(error|warning):' "$BUILD/tidy/logs/$hash" || tail -n 5 "$BUILD/tidy/logs/$hash"
        fi
    done > >(LC_ALL=C sort -u >&2) # a header's finding comes once for each file that includes it
    wait $!
    ((good + bad > 0)) || bad=1
    count "clang-tidy" "$good" "$bad"
}

test_command() {
    local tidy=1
    while (($# > 0)); do
        case $1 in
            --no-tidy) tidy= ;;
            *) fail "'test' knows only the option --no-tidy, not '$1'" 2 ;;
        esac
        shift
    done
    prepare tests
    export TARNWELL_PREPARED=1 TARNWELL_DATABASES=$BUILD/databases TARNWELL_MAILS=$ROOT/data/sample/mails

    say "native tests"
    run_ctest native "$BUILD/native" "$(nproc)"
    say "the same with address and undefined-behaviour sanitizers"
    run_ctest sanitized "$BUILD/sanitized" "$(nproc)"
    say "formatting"
    check_format
    if [[ -n $tidy ]]; then
        say "clang-tidy"
        check_tidy
    else
        say "clang-tidy is left out, as you asked"
    fi

    say "tests below Wine"
    run_wine_tests
    say "scripts"
    run_script_tests
    say "the command line"
    run_shell_tests

    printf '%d passed, %d failed\n' "$passed" "$failed"
    ((failed == 0)) || exit 1
}
