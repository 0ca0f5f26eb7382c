# SPDX-License-Identifier: MIT
# What Debian wants in a package beyond what an installation has: run by CPack over the installed
# tree before it is packed. gzip -n leaves the time out, so that a build can be repeated bit by bit.
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(documents ${share}/doc/dwellkey)
file(MAKE_DIRECTORY ${documents} ${share}/lintian/overrides)
file(COPY_FILE ${CPACK_DWELLKEY_PACKAGING}/debian/copyright ${documents}/copyright)
file(COPY_FILE ${CPACK_DWELLKEY_PACKAGING}/debian/lintian-overrides
    ${share}/lintian/overrides/dwellkey)
file(COPY_FILE ${CPACK_DWELLKEY_PACKAGING}/debian/changelog ${documents}/changelog.Debian)
execute_process(COMMAND gzip -9n ${documents}/changelog.Debian ${share}/man/man1/dwellkey.1
    COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE plain ${share}/*)
file(CHMOD ${plain} FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
