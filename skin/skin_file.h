// SPDX-License-Identifier: LGPL-2.1-or-later
// The text of a .skin file: one control a line, fields separated by "|". Pure; nothing here throws.
#pragma once

#include "platform/controls.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::skin {

// Positions and sizes beyond this many twips (about two metres) belong to no screen: they count as this.
inline constexpr int max_twips = 120000;

// One usable line, cut at every "|". Field 0 names the control.
class SkinLine {
public:
  // Nothing for a line that is not used: one without "|", or the author's.
  [[nodiscard]] static std::optional<SkinLine> parse(std::wstring_view line);

  // A field that the line lacks is empty.
  [[nodiscard]] const std::wstring& field(std::size_t index) const;
  [[nodiscard]] bool says(std::size_t index, std::wstring_view word) const; // letter case ignored
  [[nodiscard]] bool names(std::wstring_view control) const { return says(0, control); }
  [[nodiscard]] bool shows() const { return says(1, L"show"); }
  [[nodiscard]] bool blank(std::size_t index) const; // missing, or nothing but blanks

  // A whole number, however many digits it has; nothing where the field is missing or holds something else. One that
  // is too large for its use counts as the largest there.
  [[nodiscard]] std::optional<int> number(std::size_t index) const;
  [[nodiscard]] std::optional<int> twips(std::size_t index) const;
  [[nodiscard]] std::optional<int> size(std::size_t index) const; // twips, not below 0
  // A negative one is the system's colour of the number in its lowest byte.
  [[nodiscard]] std::optional<platform::Colour> colour(std::size_t index) const;

private:
  std::vector<std::wstring> fields_;
};

// The lines of a text file: CR LF, LF or CR end a line, the last one may have no end.
[[nodiscard]] std::vector<std::wstring> split_lines(std::wstring_view text);

} // namespace lumotune::skin
