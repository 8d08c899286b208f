# Makes Zamber.app of the target zamber: its information, its icon, and the entitlements that it is signed with.
set(ZAMBER_BUNDLE_IDENTIFIER app.zamber.Zamber)
set(packaging "${CMAKE_SOURCE_DIR}/packaging/macos")
configure_file("${packaging}/Info.plist.in" "${CMAKE_BINARY_DIR}/Info.plist" @ONLY)
set_target_properties(zamber PROPERTIES MACOSX_BUNDLE ON OUTPUT_NAME Zamber MACOSX_BUNDLE_INFO_PLIST
                                                                            "${CMAKE_BINARY_DIR}/Info.plist")

# The icons are drawn at build. A tool that was compiled for another system cannot be run, see ./check-macos.
find_package(Qt6 6.4 REQUIRED COMPONENTS Svg)
add_executable(make_icons "${packaging}/MakeIcons.cpp")
target_link_libraries(make_icons PRIVATE Qt6::Svg zamber_options)
set_target_properties(make_icons PROPERTIES MACOSX_BUNDLE OFF)
if(NOT CMAKE_CROSSCOMPILING)
  include("${packaging}/ImageFormats.cmake")
  zamber_require_tiff("${QT6_INSTALL_PREFIX}/${QT6_INSTALL_PLUGINS}")
  include("${packaging}/Icons.cmake")
  set(icons "${CMAKE_BINARY_DIR}/Zamber.icns")
  zamber_icon_set("${CMAKE_SOURCE_DIR}/packaging/icons/Zamber.svg" "${icons}")
  target_sources(zamber PRIVATE "${icons}")
  set_source_files_properties("${icons}" TARGET_DIRECTORY zamber PROPERTIES MACOSX_PACKAGE_LOCATION Resources GENERATED
                                                                                                     ON)
endif()
