# The xfmt command end to end: fields on stdout, one-line errors on stderr
# with a non-zero exit status, and nothing half printed.
#   cmake -DXFMT=path/to/xfmt -DSAMPLE=examples/sample.csv -DWORK_DIR=scratch -P check_cli.cmake

get_filename_component(XFMT "${XFMT}" ABSOLUTE)
# A UTF-8 terminal unless a case names another encoding.
set(ENV{LC_ALL} C.UTF-8)
unset(ENV{LANG})
if(NOT WORK_DIR)
  set(WORK_DIR ${CMAKE_CURRENT_BINARY_DIR})
endif()
file(MAKE_DIRECTORY ${WORK_DIR})

# expect(<exit status> <expected stdout> <stderr regex> args...)
function(expect want_rc want_out want_err)
  execute_process(COMMAND ${XFMT} ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  string(REPLACE ";" " " cmd "${ARGN}")
  if(NOT rc EQUAL want_rc)
    message(SEND_ERROR "xfmt ${cmd}: exit ${rc}, expected ${want_rc}\n${err}")
  endif()
  if(NOT "${out}" STREQUAL "${want_out}")
    message(SEND_ERROR "xfmt ${cmd}: stdout [${out}], expected [${want_out}]")
  endif()
  if(NOT "${err}" MATCHES "${want_err}")
    message(SEND_ERROR "xfmt ${cmd}: stderr [${err}] does not match [${want_err}]")
  endif()
endfunction()

expect(0 "hello     \na longer t\n" "^$" put "$CHAR10." hello "a longer text")
expect(0 "abc     \n" "^$" put "$" abc)
expect(0 "ab\n" "^$" put "$f2." abcdef)
expect(0 "X\n" "^$" put "_C_R_A_S_H_." 1)
expect(0 "Apr 18 2019 13:09:42\n" "^$" put "INTRINSIC-CRDATE." 0)
expect(0 "YES\nNO \n" "^$" put "$IS-INTRINSIC." date text)
expect(0 "ab  \n" "^$" --locale de_DE put "$CHAR4." ab)
# Limits and unknown names: one line, exit 1, nothing on stdout.
expect(1 "" "^xfmt: width 40000 is outside the limits of \\$CHAR \\(1 to 32767\\)\n$" put "$CHAR40000." x)
expect(1 "" "^xfmt: format 'NOSUCH' is not known\n$" put NOSUCH. 1)
expect(1 "" "^xfmt: unknown locale 'xx_YY'[^\n]*\n$" --locale xx_YY put "$" a)
expect(1 "" "^xfmt: unknown option '--bogus'[^\n]*\n$" --bogus put "$" a)
expect(1 "" "^xfmt: unknown command 'frobnicate'[^\n]*\n$" frobnicate)
expect(1 "" "^xfmt: no conversion name begins with 'ZZZ'\n$" list zzz)
expect(1 "" "^xfmt: cannot open '/nonexistent.csv'\n$" csv /nonexistent.csv)
execute_process(COMMAND ${XFMT} --help OUTPUT_VARIABLE help)
if(NOT help MATCHES " csv ")
  message(SEND_ERROR "xfmt --help does not name the csv command")
endif()
execute_process(COMMAND ${XFMT} list PIBR OUTPUT_VARIABLE listing)
if(NOT listing MATCHES "\nPIBR +binary +1-8/1 d0-10/0 +PIBR2. 1234 -> \\\\xD2\\\\x04 +positive integer binary, little-endian\n")
  message(SEND_ERROR "xfmt list PIBR: [${listing}]")
endif()
# The bundled sample prints as a report with one line per data row.
execute_process(COMMAND ${XFMT} csv ${SAMPLE} RESULT_VARIABLE rc OUTPUT_VARIABLE report)
file(STRINGS ${SAMPLE} rows)
list(LENGTH rows n_rows)
string(REGEX MATCHALL "\n" newlines "${report}")
list(LENGTH newlines n_lines)
math(EXPR want "${n_rows} + 1")  # heading and rule replace the format line
if(NOT rc EQUAL 0 OR NOT n_lines EQUAL want)
  message(SEND_ERROR "xfmt csv ${SAMPLE}: exit ${rc}, ${n_lines} lines, expected ${want}")
endif()
# Rows stream out as they are converted; an unterminated quote stops the job
# with the line where the field began.
file(WRITE ${WORK_DIR}/empty.csv "")
set(bad ${WORK_DIR}/bad.csv)
file(WRITE ${bad} "$CHAR4.,$CHAR3.\nab,cd\nx,\"unterminated\n")
expect(1 "$CHAR4.  $CHAR3.\n-------  -------\n   ab        cd \n" "^xfmt: [^\n]*bad.csv:3: unterminated quote\n$" csv ${bad})

# Text in the terminal's encoding, in and out, for every conversion: a UTF-8
# round trip through $CHAR, $UPCASE, the Windows-1252 marks of EURO and YEN,
# and national formats; widths count characters.
expect(0 "Müller  \n" "^$" put "$CHAR8." "Müller")
expect(0 "MÜLLER ŒUV\n" "^$" put "$UPCASE10." "müller œuvre")
expect(0 "€1,234.50\n" "^$" put EURO9.2 1234.5)
expect(0 "  ¥1,234\n" "^$" put YEN8. 1234)
expect(0 "1. März 1960\n" "^$" --locale de_DE put NLDATE20. 60)
expect(0 "1960年1月1日\n" "^$" --locale ja_JP put NLDATE20. 0)
expect(0 "1234\n" "^$" input COMMA10. "€1,234")
expect(0 "ÜRÜN \n" "^$" input "$CHAR5." "ÜRÜN")
# Another encoding in and out; what it cannot write is a one-line error.
string(ASCII 252 u_umlaut)  # ü and Ü in ISO-8859-1
string(ASCII 220 U_umlaut)
expect(0 "M${U_umlaut}LLER\n" "^$" --encoding ISO-8859-1 put "$UPCASE6." "m${u_umlaut}ller")
expect(1 "" "^xfmt: EURO9.2: the character '€' \\(U\\+20AC\\) cannot be written in ISO-8859-1[^\n]*\n$"
       --encoding ISO-8859-1 put EURO9.2 1)
expect(1 "" "^xfmt: the character '日' \\(U\\+65E5\\) of '日本' cannot be read by \\$CHAR, which reads Windows-1252 text\n$"
       put "$CHAR4." "日本")
expect(1 "" "^xfmt: byte 0xFC at position 2 of 'M\\\\xFCller' is not UTF-8[^\n]*\n$" put "$CHAR8." "M${u_umlaut}ller")
expect(1 "" "^xfmt: no converter for the encoding 'NO-SUCH-CODESET'\n$" --encoding NO-SUCH-CODESET put F4. 1)

# CSV that never loses data: every edge case of tests/data/cli/edge_cases.csv
# (see the README there) against the reviewed outputs, for the report, CSV
# and TSV (read from standard input), with one line on stderr per bad cell
# or ragged row and exit status 1.
set(edge ${DATA}/edge_cases.csv)
function(expect_file want_rc golden err_regex)
  execute_process(COMMAND ${XFMT} ${ARGN} RESULT_VARIABLE rc OUTPUT_FILE ${WORK_DIR}/out ERROR_VARIABLE err
                  INPUT_FILE ${edge})
  string(REPLACE ";" " " cmd "${ARGN}")
  if(NOT rc EQUAL want_rc)
    message(SEND_ERROR "xfmt ${cmd}: exit ${rc}, expected ${want_rc}\n${err}")
  endif()
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${WORK_DIR}/out ${golden} RESULT_VARIABLE diff)
  if(NOT diff EQUAL 0)
    file(READ ${WORK_DIR}/out got)
    message(SEND_ERROR "xfmt ${cmd}: output differs from ${golden}:\n${got}")
  endif()
  if(NOT "${err}" MATCHES "${err_regex}")
    message(SEND_ERROR "xfmt ${cmd}: stderr [${err}] does not match [${err_regex}]")
  endif()
