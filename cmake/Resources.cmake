# The program finds its compiled scripts in the folder Resources beside the executable's folder:
# Contents/Resources of the bundle on macOS, <build>/Resources next to <build>/bin elsewhere.
set(ZOR_SCRIPT_SOURCES
  ${CMAKE_SOURCE_DIR}/resources/FirePalette.applescript
  ${CMAKE_SOURCE_DIR}/resources/FireAppleScript.applescript)

function(zor_stage_resources target)
  if(APPLE)
    set_target_properties(${target} PROPERTIES
      MACOSX_BUNDLE_INFO_PLIST ${CMAKE_SOURCE_DIR}/resources/Info.plist.in
      MACOSX_BUNDLE_BUNDLE_NAME ZOR_Palette
      MACOSX_BUNDLE_GUI_IDENTIFIER net.lunvale.ZOR-Palette
      MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION}
      RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
    set(resdir $<TARGET_BUNDLE_CONTENT_DIR:${target}>/Resources)
  else()
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
    set(resdir ${CMAKE_BINARY_DIR}/Resources)
  endif()
  add_custom_command(TARGET ${target} POST_BUILD COMMAND ${CMAKE_COMMAND} -E make_directory ${resdir})
  foreach(src IN LISTS ZOR_SCRIPT_SOURCES)
    if(NOT EXISTS ${src})
      continue()
    endif()
    get_filename_component(stem ${src} NAME_WE)
    if(APPLE)
      # FirePalette uses Keyboard Maestro's own terms, which compile only where it is installed.
      # osascript also runs a script's source text, so without Keyboard Maestro the source
      # stands in the bundle and is compiled when it runs, on a Mac that has it.
      add_custom_command(TARGET ${target} POST_BUILD
        COMMAND sh -c "osacompile -o '${resdir}/${stem}.scpt' '${src}' 2>/dev/null || cp '${src}' '${resdir}/${stem}.scpt'" VERBATIM)
    else()
      add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E copy ${src} ${resdir}/${stem}.scpt)
    endif()
  endforeach()
endfunction()
