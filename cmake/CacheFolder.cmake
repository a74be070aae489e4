# Sets CACHE_FOLDER to the folder in which the scripts in tools/lib/ keep fetched files.
if(DEFINED ENV{XDG_CACHE_HOME} AND NOT "$ENV{XDG_CACHE_HOME}" STREQUAL "")
  set(CACHE_FOLDER "$ENV{XDG_CACHE_HOME}/velmora-cef-helper")
else()
  set(CACHE_FOLDER "$ENV{HOME}/.cache/velmora-cef-helper")
endif()
