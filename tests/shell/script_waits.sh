# Two scripts at once: one waits for the other and says so. Neither leaves anything behind.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"
script fine.js <<<'WScript.Echo("ran");'

./tarnwell script "$script" >"$work/first.out" 2>"$work/first.err" &
first=$!
expect 0 ./tarnwell script "$script"
wait "$first" || wrong "the first one failed: $(<"$work/first.err")"
prints ran
[[ $(<"$work/first.out") == ran ]] || wrong "the first one printed $(<"$work/first.out")"
cat "$work/first.err" "$work/err" | grep "another script runs" >/dev/null || wrong "nobody said that it waits"

left() { grep -lsF -- "$PWD/build" /proc/[0-9]*/environ 2>/dev/null | while read -r file; do
    tr '\0' '\n' <"$file" | grep -x "WINEPREFIX=$PWD/build/prefix-${TARNWELL_PLACE:-script}" >/dev/null && printf '%s ' "$(tr '\0' ' ' <"${file%environ}cmdline")"
done; }
for ((i = 0; i < 100; i++)); do
    [[ -n $(left) ]] || exit 0
    sleep 0.1
done
wrong "left behind: $(left)"
