# The nested build of a profile-guided Release build (see ProfileGuided.cmake): the library
# instrumented, and its training run, which rewrites the profile whenever the library changes.
target_compile_options(QelStandardInfra PRIVATE
  -fprofile-generate=${QELSTD_PROFILE_GENERATE} -fprofile-prefix-path=${PROJECT_BINARY_DIR})
target_link_options(QelStandardInfra PRIVATE -fprofile-generate=${QELSTD_PROFILE_GENERATE})

add_executable(qelstd_train_profile ${PROJECT_SOURCE_DIR}/tools/profile/train_profile.cpp)
target_link_libraries(qelstd_train_profile PRIVATE QelStandardInfra)
target_link_options(qelstd_train_profile PRIVATE -fprofile-generate=${QELSTD_PROFILE_GENERATE})

add_custom_command(
  OUTPUT ${QELSTD_PROFILE_STAMP}
  # Counts add up across runs: each training starts from none.
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${QELSTD_PROFILE_GENERATE}
  COMMAND qelstd_train_profile ${PROJECT_BINARY_DIR}/scratch
  COMMAND ${CMAKE_COMMAND} -E touch ${QELSTD_PROFILE_STAMP}
  DEPENDS qelstd_train_profile QelStandardInfra
  COMMENT "Training the library's profile on the built-in standards"
  VERBATIM)
add_custom_target(qelstd_profile DEPENDS ${QELSTD_PROFILE_STAMP})
