# Where programs find what comes with them: relative to their own folder, so that no compiled file names
# a folder of this machine and an installed tree can be moved. The build tree is laid out alike.
include(GNUInstallDirs)
file(RELATIVE_PATH VELMORA_DATA_FOLDER
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DATADIR}/velmora/)
string(APPEND VELMORA_DATA_FOLDER "/")

cmake_path(ABSOLUTE_PATH VELMORA_DATA_FOLDER BASE_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY} NORMALIZE
  OUTPUT_VARIABLE data)
cmake_path(GET data PARENT_PATH data)
cmake_path(GET data PARENT_PATH around)
file(MAKE_DIRECTORY ${around})
file(CREATE_LINK ${PROJECT_SOURCE_DIR}/data ${data} SYMBOLIC)
