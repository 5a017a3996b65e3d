foreach(name
        tst_mp3_bitrates
        tst_mp3_format_commands
        tst_mp3_format_presets
        tst_tags_mp3
        tst_tags_ogg_wma
        tst_tags_faults
        tst_write_create
        tst_write_faults
        tst_write_formats
        tst_write_mp3
        tst_write_mp3_properties
        tst_write_ogg
        tst_write_wav
        tst_write_wma)
    quillon_test(${name} ${name}.cpp LIBS engine)
endforeach()
# It asks the live library for its own presets.
target_link_libraries(tst_mp3_format_presets PRIVATE ${CMAKE_DL_LIBS})
