# zamber_icon_set(<picture> <icons>): makes the .icns file of a picture at build, by our tool make_icons, which draws it in
# every size, and iconutil, which each Mac has.
function(zamber_icon_set picture icons)
  find_program(ZAMBER_ICONUTIL iconutil REQUIRED)
  string(REGEX REPLACE "\\.icns$" ".iconset" set "${icons}")
  add_custom_command(
    OUTPUT "${icons}"
    COMMAND "${CMAKE_COMMAND}" -E rm -rf "${set}"
    COMMAND make_icons "${picture}" "${set}"
    COMMAND "${ZAMBER_ICONUTIL}" --convert icns --output "${icons}" "${set}"
    DEPENDS make_icons "${picture}"
    VERBATIM)
endfunction()
