// Quick View as a person uses it: it comes up beside the explorer for the selected mail, lists the contact's
// opportunities, takes a mail that is dropped on one of them, and makes a new record. With a folder as argument, it
// takes pictures of itself.
var app = new ActiveXObject("Outlook.Application"), desk = app.Desk, wrong = 0;
var folder = WScript.Arguments.length > 0 ? WScript.Arguments(0) : "";
var root = app.GetNamespace("MAPI").Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell");
var profiles = root.Folders("Account Profiles"), notes = profiles.Folders("Notes").Items;
var opportunities = profiles.Folders("Opportunities").Items;
new ActiveXObject("WScript.Shell").RegWrite(
    "HKCU\\Software\\Microsoft\\Office\\9.0\\Outlook\\Options\\Tarnwell\\EnableQuickView", "1");

eval(new ActiveXObject("Scripting.FileSystemObject")
    .OpenTextFile(WScript.ScriptFullName.replace(/[^\\]*$/, "support\\checks.js")).ReadAll());
function view() { return desk.Window("TW Quick View"); }
function isShown() { return view() != null && view().Visible; }
function control(name) { return view().Control(name); }
function choose(name) {
    var box = control("cmbFolders");
    for (var i = 1; i <= box.Count && box.Item(i) != name; i++) {}
    box.Select(i);
}

// a contact with an opportunity of its own
var chance = opportunities.Item(1), contacts = profiles.Folders("Account Contacts").Items;
var contact = contacts.Find("[ContactID] = '" + chance.UserProperties("ContactID").Value + "'");
app.ActiveExplorer().CurrentFolder = app.GetNamespace("MAPI").GetDefaultFolder(6);
var sender = contact.FullName + " <" + contact.Email1Address + ">";
var mail = deliver(sender, "Cold store, second line", "Could we see a plan?");
desk.Select(mail);
waitUntil("it comes up", isShown);
same("its contact", control("Contactname").Text, contact.FullName);
same("its company", control("CompanyName").Text, contact.CompanyName);
same("it stays on top", view().Topmost, true);
waitUntil("the program that reminds has started", function() { return desk.Programs.Count > 0; });
same("the program that reminds", desk.Programs.Item(desk.Programs.Count).CommandLine,
     "TarnwellUtility.exe Alerts;;AccountID;" + contact.UserProperties("AccountID").Value);
same("nothing is listed yet", control("lstItems").Count, 0);
picture("quick-view");

choose("Opportunities");
waitUntil("its opportunities are listed", function() { return control("lstItems").Count > 0; });
control("lstItems").ColumnClick(2);
control("lstItems").ColumnClick(1);
desk.Pump(100);
var id = control("lstItems").Item(1).SubItems(2), before = notes.Count;
var target = app.GetNamespace("MAPI").GetItemFromID(id);
same("the row's text", control("lstItems").Item(1).Text, target.UserProperties("Name").Value);

// the drop files what is selected in the explorer
control("lstItems").Drop(1);
waitUntil("a note is made", function() { return notes.Count == before + 1; });
picture("quick-view-drop");
waitUntil("the mail is marked", function() { return mail.FlagRequest == "TW User Filed"; });
waitUntil("the caption is the usual one again", isShown);
var note = notes.Item(notes.Count);
same("its subject", note.Subject, "Cold store, second line");
same("it is the opportunity's", note.UserProperties("OppID").Value, target.UserProperties("OppID").Value);
same("the mail is with it", note.Attachments.Count, 1);
same("what was dropped on isn't opened", desk.Displayed.Count, 0);
control("lstItems").DoubleClick();
waitUntil("a double click opens it", function() { return desk.Displayed.Count == 1; });
same("the opportunity", desk.Displayed.Item(1).EntryID, id);
desk.Displayed.Item(1).Close(1);

// a new opportunity, with the mail filed for it
before = notes.Count;
control("cmdAdd").Click();
waitUntil("another note is made", function() { return notes.Count == before + 1; });
waitUntil("two items were shown", function() { return desk.Displayed.Count == 3; });
same("the new one", desk.Displayed.Item(2).MessageClass, "IPM.Post.Opportunity");
same("its contact", desk.Displayed.Item(2).UserProperties("Contact Name").Value, contact.FullName);
desk.Pump(100);

// a private mail only hides the window
var hidden = deliver(sender, "Private", "Could we see a plan?");
hidden.Sensitivity = 2;
hidden.Save();
desk.Select(hidden);
waitUntil("it is hidden", function() { return !isShown(); });
same("messages", desk.Messages.Count, 0);
WScript.Quit(wrong ? 1 : 0);
