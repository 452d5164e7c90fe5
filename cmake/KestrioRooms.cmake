# kestrio_room(<name> [LINKS <target>...] [COROUTINES <file>...]): the library kestrio_<name> from
# every source below the current folder. Naming the rooms it may include in LINKS is what puts them
# on its include path. COROUTINES names the sources that need the coroutine library; the fuzzers'
# Clang cannot compile it, so under KESTRIO_FUZZ the room goes without them, and only rooms that a
# fuzzer links are built.
function(kestrio_room name)
  cmake_parse_arguments(PARSE_ARGV 1 ROOM "" "" "LINKS;PRIVATE_LINKS;COROUTINES")
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.cpp *.h)
  if(KESTRIO_FUZZ)
    list(TRANSFORM ROOM_COROUTINES PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    list(REMOVE_ITEM sources ${ROOM_COROUTINES})
  endif()
  add_library(kestrio_${name} STATIC ${sources})
  target_include_directories(kestrio_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(kestrio_${name} PUBLIC kestrio_common ${ROOM_LINKS} PRIVATE ${ROOM_PRIVATE_LINKS})
  target_precompile_headers(kestrio_${name} REUSE_FROM kestrio_pch)
  set_target_properties(kestrio_${name} PROPERTIES EXCLUDE_FROM_ALL "${KESTRIO_FUZZ}")
endfunction()

# kestrio_test(<room> [ON_X_SERVER] LINKS <target>...): one GoogleTest program from tests/<room>/. Each
# case is a ctest case on Qt's offscreen platform; with ON_X_SERVER all are one ctest case that runs
# on an X server of its own.
function(kestrio_test room)
  cmake_parse_arguments(PARSE_ARGV 1 TEST "ON_X_SERVER" "" "LINKS")
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.cpp *.h)
  add_executable(test_${room} ${sources})
  target_include_directories(test_${room} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(test_${room} PRIVATE KESTRIO_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(test_${room} PRIVATE ${TEST_LINKS} kestrio_test_support GTest::gmock)
  target_precompile_headers(test_${room} REUSE_FROM kestrio_pch)
  if(TEST_ON_X_SERVER)
    add_test(NAME ${room} COMMAND xvfb-run --auto-servernum $<TARGET_FILE:test_${room}>)
    set_tests_properties(${room} PROPERTIES TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=xcb")
  else()
    gtest_discover_tests(test_${room} TEST_PREFIX "${room}." NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60
                         PROPERTIES TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
  endif()
endfunction()
