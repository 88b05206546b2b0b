// The user's own items become records by the buttons of their windows: a contact becomes an account's contact, another one
// a lead, an appointment a linked one, a mail a template. With a folder as argument, it takes a picture.
var app = new ActiveXObject("Outlook.Application"), desk = app.Desk, wrong = 0;
var folder = WScript.Arguments.length > 0 ? WScript.Arguments(0) : "";
var session = app.GetNamespace("MAPI");
var root = session.Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell");
var profiles = root.Folders("Account Profiles");
var registry = new ActiveXObject("WScript.Shell");
registry.RegWrite("HKCU\\Software\\Tarnwell\\Family\\UserName", "Pat Example", "REG_SZ");

eval(new ActiveXObject("Scripting.FileSystemObject")
    .OpenTextFile(WScript.ScriptFullName.replace(/[^\\]*$/, "support\\checks.js")).ReadAll());
// Shows an item and presses a button in its window, of which a picture may be taken before.
function press(item, bar, button, name) {
    item.Display();
    if (name) picture(name);
    desk.Press(app.ActiveInspector().CommandBars.Item(bar).Controls.Item(button));
}
function windows() { return app.Inspectors.Count; }
function property(item, name) { return item.UserProperties(name).Value; }

// a contact of a company that is an account
var account = profiles.Items.Item(1), company = property(account, "Account Name");
var contact = app.CreateItem(2);
contact.FullName = "Ida Bell";
contact.CompanyName = company;
contact.BusinessAddressPostalCode = property(account, "Accountzip");
contact.Email1Address = "ida.bell@bell.example";
contact.JobTitle = "Buyer";
contact.Save();
var contacts = profiles.Folders("Account Contacts").Items, before = contacts.Count;
desk.Answer("Tarnwell", "Would you like to convert this contact to a Tarnwell Contact? ", 6);
press(contact, "TarnwellCreateNote", "Convert to Tarnwell Contact.", "contact");
waitUntil("the contact's window closes", function() { return windows() == 0; });
same("contacts", contacts.Count, before + 1);
var record = contacts.Item(contacts.Count);
same("class", record.MessageClass, "IPM.Contact.Account Contact");
same("name", record.FullName, "Ida Bell");
same("address", record.Email1Address, "ida.bell@bell.example");
same("job", record.JobTitle, "Buyer");
same("its account", property(record, "AccountID"), property(account, "AccountID"));
same("its account's name", property(record, "Account Name"), company);
same("its street", record.BusinessAddressStreet, property(account, "AccountAddress1"));
same("its manager", property(record, "Account Manager"), "Pat Example");
same("the source's mark", contact.CustomerID, property(record, "ContactID"));
same("status", desk.Statuses.Item(desk.Statuses.Count), "Ida Bell was created as a Tarnwell Contact.");

// another becomes a lead, which belongs to no account
var stranger = app.CreateItem(2);
stranger.FullName = "Jon Fell";
stranger.CompanyName = company;
stranger.Save();
var leads = root.Folders("Leads").Items, leadsBefore = leads.Count;
desk.Answer("Tarnwell", "Would you like to convert this contact to a Tarnwell Lead? ", 6);
press(stranger, "TarnwellCreateNote", "Convert to Tarnwell Lead.");
waitUntil("the other's window closes", function() { return windows() == 0; });
same("leads", leads.Count, leadsBefore + 1);
var lead = leads.Item(leads.Count);
same("lead's class", lead.MessageClass, "IPM.Contact.Lead");
same("lead's company", lead.CompanyName, company);
same("no account", lead.UserProperties.Find("AccountID") == null, true);
same("status of the lead", desk.Statuses.Item(desk.Statuses.Count), "Jon Fell was created as a Tarnwell Lead.");

// a contact that is dragged into the shared folder
var third = app.CreateItem(2);
third.FullName = "Kim Dale";
third.CompanyName = company;
third.Save();
desk.Select(third);
third.Copy().Move(profiles.Folders("Account Contacts"));
waitUntil("it is stamped", function() {
    return contacts.Item(contacts.Count).MessageClass == "IPM.Contact.Account Contact";
});
same("stamped", property(contacts.Item(contacts.Count), "Account Name"), company);

// an appointment
var calendar = session.GetDefaultFolder(9);
var appointment = app.CreateItem(1);
appointment.Subject = "Tea at the mill";
press(appointment, "Convert Appointment", "Convert to Tarnwell Appointment");
waitUntil("the appointment is converted", function() {
    var found = calendar.Items.Find("[Subject] = 'Tea at the mill'");
    return found != null && found.MessageClass == "IPM.Appointment.TarnwellAppt" && windows() == 1;
});
same("it is open again", app.ActiveInspector().CurrentItem.MessageClass, "IPM.Appointment.TarnwellAppt");
app.ActiveInspector().Close(1);

// a mail becomes a template
var mail = app.CreateItem(0);
mail.Subject = "A greeting to all";
mail.Body = "Dear friends";
mail.Save();
desk.Answer("Tarnwell", "Are you sure you want to create an email template from this email?", 6);
desk.Answer("Tarnwell", "Email Template 'A greeting to all' Created.", 1);
var messages = desk.Messages.Count;
press(mail, "TarnwellCreateNote", "Save as Email Template");
waitUntil("both boxes are answered", function() { return desk.Messages.Count == messages + 2; });
var template = profiles.Folders("Drop Downs").Items.Find("[Subject] = 'A greeting to all'");
same("template's class", template.MessageClass, "IPM.Post.Drop Down");
same("template's kind", property(template, "RecordType"), "Email Blast");
same("template's text", template.Body, "Dear friends");
same("the mail is as it was", mail.MessageClass, "IPM.Note");
app.ActiveInspector().Close(1);
WScript.Quit(wrong ? 1 : 0);
