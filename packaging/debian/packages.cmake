# The Debian packages, which CPack makes: the target `package`, or the command ./package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_PACKAGE_CONTACT ${TARNWICK_MAINTAINER})
set(CPACK_STRIP_FILES ON)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/at-packing.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/permissions.cmake)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME tarnwick)
set(CPACK_DEBIAN_WINDOW_PACKAGE_RECOMMENDS "tarnwick-browser, qt6-translations-l10n")
set(CPACK_DEBIAN_WINDOW_PACKAGE_SUGGESTS "tarnwick-cli")
set(CPACK_COMPONENT_WINDOW_DESCRIPTION "search a web site for files
Tarnwick crawls a web site from a start URL within limits and lists every URL
that it meets, with type, size, status and depth. The list is narrowed by
filters, kept in search files, and downloaded.
.
This package holds the program with windows, in English, German and French.")

set(CPACK_DEBIAN_CONSOLE_PACKAGE_NAME tarnwick-cli)
set(CPACK_COMPONENT_CONSOLE_DESCRIPTION "search a web site for files, from the console
Tarnwick crawls a web site from a start URL within limits and lists every URL
that it meets, with type, size, status and depth. The list is narrowed by
filters, kept in search files, and downloaded.
.
This package holds the console program, for scripts and for machines without a
display.")

set(CPACK_DEBIAN_BROWSER_PACKAGE_NAME tarnwick-browser)
set(CPACK_DEBIAN_BROWSER_PACKAGE_DEPENDS "tarnwick (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_BROWSER_DESCRIPTION "search a web site for files: browser to pick URLs with
Tarnwick crawls a web site from a start URL within limits and lists every URL
that it meets, with type, size, status and depth. The list is narrowed by
filters, kept in search files, and downloaded.
.
This package lets the window pick a URL in a browser of its own.")
include(CPack)
