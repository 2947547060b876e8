# What `cmake --install` lays down. Every installed binary finds the others through a run path
# relative to itself ($ORIGIN), so the product works in any prefix and after the build tree is
# gone.
set(POMWICK_LIBRARIES PomwickPlatform)
set(POMWICK_PROGRAMS pomwick-settings pomwick-renderer pomwick-defaults)

set_target_properties(${POMWICK_LIBRARIES} PROPERTIES INSTALL_RPATH "$ORIGIN")
set_target_properties(${POMWICK_PROGRAMS} PROPERTIES
    INSTALL_RPATH "$ORIGIN/${POMWICK_LIBDIR_FROM_BINDIR}")
set_target_properties(PomwickPreferences PROPERTIES
    INSTALL_RPATH "$ORIGIN/${POMWICK_LIBDIR_FROM_BUNDLE}")

install(TARGETS ${POMWICK_LIBRARIES} LIBRARY DESTINATION ${POMWICK_LIBDIR} NAMELINK_SKIP)
install(TARGETS ${POMWICK_PROGRAMS} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS PomwickPreferences LIBRARY DESTINATION ${POMWICK_BUNDLE_DIR})

# Desktop integration: the settings window's entry and icon, its AppStream metainfo, and the
# renderer as a session service that the bus starts on demand (and systemd restarts).
set(POMWICK_APP_ID "com.velquor.Pomwick")
install(FILES dist/${POMWICK_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES dist/${POMWICK_APP_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES dist/${POMWICK_APP_ID}.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

# The service files name the renderer by its absolute path in the prefix that is installed to,
# which is known only when installing (cmake --install --prefix, or CPack's staging).
set(POMWICK_SERVICE_FILES ${CMAKE_BINARY_DIR}/dist/com.velquor.pomwick.service
    ${CMAKE_BINARY_DIR}/dist/pomwick-renderer.service)
install(CODE "
    set(POMWICK_RENDERER \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/pomwick-renderer\")
    configure_file(\"${CMAKE_SOURCE_DIR}/dist/com.velquor.pomwick.service.in\"
                   \"${CMAKE_BINARY_DIR}/dist/com.velquor.pomwick.service\" @ONLY)
    configure_file(\"${CMAKE_SOURCE_DIR}/dist/pomwick-renderer.service.in\"
                   \"${CMAKE_BINARY_DIR}/dist/pomwick-renderer.service\" @ONLY)
")
install(FILES ${CMAKE_BINARY_DIR}/dist/com.velquor.pomwick.service
    DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services)
install(FILES ${CMAKE_BINARY_DIR}/dist/pomwick-renderer.service
    DESTINATION lib/systemd/user)

# The same service for the build tree, which scripts/run.sh hands to its private bus.
file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/dist/services/com.velquor.pomwick.service CONTENT
"[D-BUS Service]
Name=com.velquor.pomwick
Exec=\"$<TARGET_FILE:pomwick-renderer>\"
")
