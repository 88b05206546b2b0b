# shellcheck shell=bash
# `./tarnwell package`: the installers and the zip, in build/packages.

package_kinds=(x64 x86)

# package_targets: what has to be built, by the programs among the rows of what is packed.
package_targets() {
    node "$ROOT/packaging/msi/make.js" files x64 | sed -nE 's,^(.*/)?([^/]+)\.[a-z]+\t.*\tprogram$,\2,p'
}

# project_version: the one number, from the place where it stands.
project_version() { sed -nE 's/^project\(TarnwellNote VERSION ([0-9.]+).*/\1/p' "$ROOT/CMakeLists.txt"; }

# package_time: the time that everything packed bears: the commit's, so that two builds of it are the same byte for byte.
package_time() {
    local time=${SOURCE_DATE_EPOCH:-}
    [[ -n $time ]] || time=$(git -C "$ROOT" log -1 --format=%ct 2>/dev/null) || time=946684800 # no commit is known: 2000
    printf '%s\n' "$time"
}

# sign FILE: hands a file to the user's own command, if there is one.
sign() {
    [[ -n ${TARNWELL_SIGN:-} ]] || return 0
    (unlocked bash -c "$TARNWELL_SIGN \"\$1\"" sign "$1") >>"$BUILD/logs/sign.log" 2>&1 </dev/null || {
        show_tail "$BUILD/logs/sign.log"
        fail "the command in TARNWELL_SIGN could not sign ${1##*/}"
    }
}

# make_package KIND VERSION FOLDER: FOLDER/KIND with the files as they will be installed, and the installer beside it.
make_package() {
    local kind=$1 version=$2 folder=$3 stage=$3/$1 parts=$3/$1.parts file=$3/TarnwellNote-$2-$1.msi
    local place source sort time statements programs=() log=$BUILD/logs/package-$1.log
    time=$(package_time)
    rm -rf "$stage" "$parts" "$file"
    mkdir -p "$stage" "$parts"
    while IFS=$'\t' read -r place source sort; do
        [[ -f $ROOT/$source ]] || fail "$source is not there; the build is not complete"
        install -D -m 644 "$ROOT/$source" "$stage/$place"
        [[ $sort == file ]] || programs+=("$stage/$place")
    done < <(node "$ROOT/packaging/msi/make.js" files "$kind")
    # what identifies the package comes of the files as they were built, with signatures or without
    node "$ROOT/packaging/msi/make.js" sources "$kind" "$version" "$stage" "$time" "$parts" ||
        fail "the installer's sources could not be made"
    for place in "${programs[@]}"; do sign "$place"; done
    find "$stage" -exec touch -d "@$time" {} +
    mapfile -t statements <"$parts/statements.sql"
    {
        (cd "$stage" && wixl --arch "$kind" --includedir "$parts" --output "$file" "$ROOT/packaging/msi/product.wxs") &&
            msibuild "$file" -q "${statements[@]}" && msibuild "$file" -i "$parts/_SummaryInformation.idt"
    } >"$log" 2>&1 || {
        show_tail "$log"
        fail "the installer ${file##*/} could not be made"
    }
    rm -r "$parts"
    sign "$file"
}

# make_policy VERSION FOLDER: the group policy template with all settings.
make_policy() {
    node "$ROOT/packaging/policy/make.js" policy "$1" "$2" || fail "the group policy template could not be made"
    find "$2" -exec touch -d "@$(package_time)" {} +
}

# make_zip FOLDER FILE NAME...: what is in these folders of a folder, in the order of its names, with the files' times alone.
make_zip() {
    local folder=$1 file=$2
    shift 2
    rm -f "$file"
    (cd "$folder" && find "$@" -type f | LC_ALL=C sort | TZ=UTC zip -X -q "$file" -@) >"$BUILD/logs/zip.log" 2>&1 || {
        show_tail "$BUILD/logs/zip.log"
        fail "${file##*/} could not be made"
    }
}

# All is made aside, and takes the place of what was there when it is whole.
package_command() {
    (($# == 0)) || fail "'package' takes no arguments" 2
    local kind version folder=$BUILD/packages work=$BUILD/packages.new
    prepare package
    lock "$BUILD/package.lock" "another ./tarnwell packs; waiting for it"
    version=$(project_version)
    rm -rf "$work"
    mkdir -p "$work"
    at_end "rm -rf '$work'"
    : >"$BUILD/logs/sign.log"
    for kind in "${package_kinds[@]}"; do make_package "$kind" "$version" "$work"; done
    make_policy "$version" "$work/policy"
    make_zip "$work" "$work/TarnwellNote-$version.zip" "${package_kinds[@]}" policy
    for kind in "${package_kinds[@]}" policy; do rm -r "${work:?}/$kind"; done
    rm -rf "$folder"
    mv "$work" "$folder"
    unlock
    for kind in "$folder"/*; do say "made: ${kind#"$ROOT"/}"; done
}
