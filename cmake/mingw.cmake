# Cross build for Windows with the posix-thread compilers. The run time is linked statically, so that products import
# system libraries only; Wine runs the tests.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${ORVANE_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ORVANE_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${ORVANE_MINGW}-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
set(CMAKE_FIND_ROOT_PATH /usr/${ORVANE_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
