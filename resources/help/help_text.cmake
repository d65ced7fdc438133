# The help table, compiled into the help library and read once at start-up.
qt_add_resources(zor_help "help_text"
  PREFIX "/help"
  BASE ${CMAKE_SOURCE_DIR}/resources/help
  FILES ${CMAKE_SOURCE_DIR}/resources/help/HELP_TEXT.txt)
