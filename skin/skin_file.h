// SPDX-License-Identifier: LGPL-2.1-or-later
// The text of a .skin file: one control a line, fields separated by "|". Pure; nothing here throws.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::skin {

// Positions and sizes beyond this many twips (about two metres) belong to no screen and count as no number.
inline constexpr long max_twips = 120000;
inline constexpr long max_colour = 0xffffff;

// One usable line, cut at every "|". Field 0 names the control.
class SkinLine {
public:
  // Nothing for a line that is not used: one without "|", or the author's.
  [[nodiscard]] static std::optional<SkinLine> parse(std::wstring_view line);

  // A field that the line lacks is empty.
  [[nodiscard]] const std::wstring& field(std::size_t index) const;
  [[nodiscard]] bool names(std::wstring_view control) const; // letter case ignored
  [[nodiscard]] bool shows() const;                          // field 1 is "show"

  // A whole number of twips, or a colour; nothing where the field is missing, no number or out of range.
  [[nodiscard]] std::optional<int> twips(std::size_t index) const;
  [[nodiscard]] std::optional<int> size(std::size_t index) const; // twips, not below 0
  [[nodiscard]] std::optional<unsigned> colour(std::size_t index) const;

private:
  std::vector<std::wstring> fields_;
};

// The lines of a text file: CR LF, LF or CR end a line, the last one may have no end.
[[nodiscard]] std::vector<std::wstring> split_lines(std::wstring_view text);

} // namespace lumotune::skin
