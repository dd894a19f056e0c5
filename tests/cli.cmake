# vrk3 as it is started by people, and what other programs make of its files. Debian's own Python,
# since jsonschema comes as a package of it.
foreach(name IN ITEMS vrk3 others)
    add_test(NAME cli_${name}
             COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/cli/test_${name}.py)
    set_tests_properties(cli_${name} PROPERTIES TIMEOUT 300 ENVIRONMENT
        "VRK3=$<TARGET_FILE:vrk3>;VRK3_SAMPLE=${PROJECT_BINARY_DIR}/sample/drive.vrk3;VRK3_SOURCE=${PROJECT_SOURCE_DIR};PYTHONDONTWRITEBYTECODE=1")
endforeach()

vrktrk_add_test(tst_samebytes vrktrk_gps vrktrk_sample)
target_compile_definitions(tst_samebytes PRIVATE VRK3="$<TARGET_FILE:vrk3>")
add_dependencies(tst_samebytes vrk3)
