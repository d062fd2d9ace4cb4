// Dispatch: which frame a routine sees, routine-less rows, user-defined
// handles and the output-encoding step.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>

#include "oracle/dispatch_oracle.hpp"
#include "support/cases.hpp"
#include "support/frame.hpp"
#include "support/random.hpp"
#include "xfmt/xfmt.h"

namespace {

using xfmt::test::frame_box;

// What the last recorded call saw.
struct seen_t {
  const xf_frame *frame = nullptr;
  xf_frame copy{};
  std::u16string input;
  void *header = nullptr;
  void *ranges = nullptr;
} seen;

// A catalog routine that records its frame, sets every encoding field and
// writes "abc" with output encoding 25 claimed.
xf_status recorder(xf_frame *f) {
  seen.frame = f;
  seen.copy = *f;
  std::memcpy(f->output, "abc", 3);
  f->output_length = 3;
  f->output_encoding = 7;
  f->option_flags = 0xFF;
  // Fields a routine might leave changed (a width cut to 32, ...): none of
  // them may reach the caller of a handle that converts as on a copy.
  f->width = 32;
  f->decimals = 99;
  f->input_length = 1;
  f->option_word = 0xAB;
  return XF_OK;
}

// Writes output_length bytes taken from the input text; the status comes
// from the decimals field so that tests can choose it.
xf_status echo(xf_frame *f) {
  uint32_t n = f->input_length < f->output_capacity ? f->input_length : f->output_capacity;
  if (n) std::memcpy(f->output, f->input, n);
  f->output_length = n;
  return static_cast<xf_status>(f->decimals);
}

// A catalog handle in a test's own storage; link 0 unless the test points
// it at the handle itself (a refreshed handle).
fmtposs_row catalog_handle(xf_routine routine) {
  fmtposs_row h{};
  std::memcpy(h.module_name, "JAZWTEST", 8);
  h.module_name_length = 8;
  h.row.routine = routine;
  return h;
}

TEST(dispatch, null_arguments_are_refused) {
  frame_box b = frame_box::number(1, 8);
  void *h = nullptr;
  ASSERT_EQ(xfname("$CHAR", 5, 0, nullptr, &h), XF_OK);
  EXPECT_EQ(xffmt(nullptr, h), XF_E_NULL_ARGUMENT);
  EXPECT_EQ(xffmt(&b.f, nullptr), XF_E_NULL_ARGUMENT);
  xfdel(h);
}

TEST(dispatch, a_row_without_routine_writes_nothing) {
  for (const char *name : {"---NUMFMT------", "---CHARINFMT---"}) {
    void *h = nullptr;
    ASSERT_EQ(xfname(name, static_cast<int32_t>(std::strlen(name)), 0, nullptr, &h), XF_OK);
    frame_box b = frame_box::number(1, 8);
    b.f.output_length = 77;
    EXPECT_EQ(xffmt(&b.f, h), XF_E_NOT_BUILT) << name;
    EXPECT_EQ(b.f.output_length, 77u);
    EXPECT_EQ(b.buffer(), std::string(8, '\xEE'));
    xfdel(h);
  }
}

// Every field of a frame but the output buffer, for comparisons.
auto fields(const xf_frame &f) {
  return std::tuple(f.width, f.decimals, f.input, f.input_length, f.output_capacity, f.output_length,
                    f.option_word, f.option_flags, f.input_encoding, f.requested_output_encoding,
                    f.output_encoding);
}

TEST(dispatch, catalog_handle_converts_on_a_copy_without_encodings) {
  fmtposs_row h = catalog_handle(recorder);
  frame_box b = frame_box::chars("xyz", 3);
  b.f.input_encoding = 25;
  b.f.requested_output_encoding = XF_ENC_UTF16LE;  // the copy asks for none: never widened
  b.f.output_encoding = 5;
  b.f.option_word = 0x1234;
  b.f.option_flags = 4;
  xf_frame copy = b.f, after = b.f;
  EXPECT_EQ(xffmt(&b.f, &h), XF_OK);
  // The routine saw the caller's frame without its encodings...
  copy.input_encoding = copy.requested_output_encoding = copy.output_encoding = 0;
  EXPECT_EQ(fields(seen.copy), fields(copy));
  // ... and only the output length comes back.
  after.output_length = 3;
  EXPECT_EQ(fields(b.f), fields(after));
  EXPECT_EQ(b.str(), "abc");
}

TEST(dispatch, refreshed_handle_converts_on_the_callers_frame) {
  fmtposs_row h = catalog_handle(recorder);
  h.link = reinterpret_cast<uint64_t>(&h);
  frame_box b = frame_box::chars("xyz", 3);
  b.f.input_encoding = 25;
  EXPECT_EQ(xffmt(&b.f, &h), XF_OK);
  EXPECT_EQ(seen.frame, &b.f);
  EXPECT_EQ(seen.copy.input_encoding, 25u);
  EXPECT_EQ(b.f.option_flags, 0xFFu);
  EXPECT_EQ(b.f.output_encoding, 7u);
}

// --- user-defined handles ------------------------------------------------

xf_status label_recorder(xf_frame *f, void *header, void *ranges) {
  seen.frame = f;
  seen.copy = *f;
  seen.header = header;
  seen.ranges = ranges;
  seen.input.clear();
  if (f->input != nullptr) {
    seen.input.resize(f->input_length);
    std::memcpy(seen.input.data(), f->input, f->input_length * 2u);
  }
  f->output_length = 0;
  return XF_OK;
}

// Writes the NUL-terminated UTF-16 label its header points at, cut to the
// capacity, with output encoding 25.
xf_status utf16_label(xf_frame *f, void *header, void *) {
  const auto *label = static_cast<const char16_t *>(header);
  uint32_t bytes = static_cast<uint32_t>(std::char_traits<char16_t>::length(label) * 2);
  if (bytes > f->output_capacity) bytes = f->output_capacity & ~1u;
  std::memcpy(f->output, label, bytes);
  f->output_length = bytes;
  f->output_encoding = XF_ENC_UTF16LE;
  return XF_OK;
}

// Writes "12" single-byte, as the numeric fallback of a label format does.
xf_status plain_label(xf_frame *f, void *, void *) {
  std::memcpy(f->output, "12", 2);
  f->output_length = 2;
  return XF_OK;
}

xf_user_handle user_handle(char kind, xf_label_routine routine) {
  xf_user_handle h{};
  h.link = reinterpret_cast<uint64_t>(&h);  // not used by dispatch
  h.kind = kind;
  h.one = 1;
  h.routine = routine;
  h.header = reinterpret_cast<void *>(0x1000);
  h.ranges = reinterpret_cast<void *>(0x2000);
  return h;
}

TEST(dispatch_user, character_input_is_widened_for_the_call) {
  xf_user_handle h = user_handle('+', label_recorder);
  frame_box b = frame_box::chars("caf\xE9", 8);
  const void *input = b.f.input;
  EXPECT_EQ(xffmt(&b.f, &h), XF_OK);
  EXPECT_EQ(seen.copy.input_length, 4u);  // units
  EXPECT_EQ(seen.input, u"caf\u00E9");
  EXPECT_EQ(seen.header, reinterpret_cast<void *>(0x1000));
  EXPECT_EQ(seen.ranges, reinterpret_cast<void *>(0x2000));
  EXPECT_EQ(b.f.input, input);
  EXPECT_EQ(b.f.input_length, 4u);
}

TEST(dispatch_user, long_character_input_is_cut_at_512_units) {
  xf_user_handle h = user_handle('+', label_recorder);
  frame_box b = frame_box::chars(std::string(600, 'q'), 8);
  EXPECT_EQ(xffmt(&b.f, &h), XF_OK);
  EXPECT_EQ(seen.copy.input_length, 512u);
  EXPECT_EQ(b.f.input_length, 600u);
}

TEST(dispatch_user, utf16_input_and_numeric_formats_pass_unchanged) {
  xf_user_handle plus = user_handle('+', label_recorder);
  std::string units("a\0b\0", 4);
  frame_box b = frame_box::chars(units, 8);
  b.f.input_encoding = XF_ENC_UTF16LE;
  b.f.input_length = 2;
  EXPECT_EQ(xffmt(&b.f, &plus), XF_OK);
  EXPECT_EQ(seen.frame, &b.f);
  EXPECT_EQ(seen.input, u"ab");
  xf_user_handle minus = user_handle('-', label_recorder);
  frame_box n = frame_box::number(3.5, 8);
  n.f.input_encoding = 0;
  EXPECT_EQ(xffmt(&n.f, &minus), XF_OK);
  EXPECT_EQ(seen.frame, &n.f);
  EXPECT_EQ(seen.copy.input, &n.value);
}

TEST(dispatch_user, no_routine_is_not_built) {
  xf_user_handle h = user_handle('-', nullptr);
  frame_box b = frame_box::number(1, 4);
  EXPECT_EQ(xffmt(&b.f, &h), XF_E_NOT_BUILT);
  EXPECT_EQ(b.buffer(), std::string(4, '\xEE'));
}

const char16_t zoe_label[] = u"Zo\u00EB \u20AC5";
const char16_t euros_label[] = u"\u20AC\u20AC\u20AC\u20AC";

// What a label routine writes reaches the host as UTF-8 unless UTF-16 is
// requested: UTF-16 labels are turned into UTF-8 cut to whole characters
// within the capacity (four euro signs: 8 bytes of UTF-16, 12 of UTF-8, a
// capacity of 8 takes two), or kept; plain output is widened on request.
TEST(dispatch_user, label_output_in_the_requested_encoding) {
  const struct {
    xf_label_routine routine;
    const char16_t *label;
    uint32_t capacity, requested;
    std::string want;
    uint32_t encoding;
  } cases[] = {
      {utf16_label, zoe_label, 12, 0, "Zo\xC3\xAB \xE2\x82\xAC" "5", 0},
      {utf16_label, euros_label, 8, 0, "\xE2\x82\xAC\xE2\x82\xAC", 0},
      {utf16_label, zoe_label, 12, XF_ENC_UTF16LE, std::string("Z\0o\0\xEB\0 \0\xAC\x20" "5\0", 12), XF_ENC_UTF16LE},
      {plain_label, nullptr, 4, XF_ENC_UTF16LE, std::string("1\0" "2\0", 4), XF_ENC_UTF16LE},
  };
  for (const auto &c : cases) {
    xf_user_handle h = user_handle('-', c.routine);
    h.header = const_cast<char16_t *>(c.label);
    frame_box b = frame_box::number(1, static_cast<int32_t>(c.capacity));
    b.f.requested_output_encoding = c.requested;
    EXPECT_EQ(xffmt(&b.f, &h), XF_OK);
    EXPECT_EQ(b.str(), c.want) << xfmt::test::shown(c.want);
    EXPECT_EQ(b.f.output_encoding, c.encoding) << xfmt::test::shown(c.want);
  }
}

}  // namespace

