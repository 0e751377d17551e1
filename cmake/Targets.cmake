# A library has whole folders with their subfolders: a file in one of its folders belongs to it, unless the suffix of its name
# is that of another system.
if(WIN32)
  set(other_system "(Linux|LinuxTest|GL)\\.cpp$")
else()
  set(other_system "(Windows|WindowsTest|D3D11)\\.cpp$")
endif()

# Precompiles headers that most files of a library include and that seldom change. Not for Windows: MinGW's GCC 12 warns about
# its own library's code if that is precompiled.
function(vorelle_precompile target)
  if(VORELLE_PRECOMPILE AND NOT WIN32 AND ARGN)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# Sets `result` to the sources below `base`/folder for each folder, without those below an excluded folder or file.
function(vorelle_find_sources result base folders excluded)
  set(sources)
  foreach(folder IN LISTS folders)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS ${base}/${folder}/*.cpp)
    list(APPEND sources ${found})
  endforeach()
  foreach(path IN LISTS excluded)
    string(REGEX REPLACE "([.+])" "\\\\\\1" pattern "^${base}/${path}(/|$)")
    list(FILTER sources EXCLUDE REGEX "${pattern}")
  endforeach()
  list(FILTER sources EXCLUDE REGEX ${other_system})
  set(${result} ${sources} PARENT_SCOPE)
endfunction()

# vorelle_library(NAME FOLDERS folder... [EXCLUDE path...] LINK target... [PRECOMPILE header...]): folders and paths are
# relative to src.
function(vorelle_library name)
  cmake_parse_arguments(LIBRARY "" "" "FOLDERS;EXCLUDE;LINK;PRECOMPILE" ${ARGN})
  vorelle_find_sources(sources ${PROJECT_SOURCE_DIR}/src "${LIBRARY_FOLDERS}" "${LIBRARY_EXCLUDE}")
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${LIBRARY_LINK} PRIVATE vorelle_options)
  vorelle_precompile(${name} ${LIBRARY_PRECOMPILE})
endfunction()

# vorelle_program(NAME [WINDOW] MAIN file LINK target...): WINDOW: a Windows program without a console.
function(vorelle_program name)
  cmake_parse_arguments(PROGRAM "WINDOW" "MAIN" "LINK" ${ARGN})
  add_executable(${name} ${PROGRAM_MAIN})
  target_link_libraries(${name} PRIVATE ${PROGRAM_LINK} vorelle_options)
  if(WIN32)
    set_target_properties(${name} PROPERTIES WIN32_EXECUTABLE ${PROGRAM_WINDOW})
    target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/packaging/windows/${name}.rc)
    string(REPLACE "." "," numbers ${PROJECT_VERSION}.0)
    configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/vorelle.manifest.in
      ${PROJECT_BINARY_DIR}/packaging/vorelle.manifest @ONLY)
    target_include_directories(${name} PRIVATE $<$<COMPILE_LANGUAGE:RC>:${PROJECT_BINARY_DIR}/packaging>)
    target_compile_definitions(${name} PRIVATE
      "$<$<COMPILE_LANGUAGE:RC>:VORELLE_VERSION=${PROJECT_VERSION};VORELLE_VERSION_NUMBERS=${numbers}>")
  endif()
endfunction()

# vorelle_test(NAME FOLDERS folder... [EXCLUDE path...] LINK target... [RUNNER program] [OWN_MAIN] [PRECOMPILE header...]):
# one test program; folders, paths and the program that runs it are relative to tests.
function(vorelle_test name)
  cmake_parse_arguments(TEST "OWN_MAIN" "RUNNER" "FOLDERS;EXCLUDE;LINK;PRECOMPILE" ${ARGN})
  vorelle_find_sources(sources ${PROJECT_SOURCE_DIR}/tests "${TEST_FOLDERS}" "${TEST_EXCLUDE}")
  add_executable(${name} ${sources})
  if(NOT TEST_OWN_MAIN)
    target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/Support/TestMain.cpp)
  endif()
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${TEST_LINK} GTest::gmock vorelle_options)
  target_compile_definitions(${name} PRIVATE
    VORELLE_SOURCE_DIR="${PROJECT_SOURCE_DIR}" VORELLE_BINARY_DIR="${PROJECT_BINARY_DIR}")
  vorelle_precompile(${name} ${TEST_PRECOMPILE})
  set(runner)
  if(TEST_RUNNER)
    set(runner ${PROJECT_SOURCE_DIR}/tests/${TEST_RUNNER})
  endif()
  add_test(NAME ${name} COMMAND ${runner} ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${name}>)
  set(suppressions ${PROJECT_SOURCE_DIR}/cmake)
  set_tests_properties(${name} PROPERTIES TIMEOUT 600 ENVIRONMENT
    "LSAN_OPTIONS=suppressions=${suppressions}/lsan.supp:print_suppressions=0;TSAN_OPTIONS=suppressions=${suppressions}/tsan.supp")
endfunction()
