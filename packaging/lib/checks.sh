# shellcheck shell=bash
# The checks of `./tarnwell test` that run nothing: formatting and Clang's checks.

# our_sources SUFFIX...: the tree's own files with these endings, relative to the root.
our_sources() {
    local suffix patterns=()
    for suffix in "$@"; do patterns+=(-o -name "*.$suffix"); done
    (cd "$ROOT" && find addin admin automation bench desk family forms fuzz tests -type f \( "${patterns[@]:1}" \) | LC_ALL=C sort)
}

check_format() {
    local files log=$BUILD/logs/format.log wrong
    mapfile -t files < <(our_sources cpp h)
    (cd "$ROOT" && printf '%s\0' "${files[@]}" |
        xargs -0 -P "$(nproc)" -n 20 clang-format --dry-run --Werror --ferror-limit=1) >"$log" 2>&1 || true
    mapfile -t wrong < <(sed -n 's/^\(.*\):[0-9]*:[0-9]*: error: .*/\1/p' "$log" | LC_ALL=C sort -u)
    ((${#wrong[@]} == 0)) || say "not formatted as .clang-format says: ${wrong[*]}"
    [[ ${#wrong[@]} -gt 0 || ! -s $log ]] || wrong=("$(show_tail "$log")") # it has said something else
    count_checks "formatting" "$((${#files[@]} - ${#wrong[@]}))" "${#wrong[@]}"
}

# How many files clang-tidy reads at a time, as many as the sanitized build compiles: of the 18 seconds for eight files most
# are the library's headers'.
tidy_batch=20

# tidy_units: what there is to look at: the native build's files, then those that only the Windows build has, those of one
# target in batches. As lines of build, folder, command and number of files, and of the file that includes them, in
# build/tidy/units. A command is that of a build that compiles each file by itself, up to its file.
tidy_units() {
    local build units=$BUILD/tidy/units
    for build in native x64; do
        with_progress "configuring for clang-tidy" "$BUILD/logs/configure-tidy.log" cmake --preset "$build" -S "$ROOT" \
            -B "$BUILD/tidy/$build" -DCMAKE_UNITY_BUILD=OFF -DTARNWELL_TESTS_IN_UNIT=0 || fail "clang-tidy's build could not be configured"
    done
    rm -rf "$units"
    mkdir -p "$units"
    for build in native x64; do
        cmake -DFILE="$BUILD/tidy/$build/compile_commands.json" -DOUTPUT="$BUILD/tidy/commands" -P "$ROOT/packaging/compile-commands.cmake"
        sed "s,^,$build\t," "$BUILD/tidy/commands"
    done | awk -F '\t' -v OFS='\t' -v root="$ROOT/" -v units="$units" -v batch="$tidy_batch" '
        index($3, root) != 1 || $3 !~ /\.cpp$/ || $3 ~ /\/(build|node_modules)\// || seen[$3]++ { next }
        {
            match($4, / -o [^ ]*\.dir\//)
            target = $1 substr($4, RSTART, RLENGTH)
            sub(/ -o [^ ]* -c .*$/, "", $4)
            if (!(target in open) || members[open[target]] == batch) {
                unit = open[target] = units "/" ++count ".cpp"
                what[unit] = $1 OFS $2 OFS $4
            }
            unit = open[target]
            members[unit]++
            printf "#include \"%s\"\n", $3 > unit
        }
        END { for (unit in what) print what[unit], members[unit], unit }'
}

# tidy_one BUILD FOLDER COMMAND COUNT UNIT: looks at one batch of files, unless it was found clean before. What it is
# remembered by is all that decides: the text as the compiler sees it, comments and the library's headers included, its
# command, the configuration and the tool. Says clean, known or found, the number of files, and the log.
tidy_one() {
    local build=$1 folder=$2 command=${3#*ccache } count=$4 unit=$5 extra='' headers hash log
    log=$BUILD/tidy/logs/${unit##*/}
    if ! hash=$(set -o pipefail && {
        printf '%s\n' "$tidy_tool" "${command//"$ROOT"/}"
        cd "$folder" && bash -c "$command -E -P -C $unit"
    } 2>"$log" | sha256sum | cut -c 1-64); then
        printf 'found\t%s\t%s\n' "$count" "$log" # what can't be read can't be remembered
        return
    fi
    if [[ -f $tidy_clean/$hash ]]; then
        touch "$tidy_clean/$hash"
        printf 'known\t%s\t%s\n' "$count" "$log"
        return
    fi
    if [[ $build == x64 ]]; then # Clang needs to be told where MinGW's library is
        extra=--target=x86_64-w64-mingw32
        for headers in /usr/lib/gcc/x86_64-w64-mingw32/*-posix/include/c++{,/x86_64-w64-mingw32}; do
            extra+=" -isystem $headers"
        done
    fi
    # The files count as headers here, which the analyzer leaves out unless it is told.
    if (cd "$folder" && bash -c "clang-tidy --quiet $unit -- ${command#* } $extra -Xclang -analyzer-opt-analyze-headers") >"$log" 2>&1; then
        : >"$tidy_clean/$hash"
        printf 'clean\t%s\t%s\n' "$count" "$log"
    else
        printf 'found\t%s\t%s\n' "$count" "$log"
    fi
}

# Clang's checks, for what has changed since it was last found clean, here or in another clone: what is clean is remembered
# beside the compiler's cache.
check_tidy() {
    local all good log=$BUILD/logs/tidy.log
    export tidy_clean=${XDG_CACHE_HOME:-$HOME/.cache}/tarnwell/tidy tidy_tool
    tidy_tool=$(clang-tidy --version && cat "$ROOT/.clang-tidy")
    rm -rf "$BUILD/tidy/logs"
    mkdir -p "$tidy_clean" "$BUILD/tidy/logs"
    find "$tidy_clean" -type f -mtime +30 -delete
    tidy_units | LC_ALL=C sort -t $'\t' -k 4,4nr >"$BUILD/tidy/batches" # the longest first, so that both cores end together
    all=$(awk -F '\t' '{ all += $4 } END { print all + 0 }' "$BUILD/tidy/batches")
    export BUILD ROOT
    export -f tidy_one
    with_progress "clang-tidy" "$log" xargs -P "$(nproc)" -d '\n' -n 1 -a "$BUILD/tidy/batches" \
        bash -c 'IFS=$'\''\t'\'' read -r build folder command count unit <<<"$1" && tidy_one "$build" "$folder" "$command" "$count" "$unit"' tidy || true
    good=$(awk -F '\t' '$1 != "found" { good += $2 } END { print good + 0 }' "$log")
    say "clang-tidy: $(awk -F '\t' '$1 == "known" { known += $2 } END { print known + 0 }' "$log") of $all files are as they were when they were last found clean"
    # a header's finding comes once for each batch that includes it
    sed -n $'s/^found\t[0-9]*\t//p' "$log" | while read -r log; do
        grep -E '(error|warning):' "$log" || tail -n 5 "$log"
    done | LC_ALL=C sort -u >&2
    ((all > 0)) || all=1
    count_checks "clang-tidy" "$good" "$((all - good))"
}

# Names that a file of code brings in and does not use. Read as text, file by file: what clang-tidy has for it looks at no
# file that another includes.
check_unused_names() {
    local files wrong log=$BUILD/logs/unused-names.log
    mapfile -t files < <(our_sources cpp)
    (cd "$ROOT" && awk -f "$ROOT/packaging/unused-names.awk" "${files[@]}") >"$log"
    cat "$log" >&2
    wrong=$(cut -d : -f 1 "$log" | LC_ALL=C sort -u | wc -l)
    count_checks "names that are used" "$((${#files[@]} - wrong))" "$wrong"
}
