# The Debian package, made by `cpack -G DEB`. DEBFULLNAME and DEBEMAIL name its maintainer, as in Debian's own
# tools.
set(here ${CMAKE_CURRENT_LIST_DIR})
set(PACKAGE_MAINTAINER "The Tarvelo developers <tarvelo@example.org>")
if(DEFINED ENV{DEBFULLNAME} AND DEFINED ENV{DEBEMAIL})
  set(PACKAGE_MAINTAINER "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
endif()
string(TIMESTAMP PACKAGE_TIME "%a, %d %b %Y %H:%M:%S +0000" UTC)

install(FILES ${here}/copyright DESTINATION ${doc})
configure_file(${here}/changelog.in ${made}/changelog.Debian @ONLY)
tarvelo_install_compressed(${made}/changelog.Debian ${doc} changelog.Debian)
tarvelo_install_compressed(${CMAKE_SOURCE_DIR}/CHANGELOG.md ${doc} changelog)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DESCRIPTION
"Tarvelo shows what is in a fullflash, the dump of the whole flash memory of a
Siemens phone built around a C166-family processor: model and firmware, EEPROM
blocks, pictures, ringtones, and every byte in a hex view that makes patches.
It works on the file alone; nothing in it talks to a phone.
.
The package holds the desktop program and tarvelo-cli, which does the same
without a window and for whole archives of dumps.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${PACKAGE_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS fonts-noto-cjk)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
