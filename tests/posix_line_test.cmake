# The port service of Linux, on pseudo-terminals and a made-up list of devices.
add_executable(posix_line_test posix_line_test.cpp)
target_link_libraries(posix_line_test PRIVATE zendor_posix GTest::gtest_main)
gtest_discover_tests(posix_line_test)
