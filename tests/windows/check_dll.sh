#!/bin/bash
# Checks a built TarnwellNote.dll from outside: what it exports, what it needs, what it says of itself, how big it is.
#   check_dll.sh FILE
set -euo pipefail

file=$1
exports='DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer'
system='advapi32 comctl32 comdlg32 gdi32 kernel32 msvcrt ole32 oleaut32 shell32 user32 uuid'
most_bytes=1500000
failed=0

fail() {
    echo "$file: $1" >&2
    failed=1
}

[[ -f $file ]] || { echo "$file: not there" >&2; exit 1; }
headers=$(x86_64-w64-mingw32-objdump -p "$file" 2>/dev/null || i686-w64-mingw32-objdump -p "$file")

found=$(sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/s/^\t*\[ *[0-9]*\] \(+base\[[ 0-9]*\] *[0-9a-f]* \)\?//p' <<<"$headers" | sort | xargs)
[[ $found == "$exports" ]] || fail "exports '$found' instead of '$exports'"

for needed in $(sed -n 's/^\tDLL Name: \(.*\)\.dll$/\L\1/Ip' <<<"$headers"); do
    [[ " $system " == *" $needed "* ]] || fail "needs $needed.dll, which is none of the system's"
done

# Nothing in it tells when or where it was built, so two builds are the same.
[[ $(sed -n 's/^Time\/Date[ a-z]*\t*//p' <<<"$headers" | sort -u | xargs) =~ ^(0 )?Thu\ Jan\ 1\ 00:00:00\ 1970$ ]] || fail "tells when it was linked"
! LC_ALL=C grep -qF "$(realpath "$(dirname "$0")/../..")/" "$file" || fail "tells where it was built"

bytes=$(stat -c %s "$file")
((bytes < most_bytes)) || fail "has $bytes bytes, more than $most_bytes"

# The version resource holds its texts as 16-bit units.
said=$(tr -d '\0' <"$file" | LC_ALL=C grep -ao '[[:print:]]\+')
for text in '6.00.2178' 'Tarnwell Create Note Add-in' 'Tarnwell Create Note AddIn Project'; do
    [[ $said == *"$text"* ]] || fail "does not say '$text'"
done

exit $failed
