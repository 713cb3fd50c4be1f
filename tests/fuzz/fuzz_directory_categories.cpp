// SPDX-License-Identifier: LGPL-2.1-or-later
// Any category file: every node comes from a line of its own, and every key leads to a category.
#include "base/options_lines.h"
#include "base/text.h"
#include "platform/memory/files.h"
#include "stations/categories.h"
#include "stations/conversion.h"
#include "tests/fuzz/fuzzing.h"

#include <cstddef>
#include <cstdint>

using namespace lumotune;
using fuzz::demand;

namespace {

// What the reader looks for.
constexpr const char* const words[] = {"/@/",    "\r\n",   "\n",   "\r", "new//", "add//", "NEW//", "Add//",
                                       "100000", "100001", "1000", "//", "/@",    "a",     "\n\n",  "\r\nnew//"};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const platform::memory::Codec codec;
  const std::string bytes = fuzz::expanded(data, size, words);
  const auto nodes = stations::read_categories(bytes, codec);
  std::size_t at = 0;
  for (const std::string& line : base::split_text_lines(bytes)) {
    const std::wstring text = codec.decode(line);
    const bool child = base::starts_with_ignoring_case(text, L"add//");
    const std::size_t cut = text.find(L"/@/", 5);
    if ((!child && !base::starts_with_ignoring_case(text, L"new//")) || cut == std::wstring::npos ||
        cut - 5 > stations::max_category_id)
      continue;
    if (at == stations::max_categories)
      break;
    demand(at < nodes.size());
    const auto& node = nodes[at++];
    demand(node.key == L"a" + text.substr(5, cut - 5) &&
           node.name == text.substr(cut + 3, stations::max_category_name));
    demand(node.parent_key == (child ? node.key.substr(0, 7) : L""));
    const std::wstring category = stations::category_of_node(node.key);
    const bool special = node.key.size() > 7 && node.key.substr(0, 7) == L"a100000";
    demand(category == (special ? L"x" + node.key.substr(7) : node.key.substr(1)));
  }
  demand(at == nodes.size());
  return 0;
}
