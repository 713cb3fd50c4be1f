// SPDX-License-Identifier: LGPL-2.1-or-later
// The endless bytes of a stream: its sound over and over, with titles among it for those who asked.
#pragma once

#include "demo/radio/programme.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace demo_radio {

// Bytes of sound between two titles, as the field "icy-metaint" tells it.
constexpr std::uint32_t title_interval = 16000;

// A title as a stream carries it: the number of blocks of 16 bytes, then the text filled up with zeros; one zero for
// none.
[[nodiscard]] std::string title_block(std::string_view title);

class SoundFlow {
public:
  // Begins at that byte of the sound. The stream must outlive the flow.
  SoundFlow(const Stream& stream, std::size_t begin, bool titles);

  // What is sent so that this many bytes of sound are out in all, at most 64 KiB of them. `title` is the one of now; it
  // is sent when it is another than before.
  [[nodiscard]] std::string until(std::uint64_t sound_bytes, std::string_view title);

private:
  const Stream& stream_;
  std::size_t at_;
  bool titles_;
  std::uint64_t sent_ = 0;
  std::string told_;
};

} // namespace demo_radio
