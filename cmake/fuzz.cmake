# Fuzz targets: any bytes at all, and a property that must hold. Each tests/fuzz/fuzz_*.cpp is a program of its own,
# run by tools/fuzz.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "ZVR_FUZZ needs clang: -DCMAKE_CXX_COMPILER=clang++-14")
endif()
file(GLOB ZVR_SUPPORT_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/support/*.cpp)
add_library(zvr_test_support STATIC ${ZVR_SUPPORT_SOURCES})
target_include_directories(zvr_test_support PUBLIC ${ZVR_TEST_INCLUDES})
target_link_libraries(zvr_test_support PUBLIC zvr_logic zvr_headless zvr_logic zvr_common)
foreach(library zvr_logic zvr_common zvr_headless zvr_test_support)
  target_compile_options(${library} PRIVATE -g1 -fsanitize=fuzzer-no-link,address,undefined
    -fno-sanitize-recover=undefined)
endforeach()
# What decodes pictures stands in the real backend.
find_package(Qt6 REQUIRED COMPONENTS Gui)
file(GLOB ZVR_FUZZ_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/fuzz/fuzz_*.cpp)
add_custom_target(fuzz_targets)
foreach(source IN LISTS ZVR_FUZZ_SOURCES)
  get_filename_component(name ${source} NAME_WE)
  add_executable(${name} ${source} ${PROJECT_SOURCE_DIR}/tests/fuzz/target.cpp)
  target_compile_options(${name} PRIVATE -g1 -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer,address,undefined)
  target_link_libraries(${name} PRIVATE zvr_test_support)
  add_dependencies(fuzz_targets ${name})
endforeach()
target_sources(fuzz_picture PRIVATE ${PROJECT_SOURCE_DIR}/src/platform/linux/photo.cpp
  ${PROJECT_SOURCE_DIR}/src/platform/linux/picture.cpp ${PROJECT_SOURCE_DIR}/src/platform/linux/png.cpp)
target_link_libraries(fuzz_picture PRIVATE Qt6::Gui)
