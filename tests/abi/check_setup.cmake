# The README's set-up: `make run` builds the library and the command only
# (the tests, fuzz replays and benchmarks are left to `make test`), and the
# repository root holds no stray data files.
#   cmake -DSOURCE=... -DBUILD_DIR=... -P check_setup.cmake

find_program(MAKE_PROGRAM NAMES make gmake)
if(MAKE_PROGRAM)
  execute_process(COMMAND ${MAKE_PROGRAM} -n -C ${SOURCE} run BUILD=${BUILD_DIR}
                  RESULT_VARIABLE rc OUTPUT_VARIABLE run ERROR_VARIABLE err)
  if(NOT rc EQUAL 0 OR NOT run MATCHES "--build [^\n]* --target xfmt xfmt_static xfmt_cli\n" OR run MATCHES "ctest")
    message(SEND_ERROR "make -n run: exit ${rc}: [${run}] ${err}")
  endif()
  execute_process(COMMAND ${MAKE_PROGRAM} -n -C ${SOURCE} test BUILD=${BUILD_DIR}
                  RESULT_VARIABLE rc OUTPUT_VARIABLE test ERROR_VARIABLE err)
  if(NOT rc EQUAL 0 OR NOT test MATCHES "cmake --build [^\n]*\n" OR test MATCHES "--target" OR NOT test MATCHES "ctest")
    message(SEND_ERROR "make -n test: exit ${rc}: [${test}] ${err}")
  endif()
endif()
file(GLOB stray ${SOURCE}/*.csv ${SOURCE}/*.tsv ${SOURCE}/*.xml ${SOURCE}/*.out)
if(stray)
  message(SEND_ERROR "stray files in the repository root: ${stray}")
endif()
