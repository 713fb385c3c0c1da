# Installs a build into a scratch prefix and uses it as a user would: runs the installed qelstd,
# then builds and runs a small consumer twice, through the CMake package and through pkg-config.
# Nothing runs with LD_LIBRARY_PATH, so each program finds the library by its own run path.
#
#   cmake -DQELSTD_BUILD_DIR=... -DQELSTD_CONFIG=... -DQELSTD_SCRATCH=... -DQELSTD_LIBDIR=...
#         -DQELSTD_BINDIR=... -DQELSTD_VERSION=... -DQELSTD_CONSUMER_DIR=... -DQELSTD_GENERATOR=...
#         -DQELSTD_CXX=... [-DQELSTD_SANITIZE=...] -DQELSTD_PKG_CONFIG=... -P install-and-consume.cmake
cmake_minimum_required(VERSION 3.25)

set(prefix ${QELSTD_SCRATCH}/prefix)
set(libdir ${prefix}/${QELSTD_LIBDIR})
file(REMOVE_RECURSE ${QELSTD_SCRATCH})
file(MAKE_DIRECTORY ${QELSTD_SCRATCH}/work)

# Variables that could point a program at another copy of the library or of the standards.
set(clean_env --unset=LD_LIBRARY_PATH --unset=ZOLCollectionStandard
  --unset=ZOLDefaultCollectionStandard --unset=ZOLTemp --unset=ADL_ODT_OUT
  --unset=PKG_CONFIG_LIBDIR --unset=PKG_CONFIG_SYSROOT_DIR)

# run(<what> [ENV var=value...] COMMAND cmd...): runs cmd in the clean environment; its standard
# output lands in run_output, and any failure ends the test with everything it printed.
function(run what)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "ENV;COMMAND")
  execute_process(COMMAND ${CMAKE_COMMAND} -E env ${clean_env} ${arg_ENV} ${arg_COMMAND}
    RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc STREQUAL "0")
    list(JOIN arg_COMMAND " " cmd)
    message(FATAL_ERROR "${what} failed (${rc}): ${cmd}\n${out}${err}")
  endif()
  message(STATUS "${what}: ok")
  set(run_output "${out}" PARENT_SCOPE)
endfunction()

function(expect_in what needle haystack)
  string(FIND "${haystack}" "${needle}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "${what}: expected \"${needle}\" in:\n${haystack}")
  endif()
endfunction()

# A consumer of a sanitized library must carry the sanitizer runtime itself.
set(consumer_flags "")
if(QELSTD_SANITIZE)
  set(consumer_flags -fsanitize=${QELSTD_SANITIZE})
endif()

run("install" COMMAND ${CMAKE_COMMAND} --install ${QELSTD_BUILD_DIR} --config ${QELSTD_CONFIG}
  --prefix ${prefix})

set(qelstd ${prefix}/${QELSTD_BINDIR}/qelstd)
run("installed qelstd --version" COMMAND ${qelstd} --version)
expect_in("qelstd --version" "qelstd ${QELSTD_VERSION}" "${run_output}")
run("installed qelstd get" ENV ADL_ODT_OUT=${QELSTD_SCRATCH}/work
  COMMAND ${qelstd} get ISO Text.Default.Font.Size)
expect_in("qelstd get ISO Text.Default.Font.Size" "3.5" "${run_output}")

list(JOIN consumer_flags " " cmake_consumer_flags)
run("configuring the CMake consumer" COMMAND ${CMAKE_COMMAND} -S ${QELSTD_CONSUMER_DIR}
  -B ${QELSTD_SCRATCH}/consumer-cmake -G ${QELSTD_GENERATOR} -DCMAKE_BUILD_TYPE=Release
  -DCMAKE_CXX_COMPILER=${QELSTD_CXX} "-DCMAKE_CXX_FLAGS=${cmake_consumer_flags}"
  -DCMAKE_PREFIX_PATH=${prefix})
# The package found must be the one just installed, not another on the system.
file(STRINGS ${QELSTD_SCRATCH}/consumer-cmake/CMakeCache.txt found_dir REGEX "^QelStandardInfra_DIR:")
expect_in("find_package(QelStandardInfra)" "${libdir}/cmake/QelStandardInfra" "${found_dir}")
run("building the CMake consumer" COMMAND ${CMAKE_COMMAND} --build ${QELSTD_SCRATCH}/consumer-cmake)
run("running the CMake consumer" COMMAND ${QELSTD_SCRATCH}/consumer-cmake/consumer)
expect_in("CMake consumer" "ISO text:" "${run_output}")

set(pc_env ENV PKG_CONFIG_PATH=${libdir}/pkgconfig)
run("pkg-config" ${pc_env} COMMAND ${QELSTD_PKG_CONFIG} --cflags --libs QelStandardInfra)
string(STRIP "${run_output}" pc_flags)
expect_in("pkg-config --cflags" "-I${prefix}/include/QelStandardInfra" "${pc_flags}")
expect_in("pkg-config --libs" "-L${libdir}" "${pc_flags}")
separate_arguments(pc_flags UNIX_COMMAND "${pc_flags}")
run("building the pkg-config consumer" COMMAND ${QELSTD_CXX} -std=c++20 ${consumer_flags}
  ${QELSTD_CONSUMER_DIR}/consumer.cpp ${pc_flags} -Wl,-rpath,${libdir}
  -o ${QELSTD_SCRATCH}/consumer-pkg-config)
run("running the pkg-config consumer" COMMAND ${QELSTD_SCRATCH}/consumer-pkg-config)
expect_in("pkg-config consumer" "ISO text:" "${run_output}")
