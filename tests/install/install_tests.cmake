# What is installed is checked where users meet it.

# A sanitized library asks for its runtime in every program that loads it, and such a build is nobody's
# to install.
if(VOND_SANITIZERS)
  return()
endif()

# One at a time: all of them write the list of installed files, and one tests what the golden tests do.
foreach(check IN ITEMS extensions_document outside_project tree)
  add_test(NAME install.${check}
           COMMAND ${CMAKE_CURRENT_LIST_DIR}/check_${check} ${PROJECT_BINARY_DIR})
  set_tests_properties(install.${check} PROPERTIES
    LABELS install
    RUN_SERIAL ON
    SKIP_RETURN_CODE 77
  )
endforeach()
