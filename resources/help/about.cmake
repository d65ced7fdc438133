# The application's picture, for the about window and the windows' icon.
qt_add_resources(zor_help "about_pictures"
  PREFIX "/about"
  BASE ${CMAKE_SOURCE_DIR}/resources/help
  FILES ${CMAKE_SOURCE_DIR}/resources/help/AppIcon64.png)
