// The Search Panel as a person uses it: opened by the published operations, it lists what belongs to a contact or an
// account; rows are sorted, and opened by a double click. With a folder as argument, it takes pictures.
var app = new ActiveXObject("Outlook.Application"), desk = app.Desk, wrong = 0;
var folder = WScript.Arguments.length > 0 ? WScript.Arguments(0) : "";
var root = app.GetNamespace("MAPI").Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell");
var profiles = root.Folders("Account Profiles");
var connect = app.COMAddIns.Item("CreateNote.Connect").Object;

eval(new ActiveXObject("Scripting.FileSystemObject")
    .OpenTextFile(WScript.ScriptFullName.replace(/[^\\]*$/, "support\\checks.js")).ReadAll());
function panel() { return desk.Window("Tarnwell Search Panel"); }
function control(name) { return panel().Control(name); }
function column(number) {
    var list = control("lstItems"), texts = [];
    for (var i = 1; i <= list.Count; i++) {
        texts.push(number == 1 ? list.Item(i).Text : list.Item(i).SubItems(number - 1));
    }
    return texts;
}

// on nothing it only shows what can be searched for
connect.PowerPanel();
waitUntil("the panel comes up", function() { return panel() != null && panel().Visible; });
same("targets", control("SearchMe").Count, 5);
same("nothing is searched", desk.Statuses.Count, 0);
same("the name is as designed", control("CompanyName").Text, "Company Name");
panel().Close();
waitUntil("the panel goes", function() { return panel() == null; });

// an account with all that is filed under it
var account = profiles.Items.Find("[Account Name] = 'Greyfriars Brewery'");
connect.ShowItemsMenu(account);
waitUntil("the account is shown", function() { return control("CompanyName").Text == "Greyfriars Brewery"; });
waitUntil("the search ends", function() { return control("lstItems").Columns(1).Image == 1; });
var count = control("lstItems").Count;
same("there are rows", count > 5, true);
same("the first is the account", control("lstItems").Item(1).SubItems(1), account.Subject);
same("a search tells where it is", desk.Statuses.Item(1), "Searching... ");
panel().Resize(1000, 620);
picture("search-panel", panel());

// sorted by subject, upwards and downwards
control("lstItems").ColumnClick(2);
waitUntil("the subject is marked", function() { return control("lstItems").Columns(2).Image == 1; });
var sorted = column(2);
for (var i = 1; i < sorted.length; i++) {
    same("order", sorted[i - 1].toLowerCase() <= sorted[i].toLowerCase(), true);
}
control("lstItems").ColumnClick(2);
waitUntil("the mark turns over", function() { return control("lstItems").Columns(2).Image == 0; });
same("the order turns over", column(2)[0], sorted[sorted.length - 1]);

// a row is opened by a double click, the account by its name
var wanted = control("lstItems").Item(2).SubItems(5);
control("lstItems").Select(2);
control("lstItems").DoubleClick();
waitUntil("the row is opened", function() { return desk.Displayed.Count == 1; });
same("it is the row's item", desk.Displayed.Item(1).EntryID, wanted);
control("CompanyName").Click();
waitUntil("the account is opened", function() { return desk.Displayed.Count == 2; });
same("it is the account", desk.Displayed.Item(2).EntryID, account.EntryID);

// a contact, in a panel that is always made anew
var contact = profiles.Folders("Account Contacts").Items.Find("[FullName] = 'Umar Lockwood'");
connect.ShowItemsMenu(contact);
waitUntil("the contact is shown", function() { return control("Contactname").Text == "Umar Lockwood"; });
same("its company", control("CompanyName").Text, "Alder & Finch Bakeries");
same("its phone", control("Phone").Text, "+44 1632 960156");
same("messages", desk.Messages.Count, 0);
WScript.Quit(wrong ? 1 : 0);
