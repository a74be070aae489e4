# cpack runs this script for each kind of package. Sets modes that do not depend on the umask, and
# keeps the set-uid bit of chrome-sandbox.
execute_process(COMMAND chmod -R u+rwX,go+rX,go-w "${CPACK_TEMPORARY_INSTALL_DIRECTORY}"
  COMMAND_ERROR_IS_FATAL ANY)
