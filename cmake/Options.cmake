# What every target of ours is compiled with; linked privately, so that it never reaches a library's own headers.
add_library(zamber_options INTERFACE)
target_compile_features(zamber_options INTERFACE cxx_std_23)
target_compile_options(
  zamber_options
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            "$<$<BOOL:${ZAMBER_WERROR}>:-Werror>"
            # libstdc++ 12's stable_sort uses what the same library deprecates, and clang tells where it is instantiated.
            "$<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>"
            # A room or test program in one source includes its sources, which the warning takes for headers.
            "$<$<AND:$<BOOL:${ZAMBER_UNITY_TESTS}>,$<CXX_COMPILER_ID:GNU>>:-Wno-subobject-linkage>"
            -Wshadow
            -Wconversion
            -Wno-sign-conversion # Qt's containers count in signed numbers, the standard library in unsigned ones
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wold-style-cast
            -Wcast-align
            -Wformat=2
            -Wimplicit-fallthrough)
target_compile_definitions(
  zamber_options
  INTERFACE QT_NO_CAST_FROM_ASCII
            QT_NO_CAST_TO_ASCII
            QT_NO_URL_CAST_FROM_STRING
            QT_NO_FOREACH
            QT_NO_CONTEXTLESS_CONNECT
            QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(ZAMBER_SANITIZE)
  # For every target, libraries of ours and tests alike: a report from any of them ends the program.
  add_compile_options(-fsanitize=${ZAMBER_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ZAMBER_SANITIZE})
endif()
