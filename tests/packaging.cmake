# The packages, installed and taken off again. Alone, since that changes the machine, and only of what
# people install. The time goes into lintian and the starts of windows.
if(NOT VRKTRK_SANITIZE)
    set(packages ${PROJECT_BINARY_DIR}/packaging/packages)
    # By who builds, not by root; nothing of that person's umask may show.
    add_test(NAME package_made
        COMMAND sh -c "rm -rf '${packages}' && umask 077 && exec '${CMAKE_CPACK_COMMAND}' -B '${packages}'"
        WORKING_DIRECTORY ${PROJECT_BINARY_DIR})
    add_test(NAME package
        COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/packaging/spare_root.sh
                /usr/bin/python3 -W ignore::ImportWarning
                ${CMAKE_CURRENT_SOURCE_DIR}/packaging/test_package.py)
    set_tests_properties(package_made PROPERTIES FIXTURES_SETUP packages)
    set_tests_properties(package PROPERTIES
        FIXTURES_REQUIRED packages
        TIMEOUT 600
        RUN_SERIAL ON
        ENVIRONMENT "VRKTRK_BUILD=${PROJECT_BINARY_DIR};VRKTRK_PACKAGES=${packages};PYTHONPATH=${CMAKE_CURRENT_SOURCE_DIR}/e2e;PYTHONDONTWRITEBYTECODE=1")
endif()
