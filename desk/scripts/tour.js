// A tour: each mail file given as an argument is delivered to the Inbox and read, as a person would; then a table shows
// what the add-in made of it. Only the object model and the desk's own surface are used.
var app = new ActiveXObject("Outlook.Application");
var desk = app.Desk;
var places = notePlaces();
var known = {};
var rows = [];
var reasons = [];
var failures = 0;

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
    var note = noteMade();
    rows.push([name, senderOf(mail), note ? property(note.item, "Contact Name") : "", note ? note.place : "",
               note ? property(note.item, "Account Name") : "", note ? String(note.item.Attachments.Count) : "",
               text(mail, "BillingInformation")]);
    if (!note) reasons.push(name + ": " + reasonFor(mail));
}

// The reasons in the order in which the add-in comes upon them.
function reasonFor(mail) {
    var type = text(mail, "SenderEmailType");
    if (text(mail, "MessageClass") != "IPM.Note") return "it is of another class, " + text(mail, "MessageClass");
    if (text(mail, "Sensitivity") != "0") return "it is marked as private or personal";
    if (text(mail, "To") == "") return "it has no To line";
    if (type != "" && type != "SMTP") {
        return "the sender's address is of type " + type + ", and no contact bears it or the option for it is off";
    }
    return "no contact has the address " + senderOf(mail);
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
