# SET_LIBRARY_TARGET_PROPERTIES(TARGET): applies the options that a distribution gives its wrapper.
# They are PUBLIC, so they reach every target that links TARGET.
macro(SET_LIBRARY_TARGET_PROPERTIES target)
  target_compile_options(${target} PUBLIC
    ${CEF_COMPILER_FLAGS} ${CEF_CXX_COMPILER_FLAGS}
    "$<$<CONFIG:Debug>:${CEF_COMPILER_FLAGS_DEBUG}>"
    "$<$<CONFIG:Release>:${CEF_COMPILER_FLAGS_RELEASE}>")
  target_compile_definitions(${target} PUBLIC
    ${CEF_COMPILER_DEFINES} "$<$<CONFIG:Release>:${CEF_COMPILER_DEFINES_RELEASE}>")
  target_include_directories(${target} PUBLIC "${_CEF_ROOT}")
  if(CEF_LINKER_FLAGS)
    set_property(TARGET ${target} PROPERTY LINK_FLAGS "${CEF_LINKER_FLAGS}")
  endif()
endmacro()
