// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/files.h"

#include <algorithm>
#include <cwctype>
#include <utility>

namespace lumotune::platform::memory {
namespace {

// "*" matches any characters. At most one star, which suffices for the program's patterns.
bool matches(const std::wstring& name, const std::wstring& pattern) {
  const auto star = pattern.find(L'*');
  if (star == std::wstring::npos)
    return name == pattern;
  const std::wstring tail = pattern.substr(star + 1);
  return name.size() >= star + tail.size() && name.compare(0, star, pattern, 0, star) == 0 &&
         name.compare(name.size() - tail.size(), tail.size(), tail) == 0;
}

} // namespace

std::wstring Files::key(const std::wstring& path) {
  std::wstring folded = path;
  std::transform(folded.begin(), folded.end(), folded.begin(), [](wchar_t character) {
    return character == L'/' ? L'\\' : static_cast<wchar_t>(std::towlower(static_cast<wint_t>(character)));
  });
  return folded;
}

bool Files::is_readonly(const std::wstring& wanted) const {
  return readonly_.count(wanted) != 0 ||
         std::any_of(readonly_folders_.begin(), readonly_folders_.end(),
                     [&](const std::wstring& folder) { return wanted.starts_with(folder); });
}

FileStep Files::changeable(const std::wstring& path) const {
  if (is_readonly(key(path)))
    return FileStep::refused;
  return held_.count(key(path)) != 0 ? FileStep::held : FileStep::done;
}

void Files::store(const std::wstring& path, std::string_view bytes) {
  Entry& entry = files_[key(path)];
  if (entry.path.empty()) {
    entry.path = path;
    entry.identity = ++identities_;
  }
  entry.bytes = bytes;
  entry.written = ++writings_;
}

bool Files::noted(bool done, const std::wstring& what) {
  if (done) {
    changes_.push_back(what);
    if (const auto copy = after_change)
      copy();
  }
  return done;
}

// A crash leaves what `left_` says of the bytes that were to follow the old ones.
bool Files::write(const std::wstring& path, std::string_view old, std::string_view added) {
  if (off_ || added.size() > room)
    return false;
  const bool whole = powered();
  if (whole || left_ != Left::nothing)
    store(path, std::string(old).append(added, 0, whole ? added.size() : left_ == Left::half ? added.size() / 2 : 0));
  return whole;
}

class Files::Steps final : public FileSteps {
public:
  explicit Steps(Files& files) : files_(files) {}

  [[nodiscard]] bool there(const std::wstring& path) const override { return files_.exists(path); }
  [[nodiscard]] bool newer(const std::wstring& path, const std::wstring& other) const override {
    return written(path) > written(other);
  }
  [[nodiscard]] FileStep write_beside(const std::wstring& to, std::string_view bytes,
                                      const std::wstring& like) override {
    if (files_.is_readonly(key(like)))
      return FileStep::refused;
    return write(to, bytes);
  }
  [[nodiscard]] FileStep keep_copy(const std::wstring& from, const std::wstring& to) override {
    const auto source = files_.files_.find(key(from)); // copying is not counted as a read
    const bool there = source != files_.files_.end() && files_.unreadable_.count(source->first) == 0;
    return there ? write(to, source->second.bytes) : FileStep::refused;
  }
  [[nodiscard]] FileStep take_place(const std::wstring& from, const std::wstring& to) override {
    const FileStep allowed = files_.changeable(to);
    const auto source = files_.files_.find(key(from));
    if (allowed != FileStep::done || source == files_.files_.end())
      return allowed == FileStep::done ? FileStep::refused : allowed;
    if (!files_.powered())
      return FileStep::refused;
    Entry moved = std::move(source->second);
    files_.files_.erase(source);
    const auto old = files_.files_.find(key(to));
    moved.path = old == files_.files_.end() ? to : old->second.path;
    files_.files_[key(to)] = std::move(moved);
    return FileStep::done;
  }
  [[nodiscard]] FileStep erase(const std::wstring& path) override {
    const FileStep allowed = files_.changeable(path);
    if (!files_.exists(path))
      return files_.off_ ? FileStep::refused : FileStep::done;
    if (allowed != FileStep::done)
      return allowed;
    if (!files_.powered())
      return FileStep::refused;
    files_.files_.erase(key(path));
    return FileStep::done;
  }
  void wait(int milliseconds) override {
    files_.waited_ms += milliseconds;
    if (const auto copy = files_.while_waiting)
      copy();
  }

private:
  FileStep write(const std::wstring& to, std::string_view bytes) {
    const FileStep allowed = files_.changeable(to);
    if (allowed != FileStep::done)
      return allowed;
    return files_.write(to, {}, bytes) ? FileStep::done : FileStep::refused;
  }
  [[nodiscard]] unsigned written(const std::wstring& path) const {
    const auto found = files_.files_.find(key(path));
    return found == files_.files_.end() ? 0 : found->second.written;
  }

