# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Fails when libsignaltreelist exports a symbol that belongs to neither
# SignalTreeList nor st_NodeInfoSignal. Input: LIBRARY.
find_program(NM nm REQUIRED)
execute_process(COMMAND ${NM} -D -C --defined-only "${LIBRARY}"
                OUTPUT_VARIABLE symbols RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
    message(FATAL_ERROR "nm failed on ${LIBRARY}")
endif()
string(REPLACE "\n" ";" lines "${symbols}")
set(seen_tree FALSE)
set(seen_node FALSE)
foreach(line IN LISTS lines)
    # "<address> <type> <name>"; linker-made markers have no C++ name.
    if(NOT line MATCHES "^[0-9a-f]+ ([A-Za-z]) (.+)$")
        continue()
    endif()
    set(type "${CMAKE_MATCH_1}")
    set(name "${CMAKE_MATCH_2}")
    # Unoptimised builds emit Qt's own inline members out of line; Qt marks
    # its classes visible, so those weak copies are exported. They are Qt's
    # code, not ours.
    # The sanitizer build (UBSan's vptr check) adds weak copies of Qt's type
    # names ("typeinfo name for QObjectData") for the same reason.
    # Qt 6's meta-type templates for QList<int> add unique ("u") statics
    # and their guard variables, Qt's as well.
    if(type MATCHES "^[WVu]$" AND name MATCHES "^(typeinfo for |typeinfo name for |vtable for |guard variable for |)Q[A-Za-z0-9_]*(<.*>)?(::|$)"
       AND NOT name MATCHES "st_NodeInfoSignal|SignalTreeList")
        continue()
    endif()
    if(name MATCHES "^(_init|_fini|_edata|_end|__bss_start)$")
        continue()
    endif()
    if(name MATCHES "SignalTreeList")
        set(seen_tree TRUE)
    elseif(name MATCHES "st_NodeInfoSignal")
        set(seen_node TRUE)
    else()
        message(FATAL_ERROR "unexpected exported symbol: ${name}")
    endif()
endforeach()
if(NOT seen_tree OR NOT seen_node)
    message(FATAL_ERROR "SignalTreeList or st_NodeInfoSignal is not exported")
endif()
message(STATUS "exports: only SignalTreeList and st_NodeInfoSignal")
