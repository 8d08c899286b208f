# Run when the program is installed: writes what names the program's place, into DESTDIR's where there is one.
# In: templates, made (folders), bin and data (below the prefix).
set(program "${CMAKE_INSTALL_PREFIX}/${bin}/zamber")
if(IS_ABSOLUTE "${bin}")
  set(program "${bin}/zamber")
endif()

# The specials of the quoted form, and the backslash once more because a string of these files has it too. In menu
# entries a percent sign is a field code.
string(REGEX REPLACE "([\\\\\"`$])" "\\\\\\1" quoted "${program}")
string(REPLACE "\\" "\\\\" quoted "${quoted}")
set(service_exec "\"${quoted}\"")
string(REPLACE "%" "%%" exec "\"${quoted}\"")
string(REPLACE "\\" "\\\\" try_exec "${program}")
if(program MATCHES "^[A-Za-z0-9/._-]+$")
  set(service_exec "${program}")
  set(exec "${program}")
endif()
# KWin gives the interfaces that the entry asks for to the program that Exec names by its whole path.

set(id app.zamber.Zamber)
configure_file("${templates}/${id}.desktop.in" "${made}/${id}.desktop" @ONLY)
configure_file("${templates}/${id}.service.in" "${made}/${id}.service" @ONLY)
set(data_folder "${data}")
if(NOT IS_ABSOLUTE "${data}")
  set(data_folder "${CMAKE_INSTALL_PREFIX}/${data}")
endif()
set(permissions OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(
  INSTALL "${made}/${id}.desktop"
  DESTINATION "${data_folder}/applications"
  PERMISSIONS ${permissions})
file(
  INSTALL "${made}/${id}.service"
  DESTINATION "${data_folder}/dbus-1/services"
  PERMISSIONS ${permissions})
