# Makes of the installed tree what Debian's policy asks of a package. cpack runs this before it packs.
set(tree ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
if(NOT IS_DIRECTORY ${tree})
  message(FATAL_ERROR "no installed tree at ${tree}")
endif()
set(doc ${tree}/share/doc/tvx)

file(REMOVE ${doc}/LICENSE)  # stands in the copyright file
configure_file(${CPACK_TVX_DEBIAN_FOLDER}/copyright ${doc}/copyright COPYONLY)
configure_file(${CPACK_TVX_DEBIAN_FOLDER}/changelog ${doc}/changelog COPYONLY)
file(GLOB_RECURSE manuals ${tree}/share/man/*.[18])
# -n: the same package from the same files.
execute_process(COMMAND gzip -9n ${doc}/changelog ${manuals} COMMAND_ERROR_IS_FATAL ANY)

# The libraries of the office find each other by the folder that they lie in, so tvx-calc has to take them
# from that folder and not from the links that Debian has elsewhere.
if(EXISTS ${tree}/libexec/tvx/tvx-calc)
  configure_file(${CPACK_TVX_DEBIAN_FOLDER}/lintian-overrides ${tree}/share/lintian/overrides/tvx COPYONLY)
endif()
