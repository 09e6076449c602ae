# How every target of the project is made: one set of warnings, one set of
# sanitizer flags, one way to add a test or a fuzz target.

# A build for tests links some sixty programs with debug information, for which the usual linker
# takes a minute or two. What is shipped is linked by the usual one.
find_program(CORVANE_FAST_LINKER mold)

function(corvane_configure target)
  target_include_directories(${target} PRIVATE "${CMAKE_SOURCE_DIR}/src")
  target_compile_options(
    ${target}
    PRIVATE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wsign-conversion
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wimplicit-fallthrough)
  if(CORVANE_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports these falsely inside the standard library once a sanitizer
    # or the optimiser has rearranged the code.
    target_compile_options(
      ${target} PRIVATE -Wno-maybe-uninitialized -Wno-restrict
                        $<$<NOT:$<CONFIG:Debug>>:-Wno-array-bounds;-Wno-stringop-overflow;-Wno-stringop-overread>)
  endif()
  if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Several sources in one unit are then all but one taken for included files.
    target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
  endif()
  if(CORVANE_FAST_LINKER AND CMAKE_BUILD_TYPE STREQUAL "Debug")
    target_link_options(${target} PRIVATE -fuse-ld=mold)
  endif()
  if(CORVANE_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${CORVANE_SANITIZE} -fno-sanitize-recover=all)
    target_link_options(${target} PRIVATE -fsanitize=${CORVANE_SANITIZE})
  endif()
  if(CORVANE_SANITIZE_EXCEPT)
    target_compile_options(${target} PRIVATE -fno-sanitize=${CORVANE_SANITIZE_EXCEPT})
  endif()
  if(CORVANE_FUZZ)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    target_link_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
endfunction()

# corvane_library(name SOURCES... [PUBLIC libs...] [PRIVATE libs...])
function(corvane_library target)
  cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  add_library(${target} STATIC ${ARG_SOURCES})
  corvane_configure(${target})
  target_include_directories(${target} INTERFACE "${CMAKE_SOURCE_DIR}/src")
  target_link_libraries(${target} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
endfunction()

# corvane_executable(name SOURCES... LIBS...)
function(corvane_executable target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  corvane_configure(${target})
  target_link_libraries(${target} PRIVATE ${ARG_LIBS})
endfunction()

# corvane_test(name SOURCES... LIBS... [LABELS...] [SHARDS count])
#
# One GoogleTest program, one line in ctest, or as many as there are shards: a
# program that mostly waits is run in shards, side by side. Sources see the tests
# folder, the sources folder and CORVANE_TEST_DATA, the path of tests/data.
function(corvane_test target)
  cmake_parse_arguments(ARG "" "SHARDS" "SOURCES;LIBS;LABELS" ${ARGN})
  corvane_executable(${target} SOURCES ${ARG_SOURCES} LIBS ${ARG_LIBS} corvane_test_main)
  target_include_directories(${target} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  target_precompile_headers(${target} REUSE_FROM corvane_test_main)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
  if(NOT ARG_SHARDS)
    add_test(NAME ${target} COMMAND ${target})
    set_tests_properties(${target} PROPERTIES LABELS "${ARG_LABELS}")
    return()
  endif()
  foreach(number RANGE 1 ${ARG_SHARDS})
    math(EXPR index "${number} - 1")
    add_test(NAME ${target}_${number} COMMAND ${target})
    set_tests_properties(
      ${target}_${number}
      PROPERTIES LABELS "${ARG_LABELS}"
                 ENVIRONMENT "GTEST_TOTAL_SHARDS=${ARG_SHARDS};GTEST_SHARD_INDEX=${index}")
  endforeach()
endfunction()

# corvane_fuzz_target(name SOURCES... LIBS...)
#
# With CORVANE_FUZZ a libFuzzer program; otherwise a program that replays every
# file of tests/fuzz/corpus/<name>, run as an ordinary test.
function(corvane_fuzz_target target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  if(CORVANE_FUZZ)
    corvane_executable(${target} SOURCES ${ARG_SOURCES} LIBS ${ARG_LIBS})
    target_link_options(${target} PRIVATE -fsanitize=fuzzer)
    add_dependencies(fuzz_targets ${target})
  else()
    corvane_executable(${target} SOURCES ${ARG_SOURCES} LIBS ${ARG_LIBS} corvane_fuzz_replay)
    add_test(NAME ${target} COMMAND ${target} "${CMAKE_SOURCE_DIR}/tests/fuzz/corpus/${target}")
    set_tests_properties(${target} PROPERTIES LABELS fuzz)
  endif()
  target_include_directories(${target} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/fuzz")
endfunction()
