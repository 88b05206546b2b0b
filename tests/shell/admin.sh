# TarnwellAdmin.exe beside the real desk: it makes a database where there is none, in which the add-in finds all well, tells what
# is not, and its examples in the guide are what it prints.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"
parts say install build wine script
folder=$BUILD/${TARNWELL_PLACE:-script}
place='Public Folders\All Public Folders\Tarnwell'

lock "$folder.lock" "a script runs; waiting for it"
start_display
use_prefix "${folder##*/}"
prepare_desk "$folder" empty
admin=$(windows_path "$BUILD/x64/bin/TarnwellAdmin.exe")
run_admin() (unlocked timeout --kill-after=5 60 "$wine_loader" "$admin" "$@")
# admin CODE ARGUMENT...: runs the program, which must end with this code. What it prints is in $out, what it says in $err.
admin() {
    local wanted=$1
    shift
    expect "$wanted" run_admin "$@"
    out=${out//$'\r'/} err=${err//$'\r'/}
}
# example COMMAND: what the guide says that a command prints.
example() {
    awk -v call="    $1" '$0 == call { on = 1; next } on && /^    / { print substr($0, 5); next } on && NF { exit }' docs/administration.md
}

admin 2 sing
one_sentence
start_desk "$folder/program" "$folder/state"
script away.js <<'JS'
new ActiveXObject("Outlook.Application").GetNamespace("MAPI").Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell").Delete();
JS
run_script 60 "$folder" "$script"
admin 0 database "$place"
[[ $out == *"26 things were made." ]] || wrong "the database was not made: $out"
admin 0 database "$place"
prints "$(example "TarnwellAdmin database \"$place\"" | tail -n 1)"
admin 0 check
installed='C:\Users\Pat\AppData\Local\Programs\Tarnwell'
prints "$(example 'TarnwellAdmin check' | sed "s|${installed//\\/\\\\}|$(windows_path "$folder/program" | sed 's/[\\&|]/\\&/g')|")"
admin 0 probe
[[ $(tail -n 1 <<<"$out") == "$(example 'TarnwellAdmin probe')" ]] || wrong "the host does not answer as is believed: $out"

row 'HKEY_CURRENT_USER\Software\Microsoft\Office\Outlook\Addins\CreateNote.Connect' LoadBehavior 2 dword | import_rows "$folder/off.reg"
admin 1 check
[[ $out == *'WRONG    LoadBehavior: 2, the host or the user has switched it off'*'1 line of 20 is not well.' ]] || wrong "that is not told: $out"
script end.js <<'JS'
new ActiveXObject("Outlook.Application").Quit();
JS
run_script 60 "$folder" "$script"
stop_wine
rm -rf "$folder"
