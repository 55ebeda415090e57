# The program folder: flat, relocatable, everything that zvr reads lies beside it.
#   cmake --install build --prefix FOLDER                        all of it
#   cmake --install build --prefix FOLDER --component program    without the sample media
file(GLOB ZVR_MEDIA_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/demo/make-media.sh
     ${PROJECT_SOURCE_DIR}/demo/covers/*.svg)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/media.stamp
  COMMAND ${PROJECT_SOURCE_DIR}/demo/make-media.sh ${CMAKE_BINARY_DIR}/media
  COMMAND ${CMAKE_COMMAND} -E touch ${CMAKE_BINARY_DIR}/media.stamp
  DEPENDS ${ZVR_MEDIA_SOURCES}
  COMMENT "Making the sample media"
  VERBATIM)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/pictures.stamp
  COMMAND ${PROJECT_SOURCE_DIR}/demo/make-pictures.py ${CMAKE_BINARY_DIR}/pictures
  COMMAND ${CMAKE_COMMAND} -E touch ${CMAKE_BINARY_DIR}/pictures.stamp
  DEPENDS ${PROJECT_SOURCE_DIR}/demo/make-pictures.py
  COMMENT "Making the sample pictures"
  VERBATIM)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/drive.nmea
  COMMAND ${PROJECT_SOURCE_DIR}/demo/make-drive.py ${CMAKE_BINARY_DIR}/drive.nmea
  DEPENDS ${PROJECT_SOURCE_DIR}/demo/make-drive.py
  COMMENT "Making the sample drive"
  VERBATIM)
add_custom_target(media ALL DEPENDS ${CMAKE_BINARY_DIR}/media.stamp ${CMAKE_BINARY_DIR}/pictures.stamp
  ${CMAKE_BINARY_DIR}/drive.nmea)

# Not in the build folder itself: build/zvr is the program folder that ./run lays.
set(ZVR_PROGRAMS zvr zvrctl skincheck phonepeer indexer zvr_osk)
set_target_properties(${ZVR_PROGRAMS} radiator rc PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
# All that an install needs, without the tests.
add_custom_target(program DEPENDS ${ZVR_PROGRAMS} radiator rc skins media)
install(TARGETS ${ZVR_PROGRAMS} DESTINATION . COMPONENT program)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/lang DESTINATION . COMPONENT program)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION . COMPONENT program)
install(DIRECTORY ${CMAKE_BINARY_DIR}/skins DESTINATION . COMPONENT program OPTIONAL)
install(CODE "file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/playlists\")" COMPONENT program)
install(DIRECTORY ${CMAKE_BINARY_DIR}/media ${CMAKE_BINARY_DIR}/pictures DESTINATION . COMPONENT demo)
install(FILES ${CMAKE_BINARY_DIR}/drive.nmea DESTINATION . COMPONENT demo)
install(TARGETS radiator DESTINATION Radiator COMPONENT demo)
install(TARGETS rc DESTINATION "Radiator/Add-ons/Command line" COMPONENT demo)
install(FILES "${PROJECT_SOURCE_DIR}/demo/Evening and Speech.m3u" DESTINATION playlists COMPONENT demo)
