// Every case file under tests/data/catalog, one test each.
#include "support/case_files.hpp"

INSTANTIATE_CASE_FILES(catalog);
