// The English-like test record.
#include "record.hpp"

namespace xfmt::test {

test_record english_like() {
  test_record r;
  r.fields[5] = "US";
  r.fields[28] = "%B %d, %Y";
  r.fields[29] = "%m/%d/%y";
  r.fields[53] = "%H:%M:%S";
  r.set_range(59,
              {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"});
  r.set_range(71, {"January", "February", "March", "April", "May", "June", "July", "August",
                   "September", "October", "November", "December"});
  r.set_range(83,
              {"jan", "feb", "mar", "apr", "may", "jun", "jul", "aug", "sep", "oct", "nov", "dec"});
  r.set_range(95, {"january", "february", "march", "april", "may", "june", "july", "august",
                   "september", "october", "november", "december"});
  r.set_range(107, {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"});
  r.set_range(114, {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"});
  r.set_range(121, {"sun", "mon", "tue", "wed", "thu", "fri", "sat"});
  r.set_range(128, {"sunday", "monday", "tuesday", "wednesday", "thursday", "friday", "saturday"});
  r.set_range(135, {"Q1", "Q2", "Q3", "Q4"});
  r.set_range(139, {"1st quarter", "2nd quarter", "3rd quarter", "4th quarter"});
  r.set_range(143, {"q1", "q2", "q3", "q4"});
  r.set_range(147, {"first quarter", "second quarter", "third quarter", "fourth quarter"});
  r.fields[151] = "AM";
  r.fields[152] = "PM";
  r.fields[172] = ".";
  return r;
}

}  // namespace xfmt::test
