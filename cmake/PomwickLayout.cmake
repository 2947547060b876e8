# Where things go. The build tree is laid out like the installed tree: the subsystem libraries in
# <libdir>/pomwick, the bundle (plugin and artwork) in <datadir>/pomwick. The programs find the
# bundle relative to the libraries, so one relative path, and no absolute one, is compiled in and
# works in the build tree and in any install prefix alike.
foreach(dir LIBDIR DATADIR BINDIR)
    if(IS_ABSOLUTE "${CMAKE_INSTALL_${dir}}")
        message(FATAL_ERROR "CMAKE_INSTALL_${dir} must be relative to the prefix (the installed "
                            "programs find their files relative to each other)")
    endif()
endforeach()

set(POMWICK_LIBDIR "${CMAKE_INSTALL_LIBDIR}/pomwick")
set(POMWICK_BUNDLE_NAME "PomwickPreferences.bundle")
set(POMWICK_BUNDLE_DIR "${CMAKE_INSTALL_DATADIR}/pomwick/${POMWICK_BUNDLE_NAME}")

set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/${POMWICK_LIBDIR}")
set(POMWICK_STAGED_BUNDLE "${CMAKE_BINARY_DIR}/${POMWICK_BUNDLE_DIR}")
file(RELATIVE_PATH POMWICK_BUNDLE_FROM_LIBDIR "/${POMWICK_LIBDIR}" "/${POMWICK_BUNDLE_DIR}")
file(RELATIVE_PATH POMWICK_LIBDIR_FROM_BINDIR "/${CMAKE_INSTALL_BINDIR}" "/${POMWICK_LIBDIR}")
file(RELATIVE_PATH POMWICK_LIBDIR_FROM_BUNDLE "/${POMWICK_BUNDLE_DIR}" "/${POMWICK_LIBDIR}")
