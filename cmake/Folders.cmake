# One static library for each folder of the sources. The table src/folders says which folders a folder may include,
# and so which libraries its library links. An include that is not in the table fails the build.

set(PLURIMO_FOLDER_TABLE "${PROJECT_SOURCE_DIR}/src/folders")
file(STRINGS "${PLURIMO_FOLDER_TABLE}" PLURIMO_FOLDER_LINES REGEX "^[^#]")
set_property(DIRECTORY "${PROJECT_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PLURIMO_FOLDER_TABLE}")

file(GLOB_RECURSE PLURIMO_INCLUDING_FILES CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/*.h" "${PROJECT_SOURCE_DIR}/src/*.cpp")
add_custom_command(OUTPUT "${CMAKE_BINARY_DIR}/folders.checked"
  COMMAND "${PROJECT_SOURCE_DIR}/tools/check-folders"
  COMMAND "${CMAKE_COMMAND}" -E touch "${CMAKE_BINARY_DIR}/folders.checked"
  DEPENDS "${PLURIMO_FOLDER_TABLE}" "${PROJECT_SOURCE_DIR}/tools/check-folders" ${PLURIMO_INCLUDING_FILES}
  COMMENT "Checking which folder includes which"
  VERBATIM)
add_custom_target(plurimo_folders_checked DEPENDS "${CMAKE_BINARY_DIR}/folders.checked")

# The name of a folder's library: "duplicate/engine" is built as plurimo_duplicate_engine.
function(plurimo_library_of folder result)
  string(REPLACE "/" "_" name "plurimo_${folder}")
  set(${result} "${name}" PARENT_SCOPE)
endfunction()

# plurimo_folder(FOLDER [WIDGETS] [LINKS library...] SOURCES file...): the library of a folder. LINKS are libraries
# from outside the project. With WIDGETS the folder has Qt classes and interface files.
function(plurimo_folder folder)
  cmake_parse_arguments(ARG "WIDGETS" "" "LINKS;SOURCES" ${ARGN})
  plurimo_library_of(${folder} name)
  list(TRANSFORM ARG_SOURCES PREPEND "${PROJECT_SOURCE_DIR}/src/${folder}/")
  add_library(${name} STATIC ${ARG_SOURCES})
  add_dependencies(${name} plurimo_folders_checked)
  target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(${name} PUBLIC plurimo_common ${ARG_LINKS})
  foreach(line IN LISTS PLURIMO_FOLDER_LINES)
    if(line MATCHES "^${folder}:(.*)$")
      string(REGEX MATCHALL "[^ ]+" used_folders "${CMAKE_MATCH_1}")
      foreach(used IN LISTS used_folders)
        plurimo_library_of(${used} used_name)
        target_link_libraries(${name} PUBLIC ${used_name})
      endforeach()
    endif()
  endforeach()
  # The sanitizers' builds are many and need no exact commands for other tools, so they share one precompiled header.
  # It fits only libraries that are compiled like foundation, without the flags of a toolkit.
  if(PLURIMO_SANITIZE MATCHES "address,undefined|thread" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    if(folder STREQUAL "foundation")
      target_precompile_headers(${name} PRIVATE <algorithm> <atomic> <chrono> <functional> <map> <memory> <mutex>
        <optional> <string> <string_view> <thread> <tl/expected.hpp> <vector>)
    elseif(folder MATCHES "^(duplicate/.*|platform|platform/posix|platform/simulator|enclosures|discovery|filetree|log)$")
      target_precompile_headers(${name} REUSE_FROM plurimo_foundation)
    endif()
  endif()
  if(ARG_WIDGETS)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON
      AUTOUIC_SEARCH_PATHS "${PROJECT_SOURCE_DIR}/src/resources")
    # A target that includes a header of the folder needs the class that was generated from its interface file.
    target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/include")
  endif()
endfunction()
