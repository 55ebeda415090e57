# Programs of their own beside zvr. zvrctl knows of its sources where they meet, and needs no library.
set(ZVR_ANSWERS ${PROJECT_SOURCE_DIR}/companions/answers/answerreader.cpp)
add_executable(zvrctl ${PROJECT_SOURCE_DIR}/companions/zvrctl/main.cpp ${ZVR_ANSWERS})
target_include_directories(zvrctl PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/companions)

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

# The on-screen keyboard. Its logic is a part of the tests too; the icons of its keys lie in the program file.
pkg_check_modules(TYPING REQUIRED IMPORTED_TARGET xcb xcb-xtest xcb-xkb xkbcommon xkbcommon-x11)
file(GLOB ZVR_OSK_LINUX_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/companions/zvr_osk/linux/*.cpp)
add_executable(zvr_osk ${ZVR_OSK_LINUX_SOURCES})
target_link_libraries(zvr_osk PRIVATE zvr_osk_logic Qt6::Gui PkgConfig::TYPING)
set(ZVR_KEY_ICON_FOLDER ${PROJECT_BINARY_DIR}/keyicons)
set(ZVR_KEY_ICON_FILES)
set(ZVR_KEY_ICON_ENTRIES "")
foreach(name shift shift-lock backspace space set left right keyboard-top keyboard-bottom keyboard-hide)
  foreach(size 25 28 36 72)
    list(APPEND ZVR_KEY_ICON_FILES ${ZVR_KEY_ICON_FOLDER}/${name}-${size}.png)
    string(APPEND ZVR_KEY_ICON_ENTRIES "<file alias=\"${name}-${size}.png\">keyicons/${name}-${size}.png</file>\n")
  endforeach()
endforeach()
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/keyicons.qrc
     CONTENT "<RCC><qresource prefix=\"/osk\">\n${ZVR_KEY_ICON_ENTRIES}</qresource></RCC>\n")
add_custom_command(OUTPUT ${ZVR_KEY_ICON_FILES}
  COMMAND /usr/bin/python3 ${ZVR_DRAW} keyicons ${ZVR_KEY_ICON_FOLDER}
  DEPENDS ${ZVR_DRAW_SOURCES} COMMENT "Drawing the keyboard's icons")
add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/keyicons.cpp
  COMMAND Qt6::rcc --name zvr_key_icons --output ${PROJECT_BINARY_DIR}/keyicons.cpp ${PROJECT_BINARY_DIR}/keyicons.qrc
  DEPENDS ${ZVR_KEY_ICON_FILES} ${PROJECT_BINARY_DIR}/keyicons.qrc)
target_sources(zvr_osk PRIVATE ${PROJECT_BINARY_DIR}/keyicons.cpp)
