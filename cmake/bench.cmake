# Measures of the program on the test backend; tools/bench runs them and prints them beside their bars.
find_package(benchmark REQUIRED)
file(GLOB ZVR_BENCH_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/bench/*.cpp
     ${PROJECT_SOURCE_DIR}/tests/support/*.cpp)
add_executable(zvr_bench ${ZVR_BENCH_SOURCES})
target_include_directories(zvr_bench PRIVATE ${ZVR_TEST_INCLUDES})
target_link_libraries(zvr_bench PRIVATE zvr_logic zvr_headless zvr_logic zvr_common benchmark::benchmark_main)
