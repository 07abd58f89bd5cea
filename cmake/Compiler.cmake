# How all our own code is compiled: an interface that every target of ours links, never exported.
add_library(tarvelo_compiler INTERFACE)
target_compile_options(tarvelo_compiler INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wcast-qual -Wimplicit-fallthrough
  -Wno-missing-field-initializers  # designated initialisers name what matters
  # false alarms of GCC 12 inside its own headers at -O3
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict -Wno-stringop-overflow>
  $<$<BOOL:${TARVELO_WERROR}>:-Werror>)
if(TARVELO_SANITIZE)
  target_compile_options(tarvelo_compiler INTERFACE
    -fsanitize=${TARVELO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
    -D_GLIBCXX_ASSERTIONS)
  target_link_options(tarvelo_compiler INTERFACE -fsanitize=${TARVELO_SANITIZE})
endif()
if(WIN32)
  target_link_options(tarvelo_compiler INTERFACE $<$<CONFIG:Release>:-s>)  # no symbols to hand out
  target_compile_definitions(tarvelo_compiler INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
endif()
# The version has one home, the project() call.
target_compile_definitions(tarvelo_compiler INTERFACE TARVELO_VERSION="${PROJECT_VERSION}")
