# The table of settings in the guide and the group policy template hold what the code reads and writes, under its key; both are made
# of data/settings.json, and the guide's is up to date.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"
parts say install package
install_packages "${package_check_packages[@]}"

same_lines() { # WHAT ONE OTHER
    [[ -n $2 && $2 == "$3" ]] || wrong "$1: $(diff <(printf '%s\n' "$2") <(printf '%s\n' "$3"))"
}

# What the code has: the names, and which of them it reads or writes outside of the header that holds them.
header=addin/ground/settings.h
constants=$(sed -n '/^namespace setting {/,/^}/s/^.* \([a-z_]*\) = u"\([A-Za-z]*\)";$/\1 \2/p' "$header")
names=$(cut -d ' ' -f 2 <<<"$constants" | LC_ALL=C sort)
written= on_without=
while read -r constant name; do
    uses=$(grep -rhoE "(store\()?setting::$constant\>" addin --include=*.cpp) || wrong "nothing uses $name"
    [[ $uses != *store\(* ]] || written+=$name$'\n'
    ! grep -rqF ".enabled = setting::$constant," addin || on_without+=$name$'\n' # the one kind that is compared with "0"
done <<<"$constants"
keys=$(tr '\n' ' ' <"$header" | grep -oE 'key_name = +u"[^"]+"' | sed 's/.*u"\(.*\)"/\1/; s/\\\\/\\/g' | LC_ALL=C sort)
own_names=$'TraceContent\nTraceFile' own_key='Software\Tarnwell\Note'

# What people read.
make_policy "$(project_version)" "$work/policy"
template=$work/policy/TarnwellNote.admx texts=$work/policy/en-US/TarnwellNote.adml
xmllint --noout "$template" "$texts" || wrong "the template is no XML"
of() { # FILE PATH: the values of attributes, one a line
    xmllint --xpath "$2" "$1" | sed -n 's/^ *[A-Za-z]*="\(.*\)"$/\1/p'
}
any() { printf '//*[local-name()="%s"]' "$1"; }
with() { sed -n 's/.*"name": "\([A-Za-z]*\)".*'"$1"'.*/\1/p' data/settings.json | LC_ALL=C sort; } # FACT: the data's names with it
same_lines "the data write other values than the code" "$(LC_ALL=C sort <<<"${written%$'\n'}")" "$(with '"written": true')"
same_lines "other switches are on without a value" "$(LC_ALL=C sort <<<"${on_without%$'\n'}")" "$(with '"default": "1"')"
same_lines "the guide has other settings than the code" "$names" "$(sed -n '/^## Settings/,/^## /s/^| `\([A-Za-z]*\)` |.*/\1/p' docs/administration.md | LC_ALL=C sort)"
while read -r key; do
    grep -qF "\`HKEY_CURRENT_USER\\$key\`" docs/administration.md || wrong "the guide does not name the key $key"
done <<<"$keys"
same_lines "the policies are of other settings than the code" "$names" "$(of "$template" "//@valueName" | LC_ALL=C sort)"
same_lines "the policies have other keys" "$keys" "$(of "$template" "//@key" | LC_ALL=C sort -u)"
same_lines "other policies have the add-in's own key" "$own_names" \
    "$(of "$template" "$(any policy)[@key=\"$own_key\"]/@name" | LC_ALL=C sort)"
same_lines "a policy has no title" "$names" "$(of "$texts" "$(any string)[string-length(.) > 5]/@id" | grep -vE '_|^TarnwellNote$' | LC_ALL=C sort)"
same_lines "a policy has no sentence" "$names" "$(of "$texts" "$(any string)[contains(., '.')]/@id" | sed -n 's/_Help$//p' | LC_ALL=C sort)"
same_lines "a text has no place to be entered" "$(of "$template" "$(any text)/@id")" "$(of "$texts" "$(any textBox)/@refId")"
missing=$(grep -oE '\$\(string\.[A-Za-z_]+\)' "$template" | sed 's/^.*\.\(.*\))$/\1/' | LC_ALL=C sort -u | LC_ALL=C comm -23 - <(of "$texts" "$(any string)/@id" | LC_ALL=C sort))
[[ -z $missing ]] || wrong "the template names texts that are not there: $missing"
on=$(sed -n 's/.*option_on = u"\(.*\)";/\1/p' "$header")
same_lines "a policy that is enabled writes something else" "$on" \
    "$(xmllint --xpath "$(any enabledValue)/*/text()" "$template" | fold -w 1 | sort -u)"

expect 0 node packaging/policy/make.js guide docs/administration.md
prints "$(<docs/administration.md)"
