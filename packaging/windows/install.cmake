# One folder with everything. The settings file is created beside the program, so the folder is portable.
# `cpack -G ZIP` packs it; makensis runs the installer script (tools/package).
set(here ${CMAKE_CURRENT_LIST_DIR})
install(TARGETS tarvelo tarvelo-cli RUNTIME DESTINATION .)
install(FILES ${CMAKE_SOURCE_DIR}/help/Tarvelo_en.htm ${CMAKE_SOURCE_DIR}/help/Tarvelo_ru.htm DESTINATION .)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/help/Tarvelo_images DESTINATION .)

# The licences of our code and of the linked libraries, as stated by the packages they came from.
install(FILES ${CMAKE_SOURCE_DIR}/LICENSE DESTINATION licences RENAME Tarvelo.txt)
foreach(source "libwxgtk3.2-dev wxWidgets" "libcli11-dev CLI11" "nlohmann-json3-dev nlohmann-json"
        "libstb-dev stb" "mingw-w64-common mingw-w64" "gcc-mingw-w64-base gcc-runtime")
  separate_arguments(source)
  list(GET source 0 package)
  list(GET source 1 name)
  install(FILES /usr/share/doc/${package}/copyright DESTINATION licences RENAME ${name}.txt)
endforeach()
foreach(text GPL-3 LGPL-2)  # the licences above refer to these texts
  install(FILES /usr/share/common-licenses/${text} DESTINATION licences RENAME ${text}.txt)
endforeach()

configure_file(${here}/installer.nsi.in ${CMAKE_BINARY_DIR}/packaging/installer.nsi @ONLY)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME Tarvelo-${PROJECT_VERSION}-windows)
