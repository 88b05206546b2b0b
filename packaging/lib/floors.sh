# shellcheck shell=bash
# `./tarnwell floors`: the picture of the floors in docs/, as the build's own libraries link each other.

floors_command() {
    (($# == 0)) || fail "'floors' takes no arguments" 2
    local folder=$BUILD/floors log=$BUILD/logs/floors.log
    install_packages "${build_packages[@]}" graphviz
    install_libraries
    mkdir -p "$folder"
    cp "$ROOT/packaging/floors/CMakeGraphVizOptions.cmake" "$folder/"
    with_progress "configuring for the picture" "$log" \
        cmake --preset x64 -S "$ROOT" -B "$folder" --graphviz="$folder/floors.dot" || {
        show_tail "$log"
        fail "the floors could not be read"
    }
    # a floor that is reached over another one needs no line of its own; the legend tells of CMake's kinds of targets
    sed -E '/^subgraph clusterLegend/,/^}/d; s/shape = doubleoctagon/shape = box, peripheries = 2/; s/shape = octagon/shape = box/' "$folder/floors.dot" | tred 2>>"$log" |
        dot -Tsvg -o "$ROOT/docs/pictures/floors.svg" 2>>"$log" || {
        show_tail "$log"
        fail "the picture could not be drawn"
    }
    say "drawn: docs/pictures/floors.svg"
}
