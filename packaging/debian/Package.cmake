# What an installed Hopcast consists of, and the Debian package made of it (build.sh).
#
# cmake --install puts the same files under any prefix. The engines lie in libexec/hopcast and the first
# profile in share/hopcast: the programs look there from their own bin folder.
include(GNUInstallDirs)

set(HOPCAST_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/hopcast)
set(HOPCAST_LIBEXEC_DIR libexec/hopcast)
set(PACKAGE_DIR ${CMAKE_CURRENT_LIST_DIR})

install(TARGETS hopcast-predict RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS rec533w voacapw RUNTIME DESTINATION ${HOPCAST_LIBEXEC_DIR})
install(FILES assets/profile/hopcast.ini DESTINATION ${CMAKE_INSTALL_DATADIR}/hopcast)
set(HOPCAST_MAN_PAGES hopcast-predict.1)
if(TARGET hopcast)
    install(TARGETS hopcast RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES ${PACKAGE_DIR}/hopcast.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    foreach(SIZE 16 24 32 48 64 128 256 512)
        install(FILES assets/icon/hopcast-${SIZE}.png RENAME hopcast.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${SIZE}x${SIZE}/apps)
    endforeach()
    install(FILES assets/icon/hopcast.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
    string(TIMESTAMP HOPCAST_RELEASE_DATE "%Y-%m-%d" UTC)  # of SOURCE_DATE_EPOCH, when it is set
    configure_file(${PACKAGE_DIR}/hopcast.metainfo.xml.in ${PROJECT_BINARY_DIR}/hopcast.metainfo.xml @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/hopcast.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
    if(GUIDE_PYTHON)
        # Not in the folder of documents, which a small system may leave out.
        install(DIRECTORY ${GUIDE_FOLDER} DESTINATION ${CMAKE_INSTALL_DATADIR}/hopcast)
    endif()
    list(APPEND HOPCAST_MAN_PAGES hopcast.1)
endif()

# Debian wants manual pages and the changelog compressed, without a time in them. build.sh makes the
# compressed changelog in the build folder.
find_program(GZIP gzip)
foreach(PAGE ${HOPCAST_MAN_PAGES})
    if(GZIP)
        add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/${PAGE}.gz
            COMMAND ${GZIP} -9nc ${PROJECT_SOURCE_DIR}/packaging/man/${PAGE} > ${PROJECT_BINARY_DIR}/${PAGE}.gz
            DEPENDS packaging/man/${PAGE} VERBATIM)
        list(APPEND HOPCAST_MAN_FILES ${PROJECT_BINARY_DIR}/${PAGE}.gz)
    else()
        list(APPEND HOPCAST_MAN_FILES packaging/man/${PAGE})
    endif()
endforeach()
add_custom_target(hopcast_man ALL DEPENDS ${HOPCAST_MAN_FILES})
install(FILES ${HOPCAST_MAN_FILES} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PACKAGE_DIR}/copyright DESTINATION ${HOPCAST_DOC_DIR})
install(FILES ${PROJECT_BINARY_DIR}/changelog.gz DESTINATION ${HOPCAST_DOC_DIR} OPTIONAL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME hopcast)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
# Hopcast has no mail address: ".invalid" is the host that says so.
set(CPACK_PACKAGE_CONTACT "The Hopcast authors <hopcast@hopcast.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)       # hopcast_VERSION_ARCHITECTURE.deb
set(CPACK_DEBIAN_PACKAGE_SECTION hamradio)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS voacapl)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Hopcast plans high-frequency radio contacts. Name a transmitter and a
receiver, and it answers with the predicted signal-to-noise ratio for
every hour of the day and every frequency, with the details behind it:
mode, takeoff angle, highest and lowest usable frequency, signal and noise.
A world map moves both ends and paints the prediction over the world.

The built-in engine computes by Recommendation ITU-R P.533 and needs
nothing else, so it works at sea. Where voacapl is installed, VOACAP can be
chosen too. The program hopcast-predict predicts on the command line.")
include(CPack)
