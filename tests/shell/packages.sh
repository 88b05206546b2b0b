# The installer for 64-bit Outlook, in a Wine prefix of its own: refused where it does not fit, it replaces an earlier version,
# writes what the libraries would register themselves, is repaired, files a mail in the desk, and leaves nothing behind.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"
parts say install build wine script package

lock "$BUILD/package-tests.lock" "another test of the packages runs; waiting for it"
env -u TARNWELL_PREPARED ./tarnwell package
version=$(project_version)
earlier=${version%.*}.$((${version##*.} - 1))
make_package x64 "$earlier" "$work"
packages="$work/Päckchen von heute"
mkdir "$packages"
cp "$work/TarnwellNote-$earlier-x64.msi" build/packages/*.msi "$packages/"
package() { windows_path "$packages/TarnwellNote-$1.msi"; }

# The prefix as Wine made it, with the desk in it, which is a 64-bit host, and neither the add-in nor the family. What the installer keeps for itself
# is there from the beginning, and so is the folder in which the user wants to have the add-in.
start_display
use_prefix packages
cp "$WINEPREFIX"/pristine/*.reg "$WINEPREFIX/"
place='C:\Büro & Söhne\Tarnwell Ablage'
target="$WINEPREFIX/drive_c/Büro & Söhne/Tarnwell Ablage"
rm -rf "${target%/*}" "$WINEPREFIX"/drive_c/windows/Installer "$WINEPREFIX"/drive_c/users/*/AppData/Local/Programs
mkdir -p "${target%/*}" "$WINEPREFIX/drive_c/windows/Installer"
folder=$BUILD/packages-test
rm -rf "$folder"
mkdir -p "$folder"/{program,state}
at_end "rm -rf '$folder'"
cp build/x64/bin/{desk,DocumentViewer}.exe "$folder/program/"
copy_database sample "$folder/database"
installer='Software\Microsoft\Windows\CurrentVersion\Installer'
user=$installer'\UserData\S-1-5-21-0-0-0-1000'
set_up_desk "$folder"
register_desk "$folder/program"
{
    document_rows "$folder/program"
    crash_rows
    for key in "HKEY_LOCAL_MACHINE\\$installer\\UpgradeCodes" "HKEY_LOCAL_MACHINE\\$user\\Components" "HKEY_LOCAL_MACHINE\\$user\\Products" \
        "HKEY_CURRENT_USER\\Software\\Microsoft\\Installer\\"{Features,Products,UpgradeCodes}; do row "$key"; done
} | import_rows "$folder/desk.reg"
printf '1;\n' >"$work/nothing.js" # Wine's script host enters itself when it runs first
in_wine 60 cscript.exe //nologo "$(windows_path "$work/nothing.js")"

# what_is_there: every key and value of the registry, and every file. Wine notes anew at each start what the screen is.
what_is_there() {
    stop_wine # writes the registry to its files
    (
        cd "$WINEPREFIX"
        awk '/^\[/ { sub(/ [0-9]+$/, ""); key = $0; print FILENAME key; next }
             /^[@" ]/ { print FILENAME key $0 }' system.reg user.reg | grep -vE 'DriverDateData|\{4D36E96[8E]-E325'
        find drive_c -not -path '*/Temp/*' -not -path '*/temp/*'
    ) | LC_ALL=C sort
}
same() { # WHAT BEFORE AFTER
    [[ $2 == "$3" ]] || wrong "$1: $(diff <(printf '%s\n' "$2") <(printf '%s\n' "$3") | grep '^[<>]' | head -n 40)"
}
added() { LC_ALL=C comm -13 <(printf '%s\n' "$1") <(printf '%s\n' "$2"); }

# msi CODE ARGUMENT...: the system's installer without any question, which must end with this code. What it says is in $log.
msi() {
    local wanted=$1 code=0
    shift
    (unlocked timeout --kill-after=5 120 "$wine_loader" msiexec.exe "$@" /qn /l*v "$(windows_path "$work/msi.log")") \
        >/dev/null 2>&1 </dev/null || code=$?
    log=$(tr -d '\0\r' <"$work/msi.log")
    ((code == wanted)) || wrong "msiexec $* ended with $code, not with $wanted: $(tail -n 20 <<<"$log")"
}
# refused PACKAGE SENTENCE: a condition stops the package before anything is written. Wine's installer keeps the sentence to itself
# when it asks no questions, so that is read from the package.
refused() {
    msi 67 /i "$(package "$1")" # 1603, of which a shell sees the lower half
    [[ $(grep '^Action start' <<<"$log" | tail -n 1) == *LaunchConditions* ]] || wrong "$1 was refused elsewhere: $log"
    msiinfo export "$packages/TarnwellNote-$1.msi" LaunchCondition | grep -F "$2" >/dev/null || wrong "$1 does not say '$2'"
}
has() { [[ -f $target/$1 ]] || wrong "$1 is not there: $(find "${target%/*}")"; }

hosts='HKEY_LOCAL_MACHINE\Software\Microsoft\Office\'
other='HKEY_LOCAL_MACHINE\Software\Wow6432Node\Microsoft\Office\'
{ row "-${hosts}16.0" && row "${other}15.0\\Outlook" Bitness x86; } | import_rows "$folder/host.reg"
refused "$version-x64" "The Outlook on this machine is the 32-bit one and this package is for the 64-bit one: take TarnwellNote-$version-x86.msi."
register_desk "$folder/program" # of two hosts the newer one counts
before=$(what_is_there)
refused "$version-x86" "The Outlook on this machine is the 64-bit one and this package is for the 32-bit one: take TarnwellNote-$version-x64.msi."
msi 0 /i "$(package "$earlier-x64")" "INSTALLDIR=$place"
has TarnwellNote.dll
[[ ! -e $target/Family ]] || wrong "the stand-ins are there though nobody asked for them"

msi 0 /i "$(package "$version-x64")" ADDLOCAL=AddIn,Family
has Family/TarnwellFamily.dll
refused "$earlier-x64" "A newer version of the Tarnwell Create Note Add-in is installed here"
rm "$target/TarnwellNote.dll"
msi 0 /i "$(package "$version-x64")" REINSTALL=ALL
has TarnwellNote.dll
installed=$(what_is_there)
grep -q "\"DisplayVersion\"=\"$version\"" <<<"$installed" || wrong "version $version is not on the list of programs"
! grep -q "\"DisplayVersion\"=\"$earlier\"" <<<"$installed" || wrong "version $earlier is still on the list of programs"

# The libraries write the same entries: the add-in where they are already, the stand-ins for the whole machine.
libraries=("$place\\TarnwellNote.dll" "$place\\Family\\TarnwellFamily.dll")
in_wine 60 regsvr32.exe /s /u "${libraries[@]}" || wrong "the libraries could not be unregistered"
in_wine 60 regsvr32.exe /s "${libraries[@]}" || wrong "the libraries could not register themselves"
registered=$(what_is_there)
same "the add-in registers itself otherwise" "$installed" "$(grep -vxF "$(added "$installed" "$registered" | grep '^system.reg')" <<<"$registered")"
same "the stand-ins register themselves otherwise" \
    "$(added "$before" "$installed" | sed -n 's/^user\.reg\(.Software..Classes\)/\1/p' | grep -v 'A9939A0C\|Classes..CreateNote')" \
    "$(added "$installed" "$registered" | sed 's/^system\.reg//')"
in_wine 60 regsvr32.exe /s /u "${libraries[1]}" || wrong "the stand-ins could not be unregistered"

# The desk starts, and the add-in files a mail by the stand-ins.
copy_user_classes "$folder/classes.reg"
start_desk "$folder/program" "$folder/state"
cat >"$work/connected.js" <<'JS'
var outlook = new ActiveXObject("Outlook.Application");
WScript.Echo("connected: " + outlook.COMAddIns.Item("CreateNote.Connect").Connect);
outlook.Quit();
JS
run_script 60 "$folder" docs/first-note.js >"$work/filed"
run_script 60 "$folder" "$work/connected.js" >>"$work/filed"
wait "$desk_pid" || wrong "the desk ended with $?"
grep -q '^note: .*O.Malley' "$work/filed" && grep -qi '^connected: true' "$work/filed" || wrong "no mail was filed: $(<"$work/filed")"

# Removal. The classes that were copied for Wine are not the installer's.
sed -nE 's/^user\.reg\[Software\\\\Classes\\\\((CLSID\\\\)?[^\\]*)\].*/\1/p' <<<"$(added "$before" "$installed")" | sort -u |
    while read -r key; do row "-HKEY_LOCAL_MACHINE\\Software\\Classes\\${key//\\\\/\\}"; done | import_rows "$folder/classes.reg"
msi 0 /x "$(package "$version-x64")"
same "the removal left something, or took too much" "$before" "$(what_is_there)"
