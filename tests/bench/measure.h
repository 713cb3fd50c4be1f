// SPDX-License-Identifier: LGPL-2.1-or-later
// What benchmarks share: files on the real disk, the reference of reading one, times taken in turn, the table's rows.
#pragma once

#include "platform/files.h"

#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <string>

namespace lumotune::bench {

// Files in the current folder of the real disk, named after the last part of their path.
class DiskFiles final : public platform::Files {
public:
  static std::string name(const std::wstring& path) {
    const std::wstring last = path.substr(path.find_last_of(L"\\/") + 1);
    return "bench." + std::string(last.begin(), last.end());
  }
  [[nodiscard]] bool read_into(const std::wstring& path, std::string& bytes) const override {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(name(path).c_str(), "rb"), std::fclose);
    if (!file || std::fseek(file.get(), 0, SEEK_END) != 0)
      return false;
    bytes.resize(static_cast<std::size_t>(std::ftell(file.get())));
    std::rewind(file.get());
    return std::fread(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  }
  [[nodiscard]] bool read_at_most(const std::wstring& path, std::string& bytes,
                                  std::uint64_t /*limit*/) const override {
    return read_into(path, bytes);
  }
  [[nodiscard]] std::optional<std::string> read(const std::wstring& path) const override {
    std::string bytes;
    return read_into(path, bytes) ? std::optional(std::move(bytes)) : std::nullopt;
  }
  [[nodiscard]] bool replace(const std::wstring& path, std::string_view bytes) override {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(name(path).c_str(), "wb"), std::fclose);
    return file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  }
  [[nodiscard]] bool replace_both(const std::wstring& first, std::string_view first_bytes, const std::wstring& second,
                                  std::string_view second_bytes) override {
    return replace(first, first_bytes) && replace(second, second_bytes);
  }
  [[nodiscard]] bool copy(const std::wstring& from, const std::wstring& to) override {
    const auto bytes = read(from);
    return bytes && replace(to, *bytes);
  }
  [[nodiscard]] bool remove(const std::wstring& path) override { return std::remove(name(path).c_str()) == 0; }
  [[nodiscard]] bool make_folder(const std::wstring& /*path*/) override { return true; }
  [[nodiscard]] bool exists(const std::wstring& /*path*/) const override { return true; }
  [[nodiscard]] std::optional<std::uint64_t> free_bytes(const std::wstring& /*folder*/) const override { return {}; }
  [[nodiscard]] std::optional<std::uint64_t> size(const std::wstring& /*path*/) const override { return {}; }
  [[nodiscard]] std::optional<platform::FileStamp> stamp(const std::wstring& path) const override {
    struct stat facts {};
    if (::stat(name(path).c_str(), &facts) != 0)
      return std::nullopt;
    const auto written = facts.st_mtim.tv_sec * 1'000'000'000LL + facts.st_mtim.tv_nsec;
    return platform::FileStamp{static_cast<std::uint64_t>(facts.st_size), static_cast<std::uint64_t>(written),
                               facts.st_ino};
  }
  // What no benchmark does.
  [[nodiscard]] bool can_replace(const std::wstring& /*path*/) override { return true; }
  [[nodiscard]] bool move(const std::wstring& /*from*/, const std::wstring& /*to*/) override { return false; }
  void settle(const std::wstring& /*path*/) override {}
  void settle(const std::wstring& /*first*/, const std::wstring& /*second*/) override {}
  [[nodiscard]] bool append(const std::wstring& /*path*/, std::string_view /*bytes*/) override { return false; }
  [[nodiscard]] bool being_written(const std::wstring& /*path*/) const override { return false; }
  [[nodiscard]] std::vector<std::wstring> list(const std::wstring& /*folder*/,
                                               const std::wstring& /*pattern*/) const override {
    return {};
  }
};

// Reading a text file: its bytes, and how many lines end in it. The number is stored where the compiler
// cannot know that nobody reads it: the search for it is what is measured.
inline volatile std::size_t lines_found = 0;
inline std::size_t read_lines(const DiskFiles& files, const std::wstring& path, std::string& bytes) {
  if (!files.read_into(path, bytes))
    return 0;
  std::size_t lines = 0;
  const char* at = bytes.data();
  const char* const end = at + bytes.size();
  while (at < end) {
    const auto* feed = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
    if (feed == nullptr)
      break;
    ++lines;
    at = feed + 1;
  }
  lines_found = lines;
  return lines;
}

inline double once_ms(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// The best times of both, taken in turn: what else the machine does meets both alike.
struct Times {
  double ours = 1e9;
  double reference = 1e9;
};
inline Times best_ms(int rounds, const std::function<void()>& ours, const std::function<void()>& reference) {
  Times best;
  for (int i = 0; i < rounds; ++i) {
    best.reference = std::min(best.reference, once_ms(reference));
    best.ours = std::min(best.ours, once_ms(ours));
  }
  return best;
}

// A row of the table, "name | ours | reference | ratio | limit". True when the limit is kept.
inline bool row(const char* name, double ours, double reference, const char* unit, double limit) {
  std::printf("%s | %.2f %s | %.2f %s | %.2f | %.2f\n", name, ours, unit, reference, unit, ours / reference, limit);
  return ours / reference <= limit;
}
inline bool row(const char* name, const Times& times, double limit) {
  return row(name, times.ours, times.reference, "ms", limit);
}

// Ends a benchmark whose subject works wrongly: times of wrong work mean nothing.
inline int fail(const char* what) {
  std::fprintf(stderr, "benchmark: %s\n", what);
  return 2;
}

} // namespace lumotune::bench
