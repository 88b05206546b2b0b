# The script in the README runs as it is written there.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

awk '/^```js$/ { inside = 1; next } /^```$/ { inside = 0 } inside' README.md >"$work/readme.js"
cmp -s "$work/readme.js" docs/first-note.js || wrong "docs/first-note.js is not what the README shows"
expect 0 ./tarnwell script "$work/readme.js"
prints 'arrived: Your offer of last week, marked ""
read:    Your offer of last week, marked "TW-Received eMail Auto Filed"
note:    O'\''Malley'\''s Bakehouse / Siobhán O'\''Brien, Email (Received), of 2026-03-02 09:15:00
with it: Your offer of last week'
