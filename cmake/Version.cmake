# varcfg_version: the release version of project() as a generated header, varcfg_version.h, for the
# DLL's version resource and the reference host. The release package takes its name from the same
# header, so the version is written in one place only.
set(VARCFG_VERSION_HEADER ${PROJECT_BINARY_DIR}/generated/varcfg_version.h)
configure_file(${CMAKE_CURRENT_LIST_DIR}/varcfg_version.h.in ${VARCFG_VERSION_HEADER} @ONLY)
add_library(varcfg_version INTERFACE)
target_include_directories(varcfg_version INTERFACE ${PROJECT_BINARY_DIR}/generated)
