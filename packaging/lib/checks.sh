# shellcheck shell=bash
# The checks of `./tarnwell test` that run nothing: formatting and Clang's checks.

# our_sources SUFFIX...: the tree's own files with these endings, relative to the root.
our_sources() {
    local suffix patterns=()
    for suffix in "$@"; do patterns+=(-o -name "*.$suffix"); done
    (cd "$ROOT" && find addin automation bench desk family forms fuzz tests -type f \( "${patterns[@]:1}" \) | LC_ALL=C sort)
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

# tidy_units: what there is to look at, as lines of build, folder, file and command: the native build's files, then those that
# only the Windows build has. Its commands are those of a build that compiles each file by itself.
tidy_units() {
    local build
    with_progress "configuring for clang-tidy" "$BUILD/logs/configure-tidy.log" \
        cmake --preset x64 -S "$ROOT" -B "$BUILD/tidy/x64" -DCMAKE_UNITY_BUILD=OFF || fail "clang-tidy's build could not be configured"
    for build in native tidy/x64; do
        cmake -DFILE="$BUILD/$build/compile_commands.json" -DOUTPUT="$BUILD/tidy/commands" -P "$ROOT/packaging/compile-commands.cmake"
        sed "s,^,$build\t," "$BUILD/tidy/commands"
    done | awk -F '\t' -v root="$ROOT/" '
        index($3, root) == 1 && $3 ~ /\.cpp$/ && $3 !~ /\/(build|node_modules)\// && !seen[$3]++'
}

# tidy_one BUILD FOLDER FILE COMMAND: looks at one file, unless it was found clean before. What it is remembered by is all that
# decides: the text as the compiler sees it, comments and the library's headers included, its command, the configuration and
# the tool. Says clean, known or found, and the file.
tidy_one() {
    local build=$1 folder=$2 file=$3 command=${4#*ccache } extra=() headers hash name=${3#"$ROOT"/}
    command=${command/ -o * -c / -E -P -C }
    if ! hash=$(set -o pipefail && {
        printf '%s\n' "$tidy_tool" "${command//"$ROOT"/}"
        cd "$folder" && bash -c "$command"
    } 2>"$BUILD/tidy/logs/${name//\//-}" | sha256sum | cut -c 1-64); then
        printf 'found\t%s\n' "$name" # what can't be read can't be remembered
        return
    fi
    if [[ -f $tidy_clean/$hash ]]; then
        touch "$tidy_clean/$hash"
        printf 'known\t%s\n' "$name"
        return
    fi
    if [[ $build == tidy/x64 ]]; then # Clang needs to be told where MinGW's library is
        extra=(--extra-arg=--target=x86_64-w64-mingw32)
        for headers in /usr/lib/gcc/x86_64-w64-mingw32/*-posix/include/c++{,/x86_64-w64-mingw32}; do
            extra+=("--extra-arg=-isystem$headers")
        done
    fi
    if (cd "$ROOT" && clang-tidy --quiet -p "$BUILD/$build" "${extra[@]}" "$file") >"$BUILD/tidy/logs/${name//\//-}" 2>&1; then
        : >"$tidy_clean/$hash"
        printf 'clean\t%s\n' "$name"
    else
        printf 'found\t%s\n' "$name"
    fi
}

# Clang's checks, for what has changed since it was last found clean, here or in another clone: what is clean is remembered
# beside the compiler's cache.
check_tidy() {
    local all good name log=$BUILD/logs/tidy.log
    export tidy_clean=${XDG_CACHE_HOME:-$HOME/.cache}/tarnwell/tidy tidy_tool
    tidy_tool=$(clang-tidy --version && cat "$ROOT/.clang-tidy")
    mkdir -p "$tidy_clean" "$BUILD/tidy/logs"
    find "$tidy_clean" -type f -mtime +30 -delete
    tidy_units >"$BUILD/tidy/units"
    all=$(wc -l <"$BUILD/tidy/units")
    export BUILD ROOT
    export -f tidy_one
    with_progress "clang-tidy" "$log" xargs -P "$(nproc)" -d '\n' -n 1 -a "$BUILD/tidy/units" \
        bash -c 'IFS=$'\''\t'\'' read -r build folder file command <<<"$1" && tidy_one "$build" "$folder" "$file" "$command"' tidy || true
    good=$(grep -cE $'^(clean|known)\t' "$log" || true)
    say "clang-tidy: $(grep -c $'^known\t' "$log" || true) of $all files are as they were when they were last found clean"
    # a header's finding comes once for each file that includes it
    sed -n $'s/^found\t//p' "$log" | while read -r name; do
        grep -E '(error|warning):' "$BUILD/tidy/logs/${name//\//-}" || tail -n 5 "$BUILD/tidy/logs/${name//\//-}"
    done | LC_ALL=C sort -u >&2
    ((all > 0)) || all=1
    count_checks "clang-tidy" "$good" "$((all - good))"
}
