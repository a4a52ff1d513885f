target_link_libraries(fuzz_inflate PRIVATE z)
