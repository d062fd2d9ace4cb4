// A small XML reader for the control file: elements, attributes in any
// order and quoting, empty elements in both spellings, comments, processing
// instructions, a DOCTYPE, CDATA sections and character references. It
// hands the table's parts to a handler; anything malformed stops it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace xfmt::userfmt {

// Result codes of the scanner (negative: the request fails).
inline constexpr int xml_ok = 0;
inline constexpr int xml_malformed = -2;

class xml_handler {
 public:
  virtual ~xml_handler() = default;
  // A COLUMN of the HEADER, with its name attribute.
  virtual int column(std::string_view name) = 0;
  // The HEADER is complete (called before the first ROW as well).
  virtual int header_done() = 0;
  virtual int row_begin() = 0;
  // One cell of a ROW: the element name and its decoded text (UTF-8).
  virtual int cell(std::string_view name, const std::string &text) = 0;
  virtual int row_end() = 0;
};

// Reads the whole document; returns xml_ok or the first negative code (its
// own xml_malformed or a handler's). stop (when not null) receives the
// offset of the byte the reading stopped at, for messages.
int scan_control_xml(const char *data, std::size_t size, xml_handler &handler, std::size_t *stop = nullptr);

// Decodes character references in raw text and appends it to out; false
// when a reference is malformed or unknown.
bool append_decoded(std::string_view raw, std::string &out);

}  // namespace xfmt::userfmt
