#include "userfmt/control_files.hpp"

#include <unistd.h>

#include <chrono>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "catalog/chain.hpp"
#include "support/frame.hpp"
#include "support/rows.hpp"
#include "userfmt/tables.hpp"

namespace xfmt::test {

std::filesystem::path data_dir() {
  return std::filesystem::path(XFMT_SOURCE_DIR) / "tests" / "data";
}

std::string file_text(const std::string &file) {
  std::ifstream in(data_dir() / file, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

in_data_dir::in_data_dir() : saved_(std::filesystem::current_path()) {
  std::filesystem::current_path(data_dir());
}
in_data_dir::~in_data_dir() { std::filesystem::current_path(saved_); }

read_request::read_request(const std::string &file, const std::string &name, uint32_t source)
    : path_((data_dir() / file).string()) {
  ctx.control_path = path_.c_str();
  ctx.source = source;
  void *chain = nullptr;
  first_ = xfmalloc(&chain, 0);
  first_ = chain;
  rc = xfrdfmt(0, name.data(), static_cast<int32_t>(name.size()), &ctx, &chain);
}

read_request::~read_request() { xfmt::catalog::free_chain(first_); }

std::string label_of(const read_request &r, const std::string &value, int32_t w) {
  xf_user_handle h{};
  setfptr(r.header(), &h);
  EXPECT_NE(h.routine, nullptr);
  if (!h.routine) return "";
  const bool text = r.header()->kind == 11;
  const std::string in = unescaped(value);
  const std::u16string units(in.begin(), in.end());
  frame_box b = frame_box::chars(std::string(reinterpret_cast<const char *>(units.data()), 2 * units.size()), w);
  b.f.input_encoding = XF_ENC_UTF16LE;
  if (!text)
    b = frame_box::number(value[0] == '.' ? missing_letter(value.size() == 1 ? '.' : value[1]) : std::stod(value), w);
  h.routine(&b.f, r.header(), r.ranges());
  return b.str();
}

resolved::resolved(const std::string &name, xf_ufmt_context *ctx, int32_t kind) {
  status = xfname2(name.data(), static_cast<int32_t>(name.size()), kind, widths, &handle, ctx);
}

resolved::~resolved() { xfrelease(handle); }

written put(void *handle, double v, int32_t w, uint32_t requested_encoding, int64_t cap) {
  frame_box b = frame_box::number(v, w, 0, cap);
  b.f.requested_output_encoding = requested_encoding;
  const xf_status st = xffmt(&b.f, handle);
  return {b.str(), st};
}

std::string write_control_file(const std::string &file, const std::vector<control_row> &rows,
                               int hours_back) {
  const std::string xml = file_text("userfmt/bad_number.xml");
  const std::string path = ::testing::TempDir() + "/xfmt_" + std::to_string(::getpid()) + "_" + file;
  {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << xml.substr(0, xml.find("<ROW>"));
    for (const control_row &r : rows)
      out << "<ROW><FMTNAME>" << r.name << "</FMTNAME><START>" << r.start << "</START><END>" << r.end
          << "</END><LABEL>" << r.label
          << "</LABEL><MIN>1</MIN><MAX>40</MAX><DEFAULT>8</DEFAULT><FUZZ>0</FUZZ>"
             "<PREFIX/><MULT>0</MULT><FILL/><NOEDIT>0</NOEDIT><TYPE>"
          << r.type << "</TYPE><SEXCL>N</SEXCL><EEXCL>N</EEXCL><HLO>" << r.hlo
          << "</HLO><DECSEP/><DIG3SEP/><DATATYPE/><LANGUAGE/></ROW>\n";
    out << "</TABLE>\n";
  }
  std::filesystem::last_write_time(
      path, std::filesystem::file_time_type::clock::now() - std::chrono::hours(hours_back));
  return path;
}

}  // namespace xfmt::test
