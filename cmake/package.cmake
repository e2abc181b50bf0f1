# The Debian package, which `cpack` makes of what is installed.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_VENDOR vond)
set(CPACK_PACKAGE_CONTACT "vond maintainers <maintainers@localhost>" CACHE STRING
    "Who answers for the package")
set(CPACK_PACKAGE_DESCRIPTION
  "vond-report reads what checks have found on the nodes of a cluster, as JSON
Lines, and writes a report: what is broken, how bad it is, on which nodes, and
what to do. Findings that are equal on many nodes are one issue.

The package also has the text report as an extension library for other hosts,
and the headers and the library to build further output extensions with.")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Extensions in other packages find out that they depend on this one.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
include(CPack)
