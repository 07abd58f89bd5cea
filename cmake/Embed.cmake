# tarvelo_embed(TARGET HEADER FILE...): generates a header with the bytes of the files, rebuilt when they
# change. For each FILE "folder/name.ext" it defines `inline constexpr std::string_view name_ext`.
function(tarvelo_embed target header)
  set(files)
  foreach(file ${ARGN})
    list(APPEND files ${CMAKE_CURRENT_SOURCE_DIR}/${file})
  endforeach()
  set(output ${CMAKE_CURRENT_BINARY_DIR}/embedded/${header})
  list(JOIN files "|" joined)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} "-DOUTPUT=${output}" "-DFILES=${joined}"
            -P ${CMAKE_SOURCE_DIR}/cmake/EmbedFiles.cmake
    DEPENDS ${files} ${CMAKE_SOURCE_DIR}/cmake/EmbedFiles.cmake
    VERBATIM)
  target_sources(${target} PRIVATE ${output})
  target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/embedded)
endfunction()
