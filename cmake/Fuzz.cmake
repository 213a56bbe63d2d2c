# One libFuzzer target per reader: fuzz/<name>.cpp becomes fuzz_<name>.
# The sanitizers of the whole fuzz build (CMakeLists.txt) halt at the first
# report, UBSan's too: -fno-sanitize-recover=all, repeated here for the
# targets' own files.
file(GLOB fuzz_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/fuzz/*.cpp)
foreach(src ${fuzz_sources})
  get_filename_component(name ${src} NAME_WE)
  add_executable(fuzz_${name} ${src})
  target_link_libraries(fuzz_${name} PRIVATE libortelix)
  target_include_directories(fuzz_${name} PRIVATE ${CMAKE_SOURCE_DIR})
  target_compile_options(fuzz_${name} PRIVATE -fsanitize=fuzzer -fno-sanitize-recover=all)
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  set_target_properties(fuzz_${name} PROPERTIES AUTOMOC OFF)
endforeach()
add_custom_target(ortelix_fuzzers)
foreach(src ${fuzz_sources})
  get_filename_component(name ${src} NAME_WE)
  add_dependencies(ortelix_fuzzers fuzz_${name})
endforeach()
