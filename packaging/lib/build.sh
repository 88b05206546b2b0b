# shellcheck shell=bash
# Builds: one CMake preset after the other, then the databases that the desk starts from.

# build_preset NAME [TARGET...]: configures a preset when it is new or changed, builds it. Ninja finds out what is to do.
build_preset() {
    local preset=$1 folder=$BUILD/$1 stamp=$BUILD/$1/.configured recipe target arguments=()
    shift
    recipe=$(cat "$ROOT/CMakePresets.json" "$ROOT"/packaging/*.cmake | sha256sum)
    if [[ ! -f $folder/build.ninja || ! -f $stamp || $(<"$stamp") != "$recipe" ]]; then
        with_progress "configuring $preset" "$BUILD/logs/configure-$preset.log" \
            cmake --fresh --preset "$preset" -S "$ROOT" || {
            show_tail "$BUILD/logs/configure-$preset.log"
            fail "the build '$preset' could not be configured"
        }
        printf '%s\n' "$recipe" >"$stamp"
    fi
    for target in "$@"; do arguments+=(--target "$target"); done
    with_progress "building $preset" "$BUILD/logs/build-$preset.log" \
        env NINJA_STATUS='[%f of %t] ' cmake --build "$folder" --parallel "$(nproc)" "${arguments[@]}" || {
        show_tail "$BUILD/logs/build-$preset.log"
        fail "the build '$preset' failed"
    }
}

# What the desk needs to run; the tests are left to those who ask for them.
native_tools=(tarnwell-mail tarnwell-database)
desk_programs=(TWstore.exe TarnwellUtility.exe TarnwellUpdate.exe)
desk_targets=(desk DocumentViewer TarnwellNote TarnwellAdmin TarnwellFamily "${desk_programs[@]%.exe}")

# make_databases: build/databases/<name>/ with tarnwell.db and the system folder's file, anew when data or maker changed.
make_databases() {
    local name folder maker=$BUILD/native/bin/tarnwell-database hash log
    hash=$({ find "$ROOT/data" -type f -print0 | sort -z | xargs -0 sha256sum && sha256sum "$maker"; } | sha256sum)
    for name in sample empty; do
        folder=$BUILD/databases/$name
        log=$BUILD/logs/database-$name.log
        [[ ! -f $folder/.made || $(<"$folder/.made") != "$hash" ]] || continue
        rm -rf "$folder"
        mkdir -p "$folder"
        with_progress "making the database '$name'" "$log" \
            "$maker" "$folder/tarnwell.db" --data "$ROOT/data/$name" || {
            show_tail "$log"
            fail "the database '$name' could not be made"
        }
        cp "$ROOT/data/$name/twsystemfolder.ini" "$folder/"
        [[ ! -d $ROOT/data/$name/documents ]] || cp -r "$ROOT/data/$name/documents" "$folder/"
        printf '%s\n' "$hash" >"$folder/.made"
    done
}

# prepare WHAT: everything that a command needs, from a bare machine on. WHAT is desk (to run it), package, all, tests, or quick
# (the native ones alone).
prepare() {
    local preset packages=("${build_packages[@]}" "${wine_packages[@]}")
    [[ -z ${TARNWELL_PREPARED:-} ]] || return 0 # a test run has done it for the commands that it calls
    case $1 in
        package) packages+=("${package_packages[@]}") ;;
        tests) packages+=("${check_packages[@]}" "${fuzz_packages[@]}") ;;
        quick) packages+=("${check_packages[@]}") ;;
    esac
    install_packages "${packages[@]}"
    lock "$BUILD/build.lock" "another ./tarnwell is building; waiting for it"
    install_libraries
    case $1 in
        desk)
            build_preset native "${native_tools[@]}"
            build_preset x64 "${desk_targets[@]}"
            ;;
        package)
            mapfile -t packages < <(package_targets)
            for preset in "${package_kinds[@]}"; do build_preset "$preset" "${packages[@]}"; done
            unlock
            return
            ;;
        quick) build_preset native ;;
        all) for preset in native x64 x86; do build_preset "$preset"; done ;;
        tests)
            build_preset native "${native_tools[@]}"
            for preset in sanitized x64 x86; do build_preset "$preset"; done
            build_preset fuzz fuzzers
            ;;
    esac
    make_databases
    unlock
}

# prepare_programs NATIVE WINDOWS OTHERS: what some tests need, by the programs that run them; OTHERS is not empty if there are
# tests that start the desk from outside.
prepare_programs() {
    local programs
    [[ -z ${TARNWELL_PREPARED:-} ]] || return 0
    install_packages "${build_packages[@]}" "${wine_packages[@]}"
    lock "$BUILD/build.lock" "another ./tarnwell is building; waiting for it"
    install_libraries
    mapfile -t programs < <(printf '%s' "${1:+$1$'\n'}")
    build_preset native "${native_tools[@]}" "${programs[@]}"
    mapfile -t programs < <(printf '%s' "${2:+$2$'\n'}")
    [[ -z $2$3 ]] || build_preset x64 "${desk_targets[@]}" "${programs[@]}"
    make_databases
    unlock
}

build_command() {
    (($# == 0)) || fail "'build' takes no arguments" 2
    prepare all
    say "built: $BUILD/{native,x64,x86}/bin"
}
