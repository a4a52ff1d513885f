target_link_libraries(inflate_bench PRIVATE z deflate)
