# The real backend and the programs that stand on it.
find_package(Qt6 REQUIRED COMPONENTS Core Gui Widgets Network DBus)
pkg_check_modules(VLC REQUIRED IMPORTED_TARGET libvlc)
pkg_check_modules(ALSA REQUIRED IMPORTED_TARGET alsa)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb xcb-randr xcb-ewmh xcb-icccm xcb-res)

file(GLOB ZVR_LINUX_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/platform/linux/*.cpp
     ${PROJECT_SOURCE_DIR}/src/platform/linux/*.h)
add_library(zvr_linux STATIC ${ZVR_LINUX_SOURCES})
set_target_properties(zvr_linux PROPERTIES AUTOMOC ON)
target_include_directories(zvr_linux PUBLIC ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(zvr_linux PUBLIC zvr_common PRIVATE Qt6::Widgets Qt6::Network Qt6::DBus
  PkgConfig::VLC PkgConfig::ALSA PkgConfig::XCB)

add_executable(zvr ${PROJECT_SOURCE_DIR}/src/main.cpp)
target_link_libraries(zvr PRIVATE zvr_logic zvr_linux zvr_logic zvr_common)
