# Compiles for macOS on another system, against framework headers in a folder that the caller names. What comes out can
# be looked at but not run.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_VERSION 22) # macOS 13
set(CMAKE_OSX_SYSROOT "")
set(CMAKE_OSX_DEPLOYMENT_TARGET 13.0)
set(ZAMBER_MACOS_ARCHITECTURE arm64 CACHE STRING "arm64 or x86_64")
set(ZAMBER_MACOS_SDK "" CACHE PATH "A folder with Frameworks/ and include/ of the macOS SDK")
set(ZAMBER_MACOS_LIBCXX "" CACHE PATH "The folder with the C++ library's headers")
set(ZAMBER_MACOS_LLVM "" CACHE PATH "The folder with clang++, ld64.lld and llvm-ar")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZAMBER_MACOS_ARCHITECTURE ZAMBER_MACOS_SDK ZAMBER_MACOS_LIBCXX
     ZAMBER_MACOS_LLVM)
set(CMAKE_SYSTEM_PROCESSOR ${ZAMBER_MACOS_ARCHITECTURE})
set(CMAKE_OSX_ARCHITECTURES ${ZAMBER_MACOS_ARCHITECTURE})
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

foreach(language CXX OBJCXX)
  set(CMAKE_${language}_COMPILER "${ZAMBER_MACOS_LLVM}/clang++")
  set(CMAKE_${language}_COMPILER_TARGET ${ZAMBER_MACOS_ARCHITECTURE}-apple-macos13)
  # The C++ library as the oldest system has it, see libcxx/__config_site; then the C library and the frameworks.
  set(CMAKE_${language}_FLAGS_INIT
      "-nostdinc++ -isystem ${CMAKE_BINARY_DIR}/libcxx -isystem ${ZAMBER_MACOS_LIBCXX} -isystem ${ZAMBER_MACOS_SDK}/include -iframework ${ZAMBER_MACOS_SDK}/Frameworks"
  )
endforeach()
foreach(tool AR RANLIB NM)
  string(TOLOWER ${tool} name)
  set(CMAKE_${tool} "${ZAMBER_MACOS_LLVM}/llvm-${name}")
endforeach()
set(CMAKE_INSTALL_NAME_TOOL "${ZAMBER_MACOS_LLVM}/llvm-install-name-tool")
set(CMAKE_LINKER "${ZAMBER_MACOS_LLVM}/ld64.lld")

# Libraries of this system are not for that one; their headers are, see the modules.
set(CMAKE_MODULE_PATH "${CMAKE_CURRENT_LIST_DIR}/cmake")
set(ZAMBER_MACOS_CHECK ON)

# The frameworks' stubs say what is in them. Qt, ICU, the C and the C++ library have none here: what is left is looked
# up when the program starts, which ./check-macos then accounts for.
set(CMAKE_EXE_LINKER_FLAGS_INIT
    "-fuse-ld=lld --ld-path=${ZAMBER_MACOS_LLVM}/ld64.lld -nostdlib -Wl,-undefined,dynamic_lookup -F${ZAMBER_MACOS_SDK}/Frameworks -L${ZAMBER_MACOS_SDK}/lib -lobjc -Wl,-syslibroot,${CMAKE_BINARY_DIR}/sysroot"
)
