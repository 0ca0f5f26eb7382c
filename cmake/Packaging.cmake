# SPDX-License-Identifier: MIT
# What is installed where, and the Debian package. docs/packaging.md says why it is so.

# install_with_command(FILE FOLDER): a file that names the command with its place, which only the
# installation knows: `cmake --install` takes a prefix, and CPack gives its own. Quoted where the
# command lines of entries ask for it.
function(install_with_command file folder)
    install(CODE "
        set(DWELLKEY_COMMAND \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/dwellkey\")
        cmake_path(ABSOLUTE_PATH DWELLKEY_COMMAND NORMALIZE)
        if(DWELLKEY_COMMAND MATCHES \"[^A-Za-z0-9_./+-]\")
            set(DWELLKEY_COMMAND \"\\\"\${DWELLKEY_COMMAND}\\\"\")
        endif()
        set(installed \${CMAKE_INSTALL_PREFIX}/${folder}/${file})
        message(STATUS \"Installing: \$ENV{DESTDIR}\${installed}\")
        configure_file(${CMAKE_SOURCE_DIR}/packaging/desktop/${file}.in
            \$ENV{DESTDIR}\${installed} @ONLY)
        list(APPEND CMAKE_INSTALL_MANIFEST_FILES \${installed})")
endfunction()
install_with_command(org.dwellkey.Dwellkey.desktop ${CMAKE_INSTALL_DATADIR}/applications)
install_with_command(org.dwellkey.Dwellkey.service ${CMAKE_INSTALL_DATADIR}/dbus-1/services)
install(FILES packaging/desktop/org.dwellkey.Dwellkey.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/dwellkey.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

install(TARGETS dwellkey RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES resources/CloseWindow.scpt DESTINATION ${CMAKE_INSTALL_DATADIR}/dwellkey)
# The help page shows the icon; both lie as they do in the sources.
install(DIRECTORY resources/help DESTINATION ${CMAKE_INSTALL_DATADIR}/dwellkey)
install(FILES resources/icons/org.dwellkey.Dwellkey.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/dwellkey/icons)
install(FILES resources/icons/org.dwellkey.Dwellkey.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES resources/icons/16x16/org.dwellkey.Dwellkey.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/16x16/apps)
install(FILES resources/icons/org.dwellkey.Dwellkey-symbolic.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/symbolic/apps)

# The shortcut-binder path is installed only when asked for (--component binder): it needs the
# toolkit's reader of interface files, which the main program never loads.
install(TARGETS dwellkey-binder RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    COMPONENT binder EXCLUDE_FROM_ALL)
install(FILES
    resources/AboutWindowController.ui
    resources/IntroViewController.ui
    resources/PreferencesWindowController.ui
    resources/TimerWindowController.ui
    DESTINATION ${CMAKE_INSTALL_DATADIR}/dwellkey COMPONENT binder EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME dwellkey)
set(CPACK_PACKAGE_CONTACT
    "The Dwellkey developers <maintainers@users.noreply.c-seed-346a0de6.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "hold the shortcuts that quit applications and close windows")
set(CPACK_PACKAGE_DESCRIPTION
"On the desktop Ctrl+Q sits beside Ctrl+W and Ctrl+Tab, and one slip closes a
browser with everything in it. Dwellkey guards the shortcut that quits the
frontmost application, and the one that closes its front window: they act only
after they were held for a moment, while a small panel fills a bar.
.
It is for X11 sessions with any window manager.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# A plug-in: the libraries do not tell of it. Until Debian 12 it came with the library.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-svg-plugins | libqt6svg6 (<< 6.7.2-5~)")
# The tray and reopening, the symbols of the modifier keys, the toolkit's own texts, GTK desktops' look.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "default-dbus-session-bus | dbus-session-bus, fonts-dejavu-core, qt6-gtk-platformtheme, \
qt6-translations-l10n")
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/packaging/debian/finish.cmake)
set(CPACK_DWELLKEY_PACKAGING ${CMAKE_SOURCE_DIR}/packaging)
include(CPack)