endfunction()
string(CONCAT edge_notes "^xfmt: [^\n]*:9: column 1 \\(price\\): 'abc' is not a number[^\n]*\n"
    "xfmt: [^\n]*:10: 3 fields where the header names 4; the missing cells are shown blank\n"
    "xfmt: [^\n]*:11: 5 fields where the header names 4; the first extra field is '5'; the extra fields are left out\n"
    "xfmt: note: column 4 \\(F4.\\): 1 value cannot be shown in F4. and print as stars, the first on line 8\n"
    "xfmt: 3 cells or rows could not be converted[^\n]*\n$")
expect_file(1 ${DATA}/edge_cases.report "${edge_notes}" csv --keep-going ${edge})
expect_file(1 ${DATA}/edge_cases.out.csv "${edge_notes}" csv --keep-going --output csv ${edge})
expect_file(1 ${DATA}/edge_cases.out.tsv "${edge_notes}" csv --keep-going --output=tsv -)
# Without --keep-going the rows before the bad cell are written, then the
# job stops naming its line and column.
execute_process(COMMAND ${XFMT} csv ${edge} RESULT_VARIABLE rc OUTPUT_VARIABLE stopped ERROR_VARIABLE err)
file(STRINGS ${DATA}/edge_cases.report lines)
list(SUBLIST lines 0 8 first)
string(REPLACE ";" "\n" first "${first}")
string(REPLACE "\n" ";" got "${stopped}")
if(NOT rc EQUAL 1 OR NOT err MATCHES "^xfmt: [^\n]*edge_cases.csv:9: column 1 \\(price\\): 'abc' is not a number[^\n]*\n$")
  message(SEND_ERROR "xfmt csv ${edge}: exit ${rc}, stderr [${err}]")
