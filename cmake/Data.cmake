# Copies data/ into the build tree as the program folder's data. Generated
# data files (the geoid grid) add their own rules in data/CMakeLists.txt.
file(GLOB data_files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/data/*.dat ${CMAKE_SOURCE_DIR}/data/*.ini)
set(ORTELIX_DATA_DIR ${CMAKE_BINARY_DIR}/data)
set(data_outputs "")
foreach(f ${data_files})
  get_filename_component(name ${f} NAME)
  add_custom_command(OUTPUT ${ORTELIX_DATA_DIR}/${name}
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${f} ${ORTELIX_DATA_DIR}/${name}
    DEPENDS ${f})
  list(APPEND data_outputs ${ORTELIX_DATA_DIR}/${name})
endforeach()
add_custom_target(ortelix_data ALL DEPENDS ${data_outputs})
if(EXISTS ${CMAKE_SOURCE_DIR}/data/CMakeLists.txt)
  add_subdirectory(data)
endif()
add_dependencies(ortelix ortelix_data)
