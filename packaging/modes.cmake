# Run by cpack for each kind of package: the umask of who makes it must not show. The set-uid bit of
# chrome-sandbox stays.
execute_process(COMMAND chmod -R u+rwX,go+rX,go-w "${CPACK_TEMPORARY_INSTALL_DIRECTORY}"
  COMMAND_ERROR_IS_FATAL ANY)
