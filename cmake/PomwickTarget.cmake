# Warnings for our own code only; Qt's and libplist's headers come in as system headers. They are
# errors in developers' and CI builds (scripts/build.sh sets CMAKE_COMPILE_WARNING_AS_ERROR), never
# for packagers, whose compilers may warn where ours do not.
function(pomwick_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra)
endfunction()

# A GoogleTest binary with the shared main (which creates the QApplication first).
function(pomwick_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS;LABELS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE PomwickTestMain ${ARG_LIBS})
    pomwick_warnings(${name})
    gtest_discover_tests(${name}
        DISCOVERY_TIMEOUT 60
        PROPERTIES LABELS "${ARG_LABELS}"
                   ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()

# A fuzz target over one reader of outside bytes: SOURCES define LLVMFuzzerTestOneInput (and may
# define LLVMFuzzerInitialize), SEEDS is the folder of seed inputs, ARGS extra libFuzzer options.
# In the fuzz build (POMWICK_FUZZ, clang) it is a libFuzzer program that CTest runs for
# POMWICK_FUZZ_SECONDS under the label `fuzz`, growing a corpus in the build tree. In the other
# builds it replays the seeds once under the label `unit`, so that every input that once crashed
# (kept among the seeds) stays fixed.
function(pomwick_fuzzer name)
    cmake_parse_arguments(ARG "" "SEEDS" "SOURCES;LIBS;ARGS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBS})
    pomwick_warnings(${name})
    if(POMWICK_FUZZ)
        target_link_options(${name} PRIVATE -fsanitize=fuzzer)
        add_dependencies(pomwick-fuzzers ${name})
        set(corpus ${CMAKE_BINARY_DIR}/fuzz/corpus/${name})
        set(artifacts ${CMAKE_BINARY_DIR}/fuzz/crashes/${name})
        file(MAKE_DIRECTORY ${corpus} ${artifacts})
        add_test(NAME ${name}
            COMMAND ${name} -max_total_time=${POMWICK_FUZZ_SECONDS} -timeout=10
                    -print_final_stats=1 -artifact_prefix=${artifacts}/ ${ARG_ARGS}
                    ${corpus} ${ARG_SEEDS})
        math(EXPR limit "${POMWICK_FUZZ_SECONDS} + 120")
        set_tests_properties(${name} PROPERTIES LABELS fuzz TIMEOUT ${limit})
    else()
        target_link_libraries(${name} PRIVATE PomwickFuzzReplay)
        add_test(NAME ${name}.seeds COMMAND ${name} ${ARG_SEEDS})
        set_tests_properties(${name}.seeds PROPERTIES LABELS unit)
    endif()
endfunction()
