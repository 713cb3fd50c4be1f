// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/files.h"

namespace lumotune::platform::win32 {

class Files final : public platform::Files {
public:
  [[nodiscard]] bool exists(const std::wstring& path) const override;
  [[nodiscard]] std::optional<std::uint64_t> size(const std::wstring& path) const override;
  [[nodiscard]] std::optional<FileStamp> stamp(const std::wstring& path) const override;
  [[nodiscard]] std::optional<std::string> read(const std::wstring& path) const override;
  [[nodiscard]] bool read_into(const std::wstring& path, std::string& bytes) const override;
  [[nodiscard]] bool read_at_most(const std::wstring& path, std::string& bytes, std::uint64_t limit) const override;
  [[nodiscard]] bool replace(const std::wstring& path, std::string_view bytes) override;
  [[nodiscard]] bool replace_both(const std::wstring& first, std::string_view first_bytes, const std::wstring& second,
                                  std::string_view second_bytes) override;
  void settle(const std::wstring& path) override;
  void settle(const std::wstring& first, const std::wstring& second) override;
  [[nodiscard]] bool make_folder(const std::wstring& path) override;
  [[nodiscard]] bool can_replace(const std::wstring& path) override;
  [[nodiscard]] bool move(const std::wstring& from, const std::wstring& to) override;
  [[nodiscard]] bool being_written(const std::wstring& path) const override;
  [[nodiscard]] bool append(const std::wstring& path, std::string_view bytes) override;
  [[nodiscard]] bool remove(const std::wstring& path) override;
  [[nodiscard]] bool copy(const std::wstring& from, const std::wstring& to) override;
  [[nodiscard]] std::optional<std::uint64_t> free_bytes(const std::wstring& folder) const override;
  [[nodiscard]] std::vector<std::wstring> list(const std::wstring& folder, const std::wstring& pattern) const override;
};

} // namespace lumotune::platform::win32
