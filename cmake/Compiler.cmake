# Compiler flags for all our own code: an interface that every target of ours links, never exported.
add_library(tarvelo_compiler INTERFACE)
target_compile_options(tarvelo_compiler INTERFACE
  -Wall -Wextra -Wpedantic
  $<$<NOT:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wshadow>  # files compiled together see each other's names
  -Wnon-virtual-dtor -Wcast-qual -Wimplicit-fallthrough
  -Wno-missing-field-initializers  # designated initialisers name the members that matter
  # false positives of GCC 12 inside its own headers at -O3
  $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds -Wno-restrict -Wno-stringop-overflow>
  $<$<BOOL:${TARVELO_WERROR}>:-Werror>)
if(TARVELO_SANITIZE)
  target_compile_options(tarvelo_compiler INTERFACE
    -fsanitize=${TARVELO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
    -D_GLIBCXX_ASSERTIONS)
  target_link_options(tarvelo_compiler INTERFACE -fsanitize=${TARVELO_SANITIZE})
endif()
# What people install checks its stack and the sizes it gives the C library. The presets link it with full RELRO.
if(NOT WIN32 AND NOT TARVELO_SANITIZE)
  target_compile_options(tarvelo_compiler INTERFACE
    "$<$<CONFIG:Release>:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
endif()
if(WIN32)
  target_link_options(tarvelo_compiler INTERFACE $<$<CONFIG:Release>:-s>)  # strip the symbols
  target_compile_definitions(tarvelo_compiler INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
endif()
# The only place of the version is the project() call.
target_compile_definitions(tarvelo_compiler INTERFACE TARVELO_VERSION="${PROJECT_VERSION}")
