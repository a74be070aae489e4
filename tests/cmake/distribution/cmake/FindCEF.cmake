# Stands in for the file of this name in a CEF binary distribution: the same variables.
set(CEF_LIBCEF_DLL_WRAPPER_PATH "${CEF_ROOT}/libcef_dll")
set(CEF_RESOURCE_DIR "${CEF_ROOT}/Resources")
set(CEF_BINARY_DIR_DEBUG "${CEF_ROOT}/Debug")
set(CEF_BINARY_DIR_RELEASE "${CEF_ROOT}/Release")
set(CEF_LIB_DEBUG "${CEF_BINARY_DIR_DEBUG}/libcef.so")
set(CEF_LIB_RELEASE "${CEF_BINARY_DIR_RELEASE}/libcef.so")
set(CEF_STANDARD_LIBS X11)
