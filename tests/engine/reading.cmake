# Reading: from files to sample arrays.
foreach(topic wav avi avi_faults avi_memory compressed changes refusals seek converted parallel damage)
    quillon_test(tst_read_${topic} tst_read_${topic}.cpp LIBS engine)
endforeach()
