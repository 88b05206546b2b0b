# Nothing leaks from one run into the next: neither data nor registry.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

script changes.js <<'JS'
var app = new ActiveXObject("Outlook.Application");
var drafts = app.GetNamespace("MAPI").GetDefaultFolder(16);
var shell = new ActiveXObject("WScript.Shell");
var seen = "clean";
try { seen = shell.RegRead("HKEY_CURRENT_USER\\Software\\Tarnwell\\Test\\Mark"); } catch (error) {}
WScript.Echo(drafts.Items.Count, seen);
var mail = app.CreateItem(0);
mail.Subject = "left";
mail.Save();
WScript.Echo(drafts.Items.Count);
shell.RegWrite("HKEY_CURRENT_USER\\Software\\Tarnwell\\Test\\Mark", "left", "REG_SZ");
JS
for run in first second; do
    expect 0 ./tarnwell script "$script" --database empty
    [[ $out == $'0 clean\n1' ]] || wrong "the $run run found '$out'"
done

script options.js <<'JS'
var app = new ActiveXObject("Outlook.Application");
WScript.Echo(app.Version, app.Desk.Options("InstantSearch") ? "indexed" : "plain", app.Desk.Options("Language"));
JS
expect 0 ./tarnwell script "$script"
prints "16.0.0.0 plain 1033"
expect 0 ./tarnwell script "$script" --host-version 9.0.0.3821 --instant-search --language 1031
prints "9.0.0.3821 indexed 1031"
