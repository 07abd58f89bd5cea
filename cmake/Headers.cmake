# The header-only libraries. Each is looked for with the build machine's packages too: they hold
# no code of one platform, so a cross build uses the same files. A cross compiler must not see the
# whole of /usr/include, so it gets a folder that holds links to just these.
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
