# Target orvane_cli11: the header-only option parser of the command line. Its headers are linked into a folder of
# their own, because a cross build must not see the rest of the host's include folder.
find_path(ORVANE_CLI11_FOLDER CLI/CLI.hpp NO_CMAKE_FIND_ROOT_PATH PATHS /usr/include /usr/local/include REQUIRED)
mark_as_advanced(ORVANE_CLI11_FOLDER)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/cli11)
file(CREATE_LINK ${ORVANE_CLI11_FOLDER}/CLI ${PROJECT_BINARY_DIR}/cli11/CLI SYMBOLIC)
add_library(orvane_cli11 INTERFACE)
target_include_directories(orvane_cli11 SYSTEM INTERFACE ${PROJECT_BINARY_DIR}/cli11)
