// SPDX-License-Identifier: LGPL-2.1-or-later
// Parses .skin files: one control per line, fields separated by "|". Pure; nothing here throws.
#pragma once

#include "platform/controls.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::skin {

// Positions and sizes are clamped to this many twips (about two metres), more than any screen.
inline constexpr int max_twips = 120000;

// One usable line, split at every "|". Field 0 names the control.
class SkinLine {
public:
  // Nothing for an ignored line: one without "|", or the author's line.
  [[nodiscard]] static std::optional<SkinLine> parse(std::wstring_view line);

  // A missing field is empty.
  [[nodiscard]] const std::wstring& field(std::size_t index) const;
  [[nodiscard]] bool says(std::size_t index, std::wstring_view word) const; // case-insensitive
  [[nodiscard]] bool names(std::wstring_view control) const { return says(0, control); }
  [[nodiscard]] bool shows() const { return says(1, L"show"); }
  [[nodiscard]] bool blank(std::size_t index) const; // missing, or blanks only

  // An integer with any number of digits; nothing when the field is missing or holds anything else. Values too large
  // for their use are clamped to the maximum.
  [[nodiscard]] std::optional<int> number(std::size_t index) const;
  [[nodiscard]] std::optional<int> twips(std::size_t index) const;
  [[nodiscard]] std::optional<int> size(std::size_t index) const; // twips, not below 0
  // A negative number is the system colour with the index in its lowest byte.
  [[nodiscard]] std::optional<platform::Colour> colour(std::size_t index) const;

private:
  std::vector<std::wstring> fields_;
};

// The lines of a text file: CR LF, LF or CR ends a line; the last one may lack a line end.
[[nodiscard]] std::vector<std::wstring> split_lines(std::wstring_view text);

} // namespace lumotune::skin
