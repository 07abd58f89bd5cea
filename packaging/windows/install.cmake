# One folder with everything; the settings appear beside the program, so the folder can be carried about.
# `cpack -G ZIP` packs it; the installer's script is made for makensis (tools/package).
set(here ${CMAKE_CURRENT_LIST_DIR})
install(TARGETS tarvelo tarvelo-cli RUNTIME DESTINATION .)
install(FILES ${CMAKE_SOURCE_DIR}/help/Tarvelo_en.htm ${CMAKE_SOURCE_DIR}/help/Tarvelo_ru.htm DESTINATION .)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/help/Tarvelo_images DESTINATION .)

# The licences of ours and of what is linked in, as the packages that it came from state them.
install(FILES ${CMAKE_SOURCE_DIR}/LICENSE DESTINATION licences RENAME Tarvelo.txt)
foreach(source "libwxgtk3.2-dev wxWidgets" "libcli11-dev CLI11" "nlohmann-json3-dev nlohmann-json"
        "libstb-dev stb" "mingw-w64-common mingw-w64" "gcc-mingw-w64-base gcc-runtime")
  separate_arguments(source)
  list(GET source 0 package)
  list(GET source 1 name)
  install(FILES /usr/share/doc/${package}/copyright DESTINATION licences RENAME ${name}.txt)
endforeach()
foreach(text GPL-3 LGPL-2)  # those texts refer to them
  install(FILES /usr/share/common-licenses/${text} DESTINATION licences RENAME ${text}.txt)
endforeach()

configure_file(${here}/installer.nsi.in ${CMAKE_BINARY_DIR}/packaging/installer.nsi @ONLY)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME Tarvelo-${PROJECT_VERSION}-windows)
