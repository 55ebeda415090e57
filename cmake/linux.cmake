# The real backend and the programs that stand on it.
find_package(Qt6 REQUIRED COMPONENTS Core Gui Widgets DBus)
pkg_check_modules(VLC REQUIRED libvlc)
pkg_check_modules(ALSA REQUIRED IMPORTED_TARGET alsa)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb xcb-randr xcb-res ice)

file(GLOB ZVR_LINUX_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/platform/linux/*.cpp
     ${PROJECT_SOURCE_DIR}/src/platform/linux/*.h)
add_library(zvr_linux STATIC ${ZVR_LINUX_SOURCES})
set_target_properties(zvr_linux PROPERTIES AUTOMOC ON)
target_include_directories(zvr_linux PUBLIC ${PROJECT_SOURCE_DIR}/src)
target_include_directories(zvr_linux PRIVATE ${VLC_INCLUDE_DIRS})  # loaded by the running program, not linked
target_link_libraries(zvr_linux PUBLIC zvr_common PRIVATE Qt6::Widgets Qt6::DBus
  ${CMAKE_DL_LIBS} PkgConfig::ALSA PkgConfig::XCB)

# The pictures in front of list rows are drawn at build time and lie in the program file.
set(ZVR_DRAW ${PROJECT_SOURCE_DIR}/tools/skins/draw.py)
if(EXISTS ${ZVR_DRAW})
  file(GLOB ZVR_DRAW_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tools/skins/*.py)
  set(ZVR_ICON_FOLDER ${PROJECT_BINARY_DIR}/icons)
  set(ZVR_ICON_FILES)
  set(ZVR_ICON_ENTRIES "")
  foreach(name folder audio video image file removable fixed cdrom network this home mobile work fax mail other)
    foreach(size 20 24 28 32 40)
      list(APPEND ZVR_ICON_FILES ${ZVR_ICON_FOLDER}/list-${name}-${size}.png)
      string(APPEND ZVR_ICON_ENTRIES "<file alias=\"list-${name}-${size}.png\">icons/list-${name}-${size}.png</file>\n")
    endforeach()
  endforeach()
  # White, for keys that no skin draws: the program tints them.
  set(ZVR_KEY_ICONS settings day night player sound programs phone keyboard task-switch open-folder ok close apply page-up
      page-down minus plus up down move-up move-down folder-up rename delete list left right)
  foreach(name IN LISTS ZVR_KEY_ICONS)
    foreach(size 24 28 34 44)
      list(APPEND ZVR_ICON_FILES ${ZVR_ICON_FOLDER}/${name}-${size}.png)
      string(APPEND ZVR_ICON_ENTRIES "<file alias=\"${name}-${size}.png\">icons/${name}-${size}.png</file>\n")
    endforeach()
  endforeach()
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/listicons.qrc
       CONTENT "<RCC><qresource prefix=\"/icons\">\n${ZVR_ICON_ENTRIES}</qresource></RCC>\n")
  add_custom_command(OUTPUT ${ZVR_ICON_FILES}
    COMMAND /usr/bin/python3 ${ZVR_DRAW} icons ${ZVR_ICON_FOLDER} ${ZVR_KEY_ICONS}
    DEPENDS ${ZVR_DRAW_SOURCES} COMMENT "Drawing the icons")
  add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/listicons.cpp
    COMMAND Qt6::rcc --name zvr_icons --output ${PROJECT_BINARY_DIR}/listicons.cpp ${PROJECT_BINARY_DIR}/listicons.qrc
    DEPENDS ${ZVR_ICON_FILES} ${PROJECT_BINARY_DIR}/listicons.qrc)
  target_sources(zvr_linux PRIVATE ${PROJECT_BINARY_DIR}/listicons.cpp)
  set_source_files_properties(${PROJECT_BINARY_DIR}/listicons.cpp PROPERTIES SKIP_AUTOMOC ON)
  target_compile_definitions(zvr_linux PRIVATE ZVR_HAS_LIST_ICONS)
endif()

add_executable(zvr ${PROJECT_SOURCE_DIR}/src/main.cpp)
target_link_libraries(zvr PRIVATE zvr_logic zvr_linux zvr_logic zvr_common)
