# The users' guide names the buttons as the code does, quotes what the program says as it says it, and leads to scripts that are
# tests; and each picture that a document shows is there and in use.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"
guide=docs/guide.md

same_lines() { # WHAT ONE OTHER
    [[ -n $2 && $2 == "$3" ]] || wrong "$1: $(diff <(printf '%s\n' "$2") <(printf '%s\n' "$3"))"
}

# The table of buttons against the one in the code and the two entries of the context menu.
told=$(sed -n '/^<!-- buttons/,/^<!-- end/s/^| \*\*\(.*\)\*\* |.*/\1/p' "$guide" | LC_ALL=C sort)
coded=$({
    sed -nE 's/^ *\{&Links::[^"]*"[^"]*",[^"]*"[^"]*",[^"]*"([^"]*)".*/\1/p' addin/commands/buttons.cpp
    sed -nE 's/^.* [a-z_]*_tag = u"(.*)";$/\1/p' addin/commands/context_menu.h
} | LC_ALL=C sort)
same_lines "the buttons" "$coded" "$told"
while read -r bold; do
    [[ $bold != *Tarnwell* ]] || grep -qxF -- "$bold" <<<"$told" || wrong "the guide names a button '$bold', which is not in its table"
done < <(grep -oE '\*\*[^*]+\*\*' "$guide" | tr -d '*' | sort -u)

# What stands in backticks is a text of the program, in one piece, or a file. A text may go over several lines of the code.
literals=$(find addin -name '*.cpp' -o -name '*.h' | LC_ALL=C sort | xargs cat | perl -0777 -pe 's/"\s*u"//g; s/\\"/"/g')
quoted=0
while IFS= read -r text; do
    text=${text#'`'}
    text=${text%'`'}
    [[ ! -e $text ]] || continue
    quoted=$((quoted + 1))
    [[ $literals == *"u\"$text"* || $literals == *"$text\""* ]] || wrong "the guide says '$text', which the program doesn't"
done < <(grep -oE '`[^`]+`' "$guide" | sort -u)
((quoted > 20)) || wrong "only $quoted texts of the program were found"

# Each script that it names shows it in a test.
while read -r file; do
    [[ -f $file && $file == tests/scripts/*.js ]] || wrong "the guide says that it is tried by $file, which is no test"
done < <(grep '^\*Tried by' "$guide" | grep -oE '`[^`]+`' | tr -d '`' | sort -u)

# The pictures, all of them and no other.
shown=$(grep -ohE '\]\((docs/)?pictures/[^)]+\)' README.md docs/*.md | sed -E 's,^.*pictures/,,; s,\)$,,' | LC_ALL=C sort -u)
same_lines "the pictures" "$(cd docs/pictures && find . -type f | sed 's,^\./,,' | LC_ALL=C sort)" "$shown"
