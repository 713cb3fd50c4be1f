// SPDX-License-Identifier: LGPL-2.1-or-later
// Converts between program text and the bytes of text files and copy-data messages: the system's single-byte code page.
#pragma once

#include <string>
#include <string_view>

namespace lumotune::platform {

// Every byte becomes exactly one character; a character that the code page lacks becomes '?' (or the system's closest
// match). If the system's code page is not single-byte, Windows-1250 is used. Any thread, never fails.
class AnsiCodec {
public:
  AnsiCodec() = default;
  AnsiCodec(const AnsiCodec&) = delete;
  AnsiCodec& operator=(const AnsiCodec&) = delete;
  virtual ~AnsiCodec() = default;

  [[nodiscard]] virtual std::wstring decode(std::string_view bytes) const = 0;
  [[nodiscard]] virtual std::string encode(std::wstring_view text) const = 0;
};

} // namespace lumotune::platform
