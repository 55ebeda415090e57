# Headless tests of the rooms, and contract tests that hold both backends to one behaviour.
find_package(GTest REQUIRED)
include(GoogleTest)

file(GLOB ZVR_TEST_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/support/*.cpp
     ${PROJECT_SOURCE_DIR}/tests/ui/*.cpp ${PROJECT_SOURCE_DIR}/tests/core/*.cpp ${PROJECT_SOURCE_DIR}/tests/skin/*.cpp
     ${PROJECT_SOURCE_DIR}/tests/media/*.cpp ${PROJECT_SOURCE_DIR}/tests/apps/*.cpp ${PROJECT_SOURCE_DIR}/tests/system/*.cpp
     ${PROJECT_SOURCE_DIR}/tests/platform/*.cpp ${PROJECT_SOURCE_DIR}/tests/radiogps/*.cpp)
add_executable(zvr_tests ${ZVR_TEST_SOURCES})
target_include_directories(zvr_tests PRIVATE ${ZVR_TEST_INCLUDES})
target_link_libraries(zvr_tests PRIVATE zvr_logic zvr_headless zvr_logic zvr_common GTest::gmock GTest::gtest_main)
if(TARGET skins)
  add_dependencies(zvr_tests skins)
  add_test(NAME SkinsAreAsTheirChecksWant COMMAND /usr/bin/python3 ${PROJECT_SOURCE_DIR}/tools/skins/draw.py check)
  set_tests_properties(SkinsAreAsTheirChecksWant PROPERTIES TIMEOUT 300)
endif()
# What nearly every test includes, read once; and tests need not be fast themselves.
target_precompile_headers(zvr_tests PRIVATE <gmock/gmock.h> <gtest/gtest.h> ${PROJECT_SOURCE_DIR}/tests/support/bench.h)
target_compile_options(zvr_tests PRIVATE -O1 $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)  # the latter for ccache
gtest_discover_tests(zvr_tests DISCOVERY_TIMEOUT 60)

file(GLOB ZVR_CONTRACT_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/contract/*.cpp)
foreach(backend headless linux)
  if(backend STREQUAL linux AND NOT ZVR_LINUX)
    continue()
  endif()
  file(GLOB ZVR_BACKEND_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/contract/${backend}/*.cpp)
  add_executable(zvr_contract_${backend} ${ZVR_CONTRACT_SOURCES} ${ZVR_BACKEND_SOURCES})
  target_include_directories(zvr_contract_${backend} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(zvr_contract_${backend} PRIVATE zvr_logic zvr_${backend} zvr_logic zvr_common GTest::gtest)
  if(backend STREQUAL linux)
    target_link_libraries(zvr_contract_linux PRIVATE Qt6::Widgets PkgConfig::XCB)
  endif()
endforeach()
