# Folders of the package come with the builder's umask; whoever it shuts out would not see the files in them.
file(CHMOD_RECURSE "${CPACK_TEMPORARY_DIRECTORY}"
  DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
