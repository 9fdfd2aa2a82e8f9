# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Runs the demo's --screenshot and checks its output.
#
#   cmake -DDEMO=... -DCHECKER=... -DOUTPUT=file.png -P check_screenshot.cmake
#
# The picture must exist, weigh more than 10 kB, have plausible dimensions
# and more than 50 distinct colours; the demo must have logged the click on
# child row [0, 2] that the screenshot shows.
foreach(var DEMO CHECKER OUTPUT)
    if(NOT DEFINED ${var})
        message(FATAL_ERROR "${var} is not set")
    endif()
endforeach()

file(REMOVE "${OUTPUT}")
execute_process(COMMAND "${DEMO}" --screenshot "${OUTPUT}"
                RESULT_VARIABLE result
                OUTPUT_VARIABLE output
                ERROR_VARIABLE errors
                TIMEOUT 90)
message("${output}")
if(NOT result EQUAL 0)
    message(FATAL_ERROR "the demo exited with '${result}':\n${errors}")
endif()
if(NOT EXISTS "${OUTPUT}")
    message(FATAL_ERROR "the demo wrote no ${OUTPUT}")
endif()

file(SIZE "${OUTPUT}" size)
if(size LESS_EQUAL 10240)
    message(FATAL_ERROR "${OUTPUT} has only ${size} bytes")
endif()

if(NOT output MATCHES "signal signal_OnCurrentItemClicked \\[0, 2\\]")
    message(FATAL_ERROR "the click on [0, 2] did not reach the log")
endif()
if(output MATCHES "Reference style sheet not found")
    message(FATAL_ERROR "the demo ran without the reference style sheet")
endif()

# 1200x820 as rendered; accept anything between 600x400 and 4000 a side.
execute_process(COMMAND "${CHECKER}" "${OUTPUT}" 600 400 4000 51
                RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${OUTPUT} does not look like a rendered window")
endif()
message("${OUTPUT}: ${size} bytes, checks passed")
