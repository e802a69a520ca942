# SPDX-License-Identifier: LicenseRef-Proprietary
# Tests in Python. They run under Debian's own Python, for which Debian packages pytest and pexpect;
# another one found first on PATH would lack them.
find_program(SYSTEM_PYTHON3 python3 PATHS /usr/bin NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)

# Where a toolchain file names a CHECKER, that watches over the whole test, and what the test starts
# ends as it does by itself.

# add_python_test(NAME FILE VARIABLE=VALUE...): runs pytest on the file, with those variables set.
function(add_python_test name file)
    add_test(NAME ${name} COMMAND ${CHECKER} ${SYSTEM_PYTHON3} -m pytest -q -rs -p no:cacheprovider ${file})
    set_property(TEST ${name} PROPERTY TIMEOUT 600)
    set_property(TEST ${name} PROPERTY ENVIRONMENT
        PYTHONDONTWRITEBYTECODE=1 SORELAPP_SOURCE_DIR=${PROJECT_SOURCE_DIR} ${ARGN})
endfunction()

# add_shell_test(NAME FILE EXECUTABLE [VARIABLE=VALUE...]): as add_python_test, with the variables
# that tests/e2e/shell.py reads, and that file to import.
function(add_shell_test name file executable)
    # A shell built for another machine runs under the emulator that the toolchain file names.
    set(emulator ${CMAKE_CROSSCOMPILING_EMULATOR})
    list(REMOVE_ITEM emulator "${CHECKER}")
    list(JOIN emulator "' '" emulator)
    if(emulator)
        set(emulator "'${emulator}' ")
    endif()
    add_python_test(${name} ${file}
        PYTHONPATH=${PROJECT_SOURCE_DIR}/tests/e2e
        "SORELAPP=${emulator}'${executable}'"
        SOREL_SIMULATION_DIR=$<TARGET_FILE_DIR:sorel_simulation>
        ODD_DRIVER_DIR=$<TARGET_FILE_DIR:lacking_driver>
        SOREL_FORWARDING_DIR=$<TARGET_FILE_DIR:sorel_forwarding>
        RECORDING_DRIVER_DIR=$<TARGET_FILE_DIR:recording_driver>
        PRELOAD_DIR=$<TARGET_FILE_DIR:preload_no_memory>
        ${ARGN})
endfunction()
