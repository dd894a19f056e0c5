# The real program on a virtual desktop. Debian's own Python, since the bindings to the accessibility
# bus come as a package of it.
foreach(name IN ITEMS window wayland settings)
    add_test(NAME e2e_${name}
        COMMAND /usr/bin/python3 -W ignore::ImportWarning
                ${CMAKE_CURRENT_SOURCE_DIR}/e2e/test_${name}.py)
    set_tests_properties(e2e_${name} PROPERTIES
        TIMEOUT 600
        ENVIRONMENT "VRKTRK_PROGRAM=$<TARGET_FILE:VrkTrk>;PYTHONDONTWRITEBYTECODE=1;\
LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/leaks.supp:print_suppressions=0")
endforeach()
