# However a script ends, the caller hears of it.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

script quits.js <<'JS'
function leave() { try { WScript.Quit(3); } finally { WScript.Echo("never"); } }
WScript.Echo("before");
leave();
JS
expect 3 ./tarnwell script "$script"
prints before

script even.js <<<'WScript.Quit(256);'
expect 1 ./tarnwell script "$script" # would be 0 as a process hands it on

script fails.js <<'JS'
try { none(); } catch (error) { WScript.Echo("caught"); }
function inner() {
    var nothing = null;
    nothing.Close();
}
inner();
JS
expect 1 ./tarnwell script "$script"
prints caught
says "0x800A138F (-2146823281) in line 4: Object expected"

script raises.js <<<'throw new Error(7, "no paper");'
expect 1 ./tarnwell script "$script"
says "0x00000007 (7) in line 1: no paper"

script syntax.js < <(printf 'var a = 1;\r\nvar b = = 2;\r\n')
expect 1 ./tarnwell script "$script"
prints ""
says "in line 2: Syntax error"

script open.js <<<'if (true) { WScript.Echo("x");'
expect 1 ./tarnwell script "$script"
says "ends too early"

script basic.vbs <<'VBS'
WScript.Echo "one"
Err.Raise 77, "printer", "no ink"
WScript.Echo "two"
VBS
expect 1 ./tarnwell script "$script"
prints one
says "in line 2: no ink"

script endless.js <<<'WScript.Echo("start"); while (true);'
SECONDS=0
expect 124 ./tarnwell script "$script" --seconds 2
prints start
says "did not end within 2 seconds"
((SECONDS < 60)) || wrong "it took $SECONDS seconds"

script kills.js <<'JS'
new ActiveXObject("WScript.Shell").Run("taskkill.exe /f /im desk.exe", 0, true);
JS
expect 1 ./tarnwell script "$script"
says "the desk died"
