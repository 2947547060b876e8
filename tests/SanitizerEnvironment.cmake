# Read by CTest in the sanitizer builds before it starts any test, so that every test's processes
# inherit it however CTest was started. Leaks in the caches that Qt and the system libraries keep
# for the life of the process are not ours. Options the caller set win.
if(NOT DEFINED ENV{ASAN_OPTIONS})
    set(ENV{ASAN_OPTIONS} "detect_leaks=1")
endif()
if(NOT DEFINED ENV{LSAN_OPTIONS})
    set(ENV{LSAN_OPTIONS} "suppressions=${CMAKE_CURRENT_LIST_DIR}/lsan.supp:print_suppressions=0")
endif()
if(NOT DEFINED ENV{UBSAN_OPTIONS})
    set(ENV{UBSAN_OPTIONS} "print_stacktrace=1")
endif()
