# What every target of the project has in common: the language level, the warnings, and hidden symbols.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

function(kx_set_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
    # Optimising, GCC 12 takes every "text" + std::string() for a copy onto itself.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(${target} PRIVATE -Wno-restrict)
    endif()
    # Counts and indexes have 64 bits, as hosts may have that many rows; where addresses have 32, what a chart keeps is
    # bounded by them. A host there answers no larger counts.
    if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        target_compile_options(${target} PRIVATE -Wno-shorten-64-to-32 -Wno-c++11-narrowing)
    endif()
    # With the sanitizers' checks in the way, GCC loses track of what std::regex and std::function have set.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_FLAGS MATCHES "-fsanitize")
        target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
    endif()
endfunction()

# The standard headers that nearly every source reads, parsed once a target. Every source includes what it uses all the
# same: the Windows preset builds without this.
function(kx_precompile_standard_headers target)
    target_precompile_headers(${target} PRIVATE
        <algorithm> <array> <cmath> <cstddef> <cstdint> <functional> <limits> <map> <memory> <optional> <set> <span>
        <string> <string_view> <unordered_map> <utility> <vector>)
endfunction()

# What is linked into one module, as for a page, has no shared libraries.
set(KX_LIBRARY_TYPE SHARED CACHE STRING "SHARED or STATIC: what the libraries are built as")

# kx_add_library(<target> <source folder> [<folder>...]): one library of all the sources in its folder, and in
# those for what parts of it keep to themselves. Headers are included as "ux/ux_rect.h" and "kx_chart.h" by everyone in
# this project, and as <ux/ux_rect.h> and <kxcharts/kx_chart.h> by hosts.
# Installed libraries look for each other where they are themselves.
function(kx_add_library target folder)
    list(TRANSFORM ARGN APPEND /*.cpp OUTPUT_VARIABLE more_sources)
    list(TRANSFORM ARGN APPEND /*.h OUTPUT_VARIABLE more_headers)
    file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp ${more_sources})
    file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h ${more_headers})
    add_library(${target} ${KX_LIBRARY_TYPE} ${sources} ${headers})
    kx_set_warnings(${target})
    kx_precompile_standard_headers(${target})
    target_compile_features(${target} PUBLIC cxx_std_20) # its headers ask the same of a host
    # Virtual tables point at functions of their own library: found while linking, and not once more by name whenever
    # a program starts.
    if(UNIX AND NOT APPLE)
        target_link_options(${target} PRIVATE -Wl,-Bsymbolic-functions)
    endif()
    if(WIN32)
        set_target_properties(${target} PROPERTIES PREFIX "") # kxcharts.dll
    endif()
    set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
                                               LINKER_LANGUAGE CXX INSTALL_RPATH "$ORIGIN")
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>
        $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/${folder}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    set_property(GLOBAL APPEND PROPERTY KX_LIBRARIES ${target})
    install(TARGETS ${target} EXPORT kxcharts_targets
            RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
endfunction()
