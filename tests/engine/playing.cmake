foreach(test queue rules position settings handlers timer noserver)
    quillon_test(tst_player_${test} tst_player_${test}.cpp LIBS engine)
endforeach()
foreach(test server devices)
    quillon_test(tst_player_${test} tst_player_${test}.cpp ../support/PulseServer.cpp LIBS engine)
endforeach()

foreach(test queue rules position settings handlers timer noserver server devices)
    set_property(TEST tst_player_${test} APPEND PROPERTY ENVIRONMENT
        "TSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/tsan.supp")
endforeach()
