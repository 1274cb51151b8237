# The window that people use, drawn and operated without a screen, at the densities it is used at.
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
add_executable(window_test window_test.cpp)
target_link_libraries(window_test PRIVATE zendor_qt zendor_app zendor_platform_shared GTest::gtest
                                          Qt6::Test)
gtest_discover_tests(window_test)

# Where the toolkit does not scale by itself, the window has to.
foreach(density 120 144 192)
  gtest_discover_tests(window_test TEST_FILTER Density.* TEST_SUFFIX .${density}
                       TEST_LIST window_test_at_${density}
                       PROPERTIES ENVIRONMENT QT_FONT_DPI=${density}
                                  ENVIRONMENT_MODIFICATION QT_ENABLE_HIGHDPI_SCALING=set:0)
endforeach()
