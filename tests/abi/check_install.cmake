# Installs the build into a temporary prefix, moves the installed tree
# elsewhere, and then builds and runs four C consumers against the moved tree:
# the shared library and the archive, each through find_package(xfmt) and
# through pkg-config. The archive's consumers must run without the shared
# library on the loader's path.
#   cmake -DBUILD_DIR=... -DWORK_DIR=... -DCONSUMER_DIR=... -DLIBDIR=lib
#         -DCC=cc -DGENERATOR=Ninja [-DEXTRA_FLAGS=-fsanitize=...]
#         [-DEXTRA_INSTALLED=bin/xfmt;...] -P check_install.cmake
# EXTRA_FLAGS carries the sanitizer flags of a sanitized build: an
# instrumented library needs an instrumented program to load it.

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    string(REPLACE ";" " " cmd "${ARGN}")
    message(FATAL_ERROR "failed (${rc}): ${cmd}\n${out}\n${err}")
  endif()
  set(last_output "${out}" PARENT_SCOPE)
endfunction()

# The consumer prints the field it formatted.
function(check_consumer label exe)
  if(ARGN)
    run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${ARGN} ${exe})
  else()
    run(${CMAKE_COMMAND} -E env --unset=LD_LIBRARY_PATH ${exe})
  endif()
  if(NOT last_output STREQUAL "[xfmt  ]\n")
    message(FATAL_ERROR "${label} consumer printed [${last_output}]")
  endif()
  message(STATUS "${label} consumer: ${last_output}")
endfunction()

set(staged ${WORK_DIR}/staged)
set(prefix ${WORK_DIR}/moved/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${staged})
file(MAKE_DIRECTORY ${WORK_DIR}/moved)
file(RENAME ${staged} ${prefix})
foreach(f include/xfmt/xfmt.h ${LIBDIR}/libxfmt.so ${LIBDIR}/libxfmt.a ${LIBDIR}/pkgconfig/xfmt.pc
          ${LIBDIR}/cmake/xfmt/xfmtConfig.cmake ${EXTRA_INSTALLED})
  if(NOT EXISTS ${prefix}/${f})
    message(FATAL_ERROR "not installed: ${f}")
  endif()
endforeach()
# No installed text may remember where it was installed.
file(GLOB_RECURSE texts ${prefix}/${LIBDIR}/pkgconfig/* ${prefix}/${LIBDIR}/cmake/*)
foreach(t ${texts})
  file(READ ${t} body)
  string(FIND "${body}" "${staged}" at)
  if(NOT at EQUAL -1)
    message(FATAL_ERROR "${t} names the staging prefix ${staged}")
  endif()
endforeach()

# The command runs from the moved tree.
if(EXISTS ${prefix}/bin/xfmt)
  run(${prefix}/bin/xfmt put DOLLAR10.2 1234.5)
  if(NOT last_output STREQUAL " $1,234.50\n")
    message(FATAL_ERROR "installed xfmt printed [${last_output}]")
  endif()
endif()

# find_package, C only.
run(${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/cmake-consumer -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_C_COMPILER=${CC} "-DCMAKE_C_FLAGS=${EXTRA_FLAGS}"
    "-DCMAKE_EXE_LINKER_FLAGS=${EXTRA_FLAGS}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/cmake-consumer)
check_consumer("find_package shared" ${WORK_DIR}/cmake-consumer/consumer_shared ${prefix}/${LIBDIR})
check_consumer("find_package static" ${WORK_DIR}/cmake-consumer/consumer_static)

# pkg-config, found through the moved tree only.
find_program(PKG_CONFIG pkg-config)
if(NOT PKG_CONFIG)
  message(STATUS "pkg-config not found; that half is skipped")
  return()
endif()
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
separate_arguments(extra UNIX_COMMAND "${EXTRA_FLAGS}")
run(${PKG_CONFIG} --cflags --libs xfmt)
separate_arguments(flags UNIX_COMMAND "${last_output}")
run(${CC} -std=c99 -pedantic -Wall -Wextra -Werror ${extra} ${CONSUMER_DIR}/main.c ${flags}
    -o ${WORK_DIR}/pc-consumer-shared)
check_consumer("pkg-config shared" ${WORK_DIR}/pc-consumer-shared ${prefix}/${LIBDIR})
# A static link takes Libs.private too; -l:libxfmt.a picks the archive where
# the shared library sits beside it.
run(${PKG_CONFIG} --static --cflags --libs xfmt)
separate_arguments(flags UNIX_COMMAND "${last_output}")
list(TRANSFORM flags REPLACE "^-lxfmt$" "-l:libxfmt.a")
run(${CC} -std=c99 -pedantic -Wall -Wextra -Werror ${extra} ${CONSUMER_DIR}/main.c ${flags}
    -o ${WORK_DIR}/pc-consumer-static)
check_consumer("pkg-config static" ${WORK_DIR}/pc-consumer-static)
