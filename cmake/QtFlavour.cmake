# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# The Qt the whole tree builds with, and the names that keep the two
# flavours apart once installed side by side.
#
#   QT_MAJOR_VERSION 5 (default): Qt 5.15; package "signaltreelist",
#                                 libsignaltreelist.so.1, as always.
#   QT_MAJOR_VERSION 6:           Qt 6.4 or newer; package "signaltreelist-qt6",
#                                 libsignaltreelist-qt6.so.1, its own header
#                                 and data directories.
#
# Sets SIGNALTREELIST_QT (Qt5 or Qt6, the prefix of Qt's targets),
# SIGNALTREELIST_QT_MIN, SIGNALTREELIST_FLAVOUR ("" or "-qt6") and
# SIGNALTREELIST_PACKAGE.
set(QT_MAJOR_VERSION 5 CACHE STRING "Qt major version to build with: 5 or 6")
set_property(CACHE QT_MAJOR_VERSION PROPERTY STRINGS 5 6)
if(QT_MAJOR_VERSION STREQUAL "5")
    set(SIGNALTREELIST_QT Qt5)
    set(SIGNALTREELIST_QT_MIN 5.15)
    set(SIGNALTREELIST_FLAVOUR "")
elseif(QT_MAJOR_VERSION STREQUAL "6")
    set(SIGNALTREELIST_QT Qt6)
    set(SIGNALTREELIST_QT_MIN 6.4)
    set(SIGNALTREELIST_FLAVOUR "-qt6")
else()
    message(FATAL_ERROR "QT_MAJOR_VERSION must be 5 or 6, not '${QT_MAJOR_VERSION}'")
endif()
set(SIGNALTREELIST_PACKAGE signaltreelist${SIGNALTREELIST_FLAVOUR})
# Debian package names of the flavour: the runtime one after the SONAME
# (a hyphen before the version where the name ends in a digit), then -dev.
if(SIGNALTREELIST_PACKAGE MATCHES "[0-9]$")
    set(SIGNALTREELIST_RUNTIME_PACKAGE lib${SIGNALTREELIST_PACKAGE}-1)
else()
    set(SIGNALTREELIST_RUNTIME_PACKAGE lib${SIGNALTREELIST_PACKAGE}1)
endif()
set(SIGNALTREELIST_DEV_PACKAGE lib${SIGNALTREELIST_PACKAGE}-dev)

# signaltreelist_find_qt(COMPONENT...): the components of the chosen Qt.
macro(signaltreelist_find_qt)
    find_package(${SIGNALTREELIST_QT} ${SIGNALTREELIST_QT_MIN} REQUIRED COMPONENTS ${ARGN})
endmacro()

# signaltreelist_add_resources(OUT_VAR QRC): the resource bundle in rcc
# format version 2 on both flavours; compression is set per file in the
# resource list.
function(signaltreelist_add_resources out qrc)
    if(SIGNALTREELIST_QT STREQUAL "Qt5")
        qt5_add_resources(sources ${qrc} OPTIONS --format-version 2)
    else()
        qt6_add_resources(sources ${qrc} OPTIONS --format-version 2)
    endif()
    set(${out} ${sources} PARENT_SCOPE)
endfunction()

# signaltreelist_add_translations(<out> <ts>...): compiles the Qt Linguist
# sources with lrelease and returns the .qm files in <out>.
function(signaltreelist_add_translations out)
    if(SIGNALTREELIST_QT STREQUAL "Qt5")
        qt5_add_translation(qm_files ${ARGN})
    else()
        qt6_add_translation(qm_files ${ARGN})
    endif()
    set(${out} ${qm_files} PARENT_SCOPE)
endfunction()
