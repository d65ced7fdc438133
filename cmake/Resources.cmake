# The program finds its compiled scripts in the folder Resources beside the executable's folder:
# Contents/Resources of the bundle on macOS, <build>/Resources next to <build>/bin elsewhere.
set(ZOR_SCRIPT_SOURCES
  ${CMAKE_SOURCE_DIR}/resources/FirePalette.applescript
  ${CMAKE_SOURCE_DIR}/resources/FireAppleScript.applescript
  ${CMAKE_SOURCE_DIR}/resources/MakeMacros.applescript)

set(ZOR_ICON ${CMAKE_SOURCE_DIR}/resources/AppIcon.icns) # scripts/make-icns.py makes it anew

# The oldest macOS that the Qt in use runs on, from Qt's own figure where its CMake files give
# it, else from the versions Qt supports; on a Mac, the minimum that Qt's own QtCore was built for
# when it is higher (Homebrew builds for the macOS it runs on), and a higher deployment target of
# the build. scripts/package-mac.sh writes the bundle's figure again from what it holds.
function(zor_macos_minimum out)
  if(QT_SUPPORTED_MIN_MACOS_VERSION)
    set(minimum ${QT_SUPPORTED_MIN_MACOS_VERSION})
  elseif(Qt6_VERSION VERSION_LESS 6.5)
    set(minimum 10.14)
  elseif(Qt6_VERSION VERSION_LESS 6.8)
    set(minimum 11.0)
  elseif(Qt6_VERSION VERSION_LESS 6.10)
    set(minimum 12.0)
  elseif(Qt6_VERSION VERSION_LESS 6.12)
    set(minimum 13.0)
  else()
    set(minimum 14.4)
  endif()
  if(APPLE)
    get_target_property(qtcore Qt6::Core LOCATION)
    execute_process(COMMAND ${CMAKE_SOURCE_DIR}/scripts/macos-minimum.sh ${qtcore}
                    OUTPUT_VARIABLE built_for OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE failed)
    if(NOT failed AND built_for VERSION_GREATER minimum)
      set(minimum ${built_for})
    endif()
  endif()
  if(CMAKE_OSX_DEPLOYMENT_TARGET VERSION_GREATER minimum)
    set(minimum ${CMAKE_OSX_DEPLOYMENT_TARGET})
  endif()
  set(${out} ${minimum} PARENT_SCOPE)
endfunction()

# The bundle's Info.plist is configured on every platform, so that a test can read it anywhere.
function(zor_configure_info_plist target)
  set(MACOSX_BUNDLE_EXECUTABLE_NAME ${target})
  set(MACOSX_BUNDLE_BUNDLE_NAME ZOR_Palette)
  set(MACOSX_BUNDLE_GUI_IDENTIFIER net.lunvale.ZOR-Palette)
  set(MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION})
  get_filename_component(MACOSX_BUNDLE_ICON_FILE ${ZOR_ICON} NAME)
  zor_macos_minimum(ZOR_MACOS_MINIMUM)
  configure_file(${CMAKE_SOURCE_DIR}/resources/Info.plist.in ${CMAKE_BINARY_DIR}/Info.plist)
endfunction()

function(zor_stage_resources target)
  zor_configure_info_plist(${target})
  if(APPLE)
    target_sources(${target} PRIVATE ${ZOR_ICON})
    set_source_files_properties(${ZOR_ICON} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
    set_target_properties(${target} PROPERTIES
      MACOSX_BUNDLE_INFO_PLIST ${CMAKE_BINARY_DIR}/Info.plist
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
      # FireAppleScript and FirePalette compile on any Mac (FirePalette names Keyboard Maestro Engine by
      # its bundle identifier); MakeMacros uses the editor's own terms, which compile only where
      # Keyboard Maestro is installed. osascript also runs a script's source text, so there the
      # source stands in the bundle and is compiled when it runs.
      add_custom_command(TARGET ${target} POST_BUILD
        COMMAND sh -c "osacompile -o '${resdir}/${stem}.scpt' '${src}' 2>/dev/null || cp '${src}' '${resdir}/${stem}.scpt'" VERBATIM)
    else()
      add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E copy ${src} ${resdir}/${stem}.scpt)
    endif()
  endforeach()
endfunction()
