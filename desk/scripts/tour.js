// A tour: each mail file given as an argument is delivered to the Inbox and read, as a person would; then a table shows
// what the add-in made of it. Why a mail was left alone is what the add-in's own trace says.
var app = new ActiveXObject("Outlook.Application");
var desk = app.Desk;
var places = notePlaces();
var known = {};
var rows = [];
var reasons = [];
var failures = 0;
var files = new ActiveXObject("Scripting.FileSystemObject");
var traceFile = traceName(), traceSeen = traced().length;

for (var p = 0; p < places.length; p++) newNotes(places[p]);
for (var i = 0; i < WScript.Arguments.length; i++) visit(WScript.Arguments(i));

printTable(["mail", "sender", "contact", "note in", "account", "files", "mark"], rows);
WScript.Echo("");
WScript.Echo(countOf(rows, filed) + " of " + rows.length + " mails were filed as notes, " + reasons.length +
             " were left alone" + (reasons.length ? ":" : "."));
for (var r = 0; r < reasons.length; r++) WScript.Echo("  " + reasons[r]);
WScript.Quit(failures ? 1 : 0);

function visit(path) {
    var name = path.substring(path.lastIndexOf("\\") + 1).replace(/\.eml$/i, "");
    var mail;
    try {
        mail = desk.Deliver(path);
        mail.UnRead = false;
        mail.Save();
    } catch (error) {
        failures++;
        reasons.push(name + ": it could not be delivered: " + (error.description || error.number));
        rows.push([name, "", "", "", "", "", ""]);
        return;
    }
    desk.Pump(20);
    var note = noteMade(), reason = newReason();
    rows.push([name, senderOf(mail), note ? property(note.item, "Contact Name") : "", note ? note.place : "",
               note ? property(note.item, "Account Name") : "", note ? String(note.item.Attachments.Count) : "",
               text(mail, "BillingInformation")]);
    if (!note) reasons.push(name + ": " + (reason || "the trace says nothing of it"));
}

// The last line of the trace that tells why a mail was not filed, if there is one since the last time.
function newReason() {
    var all = traced(), fresh = all.substring(traceSeen), mark = "\n    not filed: ";
    traceSeen = all.length;
    var at = fresh.lastIndexOf(mark);
    if (at < 0) return "";
    at += mark.length;
    return fresh.substring(at, fresh.indexOf("\n", at));
}

function traced() {
    var content = "";
    try {
        var file = files.OpenTextFile(traceFile, 1);
        if (!file.AtEndOfStream) content = file.ReadAll();
        file.Close();
    } catch (error) {
        return "";
    }
    return content.replace(/\r/g, "");
}

function traceName() {
    try {
        return new ActiveXObject("WScript.Shell").RegRead("HKCU\\Software\\Tarnwell\\Note\\TraceFile");
    } catch (error) {
        return "";
    }
}

function filed(row) { return row[3] != ""; }

function countOf(list, test) {
    var count = 0;
    for (var n = 0; n < list.length; n++) if (test(list[n])) count++;
    return count;
}

// The folders that take notes, wherever the database stands among the stores.
function notePlaces() {
    var anchor = findFolder(app.GetNamespace("MAPI").Folders, "Account Profiles", 4);
    var found = [];
    if (!anchor) {
        WScript.Echo("there is no folder 'Account Profiles' in this profile");
        WScript.Quit(1);
    }
    var names = ["Email", "Notes"];
    for (var n = 0; n < names.length; n++) {
        var folder = findFolder(anchor.Folders, names[n], 1);
        if (folder) found.push({name: names[n], items: folder.Items, count: 0});
    }
    return found;
}

function findFolder(folders, name, depth) {
    var count = folders.Count, n, inner;
    for (n = 1; n <= count; n++) if (folders.Item(n).Name == name) return folders.Item(n);
    for (n = 1; n <= count && depth > 1; n++) {
        inner = findFolder(folders.Item(n).Folders, name, depth - 1);
        if (inner) return inner;
    }
    return null;
}

// The notes of a place that have not been seen before; the newest stand last, as a rule.
function newNotes(place) {
    var count = place.items.Count, missing = count - place.count, found = [];
    for (var n = count; n >= 1 && missing > 0; n--) {
        var item = place.items.Item(n), id = item.EntryID;
        if (known[id]) continue;
        known[id] = true;
        missing--;
        found.push(item);
    }
    place.count = count;
    return found;
}

function noteMade() {
    for (var n = 0; n < places.length; n++) {
        var found = newNotes(places[n]);
        if (found.length) return {item: found[0], place: places[n].name};
    }
    return null;
}

function senderOf(mail) { return text(mail, "SenderEmailAddress") || text(mail, "SenderName"); }

function property(item, name) {
    var found = item.UserProperties.Find(name);
    return found ? text(found, "Value") : "";
}

function text(object, member) {
    try {
        return String(desk.Text(object, member));
    } catch (error) {
        return "";
    }
}

function printTable(heads, lines) {
    var widths = [], limits = [32, 38, 20, 7, 24, 5, 14], n, c;
    for (c = 0; c < heads.length; c++) {
        widths[c] = heads[c].length;
        for (n = 0; n < lines.length; n++) widths[c] = Math.max(widths[c], lines[n][c].length);
        widths[c] = Math.min(widths[c], limits[c]);
    }
    WScript.Echo(joined(heads, widths));
    for (n = 0; n < lines.length; n++) WScript.Echo(joined(lines[n], widths));
}

function joined(cells, widths) {
    var line = "";
    for (var c = 0; c < cells.length; c++) {
        var cell = cells[c].replace(/\s+/g, " ");
        if (cell.length > widths[c]) cell = cell.substring(0, widths[c] - 1) + "\u2026";
        while (cell.length < widths[c] && c + 1 < cells.length) cell += " ";
        line += (c ? "  " : "") + cell;
    }
    return line.replace(/ +$/, "");
}
