# The port service of Linux: on pseudo-terminals and a made-up list of devices, and on a driver that
# the test itself plays.
foreach(test posix_line_test posix_driver_test)
  add_executable(${test} ${test}.cpp)
  target_link_libraries(${test} PRIVATE zendor_posix GTest::gtest_main)
  gtest_discover_tests(${test})
endforeach()
