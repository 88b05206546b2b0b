// An ordinary automation script on the desk: it walks, makes, finds, changes, copies, moves and deletes.
var app = new ActiveXObject("Outlook.Application");
var session = app.GetNamespace("MAPI"), desk = app.Desk, wrong = 0;

function same(what, found, wanted) {
    if (String(found) === String(wanted)) return;
    wrong++;
    WScript.Echo(what + ": " + found + " instead of " + wanted);
}
function number(action) {
    try { action(); } catch (error) { return error.number; }
    return 0;
}
function folderCount(folders) {
    var count = 0;
    for (var all = new Enumerator(folders); !all.atEnd(); all.moveNext()) count += 1 + folderCount(all.item().Folders);
    return count;
}

same("folders", folderCount(session.Folders) > 20, true);
same("default member", String(session.GetDefaultFolder(6)), "Inbox");
same("by name", session.Folders("Mailbox - Tarnwell").Folders("INBOX").Name, "Inbox");

var contact = app.CreateItem(2);
same("unsaved", contact.EntryID, "");
contact.FullName = "Ann van Lee";
contact.Email1Address = "ann@one.example";
contact.Save();
same("file as", contact.FileAs, "Lee, Ann van");
same("found", session.GetDefaultFolder(10).Items.Find("[Email1Address] = 'ANN@one.example'").FullName, "Ann van Lee");
same("by id", session.GetItemFromID(contact.EntryID).Subject, "Ann van Lee");

var appointment = app.CreateItem(1);
appointment.Start = "2026-12-01 10:00";
appointment.Duration = 45;
appointment.Save();
same("end", desk.Text(appointment, "End"), "2026-12-01 10:45:00");
var moved = appointment.Copy().Move(session.GetDefaultFolder(3));
same("moved", moved.Parent.Name, "Deleted Items");
moved.Delete();
same("gone", session.GetDefaultFolder(3).Items.Count, 0);

var task = app.CreateItem(3);
task.Subject = "call";
task.MarkComplete();
same("done", task.PercentComplete, 100);
var note = app.CreateItem(5);
note.Body = "first\r\nsecond";
same("note", note.Subject, "first");
var post = session.GetDefaultFolder(6).Items.Add("IPM.Post.Note");
same("form", post.UserProperties.Find("ContactID").Value, "");
same("no such property", post.UserProperties.Find("Nothing") === null, true);
post.UserProperties.Add("Mine", 1, false).Value = "x";
same("property", post.UserProperties("Mine"), "x");
post.Attachments.Add(contact, undefined, 1);
same("attached", post.Attachments(1).DisplayName, "Ann van Lee");
post.Post();
same("opened", post.Attachments.Item(1).EmbeddedItem.Email1Address, "ann@one.example");

same("unknown field", number(function () { session.GetDefaultFolder(6).Items.Find("[Nonsense] = 1"); }), -2147024809);
same("unbalanced", number(function () { session.GetDefaultFolder(6).Items.Find("[Subject] = 'x"); }), -2147024809);
same("no such folder", number(function () { session.GetDefaultFolder(6).Folders("Nowhere"); }), -2147221233);
same("no argument", number(function () { session.GetDefaultFolder(); }), -2147352562);
same("no member", number(function () { app.Nonsense(); }), -2146827850);
contact.Delete();
var description = "";
try { contact.FullName; } catch (error) { description = error.description; }
same("deleted", description, "The item has been moved or deleted.");

desk.Options("InstantSearch") = true;
same("option", desk.Options("InstantSearch"), true);
same("held", desk.Live("MailItem"), 0);
app.Quit();
app = new ActiveXObject("Outlook.Application");
same("the next desk", app.GetNamespace("MAPI").GetDefaultFolder(6).Items.Count, 1);
WScript.Quit(wrong ? 1 : 0);
