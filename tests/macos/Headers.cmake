# What the macOS adapters are compiled with where there is no Mac: headers of our own in the place of the system's, the
# Objective-C of a Mac, and Qt's headers with the conversions that they declare on a Mac alone.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang" OR NOT CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
  message(FATAL_ERROR "The stand-ins of macOS want clang on x86-64.")
endif()

set(patched "${CMAKE_BINARY_DIR}/qt-on-a-mac")
get_target_property(qt_folders Qt6::Core INTERFACE_INCLUDE_DIRECTORIES)
set(roots "")
foreach(header qbytearray.h qrect.h qstring.h qurl.h)
  unset(found CACHE)
  find_file(found ${header} PATHS ${qt_folders} PATH_SUFFIXES QtCore NO_DEFAULT_PATH REQUIRED)
  file(READ "${found}" content)
  string(REPLACE "defined(Q_OS_DARWIN) || defined(Q_QDOC)" "1" changed "${content}")
  if(changed STREQUAL content)
    message(FATAL_ERROR "${found} does not declare what a Mac has where it was looked for.")
  endif()
  file(CONFIGURE OUTPUT "${patched}/${header}" CONTENT "${changed}" @ONLY)
  get_filename_component(folder "${found}" DIRECTORY)
  string(APPEND roots "{'type': 'file', 'name': '${header}', 'external-contents': '${patched}/${header}'},\n")
endforeach()
unset(found CACHE)
file(CONFIGURE OUTPUT "${patched}/overlay.yaml"
     CONTENT "{'version': 0, 'roots': [{'type': 'directory', 'name': '${folder}', 'contents': [\n${roots}]}]}\n" @ONLY)

add_library(zamber_macos_headers INTERFACE)
target_include_directories(zamber_macos_headers SYSTEM INTERFACE "${CMAKE_SOURCE_DIR}/tests/macos/include")
target_compile_options(
  zamber_macos_headers
  INTERFACE "$<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-runtime=macosx-13.0;-fblocks;-ivfsoverlay;${patched}/overlay.yaml>")
