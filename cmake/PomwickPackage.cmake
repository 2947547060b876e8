# The Debian package: `cpack -G DEB` in a build tree. dpkg-shlibdeps works out the libraries'
# packages; what it cannot see is listed by hand: the session bus that starts the renderer and
# the face the default font resolves to.
set(CPACK_PACKAGE_NAME pomwick)
set(CPACK_PACKAGE_VENDOR Velquor)
set(CPACK_PACKAGE_CONTACT "Pomwick maintainers <pomwick@velquor.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "restyles the number badges on app icons")
set(CPACK_PACKAGE_DESCRIPTION "Pomwick's settings window with a live badge preview, the renderer \
that draws the preview's badge as a session service, and pomwick-defaults, the settings from a \
terminal.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "dbus-daemon | dbus-broker, fontconfig, fonts-dejavu-core, libqt6svg6")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "dbus-user-session, qt6-translations-l10n")
include(CPack)
