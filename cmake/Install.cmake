# cmake --install <build> --prefix <folder>. On the Mac: the bundle ZOR_Palette.app, its scripts
# in Contents/Resources. Elsewhere: bin/ZOR_Palette and Resources/ beside bin/, where the program
# looks for its scripts. scripts/package-mac.sh turns the Mac's install into a disk image.
install(TARGETS ZOR_Palette BUNDLE DESTINATION . RUNTIME DESTINATION bin)
if(NOT APPLE)
  foreach(src IN LISTS ZOR_SCRIPT_SOURCES)
    get_filename_component(stem ${src} NAME_WE)
    install(FILES ${src} DESTINATION Resources RENAME ${stem}.scpt)
  endforeach()
endif()

set(CPACK_PACKAGE_NAME ZOR_Palette)
set(CPACK_PACKAGE_VENDOR Lunvale)
set(CPACK_PACKAGE_FILE_NAME ZOR_Palette-${PROJECT_VERSION})
if(APPLE)
  # The disk image shows the app beside a link to /Applications, to drag it onto.
  set(CPACK_GENERATOR DragNDrop)
  set(CPACK_DMG_VOLUME_NAME ZOR_Palette)
  set(CPACK_DMG_FORMAT UDZO)
else()
  set(CPACK_GENERATOR TGZ)
endif()
include(CPack)
