# The CMake package and the pkg-config files.
include(CMakePackageConfigHelpers)

set(kx_package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/kxcharts)
install(EXPORT kxcharts_targets FILE kxcharts-targets.cmake NAMESPACE kxcharts:: DESTINATION ${kx_package_folder})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/kxcharts-config.cmake.in
    ${CMAKE_BINARY_DIR}/kxcharts-config.cmake INSTALL_DESTINATION ${kx_package_folder})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/kxcharts-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/kxcharts-config.cmake ${CMAKE_BINARY_DIR}/kxcharts-config-version.cmake
        DESTINATION ${kx_package_folder})

get_property(kx_libraries GLOBAL PROPERTY KX_LIBRARIES)
foreach(library IN LISTS kx_libraries)
    if(library STREQUAL "ux")
        set(kx_pc_requires "")
    else()
        set(kx_pc_requires "ux")
    endif()
    set(kx_pc_name ${library})
    configure_file(${CMAKE_CURRENT_LIST_DIR}/kxcharts.pc.in ${CMAKE_BINARY_DIR}/${library}.pc @ONLY)
    install(FILES ${CMAKE_BINARY_DIR}/${library}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
