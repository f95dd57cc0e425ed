# Cross-compiles for the ARM machine named by TINTLOOM_ARCH, against the system that tools/test-arm
# lays out in build/sysroot-ARCH, and runs what was built in an emulator.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TINTLOOM_ARCH)
set(CMAKE_SYSTEM_NAME Linux)
if(TINTLOOM_ARCH STREQUAL arm64)
  set(CMAKE_SYSTEM_PROCESSOR aarch64)
  set(triplet aarch64-linux-gnu)
  set(emulator qemu-aarch64)
elseif(TINTLOOM_ARCH STREQUAL armhf)
  set(CMAKE_SYSTEM_PROCESSOR armv7l)
  set(triplet arm-linux-gnueabihf)
  set(emulator qemu-arm)
else()
  message(FATAL_ERROR "TINTLOOM_ARCH should be arm64 or armhf, not '${TINTLOOM_ARCH}'")
endif()

cmake_path(ABSOLUTE_PATH CMAKE_CURRENT_LIST_DIR NORMALIZE)
cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH project)
set(CMAKE_SYSROOT ${project}/build/sysroot-${TINTLOOM_ARCH})
set(CMAKE_LIBRARY_ARCHITECTURE ${triplet})
set(CMAKE_CXX_COMPILER ${triplet}-g++)
set(CMAKE_C_COMPILER ${triplet}-gcc)
# The emulator looks for libraries in the other system, but Qt for its plugins in this one.
set(CMAKE_CROSSCOMPILING_EMULATOR
  ${emulator} -L ${CMAKE_SYSROOT} -E QT_PLUGIN_PATH=${CMAKE_SYSROOT}/usr/lib/${triplet}/qt6/plugins)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${CMAKE_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR}
  ${CMAKE_SYSROOT}/usr/lib/${triplet}/pkgconfig:${CMAKE_SYSROOT}/usr/share/pkgconfig)
# Qt's code generators run here, so they are this machine's own.
set(QT_HOST_PATH /usr)
