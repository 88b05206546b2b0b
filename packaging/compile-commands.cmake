# cmake -DFILE=... -P compile-commands.cmake: the entries of a compile_commands.json as lines of folder, file and command,
# parted by tabs.
file(READ ${FILE} entries)
string(JSON count LENGTH "${entries}")
math(EXPR last "${count} - 1")
set(lines "")
foreach(i RANGE ${last})
    string(JSON entry GET "${entries}" ${i})
    string(JSON folder GET "${entry}" directory)
    string(JSON file GET "${entry}" file)
    string(JSON command GET "${entry}" command)
    string(APPEND lines "${folder}\t${file}\t${command}\n")
endforeach()
file(WRITE ${OUTPUT} "${lines}")
