# One GoogleTest binary per folder of tests/, each registered with ctest.
find_package(GTest REQUIRED)
include(GoogleTest)

file(GLOB fake_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/fake/*.cpp)
add_library(ortelix_testsupport STATIC ${fake_sources})
target_link_libraries(ortelix_testsupport PUBLIC libortelix GTest::gtest)
target_include_directories(ortelix_testsupport PUBLIC ${CMAKE_SOURCE_DIR}/tests)
target_compile_definitions(ortelix_testsupport PUBLIC
  ORTELIX_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
  ORTELIX_BUILD_DIR="${CMAKE_BINARY_DIR}"
  ORTELIX_DATA_DIR="${CMAKE_BINARY_DIR}/data"
  ORTELIX_BINARY="$<TARGET_FILE:ortelix>")
set_target_properties(ortelix_testsupport PROPERTIES AUTOMOC OFF)

# Suites under these folders need the Qt side (platform, forms, command line).
set(qt_suites forms cli platform)

file(GLOB suite_dirs LIST_DIRECTORIES true ${CMAKE_SOURCE_DIR}/tests/*)
foreach(dir ${suite_dirs})
  get_filename_component(suite ${dir} NAME)
  if(NOT IS_DIRECTORY ${dir} OR suite STREQUAL "fake" OR suite STREQUAL "data")
    continue()
  endif()
  file(GLOB_RECURSE suite_sources CONFIGURE_DEPENDS ${dir}/*.cpp)
  if(NOT suite_sources)
    continue()
  endif()
  add_executable(test_${suite} ${suite_sources})
  target_link_libraries(test_${suite} PRIVATE ortelix_testsupport GTest::gtest_main)
  if(suite IN_LIST qt_suites)
    target_link_libraries(test_${suite} PRIVATE ortelix_app Qt6::Test util)
  else()
    set_target_properties(test_${suite} PROPERTIES AUTOMOC OFF)
  endif()
  add_dependencies(test_${suite} ortelix ortelix_data)
  gtest_discover_tests(test_${suite}
    DISCOVERY_MODE PRE_TEST
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;ASAN_OPTIONS=detect_leaks=0"
    DISCOVERY_TIMEOUT 60)
endforeach()
