// The texts of xfmt --help and xfmt COMMAND --help. The man page
// (tools/xfmt/xfmt.1) says the same at more length: change both together.
#include "commands.hpp"

namespace xfmt::cli {
namespace {

const char general[] =
    "usage: xfmt [OPTIONS] COMMAND [ARGS...]\n"
    "\n"
    "Formats values with the conversions of libxfmt, reads text back with its\n"
    "informats, and prints CSV files as reports.\n"
    "\n"
    "commands:\n"
    "  put FORMAT VALUE...       format each value, one field per line\n"
    "  input INFORMAT TEXT...    read each text and print the value stored\n"
    "  list [PREFIX | FORMAT]    conversions with family, description and example\n"
    "  describe FORMAT           limits, family, description and examples of one\n"
    "  csv [OPTIONS] FILE        convert a CSV file whose header names a format per\n"
    "                            column (price:DOLLAR12.2,when:DATE9.)\n"
    "  help [COMMAND]            this text, or the help of one command\n"
    "\n"
    "FORMAT is written NAMEw.d: a name, an optional width, '.', optional\n"
    "decimals (F8.2, DATE9., $CHAR10., BEST.); what is left out comes from the\n"
    "conversion's defaults. A format whose name begins with $ takes text.\n"
    "\n"
    "Values: a number, or a missing value (., ._, .A to .Z). Dates count days\n"
    "from 1 January 1960 (0 is 1960-01-01), times count seconds from midnight,\n"
    "datetimes count seconds from 1960-01-01T00:00:00; date, time and datetime\n"
    "formats also take ISO 8601 text: 2023-07-04, 12:34:56, 2023-07-04T12:34:56.\n"
    "\n"
    "options (before or after the command):\n"
    "  --locale NAME     locale of the national-language formats (e.g. de_DE)\n"
    "  --encoding NAME   encoding of arguments, files and output (default: the\n"
    "                    locale's codeset, e.g. UTF-8)\n"
    "  --utf16           put writes UTF-16LE\n"
    "  --control FILE    read user-defined formats from FILE (default:\n"
    "                    cntlout.xml when the current folder has one)\n"
    "  -h, --help        help (xfmt COMMAND --help for a command)\n"
    "  --version         the version of xfmt\n"
    "\n"
    "Exit status: 0 done; 1 an error (one line on stderr); 2 a usage error;\n"
    "3 csv finished but some values print as stars. See man xfmt.\n";

const char put_help[] =
    "usage: xfmt put FORMAT VALUE...\n"
    "\n"
    "Formats each VALUE with FORMAT and prints one field per line. Nothing is\n"
    "printed unless every value converts.\n"
    "\n"
    "VALUE is a number or a missing value (., ._, .A to .Z; empty is .). For a\n"
    "date format it is a day count from 1 January 1960 or an ISO 8601 date\n"
    "(2023-07-04); for a time format seconds from midnight or 12:34:56[.fff];\n"
    "for a datetime format seconds from 1960-01-01T00:00:00 or\n"
    "2023-07-04T12:34:56 (a date alone is its midnight). A $ format takes text\n"
    "in the terminal's encoding; widths count characters.\n"
    "\n"
    "  xfmt put DATE9. 0 2023-07-04      01JAN1960, 04JUL2023\n"
    "  xfmt put DOLLAR12.2 1234.5        $1,234.50\n"
    "  xfmt put '$UPCASE8.' Muller       MULLER\n";

const char input_help[] =
    "usage: xfmt input INFORMAT TEXT...\n"
    "\n"
    "Reads each TEXT with INFORMAT and prints the value stored: the shortest\n"
    "digits that read back to the same number, or the missing notation, and\n"
    "the status in words when it is not 0. Without a width the whole text is\n"
    "read (up to the informat's widest width); a width shorter than the text\n"
    "reads only its start, and the command says so on stderr.\n"
    "Dates are day counts from 1 January 1960, times seconds from midnight,\n"
    "datetimes seconds from 1960-01-01T00:00:00.\n"
    "\n"
    "  xfmt input COMMA10. 1,234.5       1234.5\n"
    "  xfmt input DATE. 04-JUL-2023      23195\n";

const char list_help[] =
    "usage: xfmt list [PREFIX | FORMAT]\n"
    "\n"
    "Lists the conversions, sorted by name, with their family, a one-line\n"
    "description and an example; with PREFIX only the names that begin with\n"
    "it (xfmt list DATE), with a format as written only that name\n"
    "(xfmt list DATE9.). Informats are listed with their @ (xfmt list @).\n"
    "User-defined formats of the control file are listed too.\n"
    "\n"
    "  --names   the names alone, one a line\n";

const char describe_help[] =
    "usage: xfmt describe FORMAT\n"
    "\n"
    "Prints what one conversion is: its family and the kind of value it takes,\n"
    "its limits (width and decimals: smallest, largest, default), a one-line\n"
    "description, and three examples with the given width and decimals.\n"
    "\n"
    "  xfmt describe DOLLAR12.2\n";

const char csv_help[] =
    "usage: xfmt csv [--output report|csv|tsv] [--keep-going] [--strict] FILE\n"
    "\n"
    "Converts a CSV file (FILE - reads standard input). Its first line names a\n"
    "format per column, optionally with the column's name: price:DOLLAR12.2,\n"
    "when:DATE9.,who:$CHAR12. Every later line is a row; rows are converted\n"
    "and written as they are read.\n"
    "\n"
    "  --output report   a fixed-width report with a heading (the default)\n"
    "  --output csv      CSV with the column names; blanks of fields dropped\n"
    "  --output tsv      the same, tab-separated (\\t \\n \\r \\\\ escaped)\n"
    "  --keep-going      convert what can be; each bad cell is named on stderr\n"
    "                    and marked (#### in the report, empty in CSV or TSV)\n"
    "  --strict          a value that prints as stars is a bad cell\n"
    "\n"
    "Fields may be quoted (\"a, b\"; \"\" is one quote) and span lines; lines end\n"
    "in LF, CR LF or CR; a UTF-8 byte-order mark is dropped (the file is then\n"
    "read as UTF-8). A blank line is a row of blank cells: a blank number is\n"
    "the missing value. Dates are day counts from 1960-01-01 or ISO 8601 text\n"
    "(2023-07-04); times seconds or 12:34:56; datetimes seconds from\n"
    "1960-01-01T00:00:00 or 2023-07-04T12:34:56.\n"
    "\n"
    "Without --keep-going the first bad cell or ragged row stops the job with\n"
    "its line and column named (exit 1). Values that print as stars get one\n"
    "note per column on stderr and exit status 3, unless --strict.\n";

}  // namespace

const char *help_text(const std::string &command) {
  if (command.empty()) return general;
  if (command == "put") return put_help;
  if (command == "input") return input_help;
  if (command == "list") return list_help;
  if (command == "describe") return describe_help;
  if (command == "csv") return csv_help;
  if (command == "help") return general;
  return nullptr;
}

}  // namespace xfmt::cli
