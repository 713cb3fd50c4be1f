// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/codec.h"

#include "platform/common/code_page_1250.h"
#include "platform/win32/win.h"

#include <algorithm>
#include <climits>

namespace lumotune::platform::win32 {

Codec::Codec() {
  CPINFO info{};
  system_ = GetCPInfo(CP_ACP, &info) != 0 && info.MaxCharSize == 1;
}

std::wstring Codec::decode(std::string_view bytes) const {
  if (!system_ || bytes.size() > INT_MAX)
    return decode_1250(bytes);
  std::wstring text(bytes.size(), L'\0');
  if (!bytes.empty() && MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()), text.data(),
                                            static_cast<int>(text.size())) != static_cast<int>(text.size()))
    return decode_1250(bytes);
  return text;
}

std::string Codec::encode(std::wstring_view text) const {
  if (!system_ || text.size() > INT_MAX)
    return encode_1250(text);
  std::string bytes(text.size(), '\0');
  if (text.empty())
    return bytes;
  const int length = WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
  bytes.resize(static_cast<std::size_t>(std::max(length, 0)));
  return bytes;
}

} // namespace lumotune::platform::win32
