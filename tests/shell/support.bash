# shellcheck shell=bash
# For the tests of ./tarnwell: what a call must answer.
set -euo pipefail

cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# wrong SENTENCE: this test fails.
wrong() {
    printf 'WRONG: %s\n' "$*"
    exit 1
}

# expect CODE COMMAND...: runs a command, which must end with this code. Its output is in $out, its messages in $err.
expect() {
    local wanted=$1 code=0
    shift
    "$@" >"$work/out" 2>"$work/err" </dev/null || code=$?
    out=$(<"$work/out")
    err=$(<"$work/err")
    ((code == wanted)) || wrong "'$*' ended with $code, not with $wanted: $out $err"
}

# says TEXT: the messages of the last command hold this text.
says() { [[ $err == *"$1"* ]] || wrong "the messages lack '$1': $err"; }

# one_sentence: the last command said one line and printed nothing.
one_sentence() {
    [[ -z $out ]] || wrong "this was printed: $out"
    (($(wc -l <<<"$err") == 1)) || wrong "this is more than one sentence: $err"
}

# prints TEXT: the last command printed exactly this.
prints() { [[ $out == "$1" ]] || wrong "printed was '$out', not '$1'"; }

# script NAME: writes a script from standard input and names it in $script.
script() {
    script=$work/$1
    cat >"$script"
}

# parts NAME...: parts of ./tarnwell, for what a test does by itself.
parts() {
    local part
    ROOT=$PWD BUILD=$PWD/build
    # shellcheck source=/dev/null
    for part in "$@"; do source "packaging/lib/$part.sh"; done
    at_end "rm -rf '$work'" # what they do at the end has taken the place of the test's own
}
