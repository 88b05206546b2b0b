# A script's trace is appended to the file that it names, and tells what the guide shows.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

script stranger.js <<'JS'
var outlook = new ActiveXObject("Outlook.Application");
var files = new ActiveXObject("Scripting.FileSystemObject");
var path = files.GetSpecialFolder(2).Path + "\\stranger.eml";
var file = files.CreateTextFile(path, true);
file.Write("From: Zoe Quill <zoe@quill.example>\r\nTo: Pat Example <pat@tarnwell.example>\r\nSubject: Hello\r\n\r\nHello\r\n");
file.Close();
var mail = outlook.Desk.Deliver(path);
mail.UnRead = false;
mail.Save();
WScript.Echo("read");
JS
trace="$work/a träce.txt"
echo before >"$trace"
expect 0 ./tarnwell script "$script" --trace "$trace"
prints read
[[ $(head -n 1 "$trace") == before ]] || wrong "the file was not appended to"
! grep -qiE 'zoe|quill|hello|pat@' "$trace" || wrong "the trace names somebody: $(<"$trace")"

without_numbers() { sed -E 's/[0-9]+/0/g'; }
shown=$(sed -n '/^<!-- a story -->$/,/^```$/p' docs/administration.md | sed '1,/^```text$/d; /^```$/d' | without_numbers)
told=$(awk '/^[^ ]/ { story = "" } { story = story $0 "\n" } /^    not filed: no contact/ { printf "%s", story }' "$trace" | without_numbers)
[[ -n $shown && $told == "$shown" ]] || wrong "the guide shows another story: $(diff <(echo "$shown") <(echo "$told"))"
