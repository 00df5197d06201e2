# The project's targets. A target's include roots are its own folder with its rooms and nothing else, so that an include
# which points upwards in the order of layers is "No such file".

find_package(Threads REQUIRED)

add_library(qvm_flags INTERFACE)
target_compile_features(qvm_flags INTERFACE cxx_std_20)
target_compile_options(qvm_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
# GCC 12 warns of overlaps and lengths in std::string that it has made up itself, the latter when it optimises
# (GCC bug 105651).
target_compile_options(qvm_flags INTERFACE
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict;-Wno-stringop-overflow;-Wno-array-bounds;-Wno-stringop-overread>)
if(QVM_SANITIZE)
  # With sanitizers GCC 12 loses track of values that are set, in <regex> for one.
  target_compile_options(qvm_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_compile_options(qvm_flags INTERFACE -fsanitize=${QVM_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(qvm_flags INTERFACE -fsanitize=${QVM_SANITIZE})
endif()

# Debug builds link dozens of programs, the sanitized ones large, and GNU ld takes ten times as long.
find_program(QVM_LLD ld.lld)
if(QVM_LLD AND CMAKE_BUILD_TYPE STREQUAL "Debug")
  target_link_options(qvm_flags INTERFACE -fuse-ld=lld)
endif()

# Not where Qt's tools generate code, which has names of its own taste.
target_compile_options(qvm_flags INTERFACE
  $<$<AND:$<CXX_COMPILER_ID:Clang>,$<NOT:$<BOOL:$<TARGET_PROPERTY:AUTOMOC>>>>:-Wreserved-identifier>)

# The fuzzers are led by what they reach in the program, not in the tests.
if(QVM_FUZZ)
  target_compile_options(qvm_flags INTERFACE
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:QVM_UNOPTIMISED>>>:-fsanitize=fuzzer-no-link>)
endif()

# qvm_unoptimised(<target> [DEBUG])
# For what takes longer to optimise than to run: it is left as it is, in the build of what is handed out with its tests
# too, unless DEBUG says that it is handed out itself. A release build has what benchmarks measure: it optimises all.
function(qvm_unoptimised target)
  if(CMAKE_BUILD_TYPE STREQUAL "Debug")
    target_compile_options(${target} PRIVATE -O0 $<$<BOOL:${QVM_FUZZ}>:-g0>)
    set_target_properties(${target} PROPERTIES QVM_UNOPTIMISED ON)
  elseif(QVM_TESTS STREQUAL "PROGRAM" AND NOT "DEBUG" IN_LIST ARGN)
    target_compile_options(${target} PRIVATE -O0)
  endif()
endfunction()

# qvm_test_code(<target>)
# The code of tests themselves. It keeps the checks of memory, which see what the program hands out and takes back. Those
# of undefined behaviour make half of such code and a third of its compiling; the program's code keeps all of them.
function(qvm_test_code target)
  qvm_unoptimised(${target})
  if(QVM_FUZZ)
    target_compile_options(${target} PRIVATE -fno-sanitize=undefined)
  endif()
endfunction()

# qvm_separate(<file>...)
# Files whose local names meet those of their neighbours: not to be compiled in one piece with them.
function(qvm_separate)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# qvm_separate_unoptimised(<file>...)
# Files, of targets that are optimised, which take longer to optimise than all the others of theirs.
function(qvm_separate_unoptimised)
  qvm_separate(${ARGN})
  set_source_files_properties(${ARGN} PROPERTIES SKIP_PRECOMPILE_HEADERS ON
    COMPILE_OPTIONS "$<IF:$<CONFIG:Debug>,-O0,-O1>")
endfunction()

# What nearly every file includes, compiled once. The structure test shows where a file leans on it and does not include
# it itself.
set(QVM_STANDARD_HEADERS <algorithm> <array> <functional> <map> <optional> <string> <vector>)

# qvm_layer(<target> <folder>...)
# The target is made of those folders of src. qvm_write_layers tells of them.
function(qvm_layer target)
  foreach(folder IN LISTS ARGN)
    file(RELATIVE_PATH path "${PROJECT_SOURCE_DIR}/src" "${folder}")
    if(NOT path MATCHES "^\\.\\.")
      set_property(TARGET ${target} APPEND PROPERTY QVM_FOLDERS "${path}")
      set_property(GLOBAL APPEND PROPERTY QVM_LAYERS ${target})
    endif()
  endforeach()
endfunction()

# qvm_reached(<variable> <target>...)
# The project's targets that have code, among those and all that they are linked to.
function(qvm_reached variable)
  set(open ${ARGN})
  set(seen)
  while(open)
    list(POP_FRONT open target)
    # What a static library links for itself stands there as an expression, which is no target.
    if(NOT TARGET "${target}" OR target IN_LIST seen)
      continue()
    endif()
    list(APPEND seen ${target})
    get_target_property(more ${target} INTERFACE_LINK_LIBRARIES)
    if(more)
      list(APPEND open ${more})
    endif()
  endwhile()
  set(reached)
  foreach(target IN LISTS seen)
    get_target_property(folders ${target} QVM_FOLDERS)
    if(folders)
      list(APPEND reached ${target})
    endif()
  endforeach()
  set(${variable} ${reached} PARENT_SCOPE)
endfunction()

# qvm_write_layers(<file>)
# A line for each folder of src: its name, and the folders whose headers its target may include, for the structure test.
function(qvm_write_layers file)
  get_property(layers GLOBAL PROPERTY QVM_LAYERS)
  list(REMOVE_DUPLICATES layers)
  set(text)
  foreach(layer IN LISTS layers)
    get_target_property(linked ${layer} LINK_LIBRARIES)
    get_target_property(own ${layer} QVM_FOLDERS)
    set(reached ${own})
    qvm_reached(targets ${linked})
    foreach(target IN LISTS targets)
      get_target_property(folders ${target} QVM_FOLDERS)
      list(APPEND reached ${folders})
    endforeach()
    list(JOIN reached " " reached)
    foreach(folder IN LISTS own)
      string(APPEND text "${folder} ${reached}\n")
    endforeach()
  endforeach()
  file(GENERATE OUTPUT "${file}" CONTENT "${text}")
endfunction()

# qvm_program_first(<target>)
# Of a function that several objects have, a template's for one, the linker takes the first. It shall be the program's,
# which is optimised and has all sanitizers, and not that of the tests, which takes twice the time.
function(qvm_program_first target)
  get_target_property(linked ${target} LINK_LIBRARIES)
  qvm_reached(layers ${linked})
  set(files)
  foreach(layer IN LISTS layers)
    get_target_property(type ${layer} TYPE)
    if(type STREQUAL "STATIC_LIBRARY" AND NOT layer STREQUAL test_support)
      list(APPEND files "$<TARGET_FILE:${layer}>")
    endif()
  endforeach()
  if(QVM_FUZZ AND files)
    target_link_options(${target} PRIVATE "LINKER:--whole-archive" ${files} "LINKER:--no-whole-archive")
  endif()
endfunction()

# qvm_library(<name> [QT] [DIR <folder>] [PARTS <sub-folder>...] [DEPS <target>...] [PRIVATE_DEPS <target>...]
#             [HEADERS <header>...] [HEADERS_OF <target>])
# All .cpp files of the folder and of those sub-folders as one static library. PARTS are rooms without walls. QT: its
# libraries bring definitions of Qt along, so that it cannot share core's compiled headers. HEADERS: what it includes
# everywhere besides, then. HEADERS_OF: the target whose compiled headers it takes.
function(qvm_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "DIR;HEADERS_OF" "PARTS;DEPS;PRIVATE_DEPS;HEADERS")
  if(NOT arg_DIR)
    set(arg_DIR "${CMAKE_CURRENT_SOURCE_DIR}/${name}")
  endif()
  set(rooms "${arg_DIR}")
  foreach(part IN LISTS arg_PARTS)
    list(APPEND rooms "${arg_DIR}/${part}")
  endforeach()
  list(TRANSFORM rooms APPEND "/*.cpp" OUTPUT_VARIABLE patterns)
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  if(sources)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${rooms})
    target_link_libraries(${name} PUBLIC qvm_flags ${arg_DEPS} PRIVATE ${arg_PRIVATE_DEPS})
    if(arg_HEADERS_OF)
      target_precompile_headers(${name} REUSE_FROM ${arg_HEADERS_OF})
    elseif(arg_QT OR NOT TARGET core OR name STREQUAL core)
      target_precompile_headers(${name} PRIVATE ${QVM_STANDARD_HEADERS} ${arg_HEADERS})
    elseif(NOT name STREQUAL test_support)
      target_precompile_headers(${name} REUSE_FROM core)
    endif()
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${rooms})
    target_link_libraries(${name} INTERFACE qvm_flags ${arg_DEPS} ${arg_PRIVATE_DEPS})
  endif()
  qvm_layer(${name} ${rooms})
endfunction()

# qvm_test_support()
# What tests share, with the headers of the test framework compiled once for all test programs.
set(QVM_TEST_HEADERS <gmock/gmock.h> <gtest/gtest.h> <map> <rapidcheck.h> <string> <vector>)
function(qvm_test_support)
  qvm_library(test_support DIR "${CMAKE_CURRENT_SOURCE_DIR}/support" DEPS core GTest::gtest GTest::gmock rapidcheck)
  target_compile_definitions(test_support PUBLIC
    QVM_SOURCE_DIR="${PROJECT_SOURCE_DIR}" QVM_BINARY_DIR="${PROJECT_BINARY_DIR}")
  if(NOT QVM_TESTS STREQUAL "PROGRAM") # where a program of tests is one piece, which reads them once in any case
    target_precompile_headers(test_support PRIVATE ${QVM_TEST_HEADERS})
  endif()
  qvm_test_code(test_support)
endfunction()

# qvm_test(<folder> [QT] [PROGRAM] [SLICES <count>] [DEPS <target>...] [HEADERS <header>...])
# The tests of tests/<folder> as one program test_<folder>, linked to what that folder may use and no more. PROGRAM: it
# needs the program as it is handed out. QT: its libraries bring definitions of Qt along, so that such programs share
# compiled headers among themselves only, and with HEADERS, what they include everywhere besides, not even that. SLICES:
# so many runs that may go on at a time, each with its share of the tests; a run for every single test spent most of its
# time on starting.
function(qvm_test folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QT;PROGRAM" "SLICES" "DEPS;HEADERS")
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp")
  if(NOT sources OR QVM_TESTS STREQUAL "PROGRAM" AND NOT arg_PROGRAM)
    return()
  endif()
  add_executable(test_${folder} ${sources})
  target_link_libraries(test_${folder} PRIVATE ${arg_DEPS} test_support GTest::gtest_main)
  qvm_program_first(test_${folder})
  qvm_test_code(test_${folder})
  get_property(qtTest GLOBAL PROPERTY QVM_QT_TEST)
  if(QVM_TESTS STREQUAL "PROGRAM")
    # One piece: see qvm_test_support.
  elseif(NOT arg_QT)
    target_precompile_headers(test_${folder} REUSE_FROM test_support)
  elseif(arg_HEADERS)
    target_precompile_headers(test_${folder} PRIVATE ${QVM_TEST_HEADERS} ${arg_HEADERS})
  elseif(qtTest)
    target_precompile_headers(test_${folder} REUSE_FROM ${qtTest})
  else()
    target_precompile_headers(test_${folder} PRIVATE ${QVM_TEST_HEADERS})
    set_property(GLOBAL PROPERTY QVM_QT_TEST test_${folder})
  endif()
  if(NOT arg_SLICES)
    set(arg_SLICES 1)
  endif()
  math(EXPR last "${arg_SLICES} - 1")
  foreach(slice RANGE ${last})
    add_test(NAME ${folder}.${slice} COMMAND test_${folder})
    set_tests_properties(${folder}.${slice} PROPERTIES TIMEOUT 900 COST ${arg_SLICES}
      ENVIRONMENT "GTEST_TOTAL_SHARDS=${arg_SLICES};GTEST_SHARD_INDEX=${slice}")
  endforeach()
endfunction()
