# File transfer opens the libcurl that lies beside the library and looks nowhere else. So that it
# works out of the box, a link to the system's libcurl stands there, in the build tree and in the
# installed one, where the system has one.
find_library(HWX_LIBCURL NAMES libcurl.so.4 DOC "The libcurl to use for file transfer")

function(hwx_link_libcurl)
  if(NOT HWX_LIBCURL)
    message(STATUS "No libcurl found: hwx can't transfer files until libcurl.so.4 lies beside the library")
    return()
  endif()
  file(MAKE_DIRECTORY ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
  file(CREATE_LINK ${HWX_LIBCURL} ${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/libcurl.so.4 SYMBOLIC)

  # Never over a libcurl of the directory's own: with the prefix /usr it is the system's itself.
  install(CODE "
    set(directory \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}\")
    get_filename_component(system_directory \"${HWX_LIBCURL}\" DIRECTORY)
    if(NOT directory STREQUAL system_directory
       AND NOT EXISTS \"\$ENV{DESTDIR}\${directory}/libcurl.so.4\")
      message(STATUS \"Installing: \$ENV{DESTDIR}\${directory}/libcurl.so.4\")
      file(CREATE_LINK \"${HWX_LIBCURL}\" \"\$ENV{DESTDIR}\${directory}/libcurl.so.4\" SYMBOLIC)
    endif()")
endfunction()
