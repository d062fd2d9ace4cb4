// Keeps the support library non-empty while the folder fills up.
namespace xfmt::test { int support_library_anchor = 0; }
