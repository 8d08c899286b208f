# The Debian package, made by CPack: ./package, or the package preset.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zamber)
set(CPACK_PACKAGE_VENDOR "The Zamber project")
set(CPACK_PACKAGE_CONTACT "${ZAMBER_MAINTAINER}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_DEBIAN_PACKAGE_RELEASE "${ZAMBER_BUILD}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${ZAMBER_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${ZAMBER_HOMEPAGE}/")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "clipboard history that lives in the tray")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Zamber remembers the texts and pictures that are copied in any application,
and puts an earlier one back into the application that was in use, by keys
alone. It searches as one types, keeps what is pinned, and leaves out what a
password manager marks as secret.

It runs on desktops with an X server, and on Wayland, beside XWayland or, on
some desktops, without it.")

# The libraries are found by the tool that knows them; what is loaded at run time it does not see. The sound, the
# session's bus, the certificates, the default handlers, the letters and windows of Wayland are missed where they are
# missing, no more.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-image-formats-plugins")
string(JOIN ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS ca-certificates "default-dbus-session-bus | dbus-session-bus" fonts-inter
       libcanberra-pulse liblayershellqtinterface6 qt6-wayland xdg-utils)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "fonts-noto-color-emoji, xdg-desktop-portal")

set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# The release's day at noon is every file's time, so that the package is the same whenever and wherever it is made.
set(changelog_time "${ZAMBER_RELEASE_DATE}T12:00:00Z")
execute_process(
  COMMAND "${CMAKE_COMMAND}" -E env LC_ALL=C date -u -d "${changelog_time}" "+%a, %d %b %Y %H:%M:%S +0000"
  OUTPUT_VARIABLE changelog_date
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND "${CMAKE_COMMAND}" -E env LC_ALL=C date -u -d "${changelog_time}" +%s
  OUTPUT_VARIABLE release_seconds
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
configure_file(debian/changelog.in debian/changelog @ONLY)
configure_file(debian/AtPackaging.cmake.in debian/AtPackaging.cmake @ONLY)
set(CPACK_PROJECT_CONFIG_FILE "${CMAKE_CURRENT_BINARY_DIR}/debian/AtPackaging.cmake")
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_SOURCE_DIR}/debian/Complete.cmake")
set(CPACK_ZAMBER_CHANGELOG "${CMAKE_CURRENT_BINARY_DIR}/debian/changelog")
set(CPACK_ZAMBER_OVERRIDES "${CMAKE_CURRENT_SOURCE_DIR}/debian/lintian-overrides")
include(CPack)
