# Programs of their own beside zvr. zvrctl knows of its sources where they meet, and needs no library.
add_executable(zvrctl ${PROJECT_SOURCE_DIR}/companions/zvrctl/main.cpp)
target_include_directories(zvrctl PRIVATE ${PROJECT_SOURCE_DIR}/src)

# A radio program to try the radio with, and its command line tool.
foreach(part radiator rc)
  add_executable(${part} ${PROJECT_SOURCE_DIR}/companions/radiator/${part}.cpp)
  target_include_directories(${part} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/companions)
endforeach()

# Looks at skins with the program's own eyes.
file(GLOB ZVR_SKINCHECK_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/companions/skincheck/*.cpp)
add_executable(skincheck ${ZVR_SKINCHECK_SOURCES})
target_link_libraries(skincheck PRIVATE zvr_logic zvr_linux zvr_logic zvr_common)

# Stands in for the phone control program.
file(GLOB ZVR_PHONEPEER_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/companions/phonepeer/*.cpp)
add_executable(phonepeer ${ZVR_PHONEPEER_SOURCES})
target_link_libraries(phonepeer PRIVATE zvr_logic zvr_common)

# Writes the index that the media search reads. No library of the user interface: it starts at once.
add_executable(indexer ${PROJECT_SOURCE_DIR}/companions/indexer/main.cpp)
target_link_libraries(indexer PRIVATE zvr_logic zvr_common)
