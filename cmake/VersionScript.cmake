# kepotl_version_script(TARGET EXPORTS): makes the names in the file EXPORTS, one a line, the only
# ones that the shared library TARGET exports.
function(kepotl_version_script target exports)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${exports}")
  file(STRINGS "${exports}" names REGEX "^[A-Za-z_]")
  list(TRANSFORM names PREPEND "    ")
  list(JOIN names ";\n" globals)
  set(map "${CMAKE_CURRENT_BINARY_DIR}/${target}.map")
  file(CONFIGURE OUTPUT "${map}" CONTENT "{\n  global:\n@globals@;\n  local: *;\n};\n" @ONLY)
  target_link_options(${target} PRIVATE "LINKER:--version-script=${map}")
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${map}")
endfunction()
