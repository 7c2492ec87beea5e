# Warnings are errors on every target of the project (third-party code is compiled without them).
add_library(varcfg_warnings INTERFACE)
if(MSVC)
  target_compile_options(varcfg_warnings INTERFACE /W4 /WX /permissive- /utf-8)
else()
  target_compile_options(varcfg_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Werror)
endif()

if(VARCFG_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

if(WIN32)
  # Unicode Win32 API, no min/max macros, Windows 7 as the oldest target.
  add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
endif()

if(VARCFG_SELF_CONTAINED AND NOT WIN32)
  # A released Linux program needs no C++ runtime of the machine it runs on, only its C library.
  add_link_options(-static-libstdc++ -static-libgcc)
endif()