endif()
string(FIND "${stopped}" "    $99.00  02JAN1960" at)
string(REGEX MATCHALL "\n" newlines "${stopped}")
list(LENGTH newlines n)
if(NOT n EQUAL 8 OR at EQUAL -1)
  message(SEND_ERROR "xfmt csv ${edge} stopped after ${n} lines: [${stopped}]")
endif()
# Values that print as stars: exit status 3 with a note, or a bad cell with --strict.
file(WRITE ${WORK_DIR}/stars.csv "n:F3.\n1\n12345\n99999\n")
expect(3 "  n\n---\n  1\n***\n***\n" "^xfmt: note: column 1 \\(n\\): 2 values cannot be shown in F3. and print as stars, the first on line 3\n$"
       csv ${WORK_DIR}/stars.csv)
expect(1 "  n\n---\n  1\n" "^xfmt: [^\n]*stars.csv:3: column 1 \\(n\\): '12345' cannot be shown in F3. \\(a field of stars; --strict\\)\n$"
       csv --strict ${WORK_DIR}/stars.csv)
# A 10 MB field is quoted with at most 60 characters.
string(REPEAT "x" 100000 long)
file(WRITE ${WORK_DIR}/long.csv "F8.\n${long}\n")
execute_process(COMMAND ${XFMT} csv long.csv WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE rc ERROR_VARIABLE err OUTPUT_QUIET)
string(LENGTH "${err}" n)
string(REPEAT "x" 60 x60)
if(NOT rc EQUAL 1 OR n GREATER 200 OR NOT err MATCHES "'${x60}'\\.\\.\\. \\(100000 bytes\\) is not a number")
  message(SEND_ERROR "xfmt csv long.csv: exit ${rc}, ${n} bytes on stderr: [${err}]")
endif()
expect(1 "" "^xfmt: --output takes report, csv or tsv, not 'xml'\n$" csv --output xml ${edge})
expect(1 "" "^xfmt: csv: unknown option '--bogus'[^\n]*\n$" csv --bogus ${edge})
expect(1 "" "^xfmt: [^\n]*empty.csv: the file is empty\n$" csv ${WORK_DIR}/empty.csv)
# Memory stays flat: two million rows through a pipe, under a 100 MB address
# space limit that a report held whole would break (sanitizers reserve far
# more address space, so their build skips this).
if(NOT SANITIZED)
  execute_process(COMMAND sh -c "echo F8.2,BEST4.; yes 1.5,2 | head -n 2000000"
                  COMMAND sh -c "ulimit -v 100000 && exec \"$0\" csv -" ${XFMT}
                  COMMAND tail -n 1
                  RESULTS_VARIABLE rcs OUTPUT_VARIABLE last ERROR_VARIABLE err)
  if(NOT rcs STREQUAL "0;0;0" OR NOT last STREQUAL "    1.50       2\n")
    message(SEND_ERROR "two million rows under 100 MB: exits ${rcs}, last line [${last}], ${err}")
  endif()
