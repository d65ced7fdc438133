# The application's picture, for the about window and the windows' icon; AppIcon128.png is its 2x,
# made from AppIcon512.png: convert AppIcon512.png -filter Lanczos -resize 128x128 -strip AppIcon128.png
qt_add_resources(zor_help "about_pictures"
  PREFIX "/about"
  BASE ${CMAKE_SOURCE_DIR}/resources/help
  FILES ${CMAKE_SOURCE_DIR}/resources/help/AppIcon64.png ${CMAKE_SOURCE_DIR}/resources/help/AppIcon128.png)
