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

bool write_flushed(const std::wstring& path, std::string_view bytes) {
  const KernelHandle file = open_file(path, GENERIC_WRITE, 0, CREATE_ALWAYS);
  return is_open(file) && write_all(file.get(), bytes) && FlushFileBuffers(file.get()) != 0;
}

// MoveFileEx replaces in one step of the file system; a reader holds either the old file or the new one.
bool take_place(const std::wstring& beside, const std::wstring& path) {
  return MoveFileExW(beside.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

} // namespace

bool Win32Files::exists(const std::wstring& path) const {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// Asked of the open file: the folder's entry tells the length of a file that is still written only once it is closed.
std::optional<std::uint64_t> Win32Files::size(const std::wstring& path) const {
  const KernelHandle file = open_file(path, FILE_READ_ATTRIBUTES, share_all, OPEN_EXISTING);
  LARGE_INTEGER length{};
  if (!is_open(file) || GetFileSizeEx(file.get(), &length) == 0)
    return std::nullopt;
  return static_cast<std::uint64_t>(length.QuadPart);
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

bool Win32Files::replace(const std::wstring& path, std::string_view bytes) {
  const std::wstring beside = path + L".new";
  if (write_flushed(beside, bytes) && take_place(beside, path))
    return true;
  DeleteFileW(beside.c_str()); // torn or unwanted, it is of no use to anybody
  return false;
}

// A copy of the first old file waits beside it until the second one is in place.
bool Win32Files::replace_both(const std::wstring& first, std::string_view first_bytes, const std::wstring& second,
                              std::string_view second_bytes) {
  const std::wstring first_new = first + L".new";
  const std::wstring second_new = second + L".new";
  const std::wstring first_old = first + L".old";
  const bool had_first = exists(first);
  bool done = write_flushed(first_new, first_bytes) && write_flushed(second_new, second_bytes) &&
              (!had_first || CopyFileW(first.c_str(), first_old.c_str(), FALSE) != 0) && take_place(first_new, first);
  if (done && !take_place(second_new, second)) {
    done = false;
    if (had_first)
      take_place(first_old, first);
    else
      DeleteFileW(first.c_str());
  }
  for (const auto& left : {first_new, second_new, first_old})
    DeleteFileW(left.c_str());
  return done;
}

// A writer that is still there would not let us share the file for reading alone.
bool Win32Files::being_written(const std::wstring& path) const {
  const KernelHandle file = open_file(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, OPEN_EXISTING);
  return !is_open(file) && GetLastError() == ERROR_SHARING_VIOLATION;
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
