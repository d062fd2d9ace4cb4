// Reading control files in tests: the data folder, and a request through
// xfrdfmt on a chain the test frees.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "xfmt/xfmt.h"

namespace xfmt::test {

std::filesystem::path data_dir();

// The bytes of a file under the data folder.
std::string file_text(const std::string &file);

// Runs cwd-sensitive code inside the data folder.
class in_data_dir {
 public:
  in_data_dir();
  ~in_data_dir();
  in_data_dir(const in_data_dir &) = delete;
  in_data_dir &operator=(const in_data_dir &) = delete;

 private:
  std::filesystem::path saved_;
};

// One request through xfrdfmt; the records live until the object goes.
class read_request {
 public:
  read_request(const std::string &file, const std::string &name, uint32_t source = 0);
  ~read_request();
  read_request(const read_request &) = delete;
  read_request &operator=(const read_request &) = delete;

  int32_t rc;
  xf_ufmt_context ctx{};
  xf_user_format *header() const { return static_cast<xf_user_format *>(ctx.control); }
  void *ranges() const { return ctx.word2; }

 private:
  std::string path_;
  void *first_ = nullptr;
};

// The label of the value (a number, . or .A-.Z; for a $ format the text)
// through the routine a handle of the request's format gets.
std::string label_of(const read_request &r, const std::string &value, int32_t w);

// A name resolved through xfname2 with a context (kind 73 asks for an
// informat); the handle is released with the object.
struct resolved {
  void *handle = nullptr;
  xf_status status;
  uint16_t widths[8] = {};
  resolved(const std::string &name, xf_ufmt_context *ctx, int32_t kind = 0);
  ~resolved();
  resolved(const resolved &) = delete;
  resolved &operator=(const resolved &) = delete;
};

// One number through xffmt into a buffer of capacity cap (default w): the
// field and the status.
struct written {
  std::string text;
  xf_status status;
};
written put(void *handle, double v, int32_t w, uint32_t requested_encoding = 0, int64_t cap = -1);

// A control file of the given rows after the header of
// userfmt/bad_number.xml, in the temporary folder under a name that carries
// the process id (parallel runs never share it); its time is set
// hours_back hours back. Returns the path.
struct control_row {
  std::string name, type, start, end, label, hlo;
};
std::string write_control_file(const std::string &file, const std::vector<control_row> &rows,
                               int hours_back = 0);

}  // namespace xfmt::test
