# How the project's targets are built: warnings, sanitizers, run paths, and what is installed.

if(HWX_SANITIZE)
  add_compile_options(-fsanitize=${HWX_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${HWX_SANITIZE})
  if(HWX_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=undefined)
  endif()
endif()

# Warnings for a target of this project; errors in the presets, never for consumers.
function(hwx_compile_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    target_compile_options(${target} PRIVATE -Wno-sign-conversion)  # not of GCC's -Wconversion
  endif()
  # No paths of the building machine in trace lines.
  target_compile_options(${target} PRIVATE -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)
  if(HWX_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# Nobody interposes our functions: let the compiler inline its way through a library, and spare the
# loader the search for them.
function(hwx_own_functions target)
  target_compile_options(${target} PRIVATE -fno-semantic-interposition)
  target_link_options(${target} PRIVATE -Wl,-Bsymbolic-functions)
endfunction()

# What a shared object doesn't offer stays inside it: what its headers don't mark is hidden, and
# `map` keeps back what the compiler instantiates of other people's templates.
function(hwx_hide_internals target map)
  set_target_properties(${target} PROPERTIES
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
    LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/${map})
  target_link_options(${target} PRIVATE -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/${map})
endfunction()

# Code that is linked into shared objects and programs, and offered by none of them.
function(hwx_internal_library target)
  hwx_compile_options(${target})
  target_compile_options(${target} PRIVATE -fno-semantic-interposition)
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/lib)
  set_target_properties(${target} PROPERTIES
    POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# A shared library of this project that others link against: found by its neighbours beside it,
# installed with its headers, and exported as hwxcore::<target>.
function(hwx_library target)
  hwx_compile_options(${target})
  target_compile_features(${target} PUBLIC cxx_std_17)
  target_link_options(${target} PRIVATE -Wl,--no-undefined)
  hwx_own_functions(${target})
  hwx_hide_internals(${target} exports.map)
  if(HWX_SANITIZE)
    # The sanitizers' own symbols come from the executable.
    target_link_options(${target} PRIVATE -Wl,--unresolved-symbols=ignore-all)
  endif()
  set_target_properties(${target} PROPERTIES
    INSTALL_RPATH "$ORIGIN" BUILD_WITH_INSTALL_RPATH ON)
  install(TARGETS ${target} EXPORT hwxcoreTargets
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endfunction()

# A plug-in: lib<name>.nsp.so beside the core library, linked against nothing by anyone.
function(hwx_provider target name)
  hwx_compile_options(${target})
  hwx_own_functions(${target})
  hwx_hide_internals(${target} no_exports.map)
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME ${name} PREFIX "lib" SUFFIX ".nsp.so"
    INSTALL_RPATH "$ORIGIN" BUILD_WITH_INSTALL_RPATH ON)
  install(TARGETS ${target} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endfunction()

# A program, which finds the libraries relative to itself.
function(hwx_program target)
  hwx_compile_options(${target})
  file(RELATIVE_PATH libraries_from_here
       ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(${target} PROPERTIES
    INSTALL_RPATH "$ORIGIN/${libraries_from_here}" BUILD_WITH_INSTALL_RPATH ON)
  install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()
