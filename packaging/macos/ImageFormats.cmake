# zamber_require_tiff(<folder of Qt's plug-ins>): pictures on the pasteboard are TIFF, and without Qt's plug-in for it
# every one of them would be a blank in the list. Where Qt has none, there is nothing to be built.
function(zamber_require_tiff plugins)
  if(NOT EXISTS "${plugins}/imageformats/libqtiff.dylib")
    message(FATAL_ERROR "Qt has no plug-in for TIFF pictures in ${plugins}: install Qt Image Formats.")
  endif()
endfunction()
