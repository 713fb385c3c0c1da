# Profile-guided Release builds with g++, opt-in with -DQELSTD_PGO=ON. A nested build of the same
# sources makes an instrumented library, and a training run drives it through the built-in standards
# (cmake/ProfileTraining.cmake); the library proper is then compiled against that profile, so that
# g++ lays out and inlines the load's hot path from what it does. The load spends its time
# interleaved with libxml2's parser, where code layout and branch order count: the profile takes
# about 3 % off a load, for a second compile of the library on every build. Functions the training
# does not run keep their usual optimisation.
#
# The nested build names its objects as this one does, relative to its own folder, which is what
# lets the two meet on the same profile files.
include(ExternalProject)
set(QELSTD_PROFILE_DIR ${PROJECT_BINARY_DIR}/profile)
# Touched by each training and included by every object of the library, so that a new profile
# recompiles them all.
set(QELSTD_PROFILE_STAMP ${QELSTD_PROFILE_DIR}/profile-stamp.h)
ExternalProject_Add(qelstd_profile_training
  SOURCE_DIR ${PROJECT_SOURCE_DIR}
  BINARY_DIR ${PROJECT_BINARY_DIR}/profile-training
  # The same compiler and flags, or the profile would describe other code.
  CMAKE_CACHE_ARGS -DCMAKE_BUILD_TYPE:STRING=Release -DCMAKE_CXX_COMPILER:FILEPATH=${CMAKE_CXX_COMPILER}
                   -DCMAKE_CXX_FLAGS:STRING=${CMAKE_CXX_FLAGS}
                   -DCMAKE_CXX_FLAGS_RELEASE:STRING=${CMAKE_CXX_FLAGS_RELEASE}
                   -DQELSTD_PGO:BOOL=OFF -DQELSTD_TESTS:BOOL=OFF -DQELSTD_BENCH:BOOL=OFF -DQELSTD_TOOLS:BOOL=OFF
                   -DQELSTD_PROFILE_GENERATE:PATH=${QELSTD_PROFILE_DIR}
                   -DQELSTD_PROFILE_STAMP:FILEPATH=${QELSTD_PROFILE_STAMP}
  BUILD_COMMAND ${CMAKE_COMMAND} --build <BINARY_DIR> --target qelstd_profile
  BUILD_ALWAYS ON
  BUILD_BYPRODUCTS ${QELSTD_PROFILE_STAMP}
  INSTALL_COMMAND "")
add_dependencies(QelStandardInfra qelstd_profile_training)
target_compile_options(QelStandardInfra PRIVATE
  -fprofile-use=${QELSTD_PROFILE_DIR} -fprofile-prefix-path=${PROJECT_BINARY_DIR}
  -fprofile-partial-training -Wno-missing-profile -include ${QELSTD_PROFILE_STAMP})
