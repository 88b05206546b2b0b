# shellcheck shell=bash
# Messages, logs with progress, locks, and the clean-up at the end. What the user asked for goes to standard output,
# everything said here to standard error.

say() { printf 'tarnwell: %s\n' "$*" >&2; }

# fail SENTENCE [CODE]
fail() {
    say "$1"
    exit "${2:-1}"
}

# What must be undone at the end, however it comes, newest first. Each entry is a command line.
cleanups=()
at_end() { cleanups+=("$1"); }

finish() {
    local status=$? i
    trap - EXIT
    trap '' INT TERM HUP # a second Ctrl-C must not leave half of it behind
    for ((i = ${#cleanups[@]} - 1; i >= 0; i--)); do eval "${cleanups[i]}" || true; done
    exit "$status"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
trap 'exit 129' HUP

# Open lock files; a program that outlives us for a moment must not hold them on.
lock_fds=()

# lock FILE SENTENCE: waits for the lock; says the sentence if it has to.
lock() {
    local file=$1 sentence=$2 fd
    mkdir -p "${file%/*}"
    exec {fd}>"$file"
    lock_fds+=("$fd")
    if ! flock -n "$fd"; then
        say "$sentence"
        flock "$fd"
    fi
}

# try_lock FILE: fails at once if somebody else has it.
try_lock() {
    local fd
    mkdir -p "${1%/*}"
    exec {fd}>"$1"
    if ! flock -n "$fd"; then
        exec {fd}>&-
        return 1
    fi
    lock_fds+=("$fd")
}

# unlock: gives back the lock that was taken last.
unlock() {
    local fd=${lock_fds[-1]}
    unset 'lock_fds[-1]'
    exec {fd}>&-
}

# unlocked COMMAND...: replaces this (sub)shell by an external command that does not inherit our locks.
unlocked() {
    local fd
    for fd in "${lock_fds[@]}"; do exec {fd}>&-; done
    exec "$@"
}

# end_process PID: ends a child of ours and waits for it.
end_process() {
    local i
    kill "$1" 2>/dev/null || return 0
    for ((i = 0; i < 50; i++)); do
        kill -0 "$1" 2>/dev/null || break
        sleep 0.1
    done
    kill -KILL "$1" 2>/dev/null || true
    wait "$1" 2>/dev/null || true
}

progress_pid=
at_end '[[ -z $progress_pid ]] || end_process "$progress_pid"'

# with_progress LABEL LOG COMMAND...: runs an external command with its output in a log. What takes more than a second
# is named, and its last line is shown now and then, so that one sees it move. Returns the command's code.
with_progress() {
    local label=$1 log=$2 begin=$SECONDS next=1 line status=0
    shift 2
    mkdir -p "${log%/*}"
    (unlocked "$@") >"$log" 2>&1 </dev/null &
    progress_pid=$!
    while kill -0 "$progress_pid" 2>/dev/null; do
        if ((SECONDS - begin >= next)); then
            if ((next == 1)); then say "$label ..."; else
                line=$(tail -n 1 -- "$log" 2>/dev/null | tr -d '\r' | cut -c 1-100)
                say "  $((SECONDS - begin)) s: $line"
            fi
            next=$((SECONDS - begin + 10))
        fi
        sleep 0.1
    done
    wait "$progress_pid" || status=$?
    progress_pid=
    ((next == 1)) || say "$label: $( ((status == 0)) && echo done || echo failed) after $((SECONDS - begin)) s"
    return "$status"
}

# show_tail LOG: the end of a log, for one who asks why.
show_tail() {
    tail -n 30 -- "$1" >&2
    say "the whole log is $1"
}
