# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Debian packages with CPack (scripts/package.sh): per flavour a runtime
# package named after the SONAME (the two shared libraries) and a -dev
# package (headers, CMake package, pkg-config file, reference style sheet,
# API reference). Both flavours install side by side.

set(SIGNALTREELIST_MAINTAINER "signaltreelist developers <signaltreelist@lists.example.org>")

# The machine-readable copyright file (DEP-5), built from LICENSES/ so the
# licence text lives in one place.
file(READ ${PROJECT_SOURCE_DIR}/LICENSES/BSD-3-Clause.txt licence_text)
string(REGEX REPLACE "\n+$" "" licence_text "${licence_text}")
string(REGEX REPLACE "\n\n" "\n.\n" licence_text "${licence_text}")
string(REPLACE "\n" "\n " licence_text " ${licence_text}")
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/debian/copyright
"Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: signaltreelist
Upstream-Contact: ${SIGNALTREELIST_MAINTAINER}

Files: *
Copyright: 2026 The signaltreelist developers
License: BSD-3-Clause
${licence_text}
")

# Debian wants a changelog in every package, gzip-compressed.
string(TIMESTAMP changelog_date "%a, %d %b %Y 00:00:00 +0000" UTC)
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/debian/changelog.Debian
"${SIGNALTREELIST_PACKAGE} (${PROJECT_VERSION}-1) unstable; urgency=medium

  * Release ${PROJECT_VERSION}, built from the signaltreelist sources.

 -- ${SIGNALTREELIST_MAINTAINER}  ${changelog_date}
")
# gzip -n: no name or time stamp in the header.
execute_process(COMMAND gzip -9 -n -c ${CMAKE_CURRENT_BINARY_DIR}/debian/changelog.Debian
                OUTPUT_FILE ${CMAKE_CURRENT_BINARY_DIR}/debian/changelog.Debian.gz
                RESULT_VARIABLE gzip_result)
if(NOT gzip_result EQUAL 0)
    message(FATAL_ERROR "gzip failed on the Debian changelog")
endif()

set(debian_docs ${CMAKE_CURRENT_BINARY_DIR}/debian/copyright
                ${CMAKE_CURRENT_BINARY_DIR}/debian/changelog.Debian.gz)
install(FILES ${debian_docs} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${SIGNALTREELIST_RUNTIME_PACKAGE}
        COMPONENT runtime)
install(FILES ${debian_docs} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${SIGNALTREELIST_DEV_PACKAGE}
        COMPONENT development)

if(SIGNALTREELIST_QT STREQUAL "Qt5")
    set(qt_dev_package qtbase5-dev)
else()
    set(qt_dev_package qt6-base-dev)
endif()

# The libraries' directory is one the loader caches: the runtime package
# updates that cache through dpkg's ldconfig trigger.
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/debian/triggers "activate-noawait ldconfig\n")

set(CPACK_GENERATOR DEB)
# Equal to CPack's own default: CPackDeb then prepends no summary line and
# takes each package's description (its first line the synopsis) as it is.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_NAME} built using CMake")
set(CPACK_PACKAGE_NAME ${SIGNALTREELIST_PACKAGE})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${SIGNALTREELIST_MAINTAINER}")
set(CPACK_PACKAGE_VENDOR "The signaltreelist developers")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# dpkg-shlibdeps looks for libtarnwidgets in the staging tree.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${CMAKE_CURRENT_BINARY_DIR}/tarnwidgets ${CMAKE_CURRENT_BINARY_DIR}/signaltreelist)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${SIGNALTREELIST_RUNTIME_PACKAGE})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_BINARY_DIR}/debian/triggers)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
"two-level list of video input signals for ${SIGNALTREELIST_QT} hosts
SignalTreeList is a ready-made Qt widget for the control software of video
walls and matrix switchers: input sources and signal groups with the
signals under them, connector-type icons, online states, hover buttons and
drag and drop grouping.
.
This package holds the shared libraries libsignaltreelist and
libtarnwidgets built against ${SIGNALTREELIST_QT}.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${SIGNALTREELIST_DEV_PACKAGE})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${SIGNALTREELIST_RUNTIME_PACKAGE} (= ${PROJECT_VERSION}-1), ${qt_dev_package}")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
"two-level list of video input signals for ${SIGNALTREELIST_QT} hosts (development files)
SignalTreeList is a ready-made Qt widget for the control software of video
walls and matrix switchers.
.
This package holds the headers, the CMake package
(find_package(${SIGNALTREELIST_PACKAGE})), the pkg-config file, the
reference dark style sheet and the HTML API reference.")

include(CPack)
