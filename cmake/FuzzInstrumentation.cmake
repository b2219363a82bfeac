# All our code tells the fuzzer where it has been, and stops at the first broken rule of the language. The
# fuzzer's own main() comes with the targets in fuzz/ alone, so that every other program still links.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "VESKEL_FUZZ needs clang: cmake --preset fuzz")
endif()
if(VESKEL_SANITIZE)
  message(FATAL_ERROR "VESKEL_FUZZ brings its own sanitizers: leave VESKEL_SANITIZE empty")
endif()
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=all)
add_link_options(-fsanitize=address,undefined)
# Release flavours would switch our own assertions off, and the standard library's stand where no sanitizer looks.
add_compile_options(-UNDEBUG)
add_compile_definitions(_GLIBCXX_ASSERTIONS)
