// SPDX-License-Identifier: LGPL-2.1-or-later
// Any downloaded list: every line goes where its kind belongs, in order and byte for byte.
#include "base/options_lines.h"
#include "base/text.h"
#include "platform/memory/files.h"
#include "stations/conversion.h"
#include "tests/fuzz/fuzzing.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

using namespace lumotune;
using fuzz::demand;

namespace {

// What the conversion looks for.
constexpr const char* const words[] = {"orb:k:", "orb:r:", "orb:i:",     "<end>",    "\r\n", "\n",
                                       "\r",     "ORB:K:", "Orb:I:",     "<END>",    "orb:", "/@/",
                                       "new//",  "\n\n",   "\r\norb:k:", "\n<end>\n"};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const platform::memory::Codec codec;
  const std::string bytes = fuzz::expanded(data, size, words);
  std::string stations;
  std::string categories;
  std::size_t category_count = 0;
  std::vector<std::wstring> said;
  for (const std::string& line : base::split_text_lines(bytes)) {
    const std::wstring text = codec.decode(line);
    const std::wstring rest(base::mid(text, 7));
    const auto begins = [&](const wchar_t* prefix) { return base::starts_with_ignoring_case(text, prefix); };
    if (line.empty() || base::equal_ignoring_case(text, L"<end>"))
      continue;
    if (begins(L"orb:k:")) {
      if (++category_count <= stations::max_categories)
        categories += line.substr(6) + "\r\n";
    } else if (begins(L"orb:r:") || begins(L"orb:i:")) {
      const wchar_t kind = base::fold(text[4]);
      const auto of_kind = [&](const std::wstring& order) { return order[0] == kind; };
      const auto before = static_cast<std::size_t>(std::count_if(said.begin(), said.end(), of_kind));
      if (before < stations::max_orders && line.size() - 6 <= stations::max_order_bytes)
        said.push_back(kind + rest);
    } else {
      stations += line + "\r\n";
    }
  }
  const auto converted = stations::convert(bytes);
  demand(converted.has_value());
  demand(converted->stations == stations + "\r\n");
  demand(converted->categories == categories + "\r\n");
  std::vector<std::wstring> orders;
  for (const stations::Order& order : converted->orders)
    orders.push_back((order.kind == stations::Order::Kind::advertisement ? L"r" : L"i") + codec.decode(order.text));
  demand(orders == said);
  return 0;
}
