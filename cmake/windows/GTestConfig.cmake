# Compiled here from its sources (googletest): they come as text only. With them come the aliases GTest::gtest and so on.
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
set(GTest_FOUND TRUE)
