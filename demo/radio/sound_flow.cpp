// SPDX-License-Identifier: LGPL-2.1-or-later
#include "demo/radio/sound_flow.h"

#include <algorithm>

namespace demo_radio {

std::string title_block(std::string_view title) {
  constexpr std::size_t unit = 16;
  if (title.empty())
    return std::string(1, '\0');
  std::string text = "StreamTitle='" + std::string(title) + "';";
  text.resize(std::min(text.size(), 255 * unit));
  const std::size_t blocks = (text.size() + unit - 1) / unit;
  text.resize(blocks * unit, '\0');
  return static_cast<char>(static_cast<unsigned char>(blocks)) + text;
}

SoundFlow::SoundFlow(const Stream& stream, std::size_t begin, bool titles)
    : stream_(stream), at_(begin % stream.sound.size()), titles_(titles) {}

std::string SoundFlow::until(std::uint64_t sound_bytes, std::string_view title) {
  constexpr std::uint64_t most = 65536;
  const std::uint64_t end = std::min(sound_bytes, sent_ + most);
  std::string bytes;
  while (sent_ < end) {
    std::uint64_t count = std::min<std::uint64_t>(end - sent_, stream_.sound.size() - at_);
    if (titles_)
      count = std::min<std::uint64_t>(count, title_interval - sent_ % title_interval);
    bytes.append(stream_.sound, at_, static_cast<std::size_t>(count));
    at_ = (at_ + static_cast<std::size_t>(count)) % stream_.sound.size();
    sent_ += count;
    if (titles_ && sent_ % title_interval == 0) {
      bytes += title_block(title == told_ ? std::string_view() : title);
      told_ = title;
    }
  }
  return bytes;
}

} // namespace demo_radio
