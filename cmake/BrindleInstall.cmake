# What `cmake --install` puts in place: public headers, libraries, programs of apps/, assets, the CMake
# package and the pkg-config files.
include(CMakePackageConfigHelpers)

# <name>.pc; PC_REQUIRES and PC_DESCRIPTION are the caller's. Paths are relative to the file, so that
# an installed tree may be moved.
function(brindle_install_pkgconfig name)
  set(PC_NAME ${name})
  set(dir ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
  file(RELATIVE_PATH PC_PREFIX ${dir} ${CMAKE_INSTALL_PREFIX})
  file(RELATIVE_PATH PC_LIBDIR ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
  file(RELATIVE_PATH PC_INCLUDEDIR ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

function(brindle_install)
  set(libraries brindle)
  if(BRINDLE_QT)
    list(APPEND libraries brindle_qt)
  endif()
  file(RELATIVE_PATH bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(${libraries} PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS ${libraries} EXPORT brindleTargets)
  if(TARGET brindle_cli)
    set_target_properties(brindle_cli PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")
    install(TARGETS brindle_cli)
  endif()
  set(hidden PATTERN *_internal.h EXCLUDE)
  if(NOT BRINDLE_QT)
    list(APPEND hidden PATTERN platform/qt EXCLUDE)
  endif()
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/brindle DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
          FILES_MATCHING PATTERN *.h ${hidden})
  # Fonts, line types and hatch patterns, each with its licence.
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/assets DESTINATION ${CMAKE_INSTALL_DATADIR}/brindle)

  set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/brindle)
  install(EXPORT brindleTargets NAMESPACE brindle:: DESTINATION ${package_dir})
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/brindleConfig.cmake.in
    ${PROJECT_BINARY_DIR}/brindleConfig.cmake INSTALL_DESTINATION ${package_dir}
    NO_SET_AND_CHECK_MACRO)
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/brindleConfigVersion.cmake
                                   COMPATIBILITY SameMinorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/brindleConfig.cmake
                ${PROJECT_BINARY_DIR}/brindleConfigVersion.cmake DESTINATION ${package_dir})

  set(PC_DESCRIPTION "${PROJECT_DESCRIPTION}")
  set(PC_REQUIRES "")
  brindle_install_pkgconfig(brindle)
  if(BRINDLE_QT)
    set(PC_DESCRIPTION "${PROJECT_DESCRIPTION}: the Qt 6 backend")
    set(PC_REQUIRES "brindle = ${PROJECT_VERSION}")
    brindle_install_pkgconfig(brindle-qt)
  endif()
endfunction()
