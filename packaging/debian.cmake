# The Debian package, made by cpack.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${TINTLOOM_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "builder of colour themes for biteSMS")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Choose a colour for each part of the message list and the balloons, and save a
complete theme package for the phone. Everything can be done in a window or,
without a display, from the command line.")
# Libraries are read from the program; the QML modules that it loads as it runs, and a font to write
# with, are not to be seen there.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
  "qml6-module-qtquick, qml6-module-qtqml, qml6-module-qtqml-workerscript, fonts-dejavu-core"
  # File dialogs, and what they need where the desktop has none of its own.
  "qml6-module-qtquick-dialogs, qml6-module-qtquick-layouts, qml6-module-qtquick-controls"
  "qml6-module-qtquick-templates, qml6-module-qtquick-window, qml6-module-qt-labs-folderlistmodel")
list(JOIN CPACK_DEBIAN_PACKAGE_DEPENDS ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libgl1-mesa-dri, qt6-wayland")

include(CPack)
