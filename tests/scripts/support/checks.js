// What scripts that use the add-in as a person does deliver, check, wait for and show. They have `desk`, the number `wrong` of what was
// not as it should be, and `folder`, where the pictures go, or "".
function same(what, found, wanted) {
    if (String(found) === String(wanted)) return;
    wrong++;
    WScript.Echo(what + ": " + found + " instead of " + wanted);
}
function waitUntil(what, test) {
    for (var i = 0; i < 400 && !test(); i++) desk.Pump(25);
    same(what, test(), true);
}
// Delivers a mail to the user as it comes from outside, sent on 2 March 2026 at a quarter past nine or past another hour.
function deliver(from, subject, text, hour) {
    var files = new ActiveXObject("Scripting.FileSystemObject");
    var path = files.GetSpecialFolder(2).Path + "\\delivered.eml", file = files.CreateTextFile(path, true);
    file.WriteLine("From: " + from);
    file.WriteLine("To: Pat Example <pat@tarnwell.example>");
    file.WriteLine("Date: Mon, 02 Mar 2026 " + (hour || "09") + ":15:00 +0000");
    file.WriteLine("Subject: " + subject);
    file.WriteLine("");
    file.WriteLine(text);
    file.Close();
    return desk.Deliver(path);
}
// Where a window is, as a picture's name tells it.
function placeOf(window) {
    return "@" + window.Width + "x" + window.Height + "+" + window.Left + "+" + window.Top;
}
function pictureAtOnce(name) {
    if (folder !== "") desk.Snapshot(folder + "\\" + name + ".png");
}
// The same when everything has been drawn; with a window, of it alone.
function picture(name, window) {
    if (folder === "") return;
    desk.Pump(300);
    pictureAtOnce(name + (window ? placeOf(window) : ""));
}
