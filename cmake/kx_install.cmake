# The headers, the CMake package, the pkg-config files and the pages; all of it may be moved once it is installed.
include(CMakePackageConfigHelpers)

set(kx_package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/kxcharts)
install(EXPORT kxcharts_targets FILE kxcharts-targets.cmake NAMESPACE kxcharts:: DESTINATION ${kx_package_folder})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/kxcharts-config.cmake.in
    ${CMAKE_BINARY_DIR}/kxcharts-config.cmake INSTALL_DESTINATION ${kx_package_folder})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/kxcharts-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/kxcharts-config.cmake ${CMAKE_BINARY_DIR}/kxcharts-config-version.cmake
        DESTINATION ${kx_package_folder})

get_property(kx_libraries GLOBAL PROPERTY KX_LIBRARIES)
set(kx_umbrellas ux/ux.h src/kxcharts.h)
if(ux_cairo IN_LIST kx_libraries)
    list(APPEND kx_umbrellas ux/cairo/ux_cairo.h)
endif()
string(REPLACE ";" " " kx_umbrellas "${kx_umbrellas}")
install(CODE "include(${CMAKE_CURRENT_LIST_DIR}/kx_install_headers.cmake)
    kx_install_headers(${CMAKE_SOURCE_DIR} \${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_INCLUDEDIR} ${kx_umbrellas})")

file(GLOB kx_pages ${CMAKE_SOURCE_DIR}/docs/*.md ${CMAKE_SOURCE_DIR}/docs/*.png)
install(FILES ${CMAKE_SOURCE_DIR}/README.md ${CMAKE_SOURCE_DIR}/SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${kx_pages} DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)

# A pkg-config file knows where it is, and so where the rest is.
file(RELATIVE_PATH kx_pc_way_back /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
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
