# SPDX-License-Identifier: LGPL-2.1-or-later
# delay_load(TARGET NAME...): links those libraries of the system to TARGET, each to be loaded when one of its functions
# is called for the first time. What the program's start does not need it need not wait for.
function(delay_load target)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4) # where names carry the length of their arguments; nothing is started there
    target_link_libraries(${target} PUBLIC ${ARGN})
    return()
  endif()
  foreach(name ${ARGN})
    set(library ${CMAKE_BINARY_DIR}/delayed/lib${name}.a)
    if(NOT EXISTS ${library})
      # The compiler's own library tells the names.
      execute_process(COMMAND ${CMAKE_C_COMPILER} -print-file-name=lib${name}.a OUTPUT_VARIABLE whole
        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
      execute_process(COMMAND ${CMAKE_NM} ${whole} OUTPUT_VARIABLE symbols ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
      string(REGEX MATCHALL " I __imp_[A-Za-z0-9_]+" symbols "${symbols}")
      list(TRANSFORM symbols REPLACE "^ I __imp_" "  ")
      list(REMOVE_DUPLICATES symbols)
      list(JOIN symbols "\n" symbols)
      file(WRITE ${library}.def "LIBRARY ${name}.dll\nEXPORTS\n${symbols}\n")
      # It makes names of symbols out of the path, which must not tell where this folder lies.
      execute_process(COMMAND ${CMAKE_DLLTOOL} --input-def lib${name}.a.def --output-delaylib lib${name}.a
        WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/delayed COMMAND_ERROR_IS_FATAL ANY)
    endif()
    target_link_libraries(${target} PUBLIC ${library} delayimp)
  endforeach()
endfunction()
