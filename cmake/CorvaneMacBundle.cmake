# The application bundle of the Mac. The window is its program; the other programs stand in
# Contents/MacOS too, because only from there the system takes the application's bundle, and with it
# the version and "UpdateEngine", for a program's own. What the shell of a bench runs is in
# Contents/Helpers.

set(CORVANE_BUNDLE_NAME "Corvane Utility")
set(CORVANE_BUNDLE_CONTENTS "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${CORVANE_BUNDLE_NAME}.app/Contents")
set(CORVANE_SOURCES "${CMAKE_CURRENT_LIST_DIR}/..")

# corvane_bundle_files(target LOCATION FILES...): puts files into a folder of target's bundle.
function(corvane_bundle_files target location)
  target_sources(${target} PRIVATE ${ARGN})
  set_source_files_properties(${ARGN} TARGET_DIRECTORY ${target}
                              PROPERTIES MACOSX_PACKAGE_LOCATION "${location}")
endfunction()

# corvane_bundle(target): makes the bundle around the window's program. Does nothing but on a Mac.
function(corvane_bundle target)
  if(NOT APPLE)
    return()
  endif()
  if(NOT CMAKE_OSX_DEPLOYMENT_TARGET)
    message(FATAL_ERROR "Info.plist names the oldest system that the utility runs on: "
                        "use the preset macos, or set CMAKE_OSX_DEPLOYMENT_TARGET")
  endif()
  set_target_properties(
    ${target} PROPERTIES MACOSX_BUNDLE ON
                         OUTPUT_NAME "${CORVANE_BUNDLE_NAME}"
                         MACOSX_BUNDLE_INFO_PLIST "${CORVANE_SOURCES}/packaging/macos/Info.plist.in")
  file(GLOB icons CONFIGURE_DEPENDS "${CORVANE_SOURCES}/src/ui/resources/*.icns")
  corvane_bundle_files(${target} Resources ${icons} "${CORVANE_SOURCES}/packaging/macos/UpdateEngine.plist")
  file(GLOB_RECURSE samples CONFIGURE_DEPENDS RELATIVE "${CORVANE_SOURCES}" "${CORVANE_SOURCES}/bench/*")
  list(FILTER samples EXCLUDE REGEX "\\.files/|\\.lock$|/make-[a-z]+$")
  foreach(sample IN LISTS samples)
    cmake_path(GET sample PARENT_PATH folder)
    corvane_bundle_files(${target} "Resources/${folder}" "${CORVANE_SOURCES}/${sample}")
  endforeach()
endfunction()

# corvane_bundle_program(target FOLDER): puts a copy of another program into a folder of the bundle.
# The program itself stays where tests and developers look for it on every system.
function(corvane_bundle_program target folder)
  if(NOT APPLE OR NOT CORVANE_BUILD_WINDOW)
    return()
  endif()
  add_custom_command(
    TARGET ${target}
    POST_BUILD
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${CORVANE_BUNDLE_CONTENTS}/${folder}"
    COMMAND "${CMAKE_COMMAND}" -E copy_if_different "$<TARGET_FILE:${target}>"
            "${CORVANE_BUNDLE_CONTENTS}/${folder}"
    VERBATIM)
endfunction()
