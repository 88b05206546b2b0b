# shellcheck shell=bash
# `./tarnwell test`: every test and check there is. Whatever is skipped or not found counts as failed.

passed=0
failed=0
checked=0

# part NAME: what begins now, for the person who waits; count says how long it took.
part() {
    say "$1"
    part_begin=$SECONDS
}
part_begin=$SECONDS

# count NAME PASSED FAILED: one suite's result.
count() {
    printf '%-36s %5d passed, %d failed, %d s\n' "$1" "$2" "$3" $((SECONDS - part_begin))
    passed=$((passed + $2))
    failed=$((failed + $3))
}

# count_checks NAME PASSED FAILED: the same of what is no test. A failure is one all the same.
count_checks() {
    count "$@"
    passed=$((passed - $2))
    checked=$((checked + $2))
}

# sum_up: the last lines. Ends with 1 if anything failed.
sum_up() {
    ((checked == 0)) || printf '%d checks besides the tests are right\n' "$checked"
    printf '%d passed, %d failed\n' "$passed" "$failed"
    ((failed == 0)) || exit 1
}

# run_ctest NAME FOLDER JOBS [OPTION...]: the tests of one build, counted from CTest's own report. What is not run counts as
# failed.
run_ctest() {
    local name=$1 folder=$2 jobs=$3 report=$BUILD/logs/ctest-$1.xml log=$BUILD/logs/ctest-$1.log good all
    shift 3
    rm -f "$report"
    # The names of failed tests and their output are shown at once; the whole stands in the log.
    (unlocked ctest --test-dir "$folder" --output-junit "$report" --output-on-failure --timeout 300 -j "$jobs" "$@") \
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

native_programs=(unit_tests acceptance_tests)

# run_native BUILD [FILTER]: the native tests of one build, all or those that a filter of the test programs names. CTest runs
# the programs in shares, so what is counted is the programs' own lines: a test has passed if it says so itself. A share that
# ends badly fails though all its tests have passed, and so does a program without tests.
run_native() {
    local name=$1 folder=$BUILD/$1 filter=${2:-} log=$BUILD/logs/ctest-$1.log program listed all=0 good bad ended=0
    export GTEST_FILTER=${filter:-*}
    for program in "${native_programs[@]}"; do
        listed=$("$folder/bin/$program" --gtest_list_tests | grep -c '^  ') || {
            say "$name: $program has no test"
            ended=1
        }
        all=$((all + listed))
    done
    [[ -n $filter ]] || all=$((all + $(ctest --test-dir "$folder" -N -R '^fuzz_' | grep -c '^ *Test *#')))
    (unlocked ctest --test-dir "$folder" ${filter:+-R "^($(IFS="|" && printf %s "${native_programs[*]}"))-"} --verbose --timeout 1200 -j "$(nproc)") >"$log" 2>&1 || ended=1
    unset GTEST_FILTER
    good=$(grep -cE '\[       OK \]|Test *#[0-9]+: fuzz_.* Passed ' "$log" || true)
    bad=$((all - good))
    ((bad > 0 || ended == 0)) || bad=1
    ((bad == 0)) || show_failed_tests "$log"
    count "$name" "$good" "$bad"
}

# show_failed_tests LOG: what the tests said that have failed, and the one in which a share broke off. Each line bears the
# number of its share.
show_failed_tests() {
    awk '
        { share = $1 }
        /\[ RUN      \]/ { said[share] = "" }
        share in said { said[share] = said[share] $0 "\n" }
        /\[       OK \]/ { delete said[share] }
        share in said && /\[  FAILED  \]/ { printf "%s", said[share]; delete said[share] }
        /^ *[0-9]+\/[0-9]+ Test .*\*\*\*/ { print }
        END { for (share in said) printf "%s%s the share ended in this test, and what came after it was not run\n", said[share], share }' \
        "$1" >&2
}

# run_wine_tests [OPTION...]: the tests that were built for Windows, or those that CTest's options leave, as many at a time as
# there are lanes. There are two for each processor, so that there is always one that need not wait.
run_wine_tests() {
    local lane lanes=() processor wanted
    local TARNWELL_PICTURES= TARNWELL_LANES=$BUILD/lanes
    # The surroundings of Wine end with this suite: the suites after it start their own.
    local HOME=${HOME:-} DISPLAY=${DISPLAY:-} XAUTHORITY=${XAUTHORITY:-} WINEPREFIX= WINEARCH= WINEDLLOVERRIDES= WINEDEBUG=
    lock "$BUILD/script.lock" "a script runs; waiting for it"
    rm -rf "$TARNWELL_LANES"
    mkdir -p "$TARNWELL_LANES" "$BUILD/pictures"
    wanted=$(ctest --test-dir "$BUILD/x64" -N "$@" | sed -n 's/^Total Tests: //p')
    for processor in $(usable_processors) $(usable_processors); do
        ((${#lanes[@]} < most_lanes && ${#lanes[@]} < wanted)) || break
        lane=lane-$((${#lanes[@]} + 1))
        lanes+=("$lane")
        prepare_lane "$lane" "$processor"
    done
    export TARNWELL_LANES TARNWELL_PICTURES # each window at several resolutions, for a person's eyes
    TARNWELL_PICTURES=$(windows_path "$BUILD/pictures")
    run_ctest x64 "$BUILD/x64" "${#lanes[@]}" "$@"
    for lane in "${lanes[@]}"; do
        stop_wine "$BUILD/prefix-$lane"
        rm -rf "${BUILD:?}/$lane"
    done
    unlock
}

most_lanes=8 # each one has a prefix, which takes time and room

# prepare_lane NAME PROCESSOR: what one Wine test at a time needs for itself: a prefix with the desk and the family registered,
# and a screen to show windows on. packaging/in-lane finds it by a file in build/lanes.
prepare_lane() {
    local all
    all=$(usable_processors | paste -s -d ,)
    keep_to "$2"
    WINEPREFIX='' start_display # it stays to the end, and belongs to no prefix
    use_prefix "$1"
    prepare_desk "$BUILD/$1" sample
    stop_wine # one that runs would not become persistent
    (unlocked "$wine_server" -p) # else each test would wait for a new one
    warm_up_wine "$BUILD/$1"
    keep_desktop "$BUILD/$1"
    printf 'export WINEPREFIX=%q DISPLAY=%q\nprocessor=%s\n' "$WINEPREFIX" "$DISPLAY" "$2" >"$TARNWELL_LANES/$1"
    keep_to "$all"
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

# keep_desktop FOLDER: keeps Wine's desktop there between the tests, by a program that waits for a key. A second after the
# last program has gone, the desktop ends; a program that starts meanwhile can make no window.
keep_desktop() {
    local keys=$1/keys open
    rm -f "$keys"
    mkfifo "$keys"
    exec {open}<>"$keys" # open for writing as well, so that it never ends
    (unlocked "$wine_loader" cmd.exe /c pause) >/dev/null 2>&1 <&"$open" &
    at_end "kill $! 2>/dev/null" # the lane's end ends it, too
    exec {open}<&-
}

# The tests that run side by side, by their process.
declare -A running=()
at_end 'for process in "${!running[@]}"; do end_process "$process"; done'

# run_side_by_side NAME RUN KIND FILE...: the suite NAME. `RUN FILE` replaces its shell by a test; as many as there are processors
# run at a time, each on one of its own, and what they start by `./tarnwell script` has a place of its own.
run_side_by_side() {
    local name=$1 run=$2 kind=$3 good=0 bad=0 begin=$SECONDS processors free i process status file
    local -A places=()
    shift 3
    mapfile -t processors < <(usable_processors | head -n "$most_lanes")
    free=("${!processors[@]}")
    (($# > 0)) || bad=1 # none is a failure
    while (($# > 0 || ${#running[@]} > 0)); do
        while (($# > 0 && ${#free[@]} > 0)); do
            i=${free[0]}
            free=("${free[@]:1}")
            (
                keep_to "${processors[i]}"
                export TARNWELL_PREPARED=1 TARNWELL_PLACE=script${i#0}
                "$run" "$1"
            ) >"$BUILD/logs/$kind-${1##*/}.log" 2>&1 &
            running[$!]=$1 places[$!]=$i
            shift
        done
        status=0
        wait -n -p process "${!running[@]}" || status=$?
        file=${running[$process]}
        free+=("${places[$process]}")
        unset "running[$process]"
        if ((status == 0)); then
            good=$((good + 1))
        else
            bad=$((bad + 1))
            say "${file#"$ROOT"/} failed:"
            tail -n 20 "$BUILD/logs/$kind-${file##*/}.log" >&2
        fi
        if ((SECONDS - begin >= 10)); then
            say "  $name: $((good + bad)) are through"
            begin=$SECONDS
        fi
    done
    count "$name" "$good" "$bad"
}

# run_script_tests FILE...: each script in tests/scripts/ is one test. Its first line may name options:
# `// options: --database empty`.
run_script_tests() { run_side_by_side scripts run_script_test script "$@"; }
run_script_test() {
    local options
    options=$(sed -n "1s,^\(//\|'\) options: *,,p" "$1" | tr -d '\r')
    # shellcheck disable=SC2086 # the options are words
    unlocked "$ROOT/tarnwell" script "$1" $options
}

# run_shell_tests FILE...: each file in tests/shell/ is one test of ./tarnwell itself.
run_shell_tests() { run_side_by_side "the command line" run_shell_test shell "$@"; }
run_shell_test() {
    cd "$ROOT"
    unlocked timeout --kill-after=10 600 bash "$1"
}

script_tests() { find "$ROOT/tests/scripts" -maxdepth 1 \( -name '*.js' -o -name '*.vbs' \) | LC_ALL=C sort; }
shell_tests() { find "$ROOT/tests/shell" -name '*.sh' | LC_ALL=C sort; }

# test_names: all tests that have a name, as lines of the program that runs it and the name. Read from the sources, so that
# only what is asked for has to be built.
test_names() {
    local folder program
    while read -r program folder; do
        sed -nE 's/^TEST(_F|_P)?\(([A-Za-z0-9_]+), *([A-Za-z0-9_]+)\).*/\2.\3/p' "$ROOT/$folder"/*.cpp | sed "s,^,$program ,"
    done <<'PROGRAMS'
native/unit_tests tests/unit
native/unit_tests tests/forms
native/acceptance_tests tests/acceptance
x64/acceptance_tests tests/acceptance
x64/acceptance_tests tests/wine
x64/forms_tests tests/forms
x64/family_tests family/tests
PROGRAMS
    for folder in "$ROOT"/tests/windows/*.cpp; do # the piece is the start of the file's name
        program=${folder##*/}
        sed -nE 's/^TEST(_F|_P)?\(([A-Za-z0-9_]+), *([A-Za-z0-9_]+)\).*/\2.\3/p' "$folder" | sed "s,^,x64/${program%%_*}_tests ,"
    done
    script_tests | sed "s,.*/,script ,"
    shell_tests | sed "s,.*/,shell ,"
}

# test_by_name NAME...: the tests whose names hold one of these, native ones and those below Wine, and nothing else is built.
test_by_name() {
    local name filter='' pattern='' programs all found=()
    all=$(test_names)
    for name in "$@"; do
        [[ $name =~ ^[A-Za-z0-9_.]+$ ]] && grep -qF -- "$name" < <(cut -d ' ' -f 2 <<<"$all") ||
            fail "no test has '$name' in its name. There are: $(sed -E 's/^[^ ]* ([^.]*)\..*/\1/' <<<"$all" | LC_ALL=C sort -u | tr '\n' ' ')" 2
        filter+=${filter:+:}*$name*
        pattern+=${pattern:+|}${name//./\\.}
    done
    mapfile -t found < <(grep -E -- " .*($pattern)" <<<"$all")
    programs=$(printf '%s\n' "${found[@]}" | cut -d ' ' -f 1 | LC_ALL=C sort -u)
    prepare_programs "$(sed -n 's,^native/,,p' <<<"$programs")" "$(sed -n 's,^x64/,,p' <<<"$programs")" "$(grep -xE 'script|shell' <<<"$programs" || true)"

    mapfile -t native_programs < <(sed -n 's,^native/,,p' <<<"$programs")
    ((${#native_programs[@]} == 0)) || run_native "${TARNWELL_NATIVE_BUILD:-native}" "$filter"
    if grep -q '^x64/' <<<"$programs"; then
        # the programs of single pieces are one test of CTest's each, and choose by themselves
        local pieces
        pieces=$(sed -n '/acceptance_tests$/!s,^x64/,,p' <<<"$programs" | tr '\n' '|')
        export GTEST_FILTER=$filter
        run_wine_tests -R "$pattern${pieces:+|^(${pieces%|})\$}"
        unset GTEST_FILTER
    fi
    mapfile -t found < <(script_tests | grep -E "/[^/]*($pattern)[^/]*$")
    ((${#found[@]} == 0)) || run_script_tests "${found[@]}"
    mapfile -t found < <(shell_tests | grep -E "/[^/]*($pattern)[^/]*$")
    ((${#found[@]} == 0)) || run_shell_tests "${found[@]}"
}

# What can be known within two minutes after a change: the native tests and the formatting.
test_quickly() {
    prepare quick
    part "native tests"
    run_native native
    part "formatting"
    check_format
}

test_everything() {
    local tidy=$1 files
    prepare tests
    # One build of them is enough here: the same tests without sanitizers would see less.
    export TARNWELL_NATIVE_BUILD=sanitized
    part "native tests, with address and undefined-behaviour sanitizers"
    run_native sanitized
    part "formatting"
    check_format
    check_unused_names
    if [[ -n $tidy ]]; then
        part "clang-tidy"
        check_tidy
    else
        say "clang-tidy is left out, as you asked"
    fi
    part "fuzzers"
    run_fuzz_tests
    part "tests below Wine"
    run_wine_tests
    part "scripts"
    mapfile -t files < <(script_tests)
    run_script_tests "${files[@]}"
    part "the command line"
    mapfile -t files < <(shell_tests)
    run_shell_tests "${files[@]}"
}

test_command() {
    local tidy=1 quick='' names=()
    while (($# > 0)); do
        case $1 in
            --no-tidy) tidy= ;;
            --quick) quick=1 ;;
            -*) fail "'test' knows the options --quick and --no-tidy, not '$1'" 2 ;;
            *) names+=("$1") ;;
        esac
        shift
    done
    [[ -z $quick || ${#names[@]} == 0 ]] || fail "'--quick' runs all native tests, so it takes no names" 2
    export TARNWELL_DATABASES=$BUILD/databases TARNWELL_MAILS=$ROOT/data/sample/mails
    if [[ -n $quick ]]; then
        test_quickly
    elif ((${#names[@]} > 0)); then
        test_by_name "${names[@]}"
    else
        test_everything "$tidy"
    fi
    sum_up
}
