# What the documents point to is there: files and folders in backticks, and the targets of links.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

checked=0
for document in README.md docs/*.md; do
    while read -r path; do
        checked=$((checked + 1))
        [[ -e $path ]] || wrong "$document names $path, which is not there"
    done < <(grep -oE '`(addin|admin|automation|bench|data|desk|docs|family|forms|fuzz|packaging|tests)/[A-Za-z0-9_/.-]*`' "$document" | tr -d '`' | sort -u)
    while read -r path; do
        checked=$((checked + 1))
        [[ -e ${document%/*}/$path || ( $document != */* && -e $path ) ]] || wrong "$document links to $path, which is not there"
    done < <(grep -oE '\]\([^):#]+\)' "$document" | sed 's/^](//; s/)$//' | sort -u)
done
((checked > 50)) || wrong "only $checked names were found"
