// What becomes of mails that are read: the one of a known contact is filed and marked, once; those of a stranger, a private
// one and one that bears the mark already are left alone. The user's guide tells of it. With a folder as argument, it takes
// pictures.
var app = new ActiveXObject("Outlook.Application"), desk = app.Desk, wrong = 0;
var folder = WScript.Arguments.length > 0 ? WScript.Arguments(0) : "";
var session = app.GetNamespace("MAPI");
var root = session.Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell");
var filed = root.Folders("Account Profiles").Folders("Email").Items, before = filed.Count;

eval(new ActiveXObject("Scripting.FileSystemObject")
    .OpenTextFile(WScript.ScriptFullName.replace(/[^\\]*$/, "support\\checks.js")).ReadAll());
function read(mail) {
    mail.UnRead = false;
    mail.Save();
}

var known = "Hannah Weatherby <hannah.weatherby@bellweather.example>";
var mail = deliver(known, "Cold store, second line", "Could we see a plan?");
var stranger = deliver("Eve Stone <eve@stone.example>", "A first question", "Could we see a plan?", "10");
var secret = deliver(known, "Between the two of us", "Could we see a plan?", "11");
secret.Sensitivity = 2;
secret.Save();
var left = deliver(known, "Lunch on Friday", "Could we see a plan?", "12");
left.BillingInformation = "TW Auto Filed";
left.Save();
app.ActiveExplorer().CurrentFolder = session.GetDefaultFolder(6);
same("nothing is filed as it arrives", filed.Count, before);

for (var i = 0, all = [mail, stranger, secret, left]; i < all.length; i++) read(all[i]);
same("one was filed", filed.Count, before + 1);
same("its mark", mail.FlagRequest, "TW-Received eMail Auto Filed");
same("its flag is a completed one", mail.FlagStatus, 1);
same("what counts of it", mail.BillingInformation, "TW Auto Filed");
same("the stranger's", stranger.FlagRequest, "");
same("the private one's", secret.FlagRequest, "");
same("the one that was to be left alone", left.FlagRequest, "");
var note = filed.Item(filed.Count);
same("the note's subject", note.Subject, mail.Subject);
same("its account", note.UserProperties("Account Name").Value, "Bellweather Dairy");
same("its contact", note.UserProperties("Contact Name").Value, "Hannah Weatherby");
same("its type", note.UserProperties("Type").Value, "Email (Received)");
same("the mail is with it", note.Attachments.Count, 1);
desk.Select(mail);
picture("filed-mail@x330");  // the upper part of the main window
mail.Display();
picture("desk");
app.ActiveInspector().Close(1);
note.Display();
picture("filed-note");
app.ActiveInspector().Close(1);

// once is enough, unless the mark is taken away
mail.UnRead = true;
mail.Save();
read(mail);
same("it isn't filed twice", filed.Count, before + 1);
mail.BillingInformation = "";
mail.Save();
same("without its mark it is filed again", filed.Count, before + 2);

// the context menu has the two entries; the second opens the dialog for the selected mail
desk.Select(stranger);
var entries = desk.ContextMenu.Controls, create = entries.Item("Tarnwell Create Note");
same("the entry above it", entries.Item("Tarnwell Quick View").Visible, true);
if (folder !== "") {
    var hand = new ActiveXObject("WScript.Shell");
    hand.Run("Z:\\usr\\bin\\xdotool mousemove 480 165 click 3", 0, false);
    WScript.Sleep(2000);  // the desk may not wait itself: the menu is all that it does while it is open
    picture("context-menu@x350");
    hand.Run("Z:\\usr\\bin\\xdotool key Escape", 0, false);
    WScript.Sleep(1000);
}
desk.Press(create);
waitUntil("the dialog comes up", function() {
    var dialog = desk.Window("Tarnwell Create Note");
    return dialog != null && dialog.Visible && dialog.Control("lstRecipients").Count == 2;
});
var dialog = desk.Window("Tarnwell Create Note");
same("the selected mail's sender", dialog.Control("lstRecipients").Item(1).Text, "eve@stone.example");
dialog.Control("cmdCancel").Click();
waitUntil("the dialog goes", function() { return desk.Window("Tarnwell Create Note") == null; });
same("messages", desk.Messages.Count, 0);
WScript.Quit(wrong ? 1 : 0);
