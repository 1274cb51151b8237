# A layer of the program: one folder, one target. Its headers are reachable as "folder/header.h"
# by the targets that link it and by no others, so an include against the order of the
# layers does not build.

# Makes the given headers of the current folder reachable through the target.
function(zendor_expose target scope)
  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  set(root ${PROJECT_BINARY_DIR}/include/${target})
  file(REMOVE_RECURSE ${root})
  file(MAKE_DIRECTORY ${root}/${folder})
  foreach(header IN LISTS ARGN)
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${header} ${root}/${folder}/${header} SYMBOLIC)
  endforeach()
  target_include_directories(${target} ${scope} ${root})
endfunction()

# Makes the current folder a layer: a library of every source and header directly in it, except a
# main.cpp.
function(zendor_layer target)
  file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} *.h)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(sources)
    add_library(${target} STATIC ${sources})
    zendor_expose(${target} PUBLIC ${headers})
  else()
    add_library(${target} INTERFACE)
    zendor_expose(${target} INTERFACE ${headers})
  endif()
endfunction()
