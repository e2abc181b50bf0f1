# What `cmake --install` and CPack put where. With another host's libraries that is the extension
# and the contract alone.
include(CMakePackageConfigHelpers)

set(VOND_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/vond)

install(TARGETS vond_output_log LIBRARY DESTINATION ${VOND_INSTALL_EXTENSIONDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/host/vond DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

install(TARGETS vond_contract EXPORT vond_targets)
if(NOT VOND_HOST_LIBRARIES)
  install(TARGETS vond-report)
  install(TARGETS vond_host_standalone EXPORT vond_targets)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/vond-report.1
          DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${PROJECT_SOURCE_DIR}/completion/vond-report
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
endif()

install(EXPORT vond_targets
  FILE vondTargets.cmake
  NAMESPACE vond::
  DESTINATION ${VOND_INSTALL_CMAKEDIR}
)
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/vondConfig.cmake.in ${PROJECT_BINARY_DIR}/vondConfig.cmake
  INSTALL_DESTINATION ${VOND_INSTALL_CMAKEDIR}
)
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/vondConfigVersion.cmake COMPATIBILITY SameMajorVersion)
configure_file(${PROJECT_SOURCE_DIR}/cmake/vond.pc.in ${PROJECT_BINARY_DIR}/vond.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vondConfig.cmake ${PROJECT_BINARY_DIR}/vondConfigVersion.cmake
        DESTINATION ${VOND_INSTALL_CMAKEDIR})
install(FILES ${PROJECT_BINARY_DIR}/vond.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "vond maintainers <maintainers@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
