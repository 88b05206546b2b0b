// A mail of somebody whom the database does not know is selected while Quick View is on: the user is asked, and gets a
// contact and a note. The mail itself bears no mark, so it is filed once more when it is read. The user's guide tells of
// it. With a folder as argument, it takes pictures.
var app = new ActiveXObject("Outlook.Application"), desk = app.Desk, wrong = 0;
var folder = WScript.Arguments.length > 0 ? WScript.Arguments(0) : "";
var session = app.GetNamespace("MAPI");
var root = session.Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell");
var profiles = root.Folders("Account Profiles");
var contacts = profiles.Folders("Account Contacts").Items, contactsBefore = contacts.Count;
var filed = profiles.Folders("Email").Items, filedBefore = filed.Count;
function option(text) {
    new ActiveXObject("WScript.Shell").RegWrite(
        "HKCU\\Software\\Microsoft\\Office\\9.0\\Outlook\\Options\\Tarnwell\\EnableQuickView", text);
}

eval(new ActiveXObject("Scripting.FileSystemObject")
    .OpenTextFile(WScript.ScriptFullName.replace(/[^\\]*$/, "support\\checks.js")).ReadAll());
var question = "Tarnwell Account/Contact eve@stone.example NOT FOUND!\rWould you like to Create an Account/Contact";
var search = "Would you like to search for an Account Name? ";

app.ActiveExplorer().CurrentFolder = session.GetDefaultFolder(6);
var mail = deliver("Eve Stone <eve@stone.example>", "A first question", "Do you deliver to the coast?");

// For a picture the question has to stand for a moment, so it must come from nothing that the script waits for; then it is
// answered by a key.
if (folder === "") {
    option("1");
    desk.Answer("Tarnwell", " NOT FOUND!", 6);
    desk.Answer("Tarnwell", search, 7);
    desk.Select(mail);
} else {
    option("0");
    desk.Answer("Tarnwell", search, 7);
    desk.Select(mail);
    desk.Press(desk.ContextMenu.Controls.Item("Tarnwell Quick View"));
    WScript.Sleep(4000);
    same("the question stands", desk.Messages.Count, 1);
    picture("stranger-question");
    desk.Window("Tarnwell").Key(13);
}
waitUntil("a contact is made", function() { return contacts.Count == contactsBefore + 1; });
waitUntil("its note is made", function() { return filed.Count == filedBefore + 1; });
same("what was asked first", desk.Messages.Item(1).Text.replace("\n", "\r").replace("\r\r", "\r"), question);
same("what was asked then", desk.Messages.Item(2).Text, search);
var contact = contacts.Item(contacts.Count), note = filed.Item(filed.Count);
same("its name", contact.FullName, "Eve Stone");
same("its address", contact.Email1Address, "eve@stone.example");
same("its company, of the address", contact.CompanyName, "stone.example");
same("its web page", contact.WebPage, "www.stone.example");
same("its account", contact.UserProperties("AccountID").Value, "");
waitUntil("it is opened", function() { return app.Inspectors.Count == 1; });
same("by its window", app.ActiveInspector().CurrentItem.EntryID, contact.EntryID);
same("the note's contact", note.UserProperties("Contact Name").Value, "Eve Stone");
same("Quick View stays closed", desk.Window("TW Quick View") == null || !desk.Window("TW Quick View").Visible, true);
picture("stranger-contact");
app.ActiveInspector().Close(1);

same("the mail has no mark", mail.FlagRequest + mail.BillingInformation, "");
mail.UnRead = false;
mail.Save();
same("so it is filed when it is read", filed.Count, filedBefore + 2);
same("and bears its mark then", mail.FlagRequest, "TW-Received eMail Auto Filed");
WScript.Quit(wrong ? 1 : 0);
