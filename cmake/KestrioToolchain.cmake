# Compiler flags that every target shares, and the compiler cache.

find_program(KESTRIO_CCACHE ccache)
if(KESTRIO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers only hit the cache with these two sloppiness switches; paths below the
  # project are hashed as relative ones, so that several work trees share one cache.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros
      CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${KESTRIO_CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror=return-type)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-fpch-preprocess)
endif()
# Nothing reads errno after mathematics or traps floating point exceptions; allowing for either keeps
# square roots and clamps from being vectorised. Results stay the same.
add_compile_options(-fno-math-errno -fno-trapping-math)
# Contracted multiply-adds would make results differ between the SIMD clones of one function.
add_compile_options(-ffp-contract=off)

if(KESTRIO_SANITIZE)
  add_compile_options(-fsanitize=${KESTRIO_SANITIZE} -fno-omit-frame-pointer -O1)
  add_link_options(-fsanitize=${KESTRIO_SANITIZE})
  if(KESTRIO_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=all)
  endif()
  if(KESTRIO_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
  endif()
endif()
