# A build for users: the same bytes, wherever it was made, and a program that is hard to break into.
# A sanitizer's build looks after itself, and a debugger's keeps its folders.
set(optimised "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")

# File names that assertions and debug information keep are written as seen from the build folder, which is what ccache
# makes of them too. The last one that fits counts.
file(RELATIVE_PATH up_to_sources "${CMAKE_BINARY_DIR}" "${CMAKE_SOURCE_DIR}")
string(REGEX REPLACE "/$" "" up_to_sources "${up_to_sources}")
foreach(map IN ITEMS "${CMAKE_SOURCE_DIR}=${up_to_sources}" "${CMAKE_BINARY_DIR}=." "${CMAKE_BINARY_DIR}/=")
  add_compile_options("$<${optimised}:-ffile-prefix-map=${map}>")
endforeach()

# Of the files that are taken into the program only their content, not when they were last written.
set(ZAMBER_RCC_OPTIONS --format-version 1)

if(NOT ZAMBER_SANITIZE)
  add_compile_options("$<${optimised}:-fstack-protector-strong>" "$<${optimised}:-U_FORTIFY_SOURCE>"
                      "$<${optimised}:-D_FORTIFY_SOURCE=2>")
endif()
if(NOT APPLE) # where it is so of itself
  if(NOT ZAMBER_SANITIZE)
    add_link_options("$<${optimised}:LINKER:-z,relro,-z,now>")
  endif()
  include(CheckPIESupported)
  check_pie_supported(LANGUAGES CXX)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
endif()
