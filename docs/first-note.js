// Delivers a mail from a known contact, reads it, and prints the note that it has become.
var outlook = new ActiveXObject("Outlook.Application");
var session = outlook.GetNamespace("MAPI");
var desk = outlook.Desk;

// a mail as it comes from outside, written to a file
var files = new ActiveXObject("Scripting.FileSystemObject");
var path = files.GetSpecialFolder(2).Path + "\\first-note.eml";
var file = files.CreateTextFile(path, true);
file.WriteLine("From: Siobhan O'Brien <siobhan.o'brien@omalleys.example>");
file.WriteLine("To: Pat Example <pat@tarnwell.example>");
file.WriteLine("Date: Mon, 02 Mar 2026 09:15:00 +0000");
file.WriteLine("Subject: Your offer of last week");
file.WriteLine("");
file.WriteLine("We take it. Please send the papers.");
file.Close();

// it arrives, and nothing happens; the user reads it, and it is filed
var mail = desk.Deliver(path);
WScript.Echo("arrived: " + mail.Subject + ", marked \"" + mail.FlagRequest + "\"");
mail.UnRead = false;
mail.Save();
WScript.Echo("read:    " + mail.Subject + ", marked \"" + mail.FlagRequest + "\"");

var root = session.Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell");
var note = root.Folders("Account Profiles").Folders("Email").Items.Find("[Subject] = 'Your offer of last week'");
WScript.Echo("note:    " + note.UserProperties("Account Name") + " / " + note.UserProperties("Contact Name") +
             ", " + note.UserProperties("Type") + ", of " + desk.Text(note.UserProperties("Activity Date"), "Value"));
WScript.Echo("with it: " + note.Attachments(1).DisplayName);
