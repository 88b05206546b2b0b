// The Create Note dialog as a person uses it: opened on a mail, it lists the mail's people; a search in one of the
// targets lists records; a note is made of each. With a folder as argument, it takes pictures of the dialog's states.
var app = new ActiveXObject("Outlook.Application"), desk = app.Desk, wrong = 0;
var folder = WScript.Arguments.length > 0 ? WScript.Arguments(0) : "";
var root = app.GetNamespace("MAPI").Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell");
var filed = root.Folders("Account Profiles").Folders("Email").Items, filedBefore = filed.Count;

eval(new ActiveXObject("Scripting.FileSystemObject")
    .OpenTextFile(WScript.ScriptFullName.replace(/[^\\]*$/, "support\\checks.js")).ReadAll());
function dialog() { return desk.Window("Tarnwell Create Note"); }
function control(name) { return dialog().Control(name); }

var mail = deliver("Hannah Weatherby <hannah.weatherby@bellweather.example>",
                   "Cold store, second line", "Could we see a plan?");
mail.Display();
desk.Press(app.ActiveInspector().CommandBars.Item("TarnwellCreateNote").Controls.Item("Create Tarnwell Note"));
waitUntil("the dialog comes up", function() { return dialog() != null && dialog().Visible; });
same("rows", control("lstRecipients").Count, 2);
same("the sender is the first", control("lstRecipients").Item(1).Text, "hannah.weatherby@bellweather.example");
same("subject", control("txtNote").Text, "Cold store, second line");
same("it stays on top", dialog().Topmost, true);
picture("create-note-addresses", dialog());

// at account level nothing is listed until a search has been made
control("Option1").Click();
waitUntil("the list is emptied", function() { return control("lstRecipients").Count == 0; });
control("cmdSend").Click();
waitUntil("it is refused", function() {
    return control("lblHeader").Text == "You must select a valid Account/Contact name. Please use the search feature.";
});
picture("create-note-refused", dialog());

var targets = control("Combo2");
for (var i = 1; i <= targets.Count && targets.Item(i) != "Opportunities"; i++) {}
targets.Select(i);
waitUntil("a text can be entered", function() { return control("SearchString").Enabled; });
control("SearchString").Text = "b";
var place = placeOf(dialog());
control("SearchString").Key(13);
pictureAtOnce("create-note-searching" + place);  // served while the search gives way
waitUntil("the search ends", function() { return control("lblHeader").Text == "Search Complete for b"; });
var found = control("lstRecipients").Count;
same("records are found", found > 0, true);
picture("create-note-results", dialog());

// a note of a record; the dialog stays for another one
control("Check1").Click();
control("lstRecipients").Select(1);
var row = control("lstRecipients").Item(1).Text;
desk.Answer("Tarnwell", "Done - creating Note for " + row, 1);
control("cmdSend").Click();
waitUntil("a note is made", function() { return filed.Count == filedBefore + 1; });
var note = filed.Item(filed.Count);
same("its subject", note.Subject, "Cold store, second line");
same("it is the opportunity's", note.UserProperties("OppID").Value != "", true);
same("the mail is with it", note.Attachments.Count, 1);
waitUntil("the mail is marked", function() { return mail.FlagRequest == "TW User Filed"; });
waitUntil("the dialog stays", function() {
    return control("lblHeader").Text == "Highlight an entry in the list below.  Then press Create.";
});

// a note of the sender; the dialog goes
control("Option2").Click();
waitUntil("the addresses are back", function() { return control("lstRecipients").Count == 2; });
control("Check1").Click();
desk.Answer("Tarnwell", "Done - creating Note for ", 1);
control("cmdSend").Click();
waitUntil("another note is made", function() { return filed.Count == filedBefore + 2; });
same("its contact", filed.Item(filed.Count).UserProperties("Contact Name").Value, "Hannah Weatherby");
waitUntil("the dialog goes", function() { return dialog() == null; });
same("messages", desk.Messages.Count, 2);
WScript.Quit(wrong ? 1 : 0);
