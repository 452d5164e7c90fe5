# kestrio_include_root(<target> <visibility> <folder> <name>): lets the target include the headers of
# one folder as "<name>/X.h", and nothing beside it. Each folder has a root of its own, in which a
# link leads to it, since a shared one would put every room on everybody's include path.
function(kestrio_include_root target visibility folder name)
  file(RELATIVE_PATH path "${PROJECT_SOURCE_DIR}" "${folder}")
  string(REPLACE "/" "-" root "${path}")
  set(root "${PROJECT_BINARY_DIR}/include/${root}")
  file(MAKE_DIRECTORY "${root}")
  if(NOT EXISTS "${root}/${name}")
    file(CREATE_LINK "${folder}" "${root}/${name}" SYMBOLIC)
  endif()
  target_include_directories(${target} ${visibility} "${root}")
endfunction()

# kestrio_room(<name> [LINKS <target>...] [EXCLUDE <pattern>...] [COROUTINES <file>...]): the library kestrio_<name> from
# every source below the current folder. Naming the rooms it includes in LINKS is what puts them on
# its include path; tests/architecture/check_cmake.py wants these and no others. COROUTINES names the sources that need the coroutine library; the fuzzers'
# Clang cannot compile it, so under KESTRIO_FUZZ the room goes without them, and only rooms that a
# fuzzer links are built. A folder views/ has a target of its own, kestrio_views().
function(kestrio_room name)
  cmake_parse_arguments(PARSE_ARGV 1 ROOM "" "" "LINKS;PRIVATE_LINKS;EXCLUDE;COROUTINES")
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.cpp *.h)
  foreach(pattern IN ITEMS "/views/" LISTS ROOM_EXCLUDE)
    list(FILTER sources EXCLUDE REGEX "${pattern}")
  endforeach()
  if(KESTRIO_FUZZ)
    list(TRANSFORM ROOM_COROUTINES PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    list(REMOVE_ITEM sources ${ROOM_COROUTINES})
  endif()
  add_library(kestrio_${name} STATIC ${sources})
  file(RELATIVE_PATH room "${PROJECT_SOURCE_DIR}/src" "${CMAKE_CURRENT_SOURCE_DIR}")
  string(REGEX REPLACE "/.*" "" room "${room}")
  kestrio_include_root(kestrio_${name} PUBLIC "${PROJECT_SOURCE_DIR}/src/${room}" "${room}")
  target_link_libraries(kestrio_${name} PUBLIC kestrio_common ${ROOM_LINKS} PRIVATE ${ROOM_PRIVATE_LINKS})
  target_precompile_headers(kestrio_${name} REUSE_FROM kestrio_pch)
  set_target_properties(kestrio_${name} PROPERTIES EXCLUDE_FROM_ALL "${KESTRIO_FUZZ}")
endfunction()

# kestrio_views(<room> [LINKS <target>...]): the library kestrio_<room>_views from the room's folder
# views/, with the QML module Kestrio.<Room> from views/qml/.
function(kestrio_views name)
  cmake_parse_arguments(PARSE_ARGV 1 VIEWS "" "" "LINKS")
  file(GLOB sources CONFIGURE_DEPENDS views/*.cpp views/*.h)
  file(GLOB qml_files RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" CONFIGURE_DEPENDS views/qml/*.qml)
  foreach(file IN LISTS qml_files)
    string(REPLACE "views/" "" alias "${file}")
    set_source_files_properties("${file}" PROPERTIES QT_RESOURCE_ALIAS "${alias}")
  endforeach()
  if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/views/qml/Theme.qml")
    set_source_files_properties(views/qml/Theme.qml PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
  endif()
  string(SUBSTRING "${name}" 0 1 initial)
  string(TOUPPER "${initial}" initial)
  string(SUBSTRING "${name}" 1 -1 rest)
  # For the tools, which look up bases of types there.
  set(dependencies QtQuick)
  if(NOT name STREQUAL "ui")
    list(APPEND dependencies Kestrio.Ui)
  endif()
  add_library(kestrio_${name}_views STATIC ${sources})
  qt_add_qml_module(kestrio_${name}_views URI Kestrio.${initial}${rest} VERSION 1.0 NO_PLUGIN
                    OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/qml/Kestrio/${initial}${rest}"
                    RESOURCE_PREFIX /qt/qml DEPENDENCIES ${dependencies} QML_FILES ${qml_files})
  target_include_directories(kestrio_${name}_views PRIVATE views)
  target_link_libraries(kestrio_${name}_views PUBLIC kestrio_${name} Qt6::Quick ${VIEWS_LINKS})
  # What the QML compiler writes shadows its own parameters.
  target_compile_options(kestrio_${name}_views PRIVATE -Wno-shadow)
  target_precompile_headers(kestrio_${name}_views REUSE_FROM kestrio_pch)
endfunction()

# kestrio_test(<room> [ON_X_SERVER] LINKS <target>...): one GoogleTest program from tests/<room>/. Each
# case is a ctest case on Qt's offscreen platform; with ON_X_SERVER all are one ctest case that runs
# on an X server of its own. Cases named Repetition.* have the machine to themselves and more time.
function(kestrio_test room)
  cmake_parse_arguments(PARSE_ARGV 1 TEST "ON_X_SERVER" "" "LINKS")
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.cpp *.h)
  add_executable(test_${room} ${sources})
  kestrio_include_root(test_${room} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}" "${room}")
  target_compile_definitions(test_${room} PRIVATE KESTRIO_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(test_${room} PRIVATE ${TEST_LINKS} kestrio_test_support GTest::gmock)
  target_precompile_headers(test_${room} REUSE_FROM kestrio_pch)
  if(TEST_ON_X_SERVER)
    add_test(NAME ${room} COMMAND xvfb-run --auto-servernum $<TARGET_FILE:test_${room}>)
    set_tests_properties(${room} PROPERTIES TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=xcb")
  else()
    set(discovery TEST_PREFIX "${room}." NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60)
    set(environment ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    gtest_discover_tests(test_${room} ${discovery} TEST_LIST ${room}_tests
                         TEST_FILTER "-Repetition.*" PROPERTIES TIMEOUT 120 ${environment})
    gtest_discover_tests(test_${room} ${discovery} TEST_LIST ${room}_repetitions
                         TEST_FILTER "Repetition.*"
                         PROPERTIES TIMEOUT 600 RUN_SERIAL TRUE ${environment})
  endif()
endfunction()
