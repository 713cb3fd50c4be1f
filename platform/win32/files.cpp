// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/files.h"

#include "platform/common/file_replacing.h"
#include "platform/win32/win.h"

#include <aclapi.h>
#include <algorithm>

namespace lumotune::platform::win32 {
namespace {

constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

KernelHandle open_file(const std::wstring& path, DWORD access, DWORD share, DWORD how) {
  return KernelHandle(CreateFileW(path.c_str(), access, share, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::uint64_t joined(DWORD high, DWORD low) {
  return std::uint64_t{high} << 32 | low;
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

constexpr DWORD kept_attributes =
    FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

// Classifies the last error. Virus scanners and indexers release a file soon, and some report "access denied" rather
// than a sharing violation; read-only files and folders are refused for good.
FileStep failure(const std::wstring& path) {
  const DWORD error = GetLastError();
  if (error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_USER_MAPPED_FILE)
    return FileStep::held;
  if (error != ERROR_ACCESS_DENIED)
    return FileStep::refused;
  const DWORD attributes = GetFileAttributesW(path.c_str());
  const bool stays =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0;
  return stays ? FileStep::refused : FileStep::held;
}

struct FreeLocal {
  using pointer = HLOCAL;
  void operator()(HLOCAL memory) const { LocalFree(memory); }
};

// The access rights that were given to the file itself go on; those of its folder come from the folder again. A file
// system without rights has none to copy, and a user who may not set them gets those of the folder.
void copy_access_rights(const std::wstring& from, const std::wstring& to) {
  PACL list = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  if (GetNamedSecurityInfoW(from.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list, nullptr,
                            &descriptor) != ERROR_SUCCESS)
    return;
  const std::unique_ptr<void, FreeLocal> owner(descriptor);
  if (list == nullptr || GetSecurityDescriptorControl(descriptor, &control, &revision) == 0)
    return;
  const DWORD inherits =
      (control & SE_DACL_PROTECTED) != 0 ? PROTECTED_DACL_SECURITY_INFORMATION : UNPROTECTED_DACL_SECURITY_INFORMATION;
  std::wstring name = to;
  (void)SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inherits, nullptr, nullptr, list,
                              nullptr);
}

FILETIME written_at(const std::wstring& path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  (void)GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data); // a missing file is the oldest
  return data.ftLastWriteTime;
}

class Steps final : public FileSteps {
public:
  [[nodiscard]] bool there(const std::wstring& path) const override {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  [[nodiscard]] bool newer(const std::wstring& path, const std::wstring& other) const override {
    const FILETIME mine = written_at(path);
    const FILETIME others = written_at(other);
    return CompareFileTime(&mine, &others) > 0;
  }
  [[nodiscard]] FileStep write_beside(const std::wstring& to, std::string_view bytes,
                                      const std::wstring& like) override {
    const DWORD old = GetFileAttributesW(like.c_str());
    const bool had = old != INVALID_FILE_ATTRIBUTES;
    if (had && (old & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0)
      return FileStep::refused;
    // A leftover may be hidden, and CREATE_ALWAYS fails on a hidden file.
    SetFileAttributesW(to.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (!write_flushed(to, bytes))
      return failure(to);
    if (had) {
      copy_access_rights(like, to);
      SetFileAttributesW(to.c_str(), (old & kept_attributes) != 0 ? old & kept_attributes : FILE_ATTRIBUTE_NORMAL);
    }
    return FileStep::done;
  }
  [[nodiscard]] FileStep keep_copy(const std::wstring& from, const std::wstring& to) override {
    SetFileAttributesW(to.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (CopyFileW(from.c_str(), to.c_str(), FALSE) == 0)
      return failure(from);
    const KernelHandle copy = open_file(to, GENERIC_WRITE, share_all, OPEN_EXISTING);
    if (!is_open(copy) || FlushFileBuffers(copy.get()) == 0)
      return failure(to);
    copy_access_rights(from, to);
    return FileStep::done;
  }
  // Not ReplaceFile: it moves the old file away first, and a crash in between leaves no file at all.
  [[nodiscard]] FileStep take_place(const std::wstring& from, const std::wstring& to) override {
    if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0)
      return FileStep::done;
    return failure(to);
  }
  [[nodiscard]] FileStep erase(const std::wstring& path) override {
    if (DeleteFileW(path.c_str()) != 0 || GetLastError() == ERROR_FILE_NOT_FOUND ||
        GetLastError() == ERROR_PATH_NOT_FOUND)
      return FileStep::done;
    return failure(path);
  }
  void wait(int milliseconds) override { Sleep(static_cast<DWORD>(milliseconds)); }
};

} // namespace

bool Files::exists(const std::wstring& path) const {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// Queried through a handle: the directory entry of a file being written is updated only when it is closed.
std::optional<std::uint64_t> Files::size(const std::wstring& path) const {
  const KernelHandle file = open_file(path, FILE_READ_ATTRIBUTES, share_all, OPEN_EXISTING);
  LARGE_INTEGER length{};
  if (!is_open(file) || GetFileSizeEx(file.get(), &length) == 0)
    return std::nullopt;
  return static_cast<std::uint64_t>(length.QuadPart);
}

// Opened for reading: attributes can be queried even where reading is denied.
std::optional<FileStamp> Files::stamp(const std::wstring& path) const {
  const KernelHandle file = open_file(path, GENERIC_READ, share_all, OPEN_EXISTING);
  BY_HANDLE_FILE_INFORMATION facts{};
  if (!is_open(file) || GetFileInformationByHandle(file.get(), &facts) == 0)
    return std::nullopt;
  return FileStamp{joined(facts.nFileSizeHigh, facts.nFileSizeLow),
                   joined(facts.ftLastWriteTime.dwHighDateTime, facts.ftLastWriteTime.dwLowDateTime),
                   joined(facts.nFileIndexHigh, facts.nFileIndexLow)};
}

std::optional<std::string> Files::read(const std::wstring& path) const {
  std::string bytes;
  if (!read_into(path, bytes))
    return std::nullopt;
  return bytes;
}

bool Files::read_into(const std::wstring& path, std::string& bytes) const {
  return read_at_most(path, bytes, max_bytes);
}

bool Files::read_at_most(const std::wstring& path, std::string& bytes, std::uint64_t limit) const {
  bytes.clear();
  const KernelHandle file = open_file(path, GENERIC_READ, share_all, OPEN_EXISTING);
  LARGE_INTEGER length{};
  if (!is_open(file) || GetFileSizeEx(file.get(), &length) == 0 || static_cast<std::uint64_t>(length.QuadPart) > limit)
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
      break; // truncated meanwhile
    filled += got;
  }
  bytes.resize(filled);
  return true;
}

bool Files::replace(const std::wstring& path, std::string_view bytes) {
  Steps steps;
  return replace_one(steps, path, bytes);
}

bool Files::replace_both(const std::wstring& first, std::string_view first_bytes, const std::wstring& second,
                         std::string_view second_bytes) {
  Steps steps;
  return replace_two(steps, first, first_bytes, second, second_bytes);
}

void Files::settle(const std::wstring& path) {
  Steps steps;
  settle_one(steps, path);
}

void Files::settle(const std::wstring& first, const std::wstring& second) {
  Steps steps;
  settle_two(steps, first, second);
}

bool Files::move(const std::wstring& from, const std::wstring& to) {
  return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}

// Creates a temporary file, which closing deletes: nothing else takes rights, write protection and shares into account.
bool Files::can_replace(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0)
    return false;
  const KernelHandle trial(CreateFileW((path + L".new").c_str(), GENERIC_WRITE | DELETE, share_all, nullptr,
                                       CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  return is_open(trial);
}

bool Files::make_folder(const std::wstring& path) {
  if (CreateDirectoryW(path.c_str(), nullptr) != 0)
    return true;
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Opening without write sharing fails while a writer has the file open.
bool Files::being_written(const std::wstring& path) const {
  const KernelHandle file = open_file(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, OPEN_EXISTING);
  return !is_open(file) && GetLastError() == ERROR_SHARING_VIOLATION;
}

bool Files::append(const std::wstring& path, std::string_view bytes) {
  const KernelHandle file = open_file(path, FILE_APPEND_DATA, share_all, OPEN_ALWAYS);
  return is_open(file) && write_all(file.get(), bytes);
}

bool Files::remove(const std::wstring& path) {
  return DeleteFileW(path.c_str()) != 0 || GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES;
}

bool Files::copy(const std::wstring& from, const std::wstring& to) {
  const auto bytes = read(from);
  return bytes.has_value() && replace(to, *bytes);
}

std::optional<std::uint64_t> Files::free_bytes(const std::wstring& folder) const {
  ULARGE_INTEGER bytes{};
  if (GetDiskFreeSpaceExW((folder + L"\\").c_str(), &bytes, nullptr, nullptr) == 0)
    return std::nullopt;
  return bytes.QuadPart;
}

std::vector<std::wstring> Files::list(const std::wstring& folder, const std::wstring& pattern) const {
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

} // namespace lumotune::platform::win32
