# Programs of their own beside zvr. They know nothing of its sources and need no library.
add_executable(zvrctl ${PROJECT_SOURCE_DIR}/companions/zvrctl/main.cpp)
