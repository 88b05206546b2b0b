// The ten steps of the desk's first page, gone on its real windows with the sample mails. Arguments: the folder of the pictures,
// then the mail files. For each step a line with its number, whether it was done, its title and words as the first page has them,
// and what is filed where; between them a tab. A step is done only if its record is found in its folder and says what it should.
var app = new ActiveXObject("Outlook.Application"), desk = app.Desk, failed = 0;
var pictures = WScript.Arguments(0);
var session = app.GetNamespace("MAPI");
var root = session.Folders("Public Folders").Folders("All Public Folders").Folders("Tarnwell");
var profiles = root.Folders("Account Profiles"), inbox = session.GetDefaultFolder(6);
var emails = profiles.Folders("Email"), notes = profiles.Folders("Notes"), contacts = profiles.Folders("Account Contacts");
var opportunities = profiles.Folders("Opportunities"), templates = profiles.Folders("Drop Downs");
var shared = root.Folders("Global Calendar");

for (var m = 1; m < WScript.Arguments.length; m++) desk.Deliver(WScript.Arguments(m));
app.ActiveExplorer().CurrentFolder = inbox;

var steps = [knownContact, stranger, lead, privateMail, sentMail, createNote, quickView, appointment, draggedContact, template];
var words = wordsOfFirstPage();
for (var i = 0; i < steps.length; i++) go(i);
WScript.Quit(failed ? 1 : 0);

function go(step) {
    var state = "done", result;
    try {
        result = steps[step](step + 1);
    } catch (error) {
        failed++;
        state = "failed";
        result = error.description || error.message || "error " + error.number;
        try { picture(step + 1); } catch (none) {}
    }
    WScript.Echo([step + 1, state, words[step].title, words[step].what, result].join("\t").replace(/[\r\n]+/g, " "));
    tidy();
}

function knownContact(number) {
    var mail = mailOf("Loaves per hour, line 3"), before = emails.Items.Count;
    read(mail);
    need("a note in Email", function() { return emails.Items.Count == before + 1; });
    must("the mark of the mail", mail.FlagRequest, "TW-Received eMail Auto Filed");
    var note = withSubject(emails, mail.Subject);
    must("the attachments of the note", note.Attachments.Count, 1);
    must("the contact of the note", property(note, "Contact Name"), "Siobh\u00e1n O'Brien");
    app.ActiveInspector().Close(1);
    note.Display();
    picture(number);
    return filedNote("Email", note);
}

function stranger(number) {
    var mail = mailOf("Second-hand sealer"), before = emails.Items.Count, asked = desk.Messages.Count;
    must("the contacts with her address", contacts.Items.Find("[Email1Address] = 'dora.oldham@oldmill.example'"), null);
    desk.Answer("Tarnwell", " NOT FOUND!", 6);
    desk.Answer("Tarnwell", "Would you like to search for an Account Name? ", 7);
    desk.Select(mail);
    need("two questions", function() { return desk.Messages.Count == asked + 2; });
    need("a contact in Account Contacts", function() {
        return contacts.Items.Find("[Email1Address] = 'dora.oldham@oldmill.example'") != null;
    });
    need("a note in Email", function() { return emails.Items.Count == before + 1; });
    need("the window of the contact", function() { return app.Inspectors.Count == 1; });
    var contact = contacts.Items.Find("[Email1Address] = 'dora.oldham@oldmill.example'");
    must("the item in the window", app.ActiveInspector().CurrentItem.EntryID, contact.EntryID);
    var note = withSubject(emails, mail.Subject);
    must("the contact of the note", property(note, "Contact Name"), contact.FullName);
    picture(number);
    return "Account Contacts: " + contact.FullName + ", " + contact.CompanyName + "; " + filedNote("Email", note);
}

function lead(number) {
    var mail = mailOf("Honiggl\u00e4ser: Mengen"), before = emails.Items.Count + notes.Items.Count;
    desk.Select(mail);
    need("the window of the lead", function() { return app.Inspectors.Count == 1; });
    must("the item in the window", app.ActiveInspector().CurrentItem.MessageClass, "IPM.Contact.Lead");
    var name = app.ActiveInspector().CurrentItem.FullName;
    picture(number);
    app.ActiveInspector().Close(1);
    leftAlone(mail, before);
    return "nothing was filed; the lead " + name + " was opened, and the mail that was read has no mark";
}

function privateMail(number) {
    var mail = mailOf("Una pregunta personal"), before = emails.Items.Count + notes.Items.Count;
    must("a known contact", contacts.Items.Find("[Email1Address] = 'lucia.nunez@iberiaconservas.example'") != null, true);
    leftAlone(mail, before);
    picture(number);
    return "nothing was filed; the mail that was read has no mark";
}

