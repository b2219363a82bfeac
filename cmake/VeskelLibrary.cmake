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

# veskel_qt_library(NAME SOURCES... ) makes the library NAME_qt of the few Qt files in a folder. The folder's rules stay
# in NAME, which links no Qt, so that a Qt include in a rule fails to compile.
function(veskel_qt_library name)
  add_library(${name}_qt STATIC ${ARGN})
  set_target_properties(${name}_qt PROPERTIES AUTOMOC ON AUTORCC ON)
  target_include_directories(${name}_qt PUBLIC ${PROJECT_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/include/${name})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/include/${name}/${name} SYMBOLIC)
  # Text crosses to and from Qt in one header only, and no connection outlives its receiver.
  target_compile_definitions(${name}_qt PUBLIC QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CONTEXTLESS_CONNECT)
  target_link_libraries(${name}_qt PUBLIC Qt6::Widgets PRIVATE project_warnings)
endfunction()
