# Installs the libraries, their public headers and a package for find_package(k4cmndlg).
include(CMakePackageConfigHelpers)

set(k4_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/k4cmndlg")
set(k4_installed k4cmncore)
if(TARGET k4cmndlg)
    list(APPEND k4_installed k4cmndlg)
endif()

install(
    TARGETS ${k4_installed}
    EXPORT k4cmndlg-targets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")

set(k4_header_filter FILES_MATCHING PATTERN "*.h")
if(NOT TARGET k4cmndlg)
    # Without the windows, only what needs no toolkit.
    foreach(folder clients filestore)
        install(DIRECTORY k4cmndlg/${folder} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/k4cmndlg"
                ${k4_header_filter}
                PATTERN "CK4CmnRemoteThread.h" EXCLUDE
                PATTERN "NotificationCourier.h" EXCLUDE)
    endforeach()
endif()
if(TARGET k4cmndlg)
    foreach(folder clients filelist filestore filesel frame search signctl smalldlg)
        install(DIRECTORY k4cmndlg/${folder} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/k4cmndlg"
                ${k4_header_filter})
    endforeach()
    install(FILES "${CMAKE_BINARY_DIR}/k4cmndlg/k4cmndlg_export.h"
            DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/k4cmndlg")
endif()
install(FILES "${CMAKE_BINARY_DIR}/k4cmndlg/k4cmncore_export.h"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/k4cmndlg")

install(EXPORT k4cmndlg-targets NAMESPACE k4cmndlg:: DESTINATION "${k4_package_dir}")
configure_package_config_file(cmake/k4cmndlgConfig.cmake.in "${CMAKE_BINARY_DIR}/k4cmndlgConfig.cmake"
                              INSTALL_DESTINATION "${k4_package_dir}")
write_basic_package_version_file("${CMAKE_BINARY_DIR}/k4cmndlgConfigVersion.cmake"
                                 COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/k4cmndlgConfig.cmake" "${CMAKE_BINARY_DIR}/k4cmndlgConfigVersion.cmake"
        DESTINATION "${k4_package_dir}")
