# Provides CLI11::CLI11. CLI11 consists of headers alone, so those of this system serve a cross
# build as well, by a link that keeps the system's other headers out.
if(CMAKE_CROSSCOMPILING)
  find_path(CLI11_HEADERS CLI/CLI.hpp HINTS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
            REQUIRED)
  set(folder ${PROJECT_BINARY_DIR}/cli11)
  file(MAKE_DIRECTORY ${folder})
  file(CREATE_LINK ${CLI11_HEADERS}/CLI ${folder}/CLI SYMBOLIC)
  add_library(CLI11::CLI11 INTERFACE IMPORTED GLOBAL)
  target_include_directories(CLI11::CLI11 SYSTEM INTERFACE ${folder})
else()
  find_package(CLI11 REQUIRED)
endif()
