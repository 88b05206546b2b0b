# A floor's sources see the headers of what it stands on, and no others: an include that runs upwards does not compile.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

cmake -DFILE=build/native/compile_commands.json -DOUTPUT="$work/commands" -P packaging/compile-commands.cmake

# compiles CODE SOURCE HEADER: whether the source compiles with the header included before it ends with this code.
compiles() {
    local folder file command
    IFS=$'\t' read -r folder file command < <(grep -F $'\t'"$PWD/$2"$'\t' "$work/commands") || wrong "nothing compiles $2"
    printf '#include "%s"\n' "$3" >"$work/above.h"
    command=${command/ -o * -c / -fsyntax-only -include "$work/above.h" }
    expect "$1" bash -c "cd '$folder' && ${command#*ccache }"
    [[ $1 == 0 ]] || says "$3: No such file"
}

compiles 0 addin/records/stamp.cpp addin/ground/session.h
while read -r source header; do
    [[ -f $source && -f $header ]] || wrong "$source or $header is not there"
    compiles 1 "$source" "$header"
done <<'UPWARDS'
automation/object.cpp forms/view.h
forms/form.cpp addin/host/desktop.h
addin/ground/presence.cpp addin/records/stamp.h
addin/records/stamp.cpp addin/filing/received_mail.h
addin/filing/received_mail.cpp addin/createnote/dlg_send.h
addin/commands/buttons.cpp addin/connect/connect.h
desk/base/desk.cpp desk/outlook/item.h
desk/outlook/item.cpp desk/surface/surface.h
UPWARDS
