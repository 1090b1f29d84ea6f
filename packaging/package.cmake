# The Debian package, made by `cpack -G DEB` in a build configured with -DSCHEDULER_PACKAGE=ON
# and the prefix /usr (scripts/make-package does both). The package leaves the desktop's
# databases to the triggers of the packages that own them, and each user's installation to the
# program's first start.
include(GNUInstallDirs)

# The Debian files of the package: its copyright, its changelog compressed as Debian wants,
# the manual pages of the programs, and the notes on what lintian reports and why it stays.
set(doc_dir ${CMAKE_INSTALL_DATADIR}/doc/scheduler)
file(GLOB man_pages ${PROJECT_SOURCE_DIR}/packaging/man/*.1)
foreach(page ${man_pages})
  get_filename_component(name ${page} NAME)
  set(packed ${CMAKE_BINARY_DIR}/man/${name}.gz)
  add_custom_command(
    OUTPUT ${packed}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/man
    COMMAND gzip -n -9 -c ${page} > ${packed}
    DEPENDS ${page})
  list(APPEND packed_pages ${packed})
endforeach()
add_custom_target(package_man_pages ALL DEPENDS ${packed_pages})
install(FILES ${packed_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/lintian-overrides
        DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME scheduler)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright DESTINATION ${doc_dir})
set(changelog ${CMAKE_BINARY_DIR}/changelog.gz)
add_custom_command(
  OUTPUT ${changelog}
  COMMAND gzip -n -9 -c ${PROJECT_SOURCE_DIR}/packaging/changelog > ${changelog}
  DEPENDS ${PROJECT_SOURCE_DIR}/packaging/changelog)
add_custom_target(package_changelog ALL DEPENDS ${changelog})
install(FILES ${changelog} DESTINATION ${doc_dir})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME scheduler)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_PACKAGE_CONTACT "Scheduler developers <scheduler@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "calendar for the schedule files of the Tarvex organiser")
set(CPACK_PACKAGE_DESCRIPTION
    "Scheduler opens, shows, edits, prints and saves the schedule files (.scl) of
the Tarvex, a wrist-worn organiser: appointments of a day, over several days
and repeating ones, holidays, alarms that ring on the PC, CSV files in and
out, and a link to a calendar program or a CalDAV server. The package holds
the program, its word list editor mksbjct, the command-line tool scltool and
the user's manual.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://example.org/scheduler")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_STRIP_FILES ON)
include(CPack)
