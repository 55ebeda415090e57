configure_file(${PROJECT_SOURCE_DIR}/tests/support/paths.h.in ${PROJECT_BINARY_DIR}/generated/support/paths.h @ONLY)
set(ZVR_TEST_INCLUDES ${PROJECT_SOURCE_DIR}/tests ${PROJECT_BINARY_DIR}/generated)
