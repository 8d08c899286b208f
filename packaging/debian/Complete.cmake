# Run by cpack between installing and packing: what Debian wants of a package, and others need not have.
set(share "${CPACK_TEMPORARY_DIRECTORY}/usr/share")
if(NOT EXISTS "${share}/doc/zamber/copyright")
  message(FATAL_ERROR "nothing was installed in ${share}")
endif()
file(REMOVE "${share}/doc/zamber/LICENSE") # the copyright file has it
configure_file("${CPACK_ZAMBER_CHANGELOG}" "${share}/doc/zamber/changelog.Debian" COPYONLY)
configure_file("${CPACK_ZAMBER_OVERRIDES}" "${share}/lintian/overrides/zamber" COPYONLY)
execute_process(COMMAND gzip -9n "${share}/doc/zamber/changelog.Debian" "${share}/man/man1/zamber.1"
                        COMMAND_ERROR_IS_FATAL ANY)
# Whatever the umask of the packer.
set(for_everybody OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
set(executable ${for_everybody} OWNER_EXECUTE GROUP_EXECUTE WORLD_EXECUTE)
file(
  CHMOD_RECURSE "${CPACK_TEMPORARY_DIRECTORY}/usr"
  FILE_PERMISSIONS ${for_everybody}
  DIRECTORY_PERMISSIONS ${executable})
file(CHMOD "${CPACK_TEMPORARY_DIRECTORY}/usr/bin/zamber" "${CPACK_TEMPORARY_DIRECTORY}/usr/libexec/zamber/zamber-fetch"
     PERMISSIONS ${executable})
