// options: --instant-search
// Mails and documents are found by the system's search, a document is opened, a message's class is changed by CDO, the
// templates are listed, and a contact is dragged into the shared folder.
var app = new ActiveXObject("Outlook.Application"), desk = app.Desk, session = app.GetNamespace("MAPI"), wrong = 0;

function same(what, found, wanted) {
    if (String(found) === String(wanted)) return;
    wrong++;
    WScript.Echo(what + ": " + found + " instead of " + wanted);
}
function wait_for(what, condition) {
    for (var i = 0; i < 500; i++) {
        if (condition()) return;
        desk.Pump(20);
    }
    same(what, "not within ten seconds", "there");
}

// the search
function search(phrase) {
    var connection = new ActiveXObject("ADODB.Connection"), rows = new ActiveXObject("ADODB.Recordset"), found = [];
    connection.Open("Provider=Search.CollatorDSO;Extended Properties='Application=Windows';");
    rows.Open("SELECT System.FileName,system.subject,System.ItemFolderPathDisplay FROM SYSTEMINDEX WHERE Contains('\"" +
              phrase + "\"')", connection);
    for (; !rows.EOF; rows.MoveNext()) {
        found.push({folder: String(rows.Fields.Item("System.ItemFolderPathDisplay").Value),
                    file: rows.Fields("System.FileName").Value, subject: rows.Fields("system.subject").Value});
    }
    rows.Close();
    connection.Close();
    return found;
}
var mail = session.GetDefaultFolder(6).Items.Add("IPM.Note");
mail.Subject = "Belts for Kestrel Bay Shellfish";
mail.Save();
var found = search("Kestrel Bay Shellfish"), mails = [], files = [];
for (var i = 0; i < found.length; i++) {
    if (found[i].folder.indexOf("/Mailbox - Tarnwell/Inbox") == 0) mails.push(found[i].subject);
    if (found[i].folder.indexOf("\\") >= 0) files.push(found[i]);
}
same("mails", mails.join(), "Belts for Kestrel Bay Shellfish");
same("files", files.length, 1);
same("the file", files[0].file, "Service visits.csv");
desk.Options("InstantSearch") = false;
var failed = "";
try {
    search("x");
} catch (error) {
    failed = (error.number & 0xFFFF) + "";
}
same("without instant search", failed, 3706);

// the shell
new ActiveXObject("Shell.Application").ShellExecute(files[0].file, "", files[0].folder, "open", 1);
wait_for("the opened document", function () { return desk.Opened.Count == 1; });
same("the opened document", desk.Opened.Item(1), files[0].folder + "\\Service visits.csv");

// CDO
var appointment = session.GetDefaultFolder(9).Items.Add("IPM.Appointment");
appointment.Subject = "Visit";
appointment.Save();
var cdo = new ActiveXObject("MAPI.Session");
cdo.Logon("", "", false, false);
var message = cdo.GetMessage(appointment.EntryID, session.GetDefaultFolder(9).StoreID);
message.Type = "IPM.Appointment.TarnwellAppt";
message.Update(true, true);
same("the class of the open object", appointment.MessageClass, "IPM.Appointment");
same("the class", session.GetItemFromID(message.ID).MessageClass, "IPM.Appointment.TarnwellAppt");
cdo.Logoff();

// the list of templates, by the button of a mail's window; a double click opens one
mail.Display();
function template_button() {
    var bars = app.ActiveInspector() && app.ActiveInspector().CommandBars;
    for (var i = 1; bars && i <= bars.Count; i++) {
        var controls = bars.Item(i).Controls;
        for (var j = 1; j <= controls.Count; j++) if (controls.Item(j).Tag == "EmailTemplateButton") return controls.Item(j);
    }
    return null;
}
wait_for("the button", template_button);
desk.Press(template_button());
wait_for("the templates", function () { return desk.Window("Email Templates"); });
var templates = desk.Window("Email Templates").Control("lstTemplates");
same("the templates", templates.Count, 2);
same("the first template", templates.Item(1).Text, "Price list of the spring");
templates.Select(2);
templates.DoubleClick();
wait_for("the template", function () { return app.ActiveInspector().CurrentItem.Subject == "Holiday closing"; });
desk.Window("Email Templates").Close();
wait_for("the end of the list", function () { return !desk.Window("Email Templates"); });

// the drag: the contact is stamped as an account contact, the selection shows its source
var contact = session.GetDefaultFolder(10).Items.Add("IPM.Contact");
contact.FullName = "Ann Leander";
contact.CompanyName = "Northmill";
contact.Save();
desk.Select(contact);
var shared = session.Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell").Folders("Account Profiles")
                 .Folders("Account Contacts");
desk.Drag(shared, true);
wait_for("the copy", function () { return shared.Items.Find("[FullName] = 'Ann Leander'") != null; });
same("the selection", app.ActiveExplorer().Selection.Item(1).FullName, "Ann Leander");

WScript.Quit(wrong ? 1 : 0);
