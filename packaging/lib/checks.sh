# shellcheck shell=bash
# The checks of `./tarnwell test` that run nothing: formatting and Clang's checks.

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
