// A mail is sent as a person does it, to a contact and a stranger; the status window tells each step, and what is done
// in the middle of it happens there. With a folder as argument, it takes a picture.
var app = new ActiveXObject("Outlook.Application"), desk = app.Desk, wrong = 0;
var folder = WScript.Arguments.length > 0 ? WScript.Arguments(0) : "";
var shell = new ActiveXObject("WScript.Shell");
shell.RegWrite("HKCU\\Software\\Microsoft\\Office\\9.0\\Outlook\\Options\\Tarnwell\\AutoFileSentEmails", "1", "REG_SZ");

eval(new ActiveXObject("Scripting.FileSystemObject")
    .OpenTextFile(WScript.ScriptFullName.replace(/[^\\]*$/, "support\\checks.js")).ReadAll());

// Calls are served while the add-in yields, so what was begun need not be over.
var mail = app.CreateItem(0);
mail.To = "hannah.weatherby@bellweather.example; nobody@elsewhere.example";
mail.Subject = "Delivery dates";
mail.Body = "As agreed.";
mail.Display();
var inspector = mail.GetInspector;
var send = inspector.CommandBars.Item("Standard").Controls.Item("Send");
var marked = app.CreateItem(0);
marked.Subject = "before";
desk.Meanwhile("Searching for ", marked, "Subject", "while it was searched");
desk.Press(send);
pictureAtOnce("sent-mail");  // served while the search gives way
waitUntil("the mail goes out", function() { return app.Inspectors.Count == 0; });
same("what came in between", marked.Subject, "while it was searched");

var name = "hannah.weatherby@bellweather.example", stranger = "nobody@elsewhere.example";
var wanted = ["Checking names...  ", "Checking names - " + name, "Checking names  " + name, "Searching for " + name,
              "Searching for Hannah Weatherby - Saving", "Checking names - " + stranger, "Checking names  " + stranger,
              "Searching for " + stranger, "Searching for " + stranger + " - NOT FOUND"];
same("statuses", desk.Statuses.Count, wanted.length);
for (var i = 1; i <= desk.Statuses.Count; i++) same("status " + i, desk.Statuses.Item(i), wanted[i - 1]);
var sent = app.GetNamespace("MAPI").GetDefaultFolder(5).Items;
same("sent", sent.Count, 1);
same("mark", sent.Item(1).FlagRequest, "TW-Sent Email Auto Filed");
same("status window", desk.Window("Tarnwell"), null);
WScript.Quit(wrong ? 1 : 0);
