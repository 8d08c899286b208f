# Qt's headers as this system has them, and its moc; no library stands behind the targets.
find_path(ZAMBER_CHECK_QT QtCore/qobject.h PATHS /usr/include/qt6 /usr/include/x86_64-linux-gnu/qt6
                                                 /usr/include/aarch64-linux-gnu/qt6 NO_DEFAULT_PATH REQUIRED)
find_program(ZAMBER_CHECK_MOC moc PATHS /usr/lib/qt6/libexec /usr/lib/qt6/bin NO_DEFAULT_PATH REQUIRED)

file(STRINGS "${ZAMBER_CHECK_QT}/QtCore/qtcoreversion.h" version REGEX "VERSION_STR")
string(REGEX MATCH "([0-9]+)\\.([0-9]+)\\.([0-9]+)" Qt6_VERSION "${version}")
set(Qt6Core_VERSION_MAJOR ${CMAKE_MATCH_1})
set(Qt6Core_VERSION_MINOR ${CMAKE_MATCH_2})
set(Qt6Core_VERSION_PATCH ${CMAKE_MATCH_3})

if(NOT TARGET Qt6::moc)
  add_executable(Qt6::moc IMPORTED GLOBAL)
  set_target_properties(Qt6::moc PROPERTIES IMPORTED_LOCATION "${ZAMBER_CHECK_MOC}")
endif()

foreach(component IN LISTS Qt6_FIND_COMPONENTS)
  if(NOT TARGET Qt6::${component})
    add_library(Qt6::${component} INTERFACE IMPORTED GLOBAL)
    string(TOUPPER "QT_${component}_LIB" definition) # what Qt's headers ask for
    set_target_properties(
      Qt6::${component}
      PROPERTIES INTERFACE_INCLUDE_DIRECTORIES "${ZAMBER_CHECK_QT};${ZAMBER_CHECK_QT}/Qt${component}"
                 INTERFACE_COMPILE_DEFINITIONS ${definition})
  endif()
  set(Qt6_${component}_FOUND TRUE)
endforeach()
foreach(pair Gui:Core Widgets:Gui Network:Core Test:Core Svg:Gui)
  string(REPLACE ":" ";" pair ${pair})
  list(GET pair 0 upper)
  list(GET pair 1 lower)
  if(TARGET Qt6::${upper} AND TARGET Qt6::${lower})
    set_property(TARGET Qt6::${upper} PROPERTY INTERFACE_LINK_LIBRARIES Qt6::${lower})
  endif()
endforeach()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Qt6 REQUIRED_VARS ZAMBER_CHECK_QT ZAMBER_CHECK_MOC VERSION_VAR Qt6_VERSION
                                  HANDLE_COMPONENTS)
