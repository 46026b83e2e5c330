# Compiler settings that every target of the project shares.
if(MSVC)
  add_compile_options(/W4 /utf-8 /fp:precise)
else()
  # No contraction: a*b+c has the same digits on every machine. No interposition: nobody replaces
  # single functions of the shared libraries, so they may be inlined within them.
  add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -ffp-contract=off
                      -fvisibility-inlines-hidden -fno-semantic-interposition)
  string(REPLACE "-O3" "-O2" CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")
  add_compile_definitions($<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
endif()
if(BRINDLE_WERROR)
  add_compile_options($<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
endif()

if(BRINDLE_ASAN)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(BRINDLE_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
    message(FATAL_ERROR "BRINDLE_FUZZ needs clang: the fuzz targets are driven by libFuzzer")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM)
  add_link_options(-fuse-ld=mold)
endif()
