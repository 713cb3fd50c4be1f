// SPDX-License-Identifier: LGPL-2.1-or-later
// What fuzz targets share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace lumotune::fuzz {

// What must hold for any input: the fuzzer reports a program that aborts.
inline void demand(bool fact) {
  if (!fact)
    std::abort();
}

// Low bytes of the input stand for the words that the reader looks for; all others for themselves.
template <std::size_t Count>
std::string expanded(const std::uint8_t* data, std::size_t size, const char* const (&words)[Count]) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i)
    data[i] < Count ? bytes += words[data[i]] : bytes += static_cast<char>(data[i]);
  return bytes;
}

} // namespace lumotune::fuzz
