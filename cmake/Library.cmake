# tarvelo_library(NAME SOURCES ... [USES ...]): one library a folder. Its headers are reached as
# "NAME/header.h" by those libraries alone that declare it under USES (and by whoever uses those):
# each folder is put on the include path through a folder of its own that holds only a link to it,
# so an include of an undeclared folder does not build.
function(tarvelo_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
  add_library(tarvelo_${name} STATIC ${arg_SOURCES})
  set(include ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${include})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${name} ${include}/${name} COPY_ON_ERROR SYMBOLIC)
  target_include_directories(tarvelo_${name} PUBLIC ${include})
  list(TRANSFORM arg_USES PREPEND tarvelo_)
  target_link_libraries(tarvelo_${name} PUBLIC ${arg_USES} PRIVATE tarvelo_compiler)
endfunction()