endif()

# Dates and times people type: ISO 8601 text in put and in CSV date, time and
# datetime columns beside day and second counts; --help states the epoch.
expect(0 "04JUL2023\n01JAN1960\n" "^$" put DATE9. 2023-07-04 0)
expect(0 "2023-07-04T12:34:56\n" "^$" put E8601DT19. 2023-07-04T12:34:56)
expect(0 "04JUL2023:00:00:00\n04JUL2023:12:34:57\n" "^$" put DATETIME18. 2023-07-04 "2023-07-04 12:34:56.5")
expect(0 "12:34:56\n" "^$" put TIME8. 12:34:56)
expect(0 "4. Juli 2023\n" "^$" --locale de_DE put NLDATE20. 2023-07-04)
expect(1 "" "^xfmt: '2023-02-29' is not a date of the calendar \\(1582-01-01 to 20000-12-31\\)\n$" put DATE9. 2023-02-29)
expect(1 "" "^xfmt: '2023-7-4' is not a day count from 1960-01-01 \\(0 is 1960-01-01\\) or a date as 2023-07-04[^\n]*\n$"
       put DATE9. 2023-7-4)
expect(1 "" "^xfmt: '12:61' is not a time \\(minutes and seconds 00-59, at most 24:00:00\\)\n$" put TOD8. 12:61)
file(WRITE ${WORK_DIR}/dates.csv "when:DATE9.,at:TIME8.,stamp:E8601DT19.\n2023-07-04,12:34:56,2023-07-04T01:02:03\n23195,45296,2004093296\n")
expect(0 "     when        at                stamp\n---------  --------  -------------------\n04JUL2023  12:34:56  2023-07-04T01:02:03\n04JUL2023  12:34:56  2023-07-04T12:34:56\n"
       "^$" csv ${WORK_DIR}/dates.csv)
# An informat whose width cuts the text says so; without a width the whole
# text is read.
expect(0 "22100\n" "^xfmt: note: DATE9. reads only the first 9 of 11 characters of '04-JUL-2023', that is '04-JUL-20'; without a width \\(DATE.\\) the whole text is read\n$"
       input DATE9. 04-JUL-2023)
expect(0 "23195\n" "^$" input DATE. 04-JUL-2023)
foreach(cmd "" put csv input)
  execute_process(COMMAND ${XFMT} ${cmd} --help OUTPUT_VARIABLE help RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0 OR NOT help MATCHES "1960-01-01" OR NOT help MATCHES "seconds")
    message(SEND_ERROR "xfmt ${cmd} --help does not state the 1960 epoch and the units: [${help}]")
  endif()
endforeach()

# Formats a user can discover: list sorted by name with family, limits,
# example and description; a prefix, a format as written, informats.
execute_process(COMMAND ${XFMT} list DATE RESULT_VARIABLE rc OUTPUT_VARIABLE listing)
string(REGEX MATCHALL "\n[^ \n]+" names "${listing}")
string(REPLACE "\n" "" names "${names}")
set(sorted ${names})
list(SORT sorted)
list(GET names 0 first)
if(NOT rc EQUAL 0 OR NOT names STREQUAL sorted OR NOT first STREQUAL "DATE"
   OR NOT listing MATCHES "^NAME +FAMILY +WIDTH +EXAMPLE +DESCRIPTION\n"
   OR NOT listing MATCHES "\nDATE +date +5-11/7 +DATE7. 23195 -> 04JUL23 +date as day, month abbreviation and year\n")
  message(SEND_ERROR "xfmt list DATE: exit ${rc}, names ${names}: [${listing}]")
