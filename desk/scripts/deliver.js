// Hands mail files to the desk that runs. Each argument is a file's path and, after a bar, the name by which the user
// knows it. One line is printed for each; a mail that fails does not keep the others back.
var failures = 0;
var desk = null;
try {
    desk = new ActiveXObject("Outlook.Application").Desk;
} catch (error) {
    WScript.Echo("the desk does not answer: " + sentence(error));
    WScript.Quit(1);
}

for (var i = 0; i < WScript.Arguments.length; i++) {
    var argument = WScript.Arguments(i);
    var bar = argument.indexOf("|");
    deliver(argument.substring(0, bar), argument.substring(bar + 1));
}
WScript.Quit(failures ? 1 : 0);

function deliver(path, name) {
    try {
        var mail = desk.Deliver(path);
        WScript.Echo(name + ": delivered: " + mail.Subject);
    } catch (error) {
        failures++;
        WScript.Echo(name + ": not delivered: " + sentence(error));
    }
}

function sentence(error) {
    var text = String(error.description || "").replace(/\s+/g, " ").replace(/[\s.]+$/, "");
    return text || "error 0x" + (error.number + 0x100000000).toString(16).toUpperCase();
}
