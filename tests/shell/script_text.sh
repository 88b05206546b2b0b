# Letters of any alphabet pass through a script, its arguments and its output; what is global stays so.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

script 'über uns.js' <<'JS'
var größe = "Größe \ä \\ä €";
WScript.Echo(größe, /^\ä+$/.test("ää") ? "match" : "none", "𝄞".length);
WScript.Echo(later(2), typeof later, this.global, WScript.Arguments.length);
for (var i = 0; i < WScript.Arguments.length; i++) WScript.Echo(WScript.Arguments(i));
WScript.StdOut.Write("a");
WScript.StdOut.WriteLine("b");
WScript.StdErr.WriteLine("stray ✓");
WScript.Echo();
WScript.Echo(WScript.ScriptName);
function later(x) { return x * 2; }
var global = 5;
JS
expect 0 ./tarnwell script "$script" -- 'Zoë Ž' 'two words'
prints 'Größe ä \ä € match 2
4 function  2
Zoë Ž
two words
ab

über uns.js'
says 'stray ✓'

script text.vbs <<'VBS'
Dim n
n = 3
Function Twice(x)
  Twice = x * 2
End Function
WScript.Echo "Größe €", Twice(n), WScript.Arguments(0), WScript.Arguments.Count
WScript.Quit 4
VBS
expect 4 ./tarnwell script "$script" -- Zoë
prints 'Größe € 6 Zoë 1'
