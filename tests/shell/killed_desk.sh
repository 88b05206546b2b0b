# The desk is killed while mails are filed: every note that was posted is there, the database opens, and filing goes on.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

script files.js <<'JS'
var app = new ActiveXObject("Outlook.Application");
var files = new ActiveXObject("Scripting.FileSystemObject");
var path = files.GetSpecialFolder(2).Path + "\\filed.eml";
for (var i = 1; i <= 500; i++) {
    var file = files.CreateTextFile(path, true);
    file.WriteLine("From: Siobhan <siobhan.o'brien@omalleys.example>\r\nTo: Pat <pat@tarnwell.example>\r\n" +
                   "Date: Mon, 02 Mar 2026 09:15:00 +0000\r\nSubject: killed " + i + "\r\n\r\nText");
    file.Close();
    var mail = app.Desk.Deliver(path);
    mail.UnRead = false;
    mail.Save();
    if (mail.BillingInformation == "TW Auto Filed") WScript.Echo("filed " + i);
}
JS
files=$script
script looks.js <<'JS'
var app = new ActiveXObject("Outlook.Application");
var root = app.GetNamespace("MAPI").Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell");
var notes = root.Folders("Account Profiles").Folders("Email").Items;
var last = Number(WScript.Arguments(0)), lost = [], twice = [];
for (var i = 1; i <= last + 1; i++) {
    var note = notes.Find("[Subject] = 'killed " + i + "'");
    if (!note && i <= last) lost.push(i);
    if (note && notes.FindNext()) twice.push(i);
    if (note && note.Attachments.Count != 1) lost.push(i);
}
var inbox = app.GetNamespace("MAPI").GetDefaultFolder(6).Items;
var mail = inbox.Add("IPM.Note");
mail = inbox.Item(1);
mail.BillingInformation = "";
mail.Save();
WScript.Echo("lost: " + lost.join(",") + " twice: " + twice.join(",") + " again: " + mail.BillingInformation);
JS
looks=$script

own_desk=${PWD//\//\\}'\build\'${TARNWELL_PLACE:-script}'\program\desk.exe' # of this tree, and of no other
desk_process() {
    local file
    for file in /proc/[0-9]*/cmdline; do
        if grep -qsF "$own_desk" "$file"; then
            file=${file#/proc/}
            echo "${file%/cmdline}"
        fi
    done
}

for wanted in 3 17; do
    : >"$work/out" # the runner makes it a moment later
    ./tarnwell script "$files" --keep >"$work/out" 2>"$work/err" &
    runner=$!
    for ((i = 0; i < 1200; i++)); do
        (($(grep -c filed "$work/out") < wanted)) || break
        kill -0 "$runner" 2>/dev/null || break
        sleep 0.05
    done
    # shellcheck disable=SC2046 # several words are several processes
    kill -9 $(desk_process) || wrong "no desk ran: $(<"$work/err")"
    if wait "$runner"; then wrong "the script did not notice that the desk had died"; fi
    kept=$(sed -n 's/^.*the working files are kept in //p' "$work/err")
    filed=$(grep -c filed "$work/out")
    ((filed >= wanted && filed < 500)) || wrong "$filed mails were filed"
    expect 0 ./tarnwell script "$looks" --database "$kept/database" -- "$filed"
    prints "lost:  twice:  again: TW Auto Filed"
    rm -rf "${kept%/script}"
done
