# The header-only libraries. They contain no platform-specific code, so a cross build uses the build machine's
# copies too. A cross compiler must not see the whole of /usr/include, so it gets a folder with links to just
# these headers.
function(tarvelo_header_library name header)
  find_path(${name}_INCLUDE ${header} PATH_SUFFIXES ${ARGN} NO_CMAKE_FIND_ROOT_PATH
            PATHS /usr/include REQUIRED)
  add_library(tarvelo_${name} INTERFACE)
  set(include ${${name}_INCLUDE})
  if(CMAKE_CROSSCOMPILING)
    string(REGEX MATCH "^[^/]+" top ${header})
    set(include ${CMAKE_BINARY_DIR}/headers/${name})
    file(MAKE_DIRECTORY ${include})
    file(CREATE_LINK ${${name}_INCLUDE}/${top} ${include}/${top} SYMBOLIC)
  endif()
  target_include_directories(tarvelo_${name} SYSTEM INTERFACE ${include})
endfunction()

tarvelo_header_library(cli11 CLI/CLI.hpp)
tarvelo_header_library(json nlohmann/json.hpp)
tarvelo_header_library(stb stb/stb_image_write.h)
