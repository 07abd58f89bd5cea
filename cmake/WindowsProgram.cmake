# tarvelo_windows_program(TARGET DESCRIPTION FILE): gives a Windows program its icon, its version information
# and its manifest (visual styles, UTF-8, sharp on every monitor). Does nothing on other systems.
function(tarvelo_windows_program target description file)
  if(NOT WIN32)
    return()
  endif()
  set(PROGRAM_DESCRIPTION ${description})
  set(PROGRAM_FILE ${file})
  set(folder ${CMAKE_BINARY_DIR}/packaging)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/tarvelo.manifest.in ${folder}/tarvelo.manifest @ONLY)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in ${folder}/${target}.rc @ONLY)
  target_sources(${target} PRIVATE ${folder}/${target}.rc)
  set_source_files_properties(${folder}/${target}.rc PROPERTIES OBJECT_DEPENDS
    "${folder}/tarvelo.manifest;${CMAKE_SOURCE_DIR}/packaging/icons/tarvelo.ico")
endfunction()
