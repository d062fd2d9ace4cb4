// Every case file under tests/data/numeric, one test each.
#include "support/case_files.hpp"

INSTANTIATE_CASE_FILES(numeric);
