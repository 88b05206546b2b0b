# awk -f unused-names.awk FILE...: the names that a file brings into a namespace by `using` and then does not use, as lines
# of file, line and name. A name behind a dot, an arrow or two colons is another's.
function tell(    name) {
    for (name in brought) {
        if (!(name in used)) printf "%s:%d: '%s' is brought in and not used\n", file, brought[name], name
    }
    delete brought
    delete used
}
FNR == 1 {
    tell()
    file = FILENAME
}
{
    line = $0
    gsub(/"([^"\\]|\\.)*"/, "\"\"", line)
    sub(/\/\/.*$/, "", line)
    if (line ~ /^using ([A-Za-z_0-9]+::)+[A-Za-z_0-9]+;$/) {
        name = line
        gsub(/^.*::|;$/, "", name)
        brought[name] = FNR
        next
    }
    gsub(/->/, ".", line)
    while (match(line, /(^|[^A-Za-z0-9_])[A-Za-z_][A-Za-z0-9_]*/)) {
        before = substr(line, RSTART, 1)
        name = substr(line, RSTART, RLENGTH)
        sub(/^[^A-Za-z0-9_]/, "", name)
        if (before != "." && before != ":") used[name] = 1
        line = substr(line, RSTART + RLENGTH)
    }
}
END { tell() }
