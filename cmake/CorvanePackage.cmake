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
install(FILES "${CMAKE_SOURCE_DIR}/docs/man/corvane.1" "${CMAKE_SOURCE_DIR}/docs/man/corvane-bench.1"
              "${CMAKE_SOURCE_DIR}/docs/man/corvane-utility.1"
        DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
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
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-svg-plugins | libqt6svg6")
include(CPack)
