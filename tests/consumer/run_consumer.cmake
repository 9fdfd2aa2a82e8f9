# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Installs the build tree into a scratch prefix, builds the consumer against
# it with find_package() and with pkg-config, and runs both.
# Inputs: BUILD_DIR, SOURCE_DIR, WORK_DIR, PACKAGE (signaltreelist or
# signaltreelist-qt6); OTHER_BUILD_DIR, when set, is installed into the same
# prefix first: the two flavours must live side by side.
file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "failed (${rc}): ${ARGN}")
    endif()
endfunction()

if(OTHER_BUILD_DIR)
    run(${CMAKE_COMMAND} --install "${OTHER_BUILD_DIR}" --prefix "${prefix}")
endif()
run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")
run(${CMAKE_COMMAND} -S "${SOURCE_DIR}" -B "${WORK_DIR}/build" -G Ninja
    "-DCMAKE_PREFIX_PATH=${prefix}" "-DSIGNALTREELIST_PACKAGE=${PACKAGE}")
run(${CMAKE_COMMAND} --build "${WORK_DIR}/build")
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen "${WORK_DIR}/build/consumer")

# The same program through pkg-config, as a Makefile-based host would build it.
find_program(PKG_CONFIG pkg-config REQUIRED)
execute_process(COMMAND ${CMAKE_COMMAND} -E env "PKG_CONFIG_PATH=${prefix}/lib/pkgconfig"
                        ${PKG_CONFIG} --cflags --libs ${PACKAGE}
                OUTPUT_VARIABLE flags RESULT_VARIABLE rc OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT rc EQUAL 0)
    message(FATAL_ERROR "pkg-config does not know ${PACKAGE}")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
run(c++ -std=c++17 -fPIC "${SOURCE_DIR}/main.cpp" ${flags} "-Wl,-rpath,${prefix}/lib"
    -o "${WORK_DIR}/consumer-pkgconfig")
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen "${WORK_DIR}/consumer-pkgconfig")
