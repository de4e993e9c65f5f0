# The Debian package that `make package` makes by CPack.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarnbridge)
set(CPACK_PACKAGE_VENDOR Tarnbridge)
set(CPACK_PACKAGE_CONTACT "Tarnbridge maintainers <maintainers@tarnbridge.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION
    "Reads, keeps and sends the messages of a phone on a serial cable, a USB
port or Bluetooth, in a window and on the command line. A phone made of
software comes with it, to try it without one.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION comm)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, qt6-translations-l10n, fonts-dejavu-core")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
