# Google Benchmark programs: one executable per bench/*.cpp.
find_package(benchmark REQUIRED)
file(GLOB bench_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/bench/*.cpp)
foreach(src ${bench_sources})
  get_filename_component(name ${src} NAME_WE)
  add_executable(bench_${name} ${src})
  target_link_libraries(bench_${name} PRIVATE libortelix benchmark::benchmark)
  set_target_properties(bench_${name} PROPERTIES AUTOMOC OFF)
endforeach()
