// The CSV record reader: one pass over the bytes, a 64 KiB buffer, nothing
// held beyond the current record.
#include "csv_reader.hpp"

namespace xfmt::cli {

csv_reader::csv_reader(std::FILE *in) : in_(in) {}

int csv_reader::get() {
  if (pending_ != -2) {
    int c = pending_;
    pending_ = -2;
    return c;
  }
  if (pos_ == len_) {
    len_ = std::fread(buf_, 1, sizeof buf_, in_);
    pos_ = 0;
    if (len_ == 0) return -1;
  }
  ++consumed_;
  return static_cast<unsigned char>(buf_[pos_++]);
}

void csv_reader::unget(int c) { pending_ = c; }

csv_reader::result csv_reader::next(std::vector<std::string> &fields) {
  if (!started_) {
    started_ = true;
    // A pipe may deliver the first bytes in pieces: gather three.
    while (len_ < 3) {
      size_t n = std::fread(buf_ + len_, 1, sizeof buf_ - len_, in_);
      if (n == 0) break;
      len_ += n;
    }
    auto b = [this](size_t i) { return static_cast<unsigned char>(buf_[i]); };
    if (len_ >= 3 && b(0) == 0xEF && b(1) == 0xBB && b(2) == 0xBF) {
      bom_ = true;
      pos_ = 3;
      consumed_ = 3;
    } else if (len_ >= 2 && ((b(0) == 0xFF && b(1) == 0xFE) || (b(0) == 0xFE && b(1) == 0xFF))) {
      utf16_ = true;
    }
  }
  if (utf16_) return result::utf16;
  fields.clear();
  blank_ = false;
  int c = get();
  if (c == -1) return result::end;
  record_line_ = line_;
  std::string cur;
  bool in_quotes = false, field_quoted = false;
  for (;; c = get()) {
    if (c == -1) {
      if (in_quotes) return result::unterminated_quote;
      break;
    }
    if (in_quotes) {
      if (c == '"') {
        int d = get();
        if (d == '"') {
          cur += '"';
          continue;
        }
        in_quotes = false;
        unget(d);
        continue;
      }
      cur += static_cast<char>(c);
      if (c == '\n') {
        ++line_;
      } else if (c == '\r') {
        ++line_;
        int d = get();
        if (d == '\n') cur += '\n';
        else unget(d);
      }
      continue;
    }
    if (c == '"' && cur.empty() && !field_quoted) {
      in_quotes = field_quoted = true;
    } else if (c == ',') {
      fields.push_back(std::move(cur));
      cur.clear();
      field_quoted = false;
    } else if (c == '\n' || c == '\r') {
      ++line_;
      if (c == '\r') {
        int d = get();
        if (d != '\n') unget(d);
      }
      break;
    } else {
      cur += static_cast<char>(c);
    }
  }
  blank_ = fields.empty() && !field_quoted && cur.find_first_not_of(" \t") == std::string::npos;
  fields.push_back(std::move(cur));
  return result::record;
}

}  // namespace xfmt::cli
