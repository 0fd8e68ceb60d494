# SPDX-License-Identifier: MIT
# Run by CPack over the installed tree before it is packed: brings the tree into the form that Debian
# expects, and gives every file the same time, so that the same sources give the same package.
set(tree ${CPACK_TEMPORARY_INSTALL_DIRECTORY})

if(CPACK_GENERATOR STREQUAL DEB)
    set(documents ${tree}/usr/share/doc/tavrel)
    file(RENAME ${documents}/CHANGELOG.md ${documents}/changelog)
    execute_process(COMMAND date --utc --rfc-email --date "${CPACK_TAVREL_RELEASE_DATE} 12:00"
        OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
    file(WRITE ${documents}/changelog.Debian
"tavrel (${version}) unstable; urgency=medium

  * Package of version ${CPACK_PACKAGE_VERSION}; what is new stands in changelog.gz.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
    execute_process(
        COMMAND gzip -9n ${documents}/changelog ${documents}/changelog.Debian
                ${tree}/usr/share/man/man1/tavrel.1 ${tree}/usr/share/man/man1/tavrelctl.1
        COMMAND_ERROR_IS_FATAL ANY)
endif()

if(DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(
        COMMAND find ${tree} -exec touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} {} +
        COMMAND_ERROR_IS_FATAL ANY)
endif()
