# Functions with which the folders fill the library.

# orvane_add_folders(<folder>...) takes in those folders of the root that have a CMakeLists.txt.
function(orvane_add_folders)
  foreach(folder IN LISTS ARGN)
    if(EXISTS ${PROJECT_SOURCE_DIR}/${folder}/CMakeLists.txt)
      add_subdirectory(${PROJECT_SOURCE_DIR}/${folder} ${PROJECT_BINARY_DIR}/${folder})
    endif()
  endforeach()
endfunction()

# orvane_sources(<file>... [PLATFORM <name>...]) adds sources of the calling folder to the library. PLATFORM names
# a source that exists once a platform, <name>_posix.cpp and <name>_win32.cpp, of which the build takes one.
function(orvane_sources)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "PLATFORM")
  if(WIN32)
    list(TRANSFORM arg_PLATFORM APPEND _win32.cpp)
  else()
    list(TRANSFORM arg_PLATFORM APPEND _posix.cpp)
  endif()
  target_sources(orvane PRIVATE ${arg_UNPARSED_ARGUMENTS} ${arg_PLATFORM})
endfunction()

# orvane_generate(<name> OUTPUTS <file>... COMMAND <script> <argument>... DEPENDS <file>...)
# runs a Python script when one of its inputs is newer than an output. OUTPUTS are relative to the folder of
# generated code, which is on everybody's include path; COMMAND and DEPENDS are relative to the root, where the
# script runs. The library waits for all outputs and compiles those that end in .cpp.
function(orvane_generate name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "OUTPUTS;COMMAND;DEPENDS")
  list(TRANSFORM arg_OUTPUTS PREPEND ${ORVANE_GENERATED}/)
  list(TRANSFORM arg_DEPENDS PREPEND ${PROJECT_SOURCE_DIR}/)
  list(GET arg_COMMAND 0 script)
  add_custom_command(
    OUTPUT ${arg_OUTPUTS}
    COMMAND Python3::Interpreter -B ${arg_COMMAND}
    DEPENDS ${PROJECT_SOURCE_DIR}/${script} ${arg_DEPENDS}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    COMMENT "Generating ${name}"
    VERBATIM)
  add_custom_target(orvane_generate_${name} DEPENDS ${arg_OUTPUTS})
  add_dependencies(orvane orvane_generate_${name})
  list(FILTER arg_OUTPUTS INCLUDE REGEX "\\.cpp$")
  target_sources(orvane PRIVATE ${arg_OUTPUTS})
endfunction()
