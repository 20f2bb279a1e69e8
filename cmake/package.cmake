# SPDX-License-Identifier: MIT
# The Debian package, made by CPack (see the script ./package): what control says of it. The libraries that it
# depends on are found by dpkg-shlibdeps.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME torvane)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
# With several threads the compressed bytes would depend on the number of processors.
set(CPACK_THREADS 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${TORVANE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "manager for a collection of Game Boy games")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "\
Torvane lists the Game Boy, Game Boy Color and Game Boy Advance games of one
folder, shows the details of the selected game, lets you edit them, and plays
the game in an external emulator. The details are stored in the game's own
file.
.
It also unpacks ZIP archives, shows and prints screenshots, keeps links to web
pages, and shares descriptions of games through a text file on a web server.")

# The fonts of the designs' substitutes: the table of the program names their packages.
set(font_table ${CMAKE_SOURCE_DIR}/src/platform/forms/Fonts.cpp)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${font_table})
file(STRINGS ${font_table} font_rows REGEX "\"fonts-")
list(TRANSFORM font_rows REPLACE ".*\"(fonts-[a-z-]+)\".*" "\\1")
list(REMOVE_DUPLICATES font_rows)
# Movies are WebP, and Qt's own texts are translated by a package of their own: nothing is linked with either.
list(JOIN font_rows ", " fonts)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "${fonts}, qt6-image-formats-plugins, qt6-translations-l10n")
# An emulator, what converts its screenshots, the commands that print, what opens web pages, and the way to a
# Wayland desktop without an X server.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "mgba-sdl | mgba-qt, netpbm, cups-client, xdg-utils, qt6-wayland")
include(CPack)
