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
