// SPDX-License-Identifier: LGPL-2.1-or-later
// Any settings file: a full one keeps its number of lines and the client's own bytes, a short one is left alone.
#include "base/options_lines.h"
#include "platform/memory/files.h"
#include "tests/fuzz/fuzzing.h"

#include <cstddef>
#include <cstdint>
#include <set>

using namespace lumotune;
using fuzz::demand;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const platform::memory::Codec codec;
  std::string bytes(reinterpret_cast<const char*>(data), size);
  // Lengths on both sides of the one that is written.
  for (int i = 0; size > 0 && i < data[0] % 32; ++i)
    bytes += "\r\n#x";
  const base::TextLines before = base::without_empty_lines(base::split_text_lines(bytes));
  base::Settings settings;
  base::read_settings(before, codec, settings);
  demand(settings.IDlastRadio.size() <= 6);
  base::TextLines after = before;
  const bool written = base::write_settings(after, codec, settings);
  demand(written == (before.size() >= base::options_line_count));
  if (!written) {
    demand(after == before);
    return 0;
  }
  const base::TextLines again = base::without_empty_lines(base::split_text_lines(base::join_lines(after)));
  demand(again == after && after.size() == before.size());
  const std::set<std::size_t> own = {11, 12, 13, 20, 21, 22, 23};
  for (std::size_t i = 0; i < before.size(); ++i)
    demand(own.count(i) > 0 || after[i] == before[i]);
  return 0;
}
