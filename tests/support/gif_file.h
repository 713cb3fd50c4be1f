// SPDX-License-Identifier: LGPL-2.1-or-later
// GIF files of one colour, for tests.
#pragma once

#include <cstdint>
#include <string>

namespace lumotune::test {

// Each pixel's code follows a start code, so that codes never widen.
[[nodiscard]] inline std::string gif_of(int width, int height, std::uint32_t rgb) {
  const auto word = [](int value) {
    return std::string{static_cast<char>(value & 255), static_cast<char>(value >> 8)};
  };
  const std::string colour{static_cast<char>(rgb >> 16U & 255U), static_cast<char>(rgb >> 8U & 255U),
                           static_cast<char>(rgb & 255U)};
  std::string packed;
  unsigned bits = 0;
  unsigned held = 0;
  const auto put = [&](unsigned code) {
    bits |= code << held;
    for (held += 3; held >= 8; held -= 8, bits >>= 8U)
      packed += static_cast<char>(bits & 255U);
  };
  for (int i = 0; i < width * height; ++i) {
    put(4);
    put(0);
  }
  put(5);
  packed += static_cast<char>(bits);
  std::string bytes = "GIF89a" + word(width) + word(height) + std::string("\x81\0\0", 3) + colour + colour + colour +
                      colour + "," + word(0) + word(0) + word(width) + word(height) + std::string("\0\2", 2);
  for (std::size_t at = 0; at < packed.size(); at += 255) {
    const std::string piece = packed.substr(at, 255);
    bytes += static_cast<char>(piece.size()) + piece;
  }
  return bytes + std::string("\0;", 2);
}

} // namespace lumotune::test
