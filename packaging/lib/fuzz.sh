# shellcheck shell=bash
# `./tarnwell fuzz`: clang's coverage-guided fuzzer over what reads what it did not write. fuzz/corpus/NAME/ is kept with the
# tree; what a run finds besides stays in build/fuzz-runs/NAME/, and the next one goes on from there.

fuzz_packages=(clang-14 libclang-rt-14-dev)
fuzzers=$BUILD/fuzz/bin/fuzzers
fuzz_seconds=10                                                  # of each target in a test run
fuzz_limits=(-timeout=20 -rss_limit_mb=2048 -max_len=4096) # seconds, megabytes, bytes
fuzz_kept_bytes=600                                              # of the largest input that is kept in the tree

# fuzz_rows: name and inputs of each target, parted by a tab; from the source, so that nothing has to be built.
fuzz_rows() { sed -nE 's/^    \{"([a-z]+)", *"([^"]*)".*/\1\t\2/p' "$ROOT/fuzz/targets.cpp"; }
fuzz_targets() { fuzz_rows | cut -f 1; }

# fuzz_command_line NAME: the words by which a target's inputs are run again.
fuzz_command_line() { printf 'TARNWELL_FUZZ=%s %s' "$1" "${fuzzers#"$ROOT"/}"; }

# fuzz_folders NAME: the folders of a run, the first of which takes what is new. The seeds are written anew.
fuzz_folders() {
    local folder=$BUILD/fuzz-runs/$1
    mkdir -p "$folder/found" "$folder/crashes"
    rm -rf "$folder/seeds"
    TARNWELL_FUZZ=$1 "$fuzzers" --seeds "$folder/seeds"
    printf '%s\n' "$folder/found" "$folder/seeds"
    [[ ! -d $ROOT/fuzz/corpus/$1 ]] || printf '%s\n' "$ROOT/fuzz/corpus/$1"
}

# run_fuzzer NAME SECONDS [OPTION...]: one target; the log goes to standard output. Fails if an input ended it.
run_fuzzer() {
    local name=$1 seconds=$2 folders
    shift 2
    mapfile -t folders < <(fuzz_folders "$name")
    TARNWELL_FUZZ=$name timeout --kill-after=10 $((seconds + 120)) "$fuzzers" "${fuzz_limits[@]}" -max_total_time="$seconds" \
        -print_final_stats=1 -artifact_prefix="$BUILD/fuzz-runs/$name/crashes/" "$@" "${folders[@]}" 2>&1
}

# tell_of_fuzzer NAME LOG: what a run has reached, in one line; or the input that ended it, and how it is run again.
tell_of_fuzzer() {
    awk -v name="$1" -v again="$(fuzz_command_line "$1")" '
        /seed corpus: files:/ { given = $0; sub(/.*files: /, "", given); sub(/ .*/, "", given) }
        / cov: / { for (i = 1; i < NF; ++i) if ($i == "cov:") places = $(i + 1); else if ($i == "corp:") { split($(i + 1), corpus, "/"); kept = corpus[1] } }
        /stat::number_of_executed_units:/ { runs = $2 }
        /what\(\):|runtime error:|ERROR: (Address|Leak)Sanitizer|libFuzzer: (timeout|out-of-memory)/ { reason = reason "  " $0 "\n" }
        /Test unit written to/ { input = $NF }
        END {
            if (input != "") printf "%s fails:\n%s  run it again by: %s %s\n", name, reason, again, substr(input, index(input, "build/fuzz-runs"))
            else printf "  %-12s %5d inputs to begin with, %4d that count, %9d runs, %6d places of the code reached\n", name, given, kept, runs, places
        }' "$2"
}

# keep_corpus NAME: of all small inputs that were found, the fewest that reach the same places, without those that the seeds
# reach, into the tree.
keep_corpus() {
    local corpus=$ROOT/fuzz/corpus/$1 folder=$BUILD/fuzz-runs/$1 all
    all=$(mktemp -d "$folder/all.XXXXXX")
    at_end "rm -rf ${all@Q}"
    fuzz_folders "$1" >"$folder/folders"
    grep -v '/seeds$' "$folder/folders" | while read -r from; do find "$from" -type f -size "-$((fuzz_kept_bytes + 1))c" -exec cp -t "$all" {} +; done
    TARNWELL_FUZZ=$1 "$fuzzers" "${fuzz_limits[@]}" -set_cover_merge=1 "$folder/seeds" "$all" \
        >"$BUILD/logs/fuzz-keep-$1.log" 2>&1 || fail "the corpus could not be made; $BUILD/logs/fuzz-keep-$1.log tells more"
    rm -rf "$folder/seeds/"seed-* "$corpus"
    mkdir -p "$ROOT/fuzz/corpus"
    mv "$folder/seeds" "$corpus"
    say "fuzz/corpus/$1: $(find "$corpus" -type f | wc -l) inputs, $(find "$corpus" -type f -printf '%s\n' | awk '{ all += $1 } END { print all + 0 }') bytes"
}

prepare_fuzzers() {
    [[ -z ${TARNWELL_PREPARED:-} ]] || return 0
    install_packages "${build_packages[@]}" "${fuzz_packages[@]}"
    lock "$BUILD/build.lock" "another ./tarnwell is building; waiting for it"
    install_libraries
    build_preset fuzz fuzzers
    unlock
}

# run_fuzz_test NAME: one target as a test, with the same dice in each run.
run_fuzz_test() { run_fuzzer "$1" "$fuzz_seconds" -seed=1; }

# run_fuzz_tests: each target is a test.
run_fuzz_tests() {
    local names name log
    mapfile -t names < <(fuzz_targets)
    run_side_by_side fuzzers run_fuzz_test fuzz "${names[@]}"
    for name in "${names[@]}"; do
        log=$BUILD/logs/fuzz-$name.log
        [[ ! -f $log ]] || tell_of_fuzzer "$name" "$log"
    done
}

fuzz_command() {
    local name='' seconds=60 keep='' log status=0
    while (($# > 0)); do
        case $1 in
            --seconds)
                [[ ${2:-} =~ ^[1-9][0-9]{0,6}$ ]] || fail "'--seconds' takes a number of seconds" 2
                seconds=$2
                shift
                ;;
            --keep) keep=1 ;;
            -*) fail "'fuzz' knows the options --seconds and --keep, not '$1'" 2 ;;
            *)
                [[ -z $name ]] || fail "'fuzz' takes one name" 2
                name=$1
                ;;
        esac
        shift
    done
    if [[ -z $name ]]; then
        fuzz_rows | awk -F '\t' '{ printf "%-12s %s\n", $1, $2 }'
        return
    fi
    grep -qxF -- "$name" < <(fuzz_targets) || fail "there is no fuzzer '$name'. There are: $(fuzz_targets | tr '\n' ' ')" 2
    prepare_fuzzers
    log=$BUILD/logs/fuzz-$name.log
    say "fuzzing $name for $seconds s; $log is written meanwhile"
    (run_fuzzer "$name" "$seconds") >"$log" || status=1
    tell_of_fuzzer "$name" "$log"
    ((status == 0)) || fail "$name failed"
    [[ -z $keep ]] || keep_corpus "$name"
}
