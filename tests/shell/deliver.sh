# The desk for a person, and mails handed to it: each file has its line, and one that fails keeps no other back.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

expect 1 ./tarnwell deliver "$work/none.eml"
says "no desk is open"

# A display of our own, since a test has none.
mkfifo "$work/number"
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$work/number" >/dev/null 2>&1 &
server=$!
desk=
trap '[[ -z $desk ]] || kill "$desk" 2>/dev/null; wait $desk 2>/dev/null || true; kill "$server"; rm -rf "$work"' EXIT
read -r -t 20 number <"$work/number"
DISPLAY=:$number ./tarnwell run --fresh >"$work/run.out" 2>&1 &
desk=$!
for ((i = 0; i < 1200; i++)); do
    grep -qs "the desk is open" "$work/run.out" && break
    kill -0 "$desk" 2>/dev/null || break
    sleep 0.1
done
grep -q "the desk is open" "$work/run.out" || wrong "the desk did not open: $(<"$work/run.out")"

DISPLAY=:$number expect 1 ./tarnwell run
says "open already"

mail() { printf 'From: Ann <ann@one.example>\r\nTo: pat@two.example\r\nSubject: %s\r\n\r\nHello\r\n' "$2" >"$work/$1"; }
mail plain.eml "Plain"
mail 'two words.eml' "Words"
mail 'größe ✓.eml' "Letters"
mail 'odd:name?\.eml' "Odd"
expect 0 ./tarnwell deliver "$work/plain.eml" "$work/two words.eml" "$work/größe ✓.eml" "$work/odd:name?\\.eml"
prints "$work/plain.eml: delivered: Plain
$work/two words.eml: delivered: Words
$work/größe ✓.eml: delivered: Letters
$work/odd:name?\\.eml: delivered: Odd"

mkdir "$work/folder"
expect 1 ./tarnwell deliver "$work/none.eml" "$work/folder" "$work/plain.eml"
prints "$work/none.eml: not delivered: there is no such file
$work/folder: not delivered: it is not a file
$work/plain.eml: delivered: Plain"

relative=$(realpath --relative-to=. "$work/plain.eml")
expect 0 ./tarnwell deliver "$relative"
prints "$relative: delivered: Plain"
