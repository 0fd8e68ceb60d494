# SPDX-License-Identifier: MIT
# Run by CPack over the installed tree before it is packed: brings the tree into the form that Debian
# expects, and gives every file the same time, so that the same sources give the same package.
set(tree ${CPACK_TEMPORARY_INSTALL_DIRECTORY})

# debian_documents(tree package): the documents of a package as Debian has them.
function(debian_documents tree package)
    set(documents ${tree}/usr/share/doc/${package})
    file(RENAME ${documents}/CHANGELOG.md ${documents}/changelog)
    execute_process(COMMAND date --utc --rfc-email --date "${CPACK_TAVREL_RELEASE_DATE} 12:00"
        OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
    file(WRITE ${documents}/changelog.Debian
"${package} (${version}) unstable; urgency=medium

  * Package of version ${CPACK_PACKAGE_VERSION}; what is new stands in changelog.gz.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
    file(GLOB pages ${tree}/usr/share/man/man1/*.1)
    execute_process(
        COMMAND gzip -9n ${documents}/changelog ${documents}/changelog.Debian ${pages}
        COMMAND_ERROR_IS_FATAL ANY)
endfunction()

if(CPACK_GENERATOR STREQUAL DEB)
    debian_documents(${tree}/Unspecified tavrel)
    debian_documents(${tree}/development libombrix-sdk-dev)
endif()

if(DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(
        COMMAND find ${tree} -exec touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} {} +
        COMMAND_ERROR_IS_FATAL ANY)
endif()