  Files& files_;
};

const Files::Entry* Files::readable(const std::wstring& path) const {
  const std::wstring wanted = key(path);
  ++reads_[wanted];
  const auto found = files_.find(wanted);
  return found == files_.end() || unreadable_.count(wanted) != 0 ? nullptr : &found->second;
}

std::size_t Files::reads(const std::wstring& path) const {
  const auto found = reads_.find(key(path));
  return found == reads_.end() ? 0 : found->second;
}

bool Files::exists(const std::wstring& path) const {
  return files_.count(key(path)) != 0;
}

std::optional<std::uint64_t> Files::size(const std::wstring& path) const {
  const auto found = files_.find(key(path));
  if (found == files_.end())
    return std::nullopt;
  return found->second.bytes.size();
}

std::optional<FileStamp> Files::stamp(const std::wstring& path) const {
  const auto found = files_.find(key(path));
  if (found == files_.end() || unreadable_.count(found->first) != 0)
    return std::nullopt;
  const Entry& entry = found->second;
  return FileStamp{entry.bytes.size(), clock_stands ? 0 : entry.written, entry.identity};
}

std::optional<std::string> Files::read(const std::wstring& path) const {
  const Entry* entry = readable(path);
  if (entry == nullptr)
    return std::nullopt;
  return entry->bytes;
}

bool Files::read_into(const std::wstring& path, std::string& bytes) const {
  return read_at_most(path, bytes, max_bytes);
}

bool Files::read_at_most(const std::wstring& path, std::string& bytes, std::uint64_t limit) const {
  if (before_read)
    before_read(path);
  const Entry* entry = readable(path);
  if (entry != nullptr && entry->bytes.size() > limit)
    entry = nullptr;
  bytes.assign(entry == nullptr ? std::string_view() : std::string_view(entry->bytes));
  return entry != nullptr;
}

bool Files::replace(const std::wstring& path, std::string_view bytes) {
  Steps steps(*this);
  return noted(replace_one(steps, path, bytes), L"replace " + path);
}

bool Files::replace_both(const std::wstring& first, std::string_view first_bytes, const std::wstring& second,
                         std::string_view second_bytes) {
  Steps steps(*this);
  return noted(replace_two(steps, first, first_bytes, second, second_bytes), L"replace " + first) &&
         noted(true, L"replace " + second);
}

void Files::settle(const std::wstring& path) {
  Steps steps(*this);
  settle_one(steps, path);
}

void Files::settle(const std::wstring& first, const std::wstring& second) {
  Steps steps(*this);
  settle_two(steps, first, second);
}

bool Files::can_replace(const std::wstring& path) {
  return !is_readonly(key(path));
}

bool Files::make_folder(const std::wstring& path) {
  const std::wstring wanted = key(path);
  if (off_ || files_.count(wanted) != 0)
    return false;
  const auto inside = files_.lower_bound(wanted + L"\\");
  if (folders_.count(wanted) != 0 || (inside != files_.end() && inside->first.starts_with(wanted + L"\\")))
    return true;
  if (is_readonly(wanted) || !powered())
    return false;
  folders_.insert(wanted);
  return noted(true, L"make folder " + path);
}

bool Files::move(const std::wstring& from, const std::wstring& to) {
  Steps steps(*this);
  return changeable(from) == FileStep::done &&
         noted(steps.take_place(from, to) == FileStep::done, L"move " + from + L" to " + to);
}

bool Files::being_written(const std::wstring& path) const {
  ++writers_asked_for_;
  return written_.count(key(path)) != 0;
}

bool Files::append(const std::wstring& path, std::string_view bytes) {
  const auto found = files_.find(key(path));
  const std::string old = found == files_.end() ? std::string() : found->second.bytes;
  return !is_readonly(key(path)) && noted(write(path, old, bytes), L"append " + path);
}

bool Files::remove(const std::wstring& path) {
  if (changeable(path) != FileStep::done || !powered())
    return false;
  if (files_.erase(key(path)) != 0)
    (void)noted(true, L"remove " + path);
  return true;
}

bool Files::copy(const std::wstring& from, const std::wstring& to) {
  const auto bytes = read(from);
  Steps steps(*this);
  return bytes.has_value() && noted(replace_one(steps, to, *bytes), L"copy to " + to);
}

std::vector<std::wstring> Files::list(const std::wstring& folder, const std::wstring& pattern) const {
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
