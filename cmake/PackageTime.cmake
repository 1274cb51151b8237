# CPack includes this file. The same source gives the same packages, byte for byte, because the
# files in them have the time of the last commit, told in UTC. In sources without a history the
# files keep their own times.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND git log -1 --format=%ct WORKING_DIRECTORY ${CMAKE_CURRENT_LIST_DIR}
                  OUTPUT_VARIABLE last_commit OUTPUT_STRIP_TRAILING_WHITESPACE
                  RESULT_VARIABLE failure ERROR_QUIET)
  if(NOT failure)
    set(ENV{SOURCE_DATE_EPOCH} ${last_commit})
  endif()
endif()
set(ENV{TZ} UTC)
