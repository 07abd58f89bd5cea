# tarvelo_library(NAME [SOURCES ...] [USES ...]): a library for one folder; without SOURCES, of all its *.cpp
# files. NAME is the folder ("core", "shell/hex"), the target is tarvelo_core, tarvelo_shell_hex.
#
# Its headers are included as "NAME/header.h". A folder must declare under USES every folder that it includes
# from: otherwise the build fails, even if the compiler would find the file through another library.
function(tarvelo_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
  if(NOT arg_SOURCES)
    file(GLOB arg_SOURCES CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/${name} ${CMAKE_SOURCE_DIR}/${name}/*.cpp)
  endif()
  list(TRANSFORM arg_SOURCES PREPEND ${CMAKE_SOURCE_DIR}/${name}/)
  string(MAKE_C_IDENTIFIER tarvelo_${name} target)
  add_library(${target} STATIC ${arg_SOURCES})

  # A folder on the include path that contains only a link to this one.
  set(include ${CMAKE_BINARY_DIR}/include/${target})
  get_filename_component(parent ${name} DIRECTORY)
  file(MAKE_DIRECTORY ${include}/${parent})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${name} ${include}/${name} COPY_ON_ERROR SYMBOLIC)
  target_include_directories(${target} PUBLIC ${include})

  tarvelo_targets(libraries ${arg_USES})
  target_link_libraries(${target} PUBLIC ${libraries} PRIVATE tarvelo_compiler)
  tarvelo_check_includes(${target} ${name} "${arg_USES}")
endfunction()

# Returns the targets of folders and header libraries.
function(tarvelo_targets result)
  set(targets)
  foreach(name ${ARGN})
    string(MAKE_C_IDENTIFIER tarvelo_${name} target)
    list(APPEND targets ${target})
  endforeach()
  set(${result} ${targets} PARENT_SCOPE)
endfunction()

# Fails the build of a target if a file of a folder includes a file of a folder that is not in `uses`.
function(tarvelo_check_includes target folder uses)
  file(GLOB files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.h ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
  set(stamp ${CMAKE_BINARY_DIR}/include/${target}.checked)
  string(REPLACE ";" "|" uses "${uses}")
  add_custom_command(
    OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -DROOT=${CMAKE_SOURCE_DIR} -DFOLDER=${folder} "-DUSES=${uses}" -DSTAMP=${stamp}
            -P ${CMAKE_SOURCE_DIR}/cmake/CheckIncludes.cmake
    DEPENDS ${files} ${CMAKE_SOURCE_DIR}/cmake/CheckIncludes.cmake
    VERBATIM)
  add_custom_target(${target}_includes DEPENDS ${stamp})
  add_dependencies(${target} ${target}_includes)
endfunction()
