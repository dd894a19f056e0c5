# The packages, installed and taken off again. Alone, since it changes the machine, and only of what
# people install. Its time is spent on lintian and on starting windows.
if(NOT VRKTRK_SANITIZE)
    add_test(NAME package
        COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/packaging/spare_root.sh
                /usr/bin/python3 -W ignore::ImportWarning
                ${CMAKE_CURRENT_SOURCE_DIR}/packaging/test_package.py)
    set_tests_properties(package PROPERTIES
        TIMEOUT 600
        RUN_SERIAL ON
        ENVIRONMENT "VRKTRK_BUILD=${PROJECT_BINARY_DIR};PYTHONPATH=${CMAKE_CURRENT_SOURCE_DIR}/e2e;PYTHONDONTWRITEBYTECODE=1")
endif()
