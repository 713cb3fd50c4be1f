// SPDX-License-Identifier: LGPL-2.1-or-later
// Any metadata of a stream: what the listener reads is short, one line, and what the status says of it has its columns.
#include "platform/media/title.h"
#include "platform/media/wide.h"
#include "player/status_text.h"
#include "tests/fuzz/fuzzing.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using namespace lumotune::media;
using lumotune::fuzz::demand;

constexpr const char* words[] = {"StreamTitle='", "';",           "StreamUrl='",      "&#", "&#x", "&amp;",
                                 "\xc5\x99",      "\xed\xa0\x80", "\xf0\x9f\x8e\xb5", "  "};

void try_text(const std::string& bytes) {
  const std::wstring text = readable_text(bytes);
  demand(text.size() <= 500);
  demand(text.empty() || (text.front() != L' ' && text.back() != L' '));
  demand(text.find(L"  ") == std::wstring::npos);
  for (const wchar_t each : text)
    demand(each >= L' ' && each != 0x7f && each != 0x202e && each != 0x2028);
  demand(from_utf8(to_utf8(text)) == text);

  lumotune::platform::StreamStatus status;
  status.phase = lumotune::platform::StreamPhase::playing;
  status.title = text;
  status.kbps = static_cast<int>(bytes.size()) * 1000;
  status.hertz = static_cast<int>(bytes.size()) * 12345;
  demand(lumotune::player::status_text(status).size() < 600);
  demand(lumotune::player::Status1(status, false).size() >= 54);
  demand(lumotune::player::Status1(status, true).size() >= 32);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string block = lumotune::fuzz::expanded(data, size, words);
  try_text(block);
  const auto title = icy_stream_title(block);
  if (title) {
    demand(title->empty() || title->size() + sizeof "StreamTitle='';" - 1 <= block.size());
    try_text(*title);
  }
  if (const auto text = from_utf8(block))
    demand(to_utf8(*text) == block);
  return 0;
}
