# What is left out is not there; what is not known can't be left out. The next run has everything again.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

script siblings.js <<'JS'
try {
    WScript.CreateObject("Tarnwell.connect");
    WScript.Echo("there");
} catch (error) {
    WScript.Echo("missing");
}
JS
expect 0 ./tarnwell script "$script" --without Tarnwell.connect
prints missing
expect 0 ./tarnwell script "$script"
prints there
expect 2 ./tarnwell script "$script" --without Tarnwell.Nobody
says "no object or program 'Tarnwell.Nobody'"

script program.js <<'JS'
var folder = new ActiveXObject("WScript.Shell").RegRead("HKEY_CURRENT_USER\\Software\\Tarnwell\\Family\\ProgramFolder");
var files = new ActiveXObject("Scripting.FileSystemObject");
WScript.Echo(files.FileExists(folder + "\\TWstore.exe") ? "there" : "missing",
             files.FileExists(folder + "\\TarnwellUtility.exe") ? "there" : "missing");
JS
expect 0 ./tarnwell script "$script" --without twstore.exe
prints "missing there"
expect 0 ./tarnwell script "$script"
prints "there there"

script add_in.js <<'JS'
var found = 0, add_ins = new ActiveXObject("Outlook.Application").COMAddIns;
for (var i = 1; i <= add_ins.Count; i++) if (add_ins.Item(i).ProgId == "CreateNote.Connect") found++;
WScript.Echo(found);
JS
expect 0 ./tarnwell script "$script"
prints 1
expect 0 ./tarnwell script "$script" --without TarnwellNote.dll
prints 0

script search.js <<'JS'
try {
    new ActiveXObject("ADODB.Connection").Open("Provider=Search.CollatorDSO;");
    WScript.Echo("open");
} catch (error) {
    WScript.Echo("missing");
}
JS
expect 0 ./tarnwell script "$script" --instant-search
prints open
expect 0 ./tarnwell script "$script" --instant-search --without Search.CollatorDSO
prints missing
