# Read by cpack when all files of a package lie together. Folders made on the way have the permissions
# that the builder's umask leaves; in a package everybody can enter them.
file(CHMOD_RECURSE ${CPACK_TEMPORARY_DIRECTORY} DIRECTORY_PERMISSIONS
     OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
