// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/files.h"

#include "platform/common/code_page_1250.h"
#include "platform/win32/win.h"

#include <algorithm>

namespace lumotune::platform::win32 {
namespace {

constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

KernelHandle open_file(const std::wstring& path, DWORD access, DWORD share, DWORD how) {
  return KernelHandle(CreateFileW(path.c_str(), access, share, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool is_open(const KernelHandle& file) {
  return file.get() != INVALID_HANDLE_VALUE;
}

bool write_all(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    const DWORD piece = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 24));
    DWORD written = 0;
    if (WriteFile(file, bytes.data(), piece, &written, nullptr) == 0 || written == 0)
      return false;
    bytes.remove_prefix(written);
  }
  return true;
}

} // namespace

bool Win32Files::exists(const std::wstring& path) const {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::optional<std::uint64_t> Win32Files::size(const std::wstring& path) const {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == 0 ||
      (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
    return std::nullopt;
  return static_cast<std::uint64_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
}

std::optional<std::string> Win32Files::read(const std::wstring& path) const {
  std::string bytes;
  if (!read_into(path, bytes))
    return std::nullopt;
  return bytes;
}

bool Win32Files::read_into(const std::wstring& path, std::string& bytes) const {
  bytes.clear();
  const KernelHandle file = open_file(path, GENERIC_READ, share_all, OPEN_EXISTING);
  LARGE_INTEGER length{};
  if (!is_open(file) || GetFileSizeEx(file.get(), &length) == 0 ||
      static_cast<std::uint64_t>(length.QuadPart) > max_bytes)
    return false;
  bytes.resize(static_cast<std::size_t>(length.QuadPart));
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    DWORD got = 0;
    const DWORD wish = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - filled, 1U << 24));
    if (ReadFile(file.get(), bytes.data() + filled, wish, &got, nullptr) == 0) {
      bytes.clear();
      return false;
    }
    if (got == 0)
      break; // it became shorter meanwhile
    filled += got;
  }
  bytes.resize(filled);
  return true;
}

// MoveFileEx replaces in one step of the file system; a reader holds either the old file or the new one.
bool Win32Files::replace(const std::wstring& path, std::string_view bytes) {
  const std::wstring beside = path + L".new";
  bool complete = false;
  {
    const KernelHandle file = open_file(beside, GENERIC_WRITE, 0, CREATE_ALWAYS);
    if (!is_open(file))
      return false;
    complete = write_all(file.get(), bytes) && FlushFileBuffers(file.get()) != 0;
  }
  if (complete && MoveFileExW(beside.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0)
    return true;
  DeleteFileW(beside.c_str()); // torn or unwanted, it is of no use to anybody
  return false;
}

bool Win32Files::append(const std::wstring& path, std::string_view bytes) {
  const KernelHandle file = open_file(path, FILE_APPEND_DATA, share_all, OPEN_ALWAYS);
  return is_open(file) && write_all(file.get(), bytes);
}

bool Win32Files::remove(const std::wstring& path) {
  return DeleteFileW(path.c_str()) != 0 || GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES;
}

bool Win32Files::copy(const std::wstring& from, const std::wstring& to) {
  const auto bytes = read(from);
  return bytes.has_value() && replace(to, *bytes);
}

std::vector<std::wstring> Win32Files::list(const std::wstring& folder, const std::wstring& pattern) const {
  std::vector<std::wstring> names;
  WIN32_FIND_DATAW data{};
  const SearchHandle search(FindFirstFileW((folder + L"\\" + pattern).c_str(), &data));
  if (search.get() == INVALID_HANDLE_VALUE)
    return names;
  do {
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
      names.emplace_back(data.cFileName);
  } while (FindNextFileW(search.get(), &data) != 0);
  return names;
}

Win32Codec::Win32Codec() {
  CPINFO info{};
  system_ = GetCPInfo(CP_ACP, &info) != 0 && info.MaxCharSize == 1;
}

std::wstring Win32Codec::decode(std::string_view bytes) const {
  if (!system_ || bytes.size() > INT_MAX)
    return decode_1250(bytes);
  std::wstring text(bytes.size(), L'\0');
  if (!bytes.empty() && MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()), text.data(),
                                            static_cast<int>(text.size())) != static_cast<int>(text.size()))
    return decode_1250(bytes);
  return text;
}

std::string Win32Codec::encode(std::wstring_view text) const {
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
