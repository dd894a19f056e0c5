vrktrk_add_test(tst_inifile vrktrk_settings)
# Lies alone with the settings.ini that it puts beside itself.
set_target_properties(tst_inifile PROPERTIES
                      RUNTIME_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/inifile)

vrktrk_add_test(tst_icon vrktrk_resources Qt6::Gui)

add_test(NAME translations
         COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/test_translations.py translations
                 ${VRKTRK_LUPDATE}
         WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
