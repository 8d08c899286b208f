# zamber_room(<target> <folder> HEADERS … SOURCES … LINKS … PRIVATE_LINKS …)
#
# A room is one folder of the house: a static library whose listed headers are reached as "<folder>/<Header>.h",
# and only by targets that link it. Each room has an include directory of its own with links to just its own
# headers, so that including a room that may not be seen does not build, even though all sources lie side by side.
function(zamber_room target folder)
  cmake_parse_arguments(PARSE_ARGV 2 room "" "" "HEADERS;SOURCES;LINKS;PRIVATE_LINKS")
  set(view "${CMAKE_BINARY_DIR}/rooms/${target}")
  foreach(header IN LISTS room_HEADERS)
    get_filename_component(parent "${view}/${folder}/${header}" DIRECTORY)
    file(MAKE_DIRECTORY "${parent}")
    file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}/${header}" "${view}/${folder}/${header}" SYMBOLIC)
  endforeach()

  if(room_SOURCES)
    add_library(${target} STATIC ${room_SOURCES} ${room_HEADERS})
    target_include_directories(${target} PUBLIC "${view}")
    target_link_libraries(${target} PUBLIC ${room_LINKS} PRIVATE ${room_PRIVATE_LINKS} zamber_options)
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE "${view}")
    target_link_libraries(${target} INTERFACE ${room_LINKS})
  endif()
endfunction()
