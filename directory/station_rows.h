// SPDX-License-Identifier: LGPL-2.1-or-later
// The rows of the station list: which lines of the station table it shows. A row's key is "orb" and the station's
// identifier, its text the name with what the marker appends, its second column the country.
#pragma once

#include "base/code_page_fold.h"
#include "platform/ansi_codec.h"
#include "platform/directory_controls.h"
#include "stations/station_keys.h"
#include "stations/station_lines.h"
#include "stations/station_record.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::directory {

// User-interface thread. Rows count from 1 and keep the order of their lines. The rows keep their lines alive, so the
// station table may be reloaded meanwhile.
class StationRows final : public platform::RowModel {
public:
  explicit StationRows(const platform::AnsiCodec& codec);

  [[nodiscard]] std::size_t count() const override { return rows_.size(); }
  [[nodiscard]] std::wstring text(std::size_t row, std::size_t column) const override;
  [[nodiscard]] std::size_t beginning(std::size_t row, wchar_t* out, std::size_t room) const override;
  [[nodiscard]] bool bold(std::size_t row) const override;

  void clear();
  // Replaces the rows by every station of the lines. Of several with one identifier only the first is added.
  void show_all(const std::shared_ptr<const stations::StationLines>& List1);
  // The same in pieces: `begin_all`, and `add_more` until it returns true. Until then the rows are incomplete.
  void begin_all(const std::shared_ptr<const stations::StationLines>& List1);
  [[nodiscard]] bool add_more(std::size_t most_lines);
  // The rows of one category: "100000" (which becomes empty) and an empty text mean every station, "x" and a text the
  // stations whose category code goes on so after six characters, another text those whose code begins so.
  void ZobrazKategoriiRadii(const std::shared_ptr<const stations::StationLines>& List1, std::wstring& Kategorie);

  [[nodiscard]] std::wstring key(std::size_t row) const;      // empty outside 1..count
  [[nodiscard]] std::string_view line(std::size_t row) const; // the same
  // The station's row, 0 when it is not shown or the identifier is empty.
  [[nodiscard]] std::size_t find(const std::wstring& IDradia) const;

private:
  [[nodiscard]] stations::StationRecord record(std::string_view line) const;
  void PridejDoSeznamu(std::size_t line_number);
  template <typename Wanted>
  void fill(const std::shared_ptr<const stations::StationLines>& List1, const Wanted& wanted);

  const platform::AnsiCodec& codec_;
  base::CodePageFold fold_;
  std::wstring letters_; // what each byte stands for
  std::shared_ptr<const stations::StationLines> lines_;
  std::vector<std::uint32_t> rows_; // line numbers
  std::size_t next_line_ = 0;       // for `add_more`
  stations::StationKeys keys_;
};

} // namespace lumotune::directory
