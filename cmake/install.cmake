# What `cmake --install` puts where. With another host's libraries that is the extension and the
# contract alone.
include(CMakePackageConfigHelpers)

set(VOND_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/vond)
set(VOND_INSTALL_PKGCONFIGDIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/host/vond
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN *.h)

install(TARGETS vond_contract EXPORT vond_targets)
set(VOND_PKGCONFIG_LIBS "")
set(VOND_PKGCONFIG_NO_UNDEFINED "")
if(NOT VOND_HOST_LIBRARIES)
  install(TARGETS vond-report)
  install(TARGETS vond_host_standalone EXPORT vond_targets)
  set(VOND_PKGCONFIG_LIBS "-L\${libdir} -lvond_host")
  set(VOND_PKGCONFIG_NO_UNDEFINED "-Wl,--no-undefined")
  install(FILES ${PROJECT_SOURCE_DIR}/docs/vond-report.1
          DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${PROJECT_SOURCE_DIR}/completion/vond-report
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/report.schema.json
          DESTINATION ${CMAKE_INSTALL_DATADIR}/vond)
  # Installed, the documents stand beside the examples and not beside the schema.
  file(RELATIVE_PATH data_from_documents
       ${CMAKE_INSTALL_FULL_DOCDIR} ${CMAKE_INSTALL_FULL_DATADIR}/vond)
  foreach(document IN ITEMS extensions findings json junit metrics nights outputs report scale)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS docs/${document}.md)
    file(READ ${PROJECT_SOURCE_DIR}/docs/${document}.md text)
    string(REPLACE "](../" "](" text "${text}")
    string(REPLACE "](report.schema.json" "](${data_from_documents}/report.schema.json" text "${text}")
    file(WRITE ${PROJECT_BINARY_DIR}/docs/${document}.md "${text}")
    install(FILES ${PROJECT_BINARY_DIR}/docs/${document}.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
  endforeach()
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/pictures DESTINATION ${CMAKE_INSTALL_DOCDIR})
  set(nightly ${PROJECT_SOURCE_DIR}/examples/nightly)
  install(PROGRAMS ${nightly}/vond-nightly DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples/nightly)
  install(FILES ${nightly}/README.md ${nightly}/nightly.conf ${nightly}/vond-nightly.service
                ${nightly}/vond-nightly.timer
          DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples/nightly)
  set(extension ${PROJECT_SOURCE_DIR}/examples/extension)
  install(FILES ${extension}/CMakeLists.txt ${extension}/findings.jsonl ${extension}/vond_tickets.cpp
          DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples/extension)
endif()

install(EXPORT vond_targets
  FILE vondTargets.cmake
  NAMESPACE vond::
  DESTINATION ${VOND_INSTALL_CMAKEDIR}
)
file(STRINGS ${PROJECT_SOURCE_DIR}/host/vond/contract.h VOND_CONTRACT_VERSION
     REGEX "^#define VOND_CONTRACT_VERSION [0-9]+$")
string(REGEX REPLACE ".* " "" VOND_CONTRACT_VERSION "${VOND_CONTRACT_VERSION}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/add_extension.cmake.in
               ${PROJECT_BINARY_DIR}/add_extension.cmake @ONLY)
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/vondConfig.cmake.in ${PROJECT_BINARY_DIR}/vondConfig.cmake
  INSTALL_DESTINATION ${VOND_INSTALL_CMAKEDIR}
  PATH_VARS VOND_INSTALL_EXTENSIONDIR
)
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/vondConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vondConfig.cmake ${PROJECT_BINARY_DIR}/vondConfigVersion.cmake
              ${PROJECT_BINARY_DIR}/add_extension.cmake
              ${PROJECT_SOURCE_DIR}/cmake/link_extension.cmake
              ${PROJECT_SOURCE_DIR}/cmake/extension.map
        DESTINATION ${VOND_INSTALL_CMAKEDIR})

# The way from the file to the prefix, so that the tree can be moved.
file(RELATIVE_PATH VOND_PREFIX_FROM_PKGCONFIGDIR
     ${CMAKE_INSTALL_PREFIX}/${VOND_INSTALL_PKGCONFIGDIR} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" VOND_PREFIX_FROM_PKGCONFIGDIR ${VOND_PREFIX_FROM_PKGCONFIGDIR})
# The folder of the documents is often given whole.
file(RELATIVE_PATH VOND_DOCDIR_FROM_PREFIX ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_DOCDIR})
configure_file(${PROJECT_SOURCE_DIR}/cmake/vond.pc.in ${PROJECT_BINARY_DIR}/vond.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vond.pc DESTINATION ${VOND_INSTALL_PKGCONFIGDIR})
