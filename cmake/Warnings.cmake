# The warnings that every target of the project is built with; each is an error.
add_library(tarnbridge_warnings INTERFACE)
target_compile_options(tarnbridge_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    -Wcast-qual -Wformat=2 -Wimplicit-fallthrough -Wundef -Wextra-semi -Werror)
