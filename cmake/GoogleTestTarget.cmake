# Provides GTest::gtest_main: the library of this system or, for a cross build, one built from the
# sources that the package googletest brings.
if(CMAKE_CROSSCOMPILING)
  find_path(GOOGLETEST_SOURCES CMakeLists.txt HINTS /usr/src/googletest NO_DEFAULT_PATH
            NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(BUILD_GMOCK OFF)
  set(INSTALL_GTEST OFF)
  add_subdirectory(${GOOGLETEST_SOURCES} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
else()
  find_package(GTest REQUIRED)
endif()
