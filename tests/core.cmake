vrktrk_add_test(tst_vrk3parser vrktrk_archive vrktrk_sample)
vrktrk_add_test(tst_nmea vrktrk_gps vrktrk_sample)
vrktrk_add_test(tst_tracktext vrktrk_gps)
vrktrk_add_test(tst_gpschain vrktrk_gps vrktrk_sample)
vrktrk_add_test(tst_everybyte vrktrk_gps vrktrk_sample)

# The same files in other zones and languages. Only the PLT line shows them: its month, and its day
# number, which follows the zone.
function(vrktrk_add_chain_test locale zone month day)
    add_test(NAME tst_gpschain_${locale} COMMAND tst_gpschain wholeFiles)
    set_tests_properties(tst_gpschain_${locale} PROPERTIES ENVIRONMENT
        "LC_ALL=${locale}.UTF-8;TZ=${zone};VRKTRK_MONTH=${month};VRKTRK_DAY=${day}")
endfunction()
set_tests_properties(tst_gpschain PROPERTIES ENVIRONMENT "LC_ALL=C.UTF-8;TZ=UTC;VRKTRK_DAY=40625.524531")
vrktrk_add_chain_test(ru_RU Europe/Moscow мар. 40625.399531)
vrktrk_add_chain_test(de_DE America/Sao_Paulo März 40625.649531)
vrktrk_add_chain_test(en_US Asia/Kathmandu Mar 40625.284948)
