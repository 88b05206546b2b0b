// Stands before every script that ./tarnwell hands to the script host, and gives it a WScript that keeps what Wine's own
// one loses: characters outside the console's code page, the text of an error, StdOut and StdErr, Sleep. Lines for the
// reader at the other end of the pipe (read-output.pl) begin with the character 1 and a letter.
var tarnwell_script_host = (function (global, real) {
    function encoded(text) {
        return text.replace(/[^\t\n\r -~]/g, function (unit) {
            return "\x01u" + ("000" + unit.charCodeAt(0).toString(16)).slice(-4);
        });
    }
    function outcome(text) {
        real.Echo("\x01o" + encoded(text.replace(/\r?\n/g, " ")));
    }
    // The real Echo decides how a value that is no text reads.
    function echo(values) {
        var list = [], prepared = [];
        for (var i = 0; i < values.length; i++) {
            prepared.push(typeof values[i] == "string" ? encoded(values[i]) : values[i]);
            list.push("prepared[" + i + "]");
        }
        eval("real.Echo(" + (list.join(", ") || '""') + ")");
    }
    function stream(mark) {
        return {
            Write: function (text) { real.Echo(mark + encoded(String(text)) + "\x01n"); },
            WriteLine: function (text) { real.Echo(mark + (arguments.length ? encoded(String(text)) : "")); },
            WriteBlankLines: function (count) { while (count-- > 0) real.Echo(mark); }
        };
    }
    function failed(number, description, line) {
        outcome("error\t" + number + "\t" + description + "\t" + line);
        real.Quit(1);
    }

    var shown = {
        Echo: function () { echo(arguments); },
        // A process hands on only the low byte of its code: a failure must not look like success.
        Quit: function (code) {
            code = Number(code) || 0;
            outcome("quit");
            real.Quit(code != 0 && (code & 255) == 0 ? 1 : code & 255);
        },
        Sleep: function (milliseconds) {
            var end = new Date().getTime() + milliseconds;
            while (new Date().getTime() < end) {}
        },
        CreateObject: function (name, prefix) {
            return arguments.length > 1 ? real.CreateObject(name, prefix) : real.CreateObject(name);
        },
        GetObject: function (path, name) {
            return arguments.length > 1 ? real.GetObject(path, name) : real.GetObject(path);
        },
        ConnectObject: function (object, prefix) { real.ConnectObject(object, prefix); },
        DisconnectObject: function (object) { real.DisconnectObject(object); },
        StdOut: stream(""),
        StdErr: stream("\x01e"),
        Arguments: real.Arguments,
        Application: real.Application,
        FullName: real.FullName,
        Path: real.Path,
        Name: real.Name,
        Version: real.Version,
        Interactive: real.Interactive
    };
    global.WScript = shown;

    return {
        place: function (folder, name) {
            shown.ScriptName = name;
            shown.ScriptFullName = folder + "\\" + name;
        },
        finished: function () { outcome("finished"); },
        failed: function (error) {
            if (typeof error == "object" && error && typeof error.number == "number") {
                failed(error.number, error.description, "");
            } else {
                failed("", "an exception that is not caught: " + String(error), "");
            }
        },
        // Wine's script control knows where VBScript failed, its script host does not.
        basic: function (text) {
            var control = new ActiveXObject("MSScriptControl.ScriptControl");
            control.Language = "VBScript";
            control.Timeout = -1;
            shown.Arguments = function (i) { return arguments.length ? real.Arguments(i) : real.Arguments; };
            control.AddObject("WScript", shown, false);
            try {
                control.AddCode(text);
            } catch (error) {
                var number = error.number, description = error.description, line = "";
                try {
                    number = control.Error.Number || number;
                    description = control.Error.Description || control.Error.Source || description;
                    line = control.Error.Line;
                } catch (unknown) {}
                failed(number, description, line);
            }
        }
    };
})(this, WScript);
