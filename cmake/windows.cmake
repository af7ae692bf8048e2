# The toolchain for 64-bit Windows on Debian: the presets `windows` and `windows-release`, and what
# tools/windows/qt builds. The POSIX threads of this compiler are what std::thread stands on.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Nothing of this machine's own headers, libraries and packages.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${TARVO_WINDOWS_LIBRARIES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# CMake's own tries come here as well, without the libraries.
if(TARVO_WINDOWS_LIBRARIES)
  list(TRANSFORM TARVO_WINDOWS_LIBRARIES APPEND /lib/pkgconfig OUTPUT_VARIABLE pkgconfig)
  list(JOIN pkgconfig ":" pkgconfig)
  set(ENV{PKG_CONFIG_LIBDIR} "${pkgconfig}")
endif()
