// The add-in's published operations, asked by name from another process, with good calls and bad ones.
var app = new ActiveXObject("Outlook.Application");
var addin = app.COMAddIns.Item("CreateNote.Connect").Object, wrong = 0;
var user = -2147483647; // HKEY_CURRENT_USER

function same(what, found, wanted) {
    if (found === wanted) return;
    wrong++;
    WScript.Echo(what + ": " + found + " instead of " + wanted);
}
function number(action) {
    try { action(); } catch (error) { return error.number; }
    return 0;
}

same("file", addin.FileExists("C:\\windows\\win.ini"), true);
same("folder", addin.FileExists("C:\\windows\\"), false);
same("no name", addin.FileExists(""), false);
same("written", addin.SetKeyValue(user, "\\Software\\TarnwellTest", "Text", "a b", 1), true);
same("read", addin.GetKeyValueEx(user, "Software\\TarnwellTest", "Text"), "a b");
same("number", addin.SetKeyValue(user, "Software\\TarnwellTest", "Number", 7, 4), true);
same("read number", addin.GetKeyValueEx(user, "Software\\TarnwellTest", "Number"), 7);
same("no key", addin.SetKeyValue(user, "", "Text", "a", 1), false);
same("missing", addin.GetKeyValueEx(user, "Software\\TarnwellTest", "Nothing"), undefined);
same("flag", addin.GlobalCalendar, false);
same("too few", number(function () { addin.FileExists(); }), -2147352562);
same("too many", number(function () { addin.FileExists("a", "b"); }), -2147352562);
same("wrong type", number(function () { addin.GetKeyValueEx("abc", "b", "c"); }), -2147352571);
same("unknown", number(function () { addin.Nonsense(); }), -2146827850);
same("nothing as item", number(function () { addin.AutomaticCreateNote(null); }), 0);

app.Desk.Answer("Choose Tarnwell Database", "default database?", 7);
addin.FindFolder();
same("offered", app.Desk.Messages.Count, 1);
same("style", app.Desk.Messages.Item(1).Style, 3);
same("answer", app.Desk.Messages.Item(1).Answer, 7);
WScript.Quit(wrong ? 1 : 0);
