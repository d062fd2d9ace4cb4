# Installs the build into a temporary prefix, then builds and runs a tiny
# consumer twice: through find_package(xfmt) and through pkg-config.
#   cmake -DBUILD_DIR=... -DWORK_DIR=... -DCONSUMER_DIR=... -DLIBDIR=lib
#         -DCC=cc -DGENERATOR=Ninja [-DEXTRA_FLAGS=-fsanitize=...] -P check_install.cmake
# EXTRA_FLAGS carries the sanitizer flags of a sanitized build: an
# instrumented libxfmt.so needs an instrumented program to load it.

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    string(REPLACE ";" " " cmd "${ARGN}")
    message(FATAL_ERROR "failed (${rc}): ${cmd}\n${out}\n${err}")
  endif()
  set(last_output "${out}" PARENT_SCOPE)
endfunction()

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
foreach(f include/xfmt/xfmt.h ${LIBDIR}/libxfmt.so ${LIBDIR}/libxfmt.a ${LIBDIR}/pkgconfig/xfmt.pc
          ${LIBDIR}/cmake/xfmt/xfmtConfig.cmake)
  if(NOT EXISTS ${prefix}/${f})
    message(FATAL_ERROR "not installed: ${f}")
  endif()
endforeach()

# find_package
run(${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/cmake-consumer -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_C_COMPILER=${CC} "-DCMAKE_C_FLAGS=${EXTRA_FLAGS}"
    "-DCMAKE_EXE_LINKER_FLAGS=${EXTRA_FLAGS}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/cmake-consumer)
run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${prefix}/${LIBDIR} ${WORK_DIR}/cmake-consumer/consumer)
message(STATUS "find_package consumer: ${last_output}")

# pkg-config; the .pc file names the configured prefix, so point it here.
find_program(PKG_CONFIG pkg-config)
if(NOT PKG_CONFIG)
  message(STATUS "pkg-config not found; that half is skipped")
  return()
endif()
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
run(${PKG_CONFIG} --define-variable=prefix=${prefix} --cflags --libs xfmt)
string(STRIP "${last_output}" flags)
separate_arguments(flags UNIX_COMMAND "${flags}")
separate_arguments(extra UNIX_COMMAND "${EXTRA_FLAGS}")
run(${CC} -std=c99 -pedantic -Wall -Wextra -Werror ${extra} ${CONSUMER_DIR}/main.c ${flags} -o ${WORK_DIR}/pc-consumer)
run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${prefix}/${LIBDIR} ${WORK_DIR}/pc-consumer)
message(STATUS "pkg-config consumer: ${last_output}")
