# OpenSSL's base64 as the measure (Debian's libssl-dev).
find_package(OpenSSL REQUIRED COMPONENTS Crypto)
target_link_libraries(net_bench PRIVATE OpenSSL::Crypto)
