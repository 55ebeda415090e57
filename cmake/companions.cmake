# Programs of their own beside zvr. zvrctl knows of its sources where they meet, and needs no library.
add_executable(zvrctl ${PROJECT_SOURCE_DIR}/companions/zvrctl/main.cpp)
target_include_directories(zvrctl PRIVATE ${PROJECT_SOURCE_DIR}/src)

# Looks at skins with the program's own eyes.
add_executable(skincheck ${PROJECT_SOURCE_DIR}/companions/skincheck/main.cpp)
target_link_libraries(skincheck PRIVATE zvr_logic zvr_linux zvr_logic zvr_common)
