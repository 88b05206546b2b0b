# What `./tarnwell floors` draws: our own libraries and what is made of them.
set(GRAPHVIZ_GRAPH_NAME floors)
set(GRAPHVIZ_GRAPH_HEADER "rankdir = TB; ranksep = 0.35; nodesep = 0.2; node [ fontname = \"Helvetica\", fontsize = 11 ]; edge [ color = \"gray50\", arrowsize = 0.6 ];")
set(GRAPHVIZ_EXTERNAL_LIBS FALSE)
set(GRAPHVIZ_INTERFACE_LIBS FALSE)
set(GRAPHVIZ_OBJECT_LIBS FALSE)
set(GRAPHVIZ_GENERATE_PER_TARGET FALSE)
set(GRAPHVIZ_GENERATE_DEPENDERS FALSE)
set(GRAPHVIZ_IGNORE_TARGETS "gtest.*;gmock.*;.*_tests;bench.*;sqlite;warnings")
