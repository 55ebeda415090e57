# Programs of their own beside zvr. zvrctl knows of its sources where they meet, and needs no library.
add_executable(zvrctl ${PROJECT_SOURCE_DIR}/companions/zvrctl/main.cpp)
target_include_directories(zvrctl PRIVATE ${PROJECT_SOURCE_DIR}/src)

# Looks at skins with the program's own eyes.
file(GLOB ZVR_SKINCHECK_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/companions/skincheck/*.cpp)
add_executable(skincheck ${ZVR_SKINCHECK_SOURCES})
target_link_libraries(skincheck PRIVATE zvr_logic zvr_linux zvr_logic zvr_common)