function sentMail(number) {
    var before = emails.Items.Count, subject = "Delivery dates";
    var mail = app.CreateItem(0);
    mail.To = "hannah.weatherby@bellweather.example";
    mail.Subject = subject;
    mail.Body = "As agreed.";
    mail.Display();
    desk.Pump(500);
    var told = desk.Statuses.Count;
    desk.Press(app.ActiveInspector().CommandBars.Item("Standard").Controls.Item("Send"));
    pictureAtOnce(number);  // served while the search gives way
    need("the mail goes out", function() { return app.Inspectors.Count == 0; });
    var sent = session.GetDefaultFolder(5);
    need("the mail in Sent Items", function() { return withSubject(sent, subject) != null; });
    need("a note in Email", function() { return emails.Items.Count == before + 1; });
    must("the mark of the mail", withSubject(sent, subject).FlagRequest, "TW-Sent Email Auto Filed");
    must("the small window that tells what is done", desk.Statuses.Count > told, true);
    var note = withSubject(emails, subject);
    must("the contact of the note", property(note, "Contact Name"), "Hannah Weatherby");
    return filedNote("Email", note);
}

function createNote(number) {
    var mail = mailOf("Etikety na le\u017e\u00e1k \u2013 zm\u011bna");
    read(mail);
    var before = emails.Items.Count;
    desk.Press(app.ActiveInspector().CommandBars.Item("TarnwellCreateNote").Controls.Item("Create Tarnwell Note"));
    need("the dialog", function() { return dialog() != null && dialog().Visible; });
    dialog().Control("Option1").Click();
    need("an empty list", function() { return dialog().Control("lstRecipients").Count == 0; });
    choose(dialog().Control("Combo2"), "Opportunities");
    need("a box for the search", function() { return dialog().Control("SearchString").Enabled; });
    dialog().Control("SearchString").Text = "b";
    dialog().Control("SearchString").Key(13);
    need("the end of the search", function() { return dialog().Control("lblHeader").Text == "Search Complete for b"; });
    var list = dialog().Control("lstRecipients");
    must("found opportunities", list.Count > 0, true);
    list.Select(1);
    var row = list.Item(1).Text;
    picture(number);
    desk.Answer("Tarnwell", "Done - creating Note for " + row, 1);
    dialog().Control("cmdSend").Click();
    need("a note in Email", function() { return emails.Items.Count == before + 1; });
    var note = emails.Items.Item(emails.Items.Count);
    must("the subject of the note", note.Subject, mail.Subject);
    must("an opportunity of the note", property(note, "OppID") != "", true);
    need("the mark of the mail", function() { return mail.FlagRequest == "TW User Filed"; });
    return filedNote("Email", note) + "; opportunity: " + row;
}

function quickView(number) {
    var mail = mailOf("Purchase order HV-20317"), before = notes.Items.Count;
    desk.Select(mail);
    need("Quick View", viewIsShown);
    must("its contact", view().Control("Contactname").Text, "Rachel Tannenbaum");
    choose(view().Control("cmbFolders"), "Opportunities");
    need("her opportunities", function() { return view().Control("lstItems").Count > 0; });
    var list = view().Control("lstItems"), place = 1;
    while (place < list.Count && list.Item(place).Text.indexOf("Multihead weigher") < 0) place++;
    var target = session.GetItemFromID(list.Item(place).SubItems(2));
    must("the opportunity", /Multihead weigher/.test(property(target, "Name")), true);
    list.Drop(place);
    need("a note in Notes", function() { return notes.Items.Count == before + 1; });
    need("the mark of the mail", function() { return mail.FlagRequest == "TW User Filed"; });
    need("Quick View again", viewIsShown);
    picture(number);
    var note = withSubject(notes, mail.Subject);
    must("the opportunity of the note", property(note, "OppID"), property(target, "OppID"));
    must("the attachments of the note", note.Attachments.Count, 1);
    return filedNote("Notes", note) + "; opportunity: " + property(target, "Name");
}

function appointment(number) {
    var mail = mailOf("Checkweigher handover: open points"), before = shared.Items.Count, own = session.GetDefaultFolder(9);
    var ownBefore = own.Items.Count;
    desk.Select(mail);
    need("Quick View", viewIsShown);
    choose(view().Control("cmbFolders"), "My Calendar");
    view().Control("cmdAdd").Click();
    need("the window of the appointment", function() { return app.Inspectors.Count == 1; });
    need("the mark of the mail", function() { return mail.FlagRequest == "TW User Filed"; });
    var item = app.ActiveInspector().CurrentItem;
    must("its class", item.MessageClass, "IPM.Appointment.TarnwellAppt");
    item.Save();
    need("a copy in Global Calendar", function() { return shared.Items.Count == before + 1; });
    must("the user's own appointments", own.Items.Count, ownBefore + 1);
    var copy = withSubject(shared, item.Subject);
    must("a copy of this appointment", copy != null, true);
    must("the contact of the copy", property(copy, "Contact Name"), "Hannah Weatherby");
    if (view() != null) view().Close();
    app.ActiveExplorer().CurrentFolder = shared;
    picture(number);
    return "Calendar and Global Calendar: " + copy.Subject;
}

