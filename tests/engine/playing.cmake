foreach(test queue rules handlers timer noserver)
    quillon_test(tst_player_${test} tst_player_${test}.cpp LIBS engine)
endforeach()
quillon_test(tst_player_server tst_player_server.cpp ../support/PulseServer.cpp LIBS engine)

foreach(test queue rules handlers timer noserver server)
    set_property(TEST tst_player_${test} APPEND PROPERTY ENVIRONMENT
        "TSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/tsan.supp")
endforeach()
