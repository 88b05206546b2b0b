# `./tarnwell test NAME` runs the tests with that in their names, counts them, and ends with the sum.
source "$(dirname -- "${BASH_SOURCE[0]}")/support.bash"

number=$(grep -cE '^TEST(_F)?\([A-Za-z]*Steps,' tests/unit/addin_steps_test.cpp)
expect 0 ./tarnwell test Steps.
[[ $(tail -n 1 <<<"$out") == "$number passed, 0 failed" ]] || wrong "the last line is not that of $number tests: $out"
expect 0 ./tarnwell test documents_name_files
[[ $(tail -n 1 <<<"$out") == "1 passed, 0 failed" ]] || wrong "the last line is not that of one test: $out"

# one that runs in both worlds
expect 0 ./tarnwell test IsFiledWhateverOrderTheEventsComeIn
[[ $(tail -n 1 <<<"$out") == "2 passed, 0 failed" ]] || wrong "the last line is not that of one test in two worlds: $out"
