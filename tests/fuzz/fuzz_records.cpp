// SPDX-License-Identifier: LGPL-2.1-or-later
// Any text: records are cut without loss, numbers stay in their ranges.
#include "base/text.h"
#include "platform/common/code_page_1250.h"
#include "stations/station_record.h"
#include "tests/fuzz/fuzzing.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

using namespace lumotune;
using fuzz::demand;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring text = platform::decode_1250({reinterpret_cast<const char*>(data), size});
  std::wstring joined;
  for (const std::wstring& field : base::split_record(text, size + 1)) {
    demand(field.find(base::record_delimiter) == std::wstring::npos);
    joined.append(field).append(base::record_delimiter);
  }
  demand(joined == text + std::wstring(base::record_delimiter));
  demand(base::split_record(text, 5).size() <= 5);
  demand(std::isfinite(base::number_value(text)) || size > 300);
  const int volume = base::volume_value(text);
  demand(volume >= 0 && volume <= 100);
  if (const auto twips = base::twips_value(text))
    demand(*twips >= -2000000 && *twips <= 2000000);
  demand(base::equal_ignoring_case(text, text) && base::starts_with_ignoring_case(text, base::mid(text, 1, 3)));
  if (const auto field = stations::station_field(text))
    demand(field >= stations::StationField::name && field <= stations::StationField::www);
  return 0;
}
