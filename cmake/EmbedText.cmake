# varcfg_embed_text(<target> <text file> <symbol>): compiles a data file into <target> as
#   extern const char <symbol>[];
# The build reconfigures when the file changes.
function(varcfg_embed_text target file symbol)
  get_filename_component(path "${file}" ABSOLUTE)
  file(READ "${path}" VARCFG_EMBEDDED_TEXT)
  set(VARCFG_EMBEDDED_SYMBOL ${symbol})
  set(out "${CMAKE_CURRENT_BINARY_DIR}/embedded/${symbol}.cpp")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/EmbeddedText.cpp.in" "${out}" @ONLY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${path}")
  target_sources(${target} PRIVATE "${out}")
endfunction()
