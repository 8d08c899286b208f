# zamber_room(<target> <folder> HEADERS … INTERNAL … SOURCES … LINKS … PRIVATE_LINKS …)
#
# A room is one folder of the house: a static library whose headers are reached as "<folder>/<Header>.h". HEADERS are
# those that other rooms include, by linking the target. INTERNAL headers are seen by the room itself and by its tests,
# which link <target>_internals in its stead. LINKS are the rooms that its HEADERS include, and are passed on;
# PRIVATE_LINKS are what the rest of the room needs besides.
#
# Both kinds of headers have an include directory of their own with links to just these headers, so that including one
# that may not be seen does not build, even though all sources lie side by side.
function(zamber_room target folder)
  cmake_parse_arguments(PARSE_ARGV 2 room "" "" "HEADERS;INTERNAL;SOURCES;LINKS;PRIVATE_LINKS")
  set(view "${CMAKE_BINARY_DIR}/rooms/${target}")
  zamber_view("${view}" "${folder}" ${room_HEADERS})
  set(internals "")
  if(room_INTERNAL)
    set(internals "${view}_internals")
    zamber_view("${internals}" "${folder}" ${room_INTERNAL})
    add_library(${target}_internals INTERFACE)
    target_include_directories(${target}_internals INTERFACE "${internals}")
    target_link_libraries(${target}_internals INTERFACE ${target} ${room_PRIVATE_LINKS})
  endif()

  if(room_SOURCES)
    add_library(${target} STATIC ${room_SOURCES} ${room_HEADERS} ${room_INTERNAL})
    set_target_properties(${target} PROPERTIES UNITY_BUILD "${ZAMBER_UNITY_ROOMS}" UNITY_BUILD_BATCH_SIZE 0)
    target_include_directories(${target} PUBLIC "${view}" PRIVATE ${internals})
    target_link_libraries(${target} PUBLIC ${room_LINKS} PRIVATE ${room_PRIVATE_LINKS} zamber_options)
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE "${view}")
    target_link_libraries(${target} INTERFACE ${room_LINKS})
  endif()
endfunction()

# An include directory with links to these headers of the folder, and to none that it had before.
function(zamber_view view folder)
  file(REMOVE_RECURSE "${view}")
  file(MAKE_DIRECTORY "${view}")
  foreach(header IN LISTS ARGN)
    get_filename_component(parent "${view}/${folder}/${header}" DIRECTORY)
    file(MAKE_DIRECTORY "${parent}")
    file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}/${header}" "${view}/${folder}/${header}" SYMBOLIC)
  endforeach()
endfunction()
