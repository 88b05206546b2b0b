# shellcheck shell=bash
# `./tarnwell bench`: the measurements, native ones and those against the real library below Wine.

bench_command() {
    (($# == 0)) || fail "'bench' takes no arguments" 2
    local program found=0 failed=0
    prepare all
    for program in "$BUILD"/native/bin/bench*; do
        [[ -f $program && -x $program ]] || continue
        found=1
        say "${program#"$ROOT"/}"
        (unlocked "$program") || failed=1
    done
    for program in "$BUILD"/x64/bin/bench*.exe; do
        [[ -f $program ]] || continue
        ((found == 2)) || {
            lock "$BUILD/script.lock" "a script runs; waiting for it"
            start_display
            use_prefix script
            prepare_desk "$BUILD/script" sample
            export TARNWELL_DATABASES=$BUILD/databases TARNWELL_MAILS=$ROOT/data/sample/mails
        }
        found=2
        say "${program#"$ROOT"/}"
        (unlocked timeout --kill-after=5 900 "$wine_loader" "$(windows_path "$program")") | tr -d '\r' || failed=1
    done
    ((found > 0)) || fail "there is no measurement in $BUILD/native/bin or $BUILD/x64/bin"
    ((failed == 0)) || fail "a measurement failed"
}
