// An appointment with a customer, made in Quick View from a mail: it stands in the user's own calendar, and the team sees a
// copy in the shared one, which follows each change that is made in the open window and stays when the appointment is
// deleted. The user's guide tells of it. With a folder as argument, it takes pictures.
var app = new ActiveXObject("Outlook.Application"), desk = app.Desk, wrong = 0;
var folder = WScript.Arguments.length > 0 ? WScript.Arguments(0) : "";
var session = app.GetNamespace("MAPI");
var root = session.Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell");
var shared = root.Folders("Global Calendar"), before = shared.Items.Count;
var own = session.GetDefaultFolder(9), ownBefore = own.Items.Count;
new ActiveXObject("WScript.Shell").RegWrite(
    "HKCU\\Software\\Microsoft\\Office\\9.0\\Outlook\\Options\\Tarnwell\\EnableQuickView", "1");

eval(new ActiveXObject("Scripting.FileSystemObject")
    .OpenTextFile(WScript.ScriptFullName.replace(/[^\\]*$/, "support\\checks.js")).ReadAll());
function view() { return desk.Window("TW Quick View"); }

app.ActiveExplorer().CurrentFolder = session.GetDefaultFolder(6);
var mail = deliver("Hannah Weatherby <hannah.weatherby@bellweather.example>",
                   "Could you visit us?", "Any day next week.");
desk.Select(mail);
waitUntil("Quick View comes up", function() { return view() != null && view().Visible; });
var box = view().Control("cmbFolders");
for (var i = 1; i <= box.Count && box.Item(i) != "My Calendar"; i++) {}
box.Select(i);
view().Control("cmdAdd").Click();
waitUntil("a new appointment opens", function() { return app.Inspectors.Count == 1; });
waitUntil("the mail is marked", function() { return mail.FlagRequest == "TW User Filed"; });
var appointment = app.ActiveInspector().CurrentItem;
same("its class", appointment.MessageClass, "IPM.Appointment.TarnwellAppt");
same("it names the contact and the mail", appointment.Subject.indexOf("Hannah Weatherby, Bellweather Dairy ") == 0 &&
     / Could you visit us\?$/.test(appointment.Subject), true);
same("its contact", appointment.UserProperties("Contact Name").Value, "Hannah Weatherby");
same("it is the user's to save", own.Items.Count, ownBefore);
picture("linked-appointment");

// saved in its window, it is copied; each change replaces the copy
appointment.Save();
waitUntil("the team sees it", function() { return shared.Items.Count == before + 1; });
appointment.Subject = "Visit at Bellweather";
appointment.Save();
waitUntil("the copy follows", function() {
    return shared.Items.Count == before + 1 && shared.Items.Find("[Subject] = 'Visit at Bellweather'") != null;
});
same("the user's own is one", own.Items.Count, ownBefore + 1);
app.ActiveInspector().Close(0);
if (view() != null) view().Close();
app.ActiveExplorer().CurrentFolder = shared;
picture("global-calendar@x330");

own.Items.Find("[Subject] = 'Visit at Bellweather'").Delete();
desk.Pump(100);
same("it is gone", own.Items.Count, ownBefore);
same("its copy stays", shared.Items.Find("[Subject] = 'Visit at Bellweather'") != null, true);
same("messages", desk.Messages.Count, 0);
WScript.Quit(wrong ? 1 : 0);
