# What `cmake --install` and `cpack -G DEB` deliver: the libraries in the
# library folder, the widget library linked into Qt Designer's plugin
# folder, every header in one include folder, and the CMake package
# RvUiCommonPlugins for hosts. The simulated engine, the demo, tests and
# benchmarks stay in the build.
include(CMakePackageConfigHelpers)

set(RV_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/rvuicommonplugins)
set(RV_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/RvUiCommonPlugins)
file(RELATIVE_PATH RV_QT_DESIGNER_PLUGINS ${RV_QT_PREFIX} ${RV_QT_PLUGINS}/designer)
set(RV_INSTALL_DESIGNERDIR ${RV_QT_DESIGNER_PLUGINS} CACHE STRING
    "Folder of Qt Designer's plugins, relative to the install prefix")

set(RV_INSTALLED_LIBRARIES rvengineinterfaces rvenginelink rvvalue rvuicomponents rvuicommonplugins)
# The libraries find each other wherever the prefix is; in the system's
# library folder the loader finds them anyway.
set_target_properties(${RV_INSTALLED_LIBRARIES} PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    INSTALL_RPATH "$ORIGIN")
install(TARGETS ${RV_INSTALLED_LIBRARIES} EXPORT RvUiCommonPluginsTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    INCLUDES DESTINATION ${RV_INSTALL_INCLUDEDIR})

# Designer gets a link to the library, not a copy: a host that links the
# library and loads the plugin then has one library, whose static
# initialisers run once.
file(RELATIVE_PATH RV_DESIGNER_TO_LIBRARY /${RV_INSTALL_DESIGNERDIR}
    /${CMAKE_INSTALL_LIBDIR}/$<TARGET_SONAME_FILE_NAME:rvuicommonplugins>)
install(CODE "
    set(designer \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${RV_INSTALL_DESIGNERDIR}\")
    file(MAKE_DIRECTORY \"\${designer}\")
    file(CREATE_LINK \"${RV_DESIGNER_TO_LIBRARY}\"
         \"\${designer}/$<TARGET_LINKER_FILE_NAME:rvuicommonplugins>\" SYMBOLIC)
    message(STATUS \"Installing: \${designer}/$<TARGET_LINKER_FILE_NAME:rvuicommonplugins>\")
    list(APPEND CMAKE_INSTALL_MANIFEST_FILES \"\${designer}/$<TARGET_LINKER_FILE_NAME:rvuicommonplugins>\")")

# The sources include each other by bare file name, so the headers share
# one folder, the generated engine interfaces among them.
file(GLOB RV_PUBLIC_HEADERS
    ${PROJECT_SOURCE_DIR}/platform/components/*.h
    ${PROJECT_SOURCE_DIR}/platform/orb/*.h
    ${PROJECT_SOURCE_DIR}/platform/dds/*.h
    ${PROJECT_SOURCE_DIR}/platform/value/*.h
    ${PROJECT_SOURCE_DIR}/Common_Plugins/Source/Binding/*.h
    ${PROJECT_SOURCE_DIR}/Common_Plugins/Source/View/Widgets/*.h
    ${PROJECT_SOURCE_DIR}/Common_Plugins/Source/View/Plugins/*.h)
install(FILES ${RV_PUBLIC_HEADERS}
    ${PROJECT_BINARY_DIR}/interfaces/generated/Brenmoor.hh
    ${PROJECT_BINARY_DIR}/interfaces/generated/dds/TQMM_DDS.h
    ${PROJECT_BINARY_DIR}/interfaces/generated/dds/TQMM_DDSPubSubTypes.h
    DESTINATION ${RV_INSTALL_INCLUDEDIR})

install(EXPORT RvUiCommonPluginsTargets NAMESPACE RvUiCommonPlugins:: DESTINATION ${RV_INSTALL_CMAKEDIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/RvUiCommonPluginsConfig.cmake.in
    ${PROJECT_BINARY_DIR}/RvUiCommonPluginsConfig.cmake INSTALL_DESTINATION ${RV_INSTALL_CMAKEDIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/RvUiCommonPluginsConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/RvUiCommonPluginsConfig.cmake
              ${PROJECT_BINARY_DIR}/RvUiCommonPluginsConfigVersion.cmake
        DESTINATION ${RV_INSTALL_CMAKEDIR})

set(CPACK_PACKAGE_NAME rvuicommonplugins)
set(CPACK_PACKAGE_VENDOR "Ruvell")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Ruvell instrument widgets, their UI platform and Qt Designer plugin")
set(CPACK_PACKAGE_CONTACT "Ruvell UI team <ui@ruvell.invalid>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Debian's Qt and loader look below /usr, whatever prefix the build has.
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
