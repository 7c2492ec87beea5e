# TinyXML 2.6.2 parses the recorder's replies.
# Linux: Debian's libtinyxml-dev. Windows, the fuzz targets (which need it instrumented like the
# code that calls it) and self-contained Linux programs: Debian's source package (with Debian's patches
# applied), fetched into the build tree by scripts/setup and compiled in.
if(WIN32 OR VARCFG_FUZZ OR VARCFG_SELF_CONTAINED)
  set(VARCFG_TINYXML_DIR "${PROJECT_SOURCE_DIR}/build/third_party/tinyxml" CACHE PATH
      "TinyXML sources (fetched by scripts/setup)")
  if(NOT EXISTS "${VARCFG_TINYXML_DIR}/tinyxml.h")
    message(FATAL_ERROR "TinyXML sources not found in ${VARCFG_TINYXML_DIR}: run scripts/setup first")
  endif()
  add_library(tinyxml STATIC
    ${VARCFG_TINYXML_DIR}/tinyxml.cpp
    ${VARCFG_TINYXML_DIR}/tinystr.cpp
    ${VARCFG_TINYXML_DIR}/tinyxmlerror.cpp
    ${VARCFG_TINYXML_DIR}/tinyxmlparser.cpp)
  target_include_directories(tinyxml SYSTEM PUBLIC ${VARCFG_TINYXML_DIR})
  target_compile_definitions(tinyxml PUBLIC TIXML_USE_STL)
  target_compile_options(tinyxml PRIVATE -w)
else()
  find_path(TINYXML_INCLUDE_DIR tinyxml.h REQUIRED)
  find_library(TINYXML_LIBRARY tinyxml REQUIRED)
  add_library(tinyxml INTERFACE)
  target_include_directories(tinyxml SYSTEM INTERFACE ${TINYXML_INCLUDE_DIR})
  target_link_libraries(tinyxml INTERFACE ${TINYXML_LIBRARY})
  target_compile_definitions(tinyxml INTERFACE TIXML_USE_STL)
endif()
add_library(varcfg::tinyxml ALIAS tinyxml)
