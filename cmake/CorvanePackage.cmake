# What `cmake --install` puts where on Linux, and the Debian package made of it.

install(TARGETS corvane corvane-bench RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
if(CORVANE_BUILD_WINDOW)
  install(TARGETS corvane-utility RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()
install(DIRECTORY "${CMAKE_SOURCE_DIR}/bench/" DESTINATION "${CMAKE_INSTALL_DATADIR}/corvane/bench"
        PATTERN "*.files" EXCLUDE
        PATTERN "*.lock" EXCLUDE
        PATTERN "make-*" EXCLUDE)
install(FILES "${CMAKE_SOURCE_DIR}/packaging/linux/corvane-utility.desktop"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "${CMAKE_SOURCE_DIR}/packaging/linux/com.velmar.corvane.metainfo.xml"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
install(FILES "${CMAKE_SOURCE_DIR}/src/ui/resources/corvane.svg"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps"
        RENAME corvane-utility.svg)

# corvane_install_compressed(FILE NAME FOLDER): Debian keeps manual pages and changelogs compressed.
function(corvane_install_compressed file name folder)
  set(compressed "${CMAKE_BINARY_DIR}/package/${name}.gz")
  file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/package")
  add_custom_command(
    OUTPUT "${compressed}"
    COMMAND gzip --best --no-name --stdout "${file}" > "${compressed}"
    DEPENDS "${file}"
    VERBATIM)
  set_property(GLOBAL APPEND PROPERTY CORVANE_COMPRESSED "${compressed}")
  install(FILES "${compressed}" DESTINATION "${folder}")
endfunction()
foreach(program corvane corvane-bench corvane-utility)
  corvane_install_compressed("${CMAKE_SOURCE_DIR}/docs/man/${program}.1" "${program}.1" "${CMAKE_INSTALL_MANDIR}/man1")
endforeach()
set(documents "${CMAKE_INSTALL_DATADIR}/doc/corvane-utility")
corvane_install_compressed("${CMAKE_SOURCE_DIR}/packaging/linux/changelog" changelog "${documents}")
install(FILES "${CMAKE_SOURCE_DIR}/packaging/linux/copyright" DESTINATION "${documents}")
install(FILES "${CMAKE_SOURCE_DIR}/packaging/linux/lintian-overrides"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides" RENAME corvane-utility)
get_property(compressed GLOBAL PROPERTY CORVANE_COMPRESSED)
add_custom_target(package_texts ALL DEPENDS ${compressed})

# Shells look for a completion by the name of the program.
set(completions "${CMAKE_SOURCE_DIR}/packaging/completions")
foreach(program corvane corvane-bench corvane-utility)
  install(FILES "${completions}/corvane.bash"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME "${program}")
  install(FILES "${completions}/${program}.fish"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d")
endforeach()
install(FILES "${completions}/_corvane" DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvane-utility)
set(CPACK_PACKAGE_VENDOR "Velmar")
set(CPACK_PACKAGE_CONTACT "Corvane engineering <engineering@velmar.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "One window for two-port Thunderbolt adapters, and the same from a command
line: every adapter as it comes and goes, each port's identity, link,
firmware and transceiver, settings, firmware updates and what support needs
collected. On this system it works on dumps of other computers and on
benches, simulated computers with adapters attached, which the package has
samples of.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The pictures are drawn by a plug-in of the toolkit, which no program is linked with.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, qt6-gtk-platformtheme, qt6-wayland")
include(CPack)
