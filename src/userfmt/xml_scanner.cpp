// The control file's XML, read as XML: a recursive descent over the
// document that knows three roles below the root (HEADER with its COLUMNs,
// ROW with its cells, anything else skipped but still checked).
#include "userfmt/xml_scanner.hpp"

#include <cstring>

namespace xfmt::userfmt {
namespace {

enum class role { root, header, column, row, cell, skip };

// Deeper nesting than this is refused rather than risking the stack.
constexpr int max_depth = 200;

bool is_space(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
bool is_name_char(char c) {
  auto u = static_cast<unsigned char>(c);
  return (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9') || u == '-' ||
         u == '_' || u == '.' || u == ':' || u >= 0x80;
}

void append_utf8(uint32_t cp, std::string &out) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

int hex_value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// The reference between '&' and ';' (exclusive): the five named ones,
// &#xHHHH; and &#DDDD;. Code points must be characters XML allows.
bool decode_reference(std::string_view ref, std::string &out) {
  if (ref == "amp") return out += '&', true;
  if (ref == "lt") return out += '<', true;
  if (ref == "gt") return out += '>', true;
  if (ref == "apos") return out += '\'', true;
  if (ref == "quot") return out += '"', true;
  if (ref.size() < 2 || ref[0] != '#') return false;
  bool hex = ref[1] == 'x' || ref[1] == 'X';
  std::string_view digits = ref.substr(hex ? 2 : 1);
  if (digits.empty() || digits.size() > 8) return false;
  uint32_t cp = 0;
  for (char c : digits) {
    int v = hex ? hex_value(c) : (c >= '0' && c <= '9' ? c - '0' : -1);
    if (v < 0) return false;
    cp = cp * (hex ? 16u : 10u) + static_cast<uint32_t>(v);
  }
  if (cp == 0 || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return false;
  append_utf8(cp, out);
  return true;
}

class scanner {
 public:
  scanner(const char *data, std::size_t size, xml_handler &h) : p_(data), end_(data + size), h_(h) {}
  std::size_t offset(const char *data) const { return static_cast<std::size_t>(p_ - data); }

  int document() {
    if (end_ - p_ >= 3 && std::memcmp(p_, "\xEF\xBB\xBF", 3) == 0) p_ += 3;
    if (int rc = misc()) return rc;
    if (starts("<!DOCTYPE")) {
      if (int rc = doctype()) return rc;
      if (int rc = misc()) return rc;
    }
    if (p_ >= end_ || *p_ != '<') return xml_malformed;
    ++p_;
    if (int rc = element(role::skip, 0, true)) return rc;
    if (int rc = misc()) return rc;
    if (!header_done_) {
      if (int rc = h_.header_done()) return rc;
    }
    return p_ == end_ ? xml_ok : xml_malformed;
  }

 private:
  bool starts(const char *s) const {
    std::size_t n = std::strlen(s);
    return static_cast<std::size_t>(end_ - p_) >= n && std::memcmp(p_, s, n) == 0;
  }
  void spaces() {
    while (p_ < end_ && is_space(*p_)) ++p_;
  }
  // Moves past the terminator; false when the input ends first.
  bool skip_past(const char *terminator) {
    std::size_t n = std::strlen(terminator);
    for (; p_ + n <= end_; ++p_)
      if (std::memcmp(p_, terminator, n) == 0) {
        p_ += n;
        return true;
      }
    p_ = end_;
    return false;
  }
  // Whitespace, comments and processing instructions between elements.
  int misc() {
    for (;;) {
      spaces();
      if (starts("<!--")) {
        p_ += 4;
        if (!skip_past("-->")) return xml_malformed;
      } else if (starts("<?")) {
        p_ += 2;
        if (!skip_past("?>")) return xml_malformed;
      } else {
        return xml_ok;
      }
    }
  }
  int doctype() {
    int bracket = 0;
    for (; p_ < end_; ++p_) {
      if (*p_ == '[') ++bracket;
      else if (*p_ == ']') --bracket;
      else if (*p_ == '>' && bracket <= 0) {
        ++p_;
        return xml_ok;
      }
    }
    return xml_malformed;
  }
  std::string_view name() {
    const char *b = p_;
    while (p_ < end_ && is_name_char(*p_)) ++p_;
    return {b, static_cast<std::size_t>(p_ - b)};
  }

  // After '<': the name and attributes up to '>' or '/>'. The name attribute
  // (of a COLUMN) is decoded into name_attr_.
  int start_tag(std::string_view &tag, bool &empty) {
    tag = name();
    if (tag.empty()) return xml_malformed;
    has_name_attr_ = false;
    for (;;) {
      const char *before = p_;
      spaces();
      if (p_ >= end_) return xml_malformed;
      if (*p_ == '>') {
        ++p_;
        empty = false;
        return xml_ok;
      }
      if (*p_ == '/') {
        if (p_ + 1 >= end_ || p_[1] != '>') return xml_malformed;
        p_ += 2;
        empty = true;
        return xml_ok;
      }
      if (p_ == before) return xml_malformed;  // attributes are separated by space
      std::string_view attr = name();
      if (attr.empty()) return xml_malformed;
      spaces();
      if (p_ >= end_ || *p_ != '=') return xml_malformed;
      ++p_;
      spaces();
      if (p_ >= end_ || (*p_ != '"' && *p_ != '\'')) return xml_malformed;
      char quote = *p_++;
      const char *b = p_;
      while (p_ < end_ && *p_ != quote && *p_ != '<') ++p_;
      if (p_ >= end_ || *p_ != quote) return xml_malformed;
      std::string_view raw(b, static_cast<std::size_t>(p_ - b));
      ++p_;
      value_.clear();
      if (!append_decoded(raw, value_)) return xml_malformed;
      if (attr == "name") {
        name_attr_ = value_;
        has_name_attr_ = true;
      }
    }
  }

  role child_role(role parent, std::string_view tag) const {
    switch (parent) {
      case role::root:
        if (tag == "HEADER") return role::header;
        if (tag == "ROW") return role::row;
        return role::skip;
      case role::header: return tag == "COLUMN" ? role::column : role::skip;
      case role::row: return role::cell;
      default: return role::skip;
    }
  }

  // After '<' of a start tag; its role follows from the parent's and its
  // name. top: the document element.
  int element(role parent, int depth, bool top) {
    if (depth > max_depth) return xml_malformed;
    std::string_view tag;
    bool empty = false;
    if (int rc = start_tag(tag, empty)) return rc;
    role r = top ? role::root : child_role(parent, tag);
    if (int rc = enter(r, tag)) return rc;
    if (!empty) {
      if (int rc = content(r, tag, depth)) return rc;
    } else if (r == role::cell) {
      text_.clear();
      if (int rc = h_.cell(tag, text_)) return rc;
    }
    return leave(r);
  }

  int enter(role r, std::string_view) {
    if (r == role::column) {
      if (!has_name_attr_) return xml_malformed;
      return h_.column(name_attr_);
    }
    if (r == role::row) {
      if (!header_done_) {
        header_done_ = true;
        if (int rc = h_.header_done()) return rc;
      }
      return h_.row_begin();
    }
    return xml_ok;
  }
  int leave(role r) { return r == role::row ? h_.row_end() : xml_ok; }

  int content(role r, std::string_view tag, int depth) {
    // The tag lives in the input buffer, so it outlives the children.
    bool cell = r == role::cell;
    if (cell) text_.clear();
    for (;;) {
      const char *b = p_;
      while (p_ < end_ && *p_ != '<') ++p_;
      if (cell && !append_decoded({b, static_cast<std::size_t>(p_ - b)}, text_)) return xml_malformed;
      if (p_ >= end_) return xml_malformed;
      if (starts("<!--")) {
        p_ += 4;
        if (!skip_past("-->")) return xml_malformed;
      } else if (starts("<![CDATA[")) {
        p_ += 9;
        const char *c = p_;
        if (!skip_past("]]>")) return xml_malformed;
        if (cell) text_.append(c, static_cast<std::size_t>(p_ - 3 - c));
      } else if (starts("<?")) {
        p_ += 2;
        if (!skip_past("?>")) return xml_malformed;
      } else if (starts("</")) {
        p_ += 2;
        std::string_view closing = name();
        spaces();
        if (closing != tag || p_ >= end_ || *p_ != '>') return xml_malformed;
        ++p_;
        return cell ? h_.cell(tag, text_) : xml_ok;
      } else {
        if (cell) return xml_malformed;  // a cell holds text only
        ++p_;
        if (int rc = element(r, depth + 1, false)) return rc;
      }
    }
  }

  const char *p_;
  const char *end_;
  xml_handler &h_;
  std::string text_;
  std::string value_;
  std::string name_attr_;
  bool has_name_attr_ = false;
  bool header_done_ = false;
};

}  // namespace

bool append_decoded(std::string_view raw, std::string &out) {
  std::size_t i = 0;
  while (i < raw.size()) {
    char c = raw[i];
    if (c == '&') {
      std::size_t semi = raw.find(';', i + 1);
      if (semi == std::string_view::npos || semi - i > 12) return false;
      if (!decode_reference(raw.substr(i + 1, semi - i - 1), out)) return false;
      i = semi + 1;
    } else if (c == '\r') {
      // Line ends count as one line feed, whatever the file used.
      out += '\n';
      i += (i + 1 < raw.size() && raw[i + 1] == '\n') ? std::size_t{2} : std::size_t{1};
    } else {
      std::size_t j = i;
      while (j < raw.size() && raw[j] != '&' && raw[j] != '\r') ++j;
      out.append(raw.data() + i, j - i);
      i = j;
    }
  }
  return true;
}

int scan_control_xml(const char *data, std::size_t size, xml_handler &handler, std::size_t *stop) {
  scanner s(data, size, handler);
  int rc = s.document();
  if (stop != nullptr) *stop = s.offset(data);
  return rc;
}

}  // namespace xfmt::userfmt
