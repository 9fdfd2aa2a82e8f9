# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Fails when a source of the library includes one of a higher layer: the
# layers only look down (README, "How it is built"). Every source must be in
# a layer; files past about 800 lines fail too. Input: SOURCE_DIR.
cmake_minimum_required(VERSION 3.16)

# Lowest first. Helpers any layer may use come first.
set(layer_0 HandlerGuard RepolishGuard LayoutInstall QtCompat StyleConstants TabChain Translations
            SignalTreeList_p QuietAccessibility)
set(layer_1 st_NodeInfoSignal NodeInfoTrace TreeListModel ButtonFlags PendingRows ChildRowState LookHistory TextFit RowTexts
            TreeListObserver)
set(layer_2 LayoutSlots TreeLayout)
set(layer_3 SecondItem RootItem DrawerControl DrawerDragDrop DrawerRows ItemChangeControllor TreeListFrame RowMetrics RowSlot RowRealiser
            RowReplay)
set(layer_4 ShownRows KeyboardNavigator SelectionAnnouncer AccessibleRows RowAccessible TreeListAccessible)
set(layer_5 SignalTreeList)
set(layers 0 1 2 3 4 5)

function(layer_of name out)
    set(found -1)
    foreach(i IN LISTS layers)
        if(name IN_LIST layer_${i})
            set(found ${i})
        endif()
    endforeach()
    set(${out} ${found} PARENT_SCOPE)
endfunction()

file(GLOB sources RELATIVE "${SOURCE_DIR}/signaltreelist" "${SOURCE_DIR}/signaltreelist/*.h"
     "${SOURCE_DIR}/signaltreelist/*.cpp")
set(problems)
foreach(source IN LISTS sources)
    get_filename_component(name "${source}" NAME_WE)
    layer_of(${name} own)
    if(own EQUAL -1)
        list(APPEND problems "${source}: in no layer")
        continue()
    endif()
    file(STRINGS "${SOURCE_DIR}/signaltreelist/${source}" lines)
    list(LENGTH lines count)
    if(count GREATER 820)
        list(APPEND problems "${source}: ${count} lines")
    endif()
    foreach(line IN LISTS lines)
        if(line MATCHES "^#include \"([A-Za-z_]+)\\.h\"")
            layer_of(${CMAKE_MATCH_1} used)
            if(used GREATER own)
                list(APPEND problems "${source} (layer ${own}) includes ${CMAKE_MATCH_1}.h (layer ${used})")
            endif()
        endif()
    endforeach()
endforeach()

if(problems)
    list(JOIN problems "\n  " text)
    message(FATAL_ERROR "layering:\n  ${text}")
endif()
message(STATUS "every include of the library looks down")
