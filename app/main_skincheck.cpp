// SPDX-License-Identifier: LGPL-2.1-or-later
// skincheck.exe NAME: says what is wrong with Orb_Data\skins\NAME.skin beside this program, or "v pořádku".
#include "platform/win32/codec.h"
#include "platform/win32/files.h"
#include "platform/win32/picture.h"
#include "skin/skin_check.h"

#include <string>

namespace {

using namespace lumotune;

// A console shows any letter; a file or a pipe gets UTF-8.
void print(const std::wstring& line) {
  const HANDLE out = GetStdHandle(STD_OUTPUT_HANDLE);
  const std::wstring text = line + L"\r\n";
  DWORD mode = 0;
  DWORD done = 0;
  if (GetConsoleMode(out, &mode) != 0) {
    WriteConsoleW(out, text.c_str(), static_cast<DWORD>(text.size()), &done, nullptr);
    return;
  }
  std::string bytes(text.size() * 4, '\0');
  const int length = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), static_cast<int>(text.size()), bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
  WriteFile(out, bytes.data(), static_cast<DWORD>(length), &done, nullptr);
}

// The folder that this program lies in.
std::wstring own_folder() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L'\\'));
}

} // namespace

// 0: all is well; 1: something is wrong; 2: it was called otherwise.
int wmain(int count, wchar_t** arguments) {
  if (count != 2) {
    print(L"Použití: skincheck JMÉNO    zkontroluje skin Orb_Data\\skins\\JMÉNO.skin vedle tohoto programu");
    return 2;
  }
  platform::win32::Files files;
  const platform::win32::Codec codec;
  const auto read_picture = [](std::string_view bytes) -> std::optional<skin::PictureSize> {
    const auto size = platform::win32::picture_size(bytes);
    return size ? std::optional(skin::PictureSize{size->width, size->height}) : std::nullopt;
  };
  const auto found = skin::check_skin(files, codec, own_folder() + L"\\Orb_Data\\skins", arguments[1], read_picture);
  for (const skin::Finding& each : found)
    print(skin::said(each));
  if (found.empty())
    print(L"v pořádku");
  return found.empty() ? 0 : 1;
}
