# The installed tree: find_package(hwxcore), pkg-config hwxcore, both relative to where they lie,
# so that the whole prefix can be moved.
include(CMakePackageConfigHelpers)

set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/hwxcore)
configure_package_config_file(cmake/hwxcoreConfig.cmake.in hwxcoreConfig.cmake
                              INSTALL_DESTINATION ${config_dir})
write_basic_package_version_file(hwxcoreConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/hwxcoreConfig.cmake
              ${PROJECT_BINARY_DIR}/hwxcoreConfigVersion.cmake
        DESTINATION ${config_dir})
install(EXPORT hwxcoreTargets NAMESPACE hwxcore:: DESTINATION ${config_dir})

file(RELATIVE_PATH prefix_from_pkgconfig
     ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
foreach(module hwxcore hwxkit)
  configure_file(cmake/${module}.pc.in ${module}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${module}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
