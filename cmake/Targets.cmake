# One function per kind of target. Sources are named explicitly, relative to the calling folder.
include(GoogleTest OPTIONAL)

# tarnbridge_library(NAME SOURCES a.cpp ... [DEPENDS target ...] [PRIVATE_DEPENDS target ...])
# A static library of one folder under src/, included as "folder/Header.h".
function(tarnbridge_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;PRIVATE_DEPENDS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE tarnbridge_warnings ${ARG_PRIVATE_DEPENDS})
endfunction()

# tarnbridge_program(NAME SOURCES a.cpp ... [DEPENDS target ...])
# A program that is installed and that `make build` leaves under build/bin.
function(tarnbridge_program name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE tarnbridge_warnings ${ARG_DEPENDS})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${TARNBRIDGE_BIN})
    install(TARGETS ${name} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()

# tarnbridge_test(NAME SOURCES a.cpp ... [DEPENDS target ...] [PROGRAMS target ...] [LABELS label ...])
# One GoogleTest program per folder; each of its tests is a test of ctest. PROGRAMS are built before it
# and found by the tests through Programs.h of tests/support.
function(tarnbridge_test name)
    if(NOT TARNBRIDGE_TESTS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;PROGRAMS;LABELS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE tarnbridge_warnings ${ARG_DEPENDS} test_support GTest::gtest_main)
    target_precompile_headers(${name} REUSE_FROM test_support)
    if(ARG_PROGRAMS)
        add_dependencies(${name} ${ARG_PROGRAMS})
    endif()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120 LABELS "${ARG_LABELS}")
endfunction()

# tarnbridge_fuzzer(NAME SOURCE a.cpp [DEPENDS target ...])
# A libFuzzer program in the fuzz preset. Elsewhere the same source is linked with a main that replays
# fuzz/corpus/NAME, as the ctest test fuzz.NAME.
function(tarnbridge_fuzzer name)
    cmake_parse_arguments(ARG "" "SOURCE" "DEPENDS" ${ARGN})
    set(corpus ${PROJECT_SOURCE_DIR}/fuzz/corpus/${name})
    if(TARNBRIDGE_FUZZ)
        add_executable(fuzz_${name} ${ARG_SOURCE})
        target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
        target_link_libraries(fuzz_${name} PRIVATE tarnbridge_warnings ${ARG_DEPENDS})
    elseif(TARNBRIDGE_TESTS)
        add_executable(fuzz_${name} ${ARG_SOURCE} ${PROJECT_SOURCE_DIR}/fuzz/ReplayMain.cpp)
        target_link_libraries(fuzz_${name} PRIVATE tarnbridge_warnings ${ARG_DEPENDS})
        add_test(NAME fuzz.${name} COMMAND fuzz_${name} ${corpus})
    endif()
endfunction()

# tarnbridge_benchmark(NAME SOURCES a.cpp ... [DEPENDS target ...])
# A Google Benchmark program; `make bench` runs all of them from a release build.
function(tarnbridge_benchmark name)
    if(NOT TARNBRIDGE_BENCHMARKS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE tarnbridge_warnings ${ARG_DEPENDS} benchmark::benchmark)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bench)
endfunction()
