# Gives a Windows program the icon, the manifest, and its version with the description, which Windows
# shows in the place of the file's name.
function(zendor_windows_resources program description)
  set(icon ${PROJECT_SOURCE_DIR}/platform/shared/icon/zendor_serial_extractor.ico)
  set(manifest ${PROJECT_SOURCE_DIR}/program/windows/manifest.xml)
  set(resources ${CMAKE_CURRENT_BINARY_DIR}/${program}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/program/windows/resources.rc.in ${resources} @ONLY)
  set_property(SOURCE ${resources} PROPERTY OBJECT_DEPENDS ${manifest} ${icon})
  target_sources(${program} PRIVATE ${resources})
endfunction()
