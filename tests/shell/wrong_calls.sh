# A wrong call gets one clear sentence and the code 2, before anything is built or started.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"
script fine.js <<<'WScript.Echo("ran");'

refuses() { # TEXT ARGUMENT...
    local text=$1
    shift
    expect 2 ./tarnwell "$@"
    one_sentence
    says "$text"
}
refuses "no command 'sing'" sing
refuses "needs a script file" script
refuses "no script '$work/none.js'" script "$work/none.js"
refuses "must end in .js or .vbs" script LICENSE
refuses "no option '--loud'" script "$script" --loud
refuses "'--database' needs a value" script "$script" --database
refuses "no database 'none'" script "$script" --database none
refuses "no tarnwell.db" script "$script" --database "$work"
refuses "is not a database" script "$script" --database "$script"
refuses "not 'soon'" script "$script" --seconds soon
refuses "not '0'" script "$script" --seconds=0
refuses "not 'English'" script "$script" --language English
refuses "not 'ten'" script "$script" --host-version ten
refuses "no such folder" script "$script" --trace "$work/nowhere/trace.txt"
refuses "it is no file" script "$script" --trace="$work"
refuses "'--trace' needs a value" script "$script" --trace
refuses "exclude each other" script "$script" --deferred-events --events-at-once
refuses "is a second one" script "$script" "$script"
refuses "at least one mail file" deliver
refuses "takes no arguments" package now
refuses "takes no arguments" pictures now
refuses "not '--slow'" run --slow
refuses "not '--fast'" test --fast
refuses "no test has 'Unheard'" test Unheard
refuses "There are:" test 'Replicas;ls'
refuses "takes no names" test --quick Replicas
refuses "There are: settings" fuzz nothing
refuses "takes a number of seconds" fuzz mails --seconds soon
refuses "takes one name" fuzz mails settings
refuses "not '--slow'" fuzz --slow
