# Changes the installed tree to follow the Debian policy. cpack runs this script before it packs.
set(tree ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
if(NOT IS_DIRECTORY ${tree})
  message(FATAL_ERROR "no installed tree at ${tree}")
endif()
set(doc ${tree}/share/doc/tvx)

file(REMOVE ${doc}/LICENSE)  # its text is in the copyright file
configure_file(${CPACK_TVX_DEBIAN_FOLDER}/copyright ${doc}/copyright COPYONLY)
configure_file(${CPACK_TVX_DEBIAN_FOLDER}/changelog ${doc}/changelog @ONLY)
file(GLOB_RECURSE manuals ${tree}/share/man/*.[18])
# -n: the same files produce the same package.
execute_process(COMMAND gzip -9n ${doc}/changelog ${manuals} COMMAND_ERROR_IS_FATAL ANY)

# The libraries of LibreOffice find each other by their folder, so tvx-calc must load them from that folder
# and not through Debian's links in other folders.
if(EXISTS ${tree}/libexec/tvx/tvx-calc)
  configure_file(${CPACK_TVX_DEBIAN_FOLDER}/lintian-overrides ${tree}/share/lintian/overrides/tvx COPYONLY)
endif()
