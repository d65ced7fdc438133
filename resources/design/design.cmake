# The pictures of the three button kinds that the design window shows beside their fields.
qt_add_resources(zor_design "kind_pictures"
  PREFIX "/design"
  BASE ${CMAKE_SOURCE_DIR}/resources/design
  FILES ${CMAKE_SOURCE_DIR}/resources/design/KeyMaestro.png ${CMAKE_SOURCE_DIR}/resources/design/AppleScript.png
        ${CMAKE_SOURCE_DIR}/resources/design/Shortcuts.png)
