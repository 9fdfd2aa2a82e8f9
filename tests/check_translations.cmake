# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Fails when a Qt Linguist source is behind the code: lupdate, run on a copy
# of each catalogue, marks a text the code gained as unfinished and one it
# lost as vanished/obsolete. Every message must also carry a translation.
# Inputs: LUPDATE, SOURCE_DIR, WORK_DIR.
cmake_minimum_required(VERSION 3.16)
file(GLOB catalogues "${SOURCE_DIR}/translations/signaltreelist_*.ts")
list(LENGTH catalogues count)
if(count LESS 2)
    message(FATAL_ERROR "expected at least two catalogues, found ${count}")
endif()
file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}")
foreach(ts IN LISTS catalogues)
    get_filename_component(name "${ts}" NAME)
    file(COPY "${ts}" DESTINATION "${WORK_DIR}")
    execute_process(COMMAND "${LUPDATE}" -silent -locations none
                            "${SOURCE_DIR}/signaltreelist" "${SOURCE_DIR}/tarnwidgets"
                            -ts "${WORK_DIR}/${name}"
                    RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "lupdate failed on ${name}: ${out}")
    endif()
    file(READ "${WORK_DIR}/${name}" updated)
    string(REGEX MATCHALL "type=\"(unfinished|vanished|obsolete)\"" stale "${updated}")
    string(REGEX MATCHALL "<message>" messages "${updated}")
    string(REGEX MATCHALL "<translation>[^<]+</translation>" translated "${updated}")
    list(LENGTH messages n_messages)
    list(LENGTH translated n_translated)
    if(stale OR NOT n_messages EQUAL n_translated OR n_messages EQUAL 0)
        message(SEND_ERROR "${name}: ${n_translated} of ${n_messages} texts translated; "
                           "out of date: ${stale}. Run lupdate on translations/ and translate.")
    else()
        message(STATUS "${name}: ${n_messages} texts, all translated and current")
    endif()
endforeach()
