# Installs in the layout of a Linux system's own programs.
include(GNUInstallDirs)
set(here ${CMAKE_CURRENT_LIST_DIR})
set(made ${CMAKE_CURRENT_BINARY_DIR})
set(id org.tarvelo.Tarvelo)
set(doc ${CMAKE_INSTALL_DATADIR}/doc/tarvelo)
string(TIMESTAMP PACKAGE_DAY "%Y-%m-%d" UTC)  # from SOURCE_DATE_EPOCH if that is set

# Installs a file under a new name plus ".gz", compressed to the same bytes every time.
function(tarvelo_install_compressed file folder name)
  execute_process(COMMAND gzip -9nc INPUT_FILE ${file} OUTPUT_FILE ${made}/${name}.gz COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  install(FILES ${made}/${name}.gz DESTINATION ${folder})
endfunction()

function(tarvelo_install_manual name)
  configure_file(${CMAKE_CURRENT_SOURCE_DIR}/man/${name}.in ${made}/${name} @ONLY)
  tarvelo_install_compressed(${made}/${name} ${CMAKE_INSTALL_MANDIR}/man1 ${name})
endfunction()

install(TARGETS tarvelo-cli)
tarvelo_install_manual(tarvelo-cli.1)
install(FILES ${CMAKE_SOURCE_DIR}/docs/command-line.md ${CMAKE_SOURCE_DIR}/docs/many-dumps.md
              ${CMAKE_SOURCE_DIR}/docs/formats.md DESTINATION ${doc})

if(TARVELO_DESKTOP)
  install(TARGETS tarvelo)
  tarvelo_install_manual(tarvelo.1)
  install(FILES ${CMAKE_SOURCE_DIR}/help/Tarvelo_en.htm ${CMAKE_SOURCE_DIR}/help/Tarvelo_ru.htm
          DESTINATION ${CMAKE_INSTALL_DATADIR}/tarvelo)
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/help/Tarvelo_images DESTINATION ${CMAKE_INSTALL_DATADIR}/tarvelo)
  install(FILES ${here}/${id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${here}/${id}.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
  configure_file(${here}/${id}.metainfo.xml.in ${made}/${id}.metainfo.xml @ONLY)
  install(FILES ${made}/${id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  foreach(size 16 22 24 32 48 64 128 256 512)
    install(FILES icons/png/${size}.png DESTINATION ${icons}/${size}x${size}/apps RENAME ${id}.png)
  endforeach()
  install(FILES icons/tarvelo.svg DESTINATION ${icons}/scalable/apps RENAME ${id}.svg)
endif()
