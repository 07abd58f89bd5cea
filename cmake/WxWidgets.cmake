# tarvelo_wx: the text editor, core and base libraries of wxWidgets. On Linux the system's own; for Windows
# the static libraries that tools/wx-mingw built into the folder in the environment variable TARVELO_WX.
add_library(tarvelo_wx INTERFACE)
if(CMAKE_CROSSCOMPILING)
  if(DEFINED ENV{TARVELO_WX})  # overrides one that was found earlier
    set(wxWidgets_DIR "$ENV{TARVELO_WX}" CACHE PATH "Where wxWidgets for Windows was installed" FORCE)
  endif()
  find_package(wxWidgets CONFIG REQUIRED COMPONENTS stc core base
               PATHS ${wxWidgets_DIR} NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
  target_link_libraries(tarvelo_wx INTERFACE ${wxWidgets_LIBRARIES})
else()
  find_package(wxWidgets 3.2 REQUIRED COMPONENTS stc core base)
  target_include_directories(tarvelo_wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
  target_compile_definitions(tarvelo_wx INTERFACE ${wxWidgets_DEFINITIONS})
  target_compile_options(tarvelo_wx INTERFACE ${wxWidgets_CXX_FLAGS})
  target_link_libraries(tarvelo_wx INTERFACE ${wxWidgets_LIBRARIES})
endif()
# Text becomes bytes only in code that names the encoding (strings.h).
target_compile_definitions(tarvelo_wx INTERFACE wxNO_UNSAFE_WXSTRING_CONV=1)