namespace {

// The encoding step follows status 0 or 2 only; after any other status the
// field stays as the routine wrote it.
TEST(dispatch_encoding, random_fields_against_the_oracle) {
  // A refreshed handle whose routine copies the input into the field.
  const xf_status statuses[] = {XF_OK, XF_REDUCED, 1u, 25u, XF_E_OVERFLOW};
  fmtposs_row h = catalog_handle(echo);
  h.link = reinterpret_cast<uint64_t>(&h);
  auto gen = xfmt::test::rng(0xD15);
  uint64_t n = xfmt::test::scaled(5000);
  // First the edges: 300 bytes would need 600 (over 512), 8 bytes fit 512
  // but not a capacity of 10, 256 bytes give 512 exactly.
  const uint32_t edges[][2] = {{300, 1000}, {8, 10}, {256, 512}, {257, 1000}, {255, 510}};
  for (uint64_t i = 0; i < n + std::size(edges); ++i) {
    const bool edge = i < std::size(edges);
    std::string text(edge ? edges[i][0] : gen() % 300, ' ');
    for (char &c : text) c = static_cast<char>(gen() % 256);
    uint32_t cap = edge ? edges[i][1] : static_cast<uint32_t>(gen() % 640);
    bool wants = edge || gen() % 4 != 0;
    frame_box b = frame_box::chars(text, static_cast<int32_t>(text.size()), 0, cap);
    b.f.requested_output_encoding = wants ? XF_ENC_UTF16LE : 0;
    const xf_status st = edge ? XF_OK : statuses[gen() % std::size(statuses)];
    b.f.decimals = static_cast<int32_t>(st);
    ASSERT_EQ(xffmt(&b.f, &h), st);
    uint32_t enc = 0;
    std::string field = text.substr(0, text.size() < cap ? text.size() : cap);
    const bool step = st == XF_OK || st == XF_REDUCED;
    std::string want = step ? xfmt::oracle::encode_field(field, cap, wants, enc) : field;
    ASSERT_EQ(b.str(), want) << "case " << i << " seed " << xfmt::test::test_seed();
    ASSERT_EQ(b.f.output_encoding, enc) << "case " << i;
    ASSERT_LE(b.f.output_length, cap);
  }
}

}  // namespace
