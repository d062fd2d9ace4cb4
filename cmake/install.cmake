# Install rules: both libraries, the header, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS xfmt xfmt_static EXPORT xfmtTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${PROJECT_SOURCE_DIR}/include/xfmt/xfmt.h ${PROJECT_SOURCE_DIR}/include/xfmt/xfx.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/xfmt)
if(TARGET xfmt_cli)
  install(TARGETS xfmt_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/tools/xfmt/xfmt.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/xfmt/xfmt.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME xfmt)
endif()

set(XFMT_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/xfmt)
install(EXPORT xfmtTargets NAMESPACE xfmt:: DESTINATION ${XFMT_CMAKE_DIR})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/xfmtConfig.cmake.in
  ${PROJECT_BINARY_DIR}/xfmtConfig.cmake INSTALL_DESTINATION ${XFMT_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/xfmtConfigVersion.cmake
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/xfmtConfig.cmake ${PROJECT_BINARY_DIR}/xfmtConfigVersion.cmake
  DESTINATION ${XFMT_CMAKE_DIR})

# pkg-config: the prefix is found from the .pc file's own folder (pcfiledir),
# so that an installed tree keeps working after it is moved.
# An absolute libdir (a distribution's layout) pins the paths instead.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
  set(XFMT_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
  set(XFMT_PC_LIBDIR "${CMAKE_INSTALL_FULL_LIBDIR}")
  set(XFMT_PC_INCLUDEDIR "${CMAKE_INSTALL_FULL_INCLUDEDIR}")
else()
  file(RELATIVE_PATH to_prefix "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
  string(REGEX REPLACE "/$" "" to_prefix "${to_prefix}")
  set(XFMT_PC_PREFIX "\${pcfiledir}/${to_prefix}")
  set(XFMT_PC_LIBDIR "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
  set(XFMT_PC_INCLUDEDIR "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
set(XFMT_PC_LIBS_PRIVATE "")
foreach(lib ${XFMT_CXX_RUNTIME_LIBS} pthread ${CMAKE_DL_LIBS})
  string(APPEND XFMT_PC_LIBS_PRIVATE " -l${lib}")
endforeach()
string(STRIP "${XFMT_PC_LIBS_PRIVATE}" XFMT_PC_LIBS_PRIVATE)
configure_file(${PROJECT_SOURCE_DIR}/cmake/xfmt.pc.in ${PROJECT_BINARY_DIR}/xfmt.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/xfmt.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
