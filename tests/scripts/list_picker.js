// The picker of accounts as a person uses it who files a mail of somebody whom the database does not know: it lists
// the sample company's accounts, is shortened by what is typed, and gives the new contact its account. With a folder as
// argument, it takes pictures.
var app = new ActiveXObject("Outlook.Application"), desk = app.Desk, wrong = 0;
var folder = WScript.Arguments.length > 0 ? WScript.Arguments(0) : "";
var root = app.GetNamespace("MAPI").Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell");
var profiles = root.Folders("Account Profiles");
var contacts = profiles.Folders("Account Contacts").Items, contactsBefore = contacts.Count;

eval(new ActiveXObject("Scripting.FileSystemObject")
    .OpenTextFile(WScript.ScriptFullName.replace(/[^\\]*$/, "support\\checks.js")).ReadAll());
function picker() { return desk.Window("Account List"); }
function dialog() { return desk.Window("Tarnwell Create Note"); }

deliver("Eve Stone <eve@stone.example>", "A first question", "Do you deliver to the coast?").Display();
desk.Answer("Tarnwell", " NOT FOUND!", 6);
desk.Answer("Tarnwell", "search for an Account Name", 6);
desk.Press(app.ActiveInspector().CommandBars.Item("TarnwellCreateNote").Controls.Item("Create Tarnwell Note"));
waitUntil("the dialog comes up", function() { return dialog() != null && dialog().Visible; });
desk.Pump(100);
dialog().Control("cmdSend").Click();
waitUntil("the picker comes up", function() { return picker() != null && picker().Visible; });
var list = picker().Control("lstItems"), all = list.Count;
same("it lists the company's accounts", all >= 40, true);
picker().Control("lstItems").ColumnClick(1);
picture("list-picker", picker());
picker().Control("txtSearch").Text = "mill";
waitUntil("the list is shortened", function() { return list.Count < all; });
picture("list-picker-search", picker());
picker().Control("txtSearch").Text = "";
waitUntil("the list is whole again", function() { return list.Count == all; });
list.Select(1);
var chosen = list.Item(1).Text;
picker().Control("cmdOK").Click();
waitUntil("a contact is made", function() { return contacts.Count == contactsBefore + 1; });
waitUntil("the picker goes", function() { return picker() == null; });
same("its account", contacts.Item(contacts.Count).UserProperties("Account Name").Value, chosen);
WScript.Quit(wrong ? 1 : 0);
