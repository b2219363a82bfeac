# The two Debian packages, made by CPack of the components that packaging/CMakeLists.txt installs.
set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL cli)
if(VESKEL_WINDOW)
  list(APPEND CPACK_COMPONENTS_ALL window)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)

set(CPACK_PACKAGE_VENDOR "Quillfern")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${VESKEL_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${VESKEL_HOMEPAGE}")
set(CPACK_DEBIAN_PACKAGE_SECTION web)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # else the project's would be put before those of the packages

set(CPACK_DEBIAN_CLI_PACKAGE_NAME veskel-cli)
set(CPACK_DEBIAN_CLI_DESCRIPTION "command line for building sitemaps for websites
Veskel follows every link that stays inside a website and writes six HTML
sitemaps, a sitemap for search engines and a list of the broken pages. Each
scan leaves a report of what changed and where broken links stand.
.
This package holds the command line, with units for systemd that scan a site
each day.")
# Looked for while the program runs, and so seen by nobody: what https needs, and a keeper of passwords.
set(CPACK_DEBIAN_CLI_PACKAGE_RECOMMENDS ca-certificates)
set(CPACK_DEBIAN_CLI_PACKAGE_SUGGESTS "gnome-keyring | libkf5wallet-bin | keepassxc, veskel")

set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME veskel)
set(CPACK_DEBIAN_WINDOW_DESCRIPTION "window for building sitemaps for websites
Veskel follows every link that stays inside a website and writes six HTML
sitemaps, a sitemap for search engines and a list of the broken pages. Each
scan leaves a report of what changed and where broken links stand.
.
This package holds the window, in which the sitemaps are also restyled and
edited before they are published.")
set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS "veskel-cli (= ${PROJECT_VERSION})")
# Qt's window system for Wayland, a keeper of passwords, and what opens links in the browser.
set(CPACK_DEBIAN_WINDOW_PACKAGE_RECOMMENDS
  "qt6-wayland, gnome-keyring | libkf5wallet-bin | keepassxc, xdg-utils")

include(CPack)
