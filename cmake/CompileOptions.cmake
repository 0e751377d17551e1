# Compile options of every target. Detection compares 32-bit floats with limits, so no option may change how
# they are rounded: no fast-math, no contraction into fused operations, no extended precision.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()
set(CMAKE_CXX_FLAGS_DEV "-O1 -g1" CACHE STRING "Quick to build, asserts on")

add_library(vorelle_options INTERFACE)
target_compile_options(vorelle_options INTERFACE
  "$<$<COMPILE_LANGUAGE:CXX>:-ffp-contract=off;-Wall;-Wextra;-Wpedantic;-Woverloaded-virtual>"
  # GCC 12 wrongly reports overlapping and endless copies in `"text" + std::string`.
  "$<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wshadow=local;-Wno-restrict;-Wno-stringop-overflow>"
  # Keeps the machine's folders out of released programs.
  $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CONFIG:Release>>:-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=>)
if(WIN32)
  target_compile_options(vorelle_options INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-fmacro-prefix-map=${VORELLE_WINDOWS_PREFIX}/include/=>)
  target_compile_definitions(vorelle_options INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
endif()
if(VORELLE_WERROR)
  target_compile_options(vorelle_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Werror>)
endif()
if(VORELLE_SANITIZE)
  target_compile_options(vorelle_options INTERFACE -fsanitize=${VORELLE_SANITIZE} -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  target_link_options(vorelle_options INTERFACE -fsanitize=${VORELLE_SANITIZE})
endif()
if(VORELLE_SANITIZE MATCHES "address")
  target_sources(vorelle_options INTERFACE
    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:${CMAKE_CURRENT_LIST_DIR}/KeepLibraries.cpp>)
endif()

find_program(VORELLE_CCACHE ccache)
if(VORELLE_CCACHE)
  # Without this the cache refuses files that use a precompiled header.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${VORELLE_CCACHE})
endif()
