# The simulated pod by the bytes that it has to send, and its line as a device of this machine.
add_executable(simulator_test simulator_test.cpp)
target_link_libraries(simulator_test PRIVATE zendor_simulator GTest::gtest_main)
gtest_discover_tests(simulator_test)
