# How every target of the project is compiled, and the four shapes of target: room, test, benchmark, fuzz.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

# Asserts stay in every build: a broken invariant must stop the process on the board too.
set(CMAKE_CXX_FLAGS_RELEASE "-O2")
set(CMAKE_C_FLAGS_RELEASE "-O2")

option(ZR_WERROR "Treat warnings as errors" OFF)
set(ZR_SANITIZE "" CACHE STRING "Sanitizers for every target, as -fsanitize takes them")

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  add_compile_options(-Wno-unknown-warning-option -Wno-gnu-zero-variadic-macro-arguments)
endif()
if(ZR_WERROR)
  add_compile_options(-Werror)
endif()
# Assertions name files from the top of the tree, the same on every machine.
add_compile_options(-fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=)
if(ZR_SANITIZE)
  add_compile_options(-fsanitize=${ZR_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${ZR_SANITIZE})
endif()

if(ZR_FUZZ)
  # The search follows what the rooms do with the bytes, not only what the target does.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

find_program(ZR_MOLD mold)
if(ZR_MOLD)
  add_link_options(-fuse-ld=mold)
endif()

find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
# Debian's Python, not a private one: it is the one that has the packages of packages.txt.
find_program(ZR_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)

# zr_room(NAME [LINKS...]): a static library of all sources in the calling folder and in those below
# it that have no CMakeLists.txt of their own.
function(zr_room name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  file(GLOB below CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*/*.cpp)
  foreach(source IN LISTS below)
    get_filename_component(folder ${source} DIRECTORY)
    if(NOT EXISTS ${folder}/CMakeLists.txt)
      list(APPEND sources ${source})
    endif()
  endforeach()
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/include/pub ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARGN})
endfunction()

# zr_data(NAME FOLDER PATTERN): copies files into FOLDER of the data directory beside the programs.
function(zr_data name folder pattern)
  file(GLOB files CONFIGURE_DEPENDS ${pattern})
  set(target ${CMAKE_BINARY_DIR}/data/${folder})
  set(outputs)
  foreach(file IN LISTS files)
    get_filename_component(leaf ${file} NAME)
    add_custom_command(OUTPUT ${target}/${leaf}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${target}
      COMMAND ${CMAKE_COMMAND} -E copy ${file} ${target}/${leaf}
      DEPENDS ${file} VERBATIM)
    list(APPEND outputs ${target}/${leaf})
  endforeach()
  add_custom_target(${name} ALL DEPENDS ${outputs})
endfunction()

# zr_test(FOLDER LINKS...): one test program of all *_test.cpp and helpers in the calling folder.
# Tests whose suite begins with "Slow" carry the label slow, which ./check --fast leaves out.
function(zr_test folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  set(name test_${folder})
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ARGN} GTest::gtest_main)
  target_precompile_headers(${name} PRIVATE <gtest/gtest.h>)
  target_compile_definitions(${name} PRIVATE
    ZR_SOURCE_DIR="${CMAKE_SOURCE_DIR}" ZR_BINARY_DIR="${CMAKE_BINARY_DIR}")
  gtest_discover_tests(${name} TEST_PREFIX "${folder}/" TEST_FILTER -Slow* DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120)
  gtest_discover_tests(${name} TEST_PREFIX "${folder}/" TEST_FILTER Slow* TEST_LIST ${name}_slow
    DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 600 LABELS slow)
endfunction()

# zr_bench(FOLDER LINKS...): one benchmark program of all *_bench.cpp in the calling folder.
function(zr_bench folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  set(name bench_${folder})
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${ARGN} zrbenchsupport)
  target_compile_definitions(${name} PRIVATE
    ZR_SOURCE_DIR="${CMAKE_SOURCE_DIR}" ZR_BINARY_DIR="${CMAKE_BINARY_DIR}")
  set_property(GLOBAL APPEND PROPERTY ZR_BENCHES ${name})
endfunction()
