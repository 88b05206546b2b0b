# shellcheck shell=bash
# `./tarnwell pictures`: the pictures of docs/, of the real windows.

# picture_scripts: the scripts that take pictures when they are given a folder.
picture_scripts() { grep -lE '^var folder = WScript\.Arguments' "$ROOT"/tests/scripts/*.js | LC_ALL=C sort; }

# take_pictures SCRIPT FOLDER: runs a script on a desk of its own, where a question stands until it is answered.
take_pictures() {
    local unattended=0 folder=$BUILD/script
    prepare_desk "$folder" sample
    start_desk "$folder/program" "$folder/state"
    run_script 120 "$folder" "$1" "$(windows_path "$2")"
    watch_end "$folder"
    stop_wine
    rm -rf "$folder"
    ((script_status == 0)) || fail "${1#"$ROOT"/} has failed, so the pictures stay as they are"
}

# cut_picture FILE FOLDER: to what is to be seen, into a folder. A script writes into the file's name, behind an `@`, the place
# of a window, or the height in which a picture without the empty screen around the windows is enough.
cut_picture() {
    local file=$1 name=${1##*/} cut=(-trim +repage)
    name=${name%.png}
    case $name in
        *@x*) cut+=(-crop "0${name#*@}+0+0") ;;
        *@*) cut=(-crop "${name#*@}") ;;
    esac
    convert "$file" "${cut[@]}" +repage -strip -define png:exclude-chunks=date,time "$2/${name%@*}.png" ||
        fail "the picture '$name' could not be cut"
}

# documented_pictures: what the documents show, as names below docs/pictures.
documented_pictures() {
    grep -ohE '\]\((docs/)?pictures/[^)]+\.png\)' "$ROOT"/README.md "$ROOT"/docs/*.md | sed -E 's,^.*pictures/,,; s,\)$,,' | LC_ALL=C sort -u
}

# The pictures take the place of those that are there when all of them are taken.
pictures_command() {
    (($# == 0)) || fail "'pictures' takes no arguments" 2
    local file raw=$BUILD/pictures.raw new=$BUILD/pictures.new files
    prepare desk
    [[ -n ${TARNWELL_PREPARED:-} ]] || build_preset x64 forms_tests
    lock "$BUILD/script.lock" "a script runs; waiting for it"
    start_display
    use_prefix script
    rm -rf "$raw" "$new"
    mkdir -p "$raw" "$new/windows"
    at_end "rm -rf '$raw' '$new'"
    mapfile -t files < <(picture_scripts)
    for file in "${files[@]}"; do
        say "taking the pictures of ${file##*/}"
        take_pictures "$file" "$raw"
    done
    for file in "$raw"/*.png; do cut_picture "$file" "$new"; done
    say "taking the pictures of single windows"
    (
        TARNWELL_PICTURES=$(windows_path "$new/windows")
        export TARNWELL_PICTURES
        in_wine 120 "$(windows_path "$BUILD/x64/bin/forms_tests.exe")" '--gtest_filter=FormsLayout.*'
    ) || fail "the pictures of single windows could not be taken"
    stop_wine
    mapfile -t files < <(documented_pictures)
    for file in "${files[@]}"; do
        [[ -f $new/$file ]] || fail "nothing takes the picture '$file', which the documents show, so the pictures stay as they are"
    done
    for file in "${files[@]}"; do mv "$new/$file" "$ROOT/docs/pictures/$file"; done
    say "taken: ${#files[@]} pictures, in docs/pictures"
}
