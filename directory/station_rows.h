// SPDX-License-Identifier: LGPL-2.1-or-later
// The rows of the station list: which lines of the station table it shows. A row's key is "orb" and the station's
// identifier, its text the name with what the marker appends, its second column the country.
#pragma once

#include "base/code_page_fold.h"
#include "base/plain_letters.h"
#include "platform/ansi_codec.h"
#include "platform/directory_controls.h"
#include "stations/station_keys.h"
#include "stations/station_lines.h"
#include "stations/station_record.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::directory {

// User-interface thread. Rows count from 1 and keep the order of their lines. The rows keep their lines alive, so the
// station table may be reloaded meanwhile.
class StationRows final : public platform::RowModel {
public:
  explicit StationRows(const platform::AnsiCodec& codec);

  [[nodiscard]] std::size_t count() const override { return filtered() ? shown_.size() : rows_.size(); }
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

  // Leaves only the stations whose name or country contains each of the words, whatever their case and diacritics; of
  // every later content too. Without a word all stations are there again.
  void set_filter(const std::wstring& typed);
  [[nodiscard]] bool filtered() const { return filter_.has_value(); }
  [[nodiscard]] std::size_t unfiltered_count() const { return rows_.size(); }

  [[nodiscard]] std::wstring key(std::size_t row) const;      // empty outside 1..count
  [[nodiscard]] std::string_view line(std::size_t row) const; // the same
  // The station's row, 0 when it is not shown or the identifier is empty.
  [[nodiscard]] std::size_t find(const std::wstring& IDradia) const;
  // Whether the station would be shown without the filter, and is not.
  [[nodiscard]] bool filtered_away(const std::wstring& IDradia) const;

private:
  // Words that a station must contain, in plain letters; matches nothing when one of them cannot be stored at all.
  struct Filter {
    std::vector<std::string> words;
    bool possible = true;
  };
  [[nodiscard]] stations::StationRecord record(std::string_view line) const;
  [[nodiscard]] std::size_t find_unfiltered(const std::wstring& IDradia) const;
  [[nodiscard]] bool passes(std::string_view line, std::string& plain) const;
  void apply_filter();
  void PridejDoSeznamu(std::size_t line_number);
  template <typename Wanted>
  void fill(const std::shared_ptr<const stations::StationLines>& List1, const Wanted& wanted);

  const platform::AnsiCodec& codec_;
  base::CodePageFold fold_;
  std::wstring letters_; // what each byte stands for
  std::shared_ptr<const stations::StationLines> lines_;
  base::PlainLetters plain_letters_;
  std::vector<std::uint32_t> rows_; // line numbers of all stations of the content
  std::optional<Filter> filter_;
  std::vector<std::uint32_t> shown_; // with a filter: positions in `rows_`, ascending
  std::size_t next_line_ = 0;        // for `add_more`
  stations::StationKeys keys_;
};

} // namespace lumotune::directory
