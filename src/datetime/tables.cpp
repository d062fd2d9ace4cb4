// Constant tables of the calendar: month lengths, month and weekday names,
// and the Japanese era table with its letters.
#include "xfmt/xfmt.h"

extern "C" {

const int32_t dpm[12] = {31, 0, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

const int32_t daysinmonth[13] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

// Index: month - 1, 12 + month - 1, 24 + weekday - 1 (weekday 1 = Sunday).
const char *const datestgs[31] = {
    "January", "February", "March", "April", "May", "June", "July", "August", "September",
    "October", "November", "December", "JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG",
    "SEP", "OCT", "NOV", "DEC", "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday",
    "Friday", "Saturday"};

const char *const months[12] = {"January", "February", "March",     "April",
                                       "May",     "June",     "July",      "August",
                                       "September", "October", "November", "December"};

const char *const weekdays[7] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                        "Thursday", "Friday", "Saturday"};

// First day of each era as a date value and the Gregorian year it began:
// 1868-04-06, 1912-07-30, 1926-12-25, 1989-01-08, 2019-05-01; a zero row ends it.
const double reigns[6][2] = {
    {-33506.0, 1868.0}, {-17321.0, 1912.0}, {-12060.0, 1926.0},
    {10600.0, 1989.0},  {21670.0, 2019.0},  {0.0, 0.0}};

const char letters[8] = " MTSHR ";

}  // extern "C"
