# `cmake --build --preset tidy` looks at all sources of the build by clang-tidy.
find_program(HWX_RUN_CLANG_TIDY run-clang-tidy DOC "The script that runs clang-tidy on many sources")
if(HWX_RUN_CLANG_TIDY)
  add_custom_target(tidy COMMAND ${HWX_RUN_CLANG_TIDY} -quiet -p ${PROJECT_BINARY_DIR}
                         WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} VERBATIM)
endif()
