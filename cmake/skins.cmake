# The default skins, drawn from their descriptions. Only a change of those draws them anew.
find_program(RSVG_CONVERT rsvg-convert)
file(GLOB ZVR_SKIN_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tools/skins/*.py
     ${PROJECT_SOURCE_DIR}/tools/skins/forms/*.py)
list(FILTER ZVR_SKIN_SOURCES EXCLUDE REGEX "/(preview|checks)\\.py$")
set(ZVR_SKINS_STAMP ${CMAKE_BINARY_DIR}/skins.stamp)
if(RSVG_CONVERT)
  add_custom_command(
    OUTPUT ${ZVR_SKINS_STAMP}
    COMMAND /usr/bin/python3 ${PROJECT_SOURCE_DIR}/tools/skins/draw.py skins ${CMAKE_BINARY_DIR}/skins
    COMMAND ${CMAKE_COMMAND} -E touch ${ZVR_SKINS_STAMP}
    DEPENDS ${ZVR_SKIN_SOURCES}
    COMMENT "Drawing the default skins"
    VERBATIM)
  add_custom_target(skins ALL DEPENDS ${ZVR_SKINS_STAMP})
else()
  message(STATUS "No rsvg-convert (package librsvg2-bin): the default skins are not drawn")
endif()
