# veskel_library(NAME SOURCES... ) makes the static library of one folder under src/.
#
# Its headers are included as "NAME/header.h". The include path of a folder reaches that folder alone, by a
# link in the build tree, so a target sees only the folders it links: a wrong include fails to compile.
function(veskel_library name)
  add_library(${name} STATIC ${ARGN})
  set(root ${PROJECT_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)
  target_include_directories(${name} PUBLIC ${root})
  target_link_libraries(${name} PRIVATE project_warnings)
endfunction()