endif()
execute_process(COMMAND ${XFMT} list DATE9. OUTPUT_VARIABLE listing)
string(REGEX MATCHALL "\n" lines "${listing}")
list(LENGTH lines n)
if(NOT n EQUAL 2 OR NOT listing MATCHES "\nDATE +date ")
  message(SEND_ERROR "xfmt list DATE9. lists ${n} lines: [${listing}]")
endif()
execute_process(COMMAND ${XFMT} list @COMMA OUTPUT_VARIABLE listing)
if(NOT listing MATCHES "\n@COMMA +number +1-32/1 d0-31/0 +@COMMA5\\. +1,235 -> 1235 +reads number with commas")
  message(SEND_ERROR "xfmt list @COMMA: [${listing}]")
endif()
execute_process(COMMAND ${XFMT} list --names OUTPUT_VARIABLE names)
string(REGEX MATCHALL "\n" lines "${names}")
list(LENGTH lines n)
if(n LESS 548 OR NOT names MATCHES "\n\\$CHAR\n" OR NOT names MATCHES "\n@DATE\n")
  message(SEND_ERROR "xfmt list --names: ${n} names")
endif()
# describe: limits, family, description, three examples.
execute_process(COMMAND ${XFMT} describe DOLLAR12.2 RESULT_VARIABLE rc OUTPUT_VARIABLE d)
if(NOT rc EQUAL 0 OR NOT d MATCHES "^DOLLAR12.2  format, family currency\n  amount with a dollar sign"
   OR NOT d MATCHES "\n  width 2 to 32 \\(default 6\\); decimals 0 to 31 \\(default 0\\)\n"
   OR NOT d MATCHES "\n    1234.567 +-> \\[   \\$1,234.57\\]\n    -42.5 +-> \\[     -\\$42.50\\]\n    \\. +-> \\[         \\.  \\]\n$")
  message(SEND_ERROR "xfmt describe DOLLAR12.2: exit ${rc} [${d}]")
endif()
execute_process(COMMAND ${XFMT} describe DATE9. OUTPUT_VARIABLE d)
if(NOT d MATCHES "strftime pattern: %d%b%Y\n" OR NOT d MATCHES "2024-02-29 +-> \\[29FEB2024\\]")
  message(SEND_ERROR "xfmt describe DATE9.: [${d}]")
endif()
execute_process(COMMAND ${XFMT} describe @DATE9. OUTPUT_VARIABLE d)
if(NOT d MATCHES "'04JUL2023' +-> 23195\n")
  message(SEND_ERROR "xfmt describe @DATE9.: [${d}]")
endif()
# Helpful errors.
expect(1 "" "^xfmt: format 'REGION' is not known; did you mean \\$REGION.\\? \\(a \\$ format takes text\\)\n$"
       --control ${CONTROL} put REGION. E)
expect(1 "" "^xfmt: 'DOLLAR12,2' is not a format: the syntax is NAME w.d[^\n]*; did you mean DOLLAR12.2\\?\n$"
       put DOLLAR12,2 1)
expect(1 "" "^xfmt: format 'DOLAR' is not known; did you mean DOLLAR12.2 or DOLLARX12.2\\?\n$" put DOLAR12.2 1)
file(READ ${CONTROL} control)
string(REPLACE "<FMTNAME>AGEGRP</FMTNAME><START>LOW" "<FMTNAME>AGEGRP</FMTNAME><STRT>LOW" broken "${control}")
file(WRITE ${WORK_DIR}/broken.xml "${broken}")
string(FIND "${broken}" "<STRT>" at)
string(SUBSTRING "${broken}" 0 ${at} before)
string(REGEX MATCHALL "\n" lines "${before}")
list(LENGTH lines line)
math(EXPR line "${line} + 1")
expect(1 "" "^xfmt: [^\n]*broken.xml:${line}: malformed XML[^\n]* \\(reading format 'AGEGRP'\\)\n$"
       --control ${WORK_DIR}/broken.xml put AGEGRP. 15)
