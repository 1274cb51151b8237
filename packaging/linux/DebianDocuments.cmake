# CPack includes this file before it makes the Debian packages. Each gets the changelog, and its
# documents are compressed, as Debian wants them. The compressed files hold no time, because a time
# would differ from run to run.
file(GLOB folders ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/share/doc/*)
foreach(folder IN LISTS folders)
  file(COPY ${CMAKE_CURRENT_LIST_DIR}/changelog DESTINATION ${folder}
       FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endforeach()
file(GLOB documents ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/share/doc/*/changelog
                    ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/share/man/man1/*.1)
execute_process(COMMAND gzip -9n ${documents} COMMAND_ERROR_IS_FATAL ANY)