function draggedContact(number) {
    var own = session.GetDefaultFolder(10), before = contacts.Items.Count;
    var contact = own.Items.Find("[FullName] = \"Bridget O'Keeffe\"");
    must("the personal contact", contact != null, true);
    app.ActiveExplorer().CurrentFolder = own;
    desk.Select(contact);
    desk.Drag(contacts);
    need("a record in Account Contacts", function() {
        var found = contacts.Items.Find("[FullName] = \"Bridget O'Keeffe\"");
        return found != null && found.MessageClass == "IPM.Contact.Account Contact" && property(found, "ContactID") != "";
    });
    must("the contacts", contacts.Items.Count, before + 1);
    var record = contacts.Items.Find("[FullName] = \"Bridget O'Keeffe\"");
    must("its manager", property(record, "Account Manager"), "Pat Example");
    must("the name of its company", property(record, "Account Name"), record.CompanyName);
    app.ActiveExplorer().CurrentFolder = contacts;
    record.Display();
    picture(number);
    return "Account Contacts: " + record.FullName + ", " + property(record, "Account Name") + ", with an id of its own";
}

function template(number) {
    var mail = mailOf("Langoustine boxes"), asked = desk.Messages.Count;
    must("templates of this name", withSubject(templates, mail.Subject), null);
    desk.Answer("Tarnwell", "Are you sure you want to create an email template from this email?", 6);
    desk.Answer("Tarnwell", "Email Template 'Langoustine boxes' Created.", 1);
    mail.Display();
    desk.Press(app.ActiveInspector().CommandBars.Item("TarnwellCreateNote").Controls.Item("Save as Email Template"));
    need("a question and an answer", function() { return desk.Messages.Count == asked + 2; });
    var made = withSubject(templates, mail.Subject);
    must("a template in Drop Downs", made != null, true);
    must("its class", made.MessageClass, "IPM.Post.Drop Down");
    must("its text", made.Body, mail.Body);
    app.ActiveInspector().Close(1);
    app.ActiveExplorer().CurrentFolder = templates;
    made.Display();
    picture(number);
    return "Drop Downs: " + made.Subject + ", " + property(made, "RecordType");
}

// A mail that is opened and read stays without a mark, and no note comes of it.
function leftAlone(mail, before) {
    read(mail);
    desk.Pump(500);
    must("the notes", emails.Items.Count + notes.Items.Count, before);
    must("the mark of the mail", mail.FlagRequest + mail.BillingInformation, "");
    must("the mail is unread", mail.UnRead, false);
}

// Opens a mail, and reads it thereby, as the double click of a person does.
function read(mail) {
    mail.Display();
    mail.UnRead = false;
    mail.Save();
}

// What a step has left open; what it did not do must not be in the way of the next one.
function tidy() {
    try {
        if (dialog() != null) dialog().Control("cmdCancel").Click();
        for (var n = app.Inspectors.Count; n > 0; n--) app.Inspectors.Item(n).Close(1);
        if (view() != null) view().Close();
        desk.Pump(100);
        app.ActiveExplorer().CurrentFolder = inbox;
    } catch (error) {
        WScript.StdErr.WriteLine("a window stays open: " + error.description);
    }
}

// The titles and sentences are the first page's own.
function wordsOfFirstPage() {
    var page = desk.Window("Try This"), all = [];
    for (var n = 0; n < steps.length; n++) {
        all.push({title: page.Control("t" + n).Text, what: page.Control("w" + n).Text});
    }
    page.Control("cmdClose").Click();
    need("the first page closes", function() { return desk.Window("Try This") == null; });
    return all;
}

function mailOf(subject) {
    var mail = withSubject(inbox, subject);
    if (!mail) throw new Error("there is no mail '" + subject + "' in the Inbox");
    return mail;
}

function withSubject(folder, subject) { return folder.Items.Find("[Subject] = \"" + subject + "\""); }

function filedNote(place, note) {
    return place + ": " + note.Subject + ", for " + property(note, "Contact Name") + " of " + (property(note, "Account Name") || "no account");
}

function view() { return desk.Window("TW Quick View"); }
function viewIsShown() { return view() != null && view().Visible; }
function dialog() { return desk.Window("Tarnwell Create Note"); }

function choose(box, name) {
    for (var n = 1; n < box.Count && box.Item(n) != name; n++) {}
    box.Select(n);
}

function property(item, name) {
    var found = item.UserProperties.Find(name);
    return found ? String(desk.Text(found, "Value")) : "";
}

function must(what, found, wanted) {
    if (String(found) !== String(wanted)) throw new Error(what + ": '" + found + "' instead of '" + wanted + "'");
}

function need(what, test) {
    for (var n = 0; n < 200 && !test(); n++) desk.Pump(25);
    if (!test()) throw new Error("missing: " + what);
}

function picture(number) {
    desk.Pump(400);  // until everything has been drawn
    pictureAtOnce(number);
}

function pictureAtOnce(number) { desk.Snapshot(pictures + "\\" + (number < 10 ? "0" : "") + number + ".png"); }