# --version, help on every command, the man page and bash completion.
expect(0 "xfmt ${VERSION}\n" "^$" --version)
foreach(cmd put input list describe csv help)
  foreach(flag -h --help)
    execute_process(COMMAND ${XFMT} ${cmd} ${flag} RESULT_VARIABLE rc OUTPUT_VARIABLE help ERROR_VARIABLE err)
    if(NOT rc EQUAL 0 OR NOT help MATCHES "^usage: xfmt " OR NOT err STREQUAL "")
      message(SEND_ERROR "xfmt ${cmd} ${flag}: exit ${rc} [${help}] [${err}]")
    endif()
  endforeach()
endforeach()
# Every command and option the help names is in the man page.
file(READ ${MANPAGE} man)
string(REPLACE "\\-" "-" man "${man}")
execute_process(COMMAND ${XFMT} --help OUTPUT_VARIABLE help)
execute_process(COMMAND ${XFMT} csv --help OUTPUT_VARIABLE csv_help)
execute_process(COMMAND ${XFMT} list --help OUTPUT_VARIABLE list_help)
string(REGEX MATCHALL "--[a-z0-9-]+" options "${help}${csv_help}${list_help}")
foreach(word put input list describe csv help ${options})
  string(FIND "${man}" "${word}" at)
  if(at EQUAL -1)
    message(SEND_ERROR "the man page does not mention ${word}")
  endif()
endforeach()
find_program(BASH bash)
if(BASH)
  file(WRITE ${WORK_DIR}/complete.sh "source '${COMPLETION}'
xfmt() { '${XFMT}' \"\$@\"; }
t() { COMP_WORDS=(\"\$@\"); COMP_CWORD=\$((\${#COMP_WORDS[@]}-1)); COMPREPLY=(); _xfmt; echo \"\${COMPREPLY[*]}\"; }
t xfmt pu
t xfmt put DOLL
t xfmt put '\$UP'
t xfmt input COMM
t xfmt csv --ou
t xfmt describe date9
")
  execute_process(COMMAND ${BASH} ${WORK_DIR}/complete.sh OUTPUT_VARIABLE completions RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0 OR NOT completions STREQUAL "put\nDOLLAR DOLLARX\n\\$UPCASE\nCOMMA COMMAX\n--output\n\n")
    message(SEND_ERROR "bash completion: exit ${rc} [${completions}]")
  endif()
endif()
# The man page renders without a warning.
find_program(GROFF groff)
if(GROFF)
  execute_process(COMMAND ${GROFF} -man -Tutf8 -ww ${MANPAGE} RESULT_VARIABLE rc OUTPUT_QUIET ERROR_VARIABLE err)
  if(NOT rc EQUAL 0 OR NOT err STREQUAL "")
    message(SEND_ERROR "groff warns about ${MANPAGE}: ${err}")
  endif()
endif()
# The progress line: on a terminal only (script gives stderr one), shown
# after XFMT_PROGRESS_AFTER seconds (0 here, so no timing is involved) and
# cleared at the end; the rows themselves go to the file.
find_program(SCRIPT script)
if(SCRIPT)
  file(WRITE ${WORK_DIR}/rows.csv "F4.\n")
  string(REPEAT "1\n" 3000 rows)
  file(APPEND ${WORK_DIR}/rows.csv "${rows}")
  execute_process(COMMAND ${SCRIPT} -qec "XFMT_PROGRESS_AFTER=0 '${XFMT}' csv '${WORK_DIR}/rows.csv' > '${WORK_DIR}/rows.out'" /dev/null
                  RESULT_VARIABLE rc OUTPUT_VARIABLE tty)
  file(STRINGS ${WORK_DIR}/rows.out written)
  list(LENGTH written n)
  if(NOT rc EQUAL 0 OR NOT n EQUAL 3002 OR NOT tty MATCHES "\rxfmt: 1024 rows,  [0-9][0-9]%" OR NOT tty MATCHES "\r +\r$")
    message(SEND_ERROR "progress line: exit ${rc}, ${n} lines written, terminal [${tty}]")
  endif()
endif()
