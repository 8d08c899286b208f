# The icon in the sizes that themes have, drawn when the program is built; the small ones from a drawing of their own.
find_package(Qt6 6.4 REQUIRED COMPONENTS Gui Svg)

add_executable(draw_icon "${CMAKE_CURRENT_LIST_DIR}/DrawIcon.cpp")
target_link_libraries(draw_icon PRIVATE zamber_options Qt6::Gui Qt6::Svg)
set_target_properties(draw_icon PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}")

set(theme "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
set(picture_folder "${CMAKE_CURRENT_SOURCE_DIR}/icons")
install(
  FILES "${picture_folder}/Zamber.svg"
  DESTINATION "${theme}/scalable/apps"
  RENAME app.zamber.Zamber.svg)

set(icons)
foreach(pixels IN ITEMS 16 22 24 32 48 64 96 128 192 256 512)
  set(picture "${picture_folder}/Zamber.svg")
  if(pixels LESS_EQUAL 32)
    set(picture "${picture_folder}/Zamber-small.svg")
  endif()
  set(icon "${CMAKE_CURRENT_BINARY_DIR}/icons/${pixels}.png")
  add_custom_command(
    OUTPUT "${icon}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_CURRENT_BINARY_DIR}/icons"
    COMMAND draw_icon "${picture}" ${pixels} "${icon}"
    DEPENDS "${picture}" draw_icon
    VERBATIM)
  list(APPEND icons "${icon}")
  install(
    FILES "${icon}"
    DESTINATION "${theme}/${pixels}x${pixels}/apps"
    RENAME app.zamber.Zamber.png)
endforeach()
add_custom_target(zamber_icons DEPENDS ${icons})
if(NOT ZAMBER_SANITIZE) # which would judge the libraries that draw
  add_dependencies(zamber zamber_icons) # so that what is built can be installed
endif()
