// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/files.h"

#include <algorithm>
#include <cwctype>

namespace lumotune::platform::memory {
namespace {

// "*" stands for any characters, as far as the program's patterns need it: one star at most.
bool matches(const std::wstring& name, const std::wstring& pattern) {
  const auto star = pattern.find(L'*');
  if (star == std::wstring::npos)
    return name == pattern;
  const std::wstring tail = pattern.substr(star + 1);
  return name.size() >= star + tail.size() && name.compare(0, star, pattern, 0, star) == 0 &&
         name.compare(name.size() - tail.size(), tail.size(), tail) == 0;
}

} // namespace

std::wstring MemoryFiles::key(const std::wstring& path) {
  std::wstring folded = path;
  std::transform(folded.begin(), folded.end(), folded.begin(), [](wchar_t character) {
    return character == L'/' ? L'\\' : static_cast<wchar_t>(std::towlower(static_cast<wint_t>(character)));
  });
  return folded;
}

void MemoryFiles::mend(const std::wstring& path) {
  unreadable_.erase(key(path));
  readonly_.erase(key(path));
}

const MemoryFiles::Entry* MemoryFiles::readable(const std::wstring& path) const {
  const std::wstring wanted = key(path);
  ++reads_[wanted];
  const auto found = files_.find(wanted);
  return found == files_.end() || unreadable_.count(wanted) != 0 ? nullptr : &found->second;
}

std::size_t MemoryFiles::reads(const std::wstring& path) const {
  const auto found = reads_.find(key(path));
  return found == reads_.end() ? 0 : found->second;
}

bool MemoryFiles::exists(const std::wstring& path) const {
  return files_.count(key(path)) != 0;
}

std::optional<std::uint64_t> MemoryFiles::size(const std::wstring& path) const {
  const auto found = files_.find(key(path));
  if (found == files_.end())
    return std::nullopt;
  return found->second.bytes.size();
}

std::optional<std::string> MemoryFiles::read(const std::wstring& path) const {
  const Entry* entry = readable(path);
  if (entry == nullptr)
    return std::nullopt;
  return entry->bytes;
}

bool MemoryFiles::read_into(const std::wstring& path, std::string& bytes) const {
  const Entry* entry = readable(path);
  bytes.assign(entry == nullptr ? std::string_view() : std::string_view(entry->bytes));
  return entry != nullptr;
}

bool MemoryFiles::put(const std::wstring& path, std::string_view bytes, const wchar_t* verb) {
  const std::wstring wanted = key(path);
  if (readonly_.count(wanted) != 0)
    return false;
  Entry& entry = files_[wanted];
  if (entry.path.empty())
    entry.path = path;
  entry.bytes = bytes;
  changes_.push_back(verb + path);
  return true;
}

bool MemoryFiles::replace(const std::wstring& path, std::string_view bytes) {
  return put(path, bytes, L"replace ");
}

bool MemoryFiles::replace_both(const std::wstring& first, std::string_view first_bytes, const std::wstring& second,
                               std::string_view second_bytes) {
  if (readonly_.count(key(first)) != 0 || readonly_.count(key(second)) != 0)
    return false;
  return put(first, first_bytes, L"replace ") && put(second, second_bytes, L"replace ");
}

bool MemoryFiles::being_written(const std::wstring& path) const {
  ++writers_asked_for_;
  return written_.count(key(path)) != 0;
}

void MemoryFiles::set_being_written(const std::wstring& path, bool on) {
  if (on)
    written_.insert(key(path));
  else
    written_.erase(key(path));
}

bool MemoryFiles::append(const std::wstring& path, std::string_view bytes) {
  const auto found = files_.find(key(path));
  const std::string old = found == files_.end() ? std::string() : found->second.bytes;
  return put(path, old + std::string(bytes), L"append ");
}

bool MemoryFiles::remove(const std::wstring& path) {
  const std::wstring wanted = key(path);
  if (readonly_.count(wanted) != 0)
    return false;
  if (files_.erase(wanted) != 0)
    changes_.push_back(L"remove " + path);
  return true;
}

bool MemoryFiles::copy(const std::wstring& from, const std::wstring& to) {
  const auto bytes = read(from);
  return bytes.has_value() && put(to, *bytes, L"copy to ");
}

std::vector<std::wstring> MemoryFiles::list(const std::wstring& folder, const std::wstring& pattern) const {
  const std::wstring prefix = key(folder) + L"\\";
  std::vector<std::wstring> names;
  for (const auto& [path, entry] : files_) {
    if (path.compare(0, prefix.size(), prefix) == 0 && path.find(L'\\', prefix.size()) == std::wstring::npos &&
        matches(path.substr(prefix.size()), key(pattern)))
      names.push_back(entry.path.substr(prefix.size()));
  }
  return names;
}

} // namespace lumotune::platform::memory
