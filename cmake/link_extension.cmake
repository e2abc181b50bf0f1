# How extensions are linked: ours, and those of projects that have found the package.

# vond_link_extension(NAME): makes the module NAME a library that hosts load. All but what
# extension.map names is hidden in it, also what templates and inline functions would show.
function(vond_link_extension name)
  set(map ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/extension.map)
  target_link_libraries(${name} PRIVATE vond::host)
  # With another host's libraries there is none; whoever loads the extension has what it needs.
  if(TARGET vond::host_standalone)
    target_link_libraries(${name} PRIVATE vond::host_standalone)
    set_target_properties(${name} PROPERTIES INSTALL_RPATH "$ORIGIN/../..")
  endif()
  target_link_options(${name} PRIVATE "LINKER:--version-script=${map}")
  set_target_properties(${name} PROPERTIES
    PREFIX ""
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    LINK_DEPENDS ${map}
  )
endfunction()
