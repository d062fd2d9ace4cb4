// Every case file under tests/data/informats, one test each.
#include "support/case_files.hpp"

INSTANTIATE_CASE_FILES(informats);
