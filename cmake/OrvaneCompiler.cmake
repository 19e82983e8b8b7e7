# What every target of this project is compiled with. Link orvane_warnings privately to each of them;
# orvane_test, orvane_bench and orvane_example do so themselves.
add_library(orvane_warnings INTERFACE)
if(MSVC)
  target_compile_options(orvane_warnings INTERFACE /W4 /WX /utf-8)
else()
  target_compile_options(orvane_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    -Wshadow -Wcast-qual -Wformat=2 -Wundef -Wextra-semi -Woverloaded-virtual)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies in plain concatenations of std::string (GCC bug 105651).
  target_compile_options(orvane_warnings INTERFACE -Wno-restrict)
endif()

if(WIN32)
  add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
endif()

# Equal sources make equal products: no time of linking, no number made from the folder of the build.
if(MINGW)
  add_link_options(-Wl,--no-insert-timestamp)
elseif(CMAKE_SYSTEM_NAME STREQUAL Linux)
  add_link_options(-Wl,--build-id=none)
endif()

find_program(ORVANE_CCACHE ccache)
mark_as_advanced(ORVANE_CCACHE)
if(PROJECT_IS_TOP_LEVEL AND ORVANE_CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${ORVANE_CCACHE})
endif()
