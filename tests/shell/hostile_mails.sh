# Mails that are made to hurt their reader: each has its answer in a few seconds, the desk lives, and its next mail is
# read.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

reader=$PWD/build/native/bin/tarnwell-mail
# repeated TEXT THOUSANDS: the text as often.
repeated() {
    local block i
    printf -v block "%.0s${1//%/%%}" {1..1000}
    for ((i = 0; i < $2; i++)); do printf '%s' "$block"; done
}
head='From: Ann <ann@one.example>\r\nSubject: x\r\n'
parts='Content-Type: multipart/mixed; boundary=x\r\n\r\n--x\r\n'

{ printf '%bTo: ' "$head" && repeated g: 50 && printf '\r\n\r\nHi\r\n'; } >"$work/groups.eml"
{ printf '%b%b\r\n' "$head" "$parts" && repeated a 2000 && printf '\r\n' &&
    repeated $'--x\r\nContent-ID: <i>\r\nContent-Type: image/png\r\n\r\nx\r\n' 5 && printf -- '--x--\r\n'; } >"$work/pictures.eml"
{ printf '%b%b\r\n' "$head" "$parts" && repeated $'--x\r\n\r\n' 2900 && printf -- '--x--\r\n'; } >"$work/parts.eml"
{ printf '%bContent-Type: text/html\r\n\r\n' "$head" && repeated '<a href="http:x">&' 150; } >"$work/links.eml"
# what no look at the lines sees beforehand, and ends the parser
{ printf "%bContent-Type: multipart/mixed; boundary*=us-ascii''x\r\n\r\n--x\r\nContent-Type: message/rfc822\r\n\r\nTo: " "$head" &&
    repeated g: 200 && printf '\r\n\r\nHi\r\n--x--\r\n'; } >"$work/hidden.eml"
printf '%b\r\nHello\r\n' "$head" >"$work/plain.eml"

expect 1 "$reader" "$work/groups.eml"
prints '{"error":"The mail'\''s field To is no list of addresses: it has more than 1000 colons."}'
expect 1 "$reader" "$work/hidden.eml"
prints '{"error":"The mail can'\''t be read: the parser broke off."}'

script hostile.js <<'JS'
var desk = new ActiveXObject("Outlook.Application").Desk;
var folder = WScript.Arguments(0), longest = 5000;
function deliver(name) {
    var start = new Date(), answer;
    try {
        var mail = desk.Deliver(folder + "\\" + name + ".eml");
        answer = "delivered, " + mail.Attachments.Count + " attachments";
    } catch (error) {
        answer = error.description;
    }
    var time = new Date() - start;
    WScript.Echo(name + ": " + answer + (time > longest ? " after " + time + " ms" : ""));
}
for (var i = 1; i < WScript.Arguments.length; i++) deliver(WScript.Arguments(i));
JS
expect 0 ./tarnwell script "$script" -- "Z:${work//\//\\}" plain groups hidden pictures parts links plain
prints "plain: delivered, 0 attachments
groups: The mail's field To is no list of addresses: it has more than 1000 colons.
hidden: The mail can't be read: the parser broke off.
pictures: delivered, 5000 attachments
parts: The mail has more than 10000 parts.
links: delivered, 0 attachments
plain: delivered, 0 attachments"

# A reader that is ended from outside while it serves is noticed, and another one started.
script ended.js <<'JS'
var desk = new ActiveXObject("Outlook.Application").Desk;
var files = new ActiveXObject("Scripting.FileSystemObject");
var folder = WScript.Arguments(0);
WScript.Echo(desk.Deliver(folder + "\\plain.eml").Subject);
files.CreateTextFile(folder + "\\end", true).Close();
for (var i = 0; i < 100 && !files.FileExists(folder + "\\ended"); i++) desk.Pump(50);
var start = new Date();
WScript.Echo(desk.Deliver(folder + "\\plain.eml").Subject);
WScript.Echo(new Date() - start < 5000 ? "soon" : "late");
JS
(
    for ((i = 0; i < 1200; i++)); do
        if [[ -f $work/end ]]; then
            for process in /proc/[0-9]*; do
                [[ $(readlink "$process/exe") == "$reader" ]] 2>/dev/null || continue
                tr '\0' '\n' <"$process/cmdline" 2>/dev/null | grep -F "$work" >/dev/null && kill -KILL "${process##*/}"
            done
            touch "$work/ended"
            break
        fi
        sleep 0.1
    done
) &
expect 0 ./tarnwell script "$script" -- "Z:${work//\//\\}"
wait
prints "x
x
soon"
