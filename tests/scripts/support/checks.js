// What scripts that use the add-in as a person does check, wait for and show. They have `desk`, the number `wrong` of what was
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
