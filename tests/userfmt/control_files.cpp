#include "userfmt/control_files.hpp"

#include "catalog/chain.hpp"

namespace xfmt::test {

std::filesystem::path data_dir() {
  return std::filesystem::path(XFMT_SOURCE_DIR) / "tests" / "data";
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

}  // namespace xfmt::test
