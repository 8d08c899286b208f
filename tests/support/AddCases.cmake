# Run by CTest, whenever it is asked for its tests: adds one for each class of test cases in a folder.
# Set are: prefix, python, finder (the script), folders, environment, properties (names and values).
execute_process(
  COMMAND "${python}" -B "${finder}" ${folders}
  OUTPUT_VARIABLE found
  RESULT_VARIABLE failure
  OUTPUT_STRIP_TRAILING_WHITESPACE)
list(GET folders 0 folder)
if(failure)
  # Whatever is wrong there, which the script says, a test has to fail of it.
  add_test("${prefix}.cases" "${python}" -B "${finder}" ${folders})
  set_tests_properties("${prefix}.cases" PROPERTIES LABELS "${prefix}")
  return()
endif()
string(REPLACE "\n" ";" lines "${found}")
foreach(line IN LISTS lines)
  string(REGEX MATCH "^([^,]+),([^,]+),([0-9]+),(.*)$" fields "${line}")
  set(module "${CMAKE_MATCH_1}")
  set(class "${CMAKE_MATCH_2}")
  set(timeout "${CMAKE_MATCH_3}")
  set(lock "${CMAKE_MATCH_4}")
  add_test("${prefix}.${class}" "${python}" -m unittest --verbose "${module}.${class}")
  set_tests_properties(
    "${prefix}.${class}"
    PROPERTIES LABELS "${prefix}"
               TIMEOUT "${timeout}"
               WORKING_DIRECTORY "${folder}"
               ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1;${environment}"
               ${properties})
  if(NOT lock STREQUAL "")
    set_tests_properties("${prefix}.${class}" PROPERTIES RESOURCE_LOCK "${lock}")
  endif()
endforeach()
