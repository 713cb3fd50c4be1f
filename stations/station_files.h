// SPDX-License-Identifier: LGPL-2.1-or-later
// Owns radios.tt and kategories.tt in the program folder: all reading of their contents goes through here.
// DownloadConversion replaces them.
#pragma once

#include "base/code_page_fold.h"
#include "base/program_folder.h"
#include "stations/categories.h"
#include "stations/conversion.h"
#include "stations/station_lines.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace lumotune::stations {

// The content parsed from a file and the file's stamp at that time; no stamp when it could not be read.
template <typename Content>
struct StampedContent {
  std::shared_ptr<const Content> content;
  std::optional<platform::FileStamp> stamp;
};

struct StationContents {
  StampedContent<StationLines> stations;
  StampedContent<std::vector<CategoryNode>> categories;
};

// The downloaded list that both files were last made from.
struct ConvertedList {
  std::uint64_t mark = 0; // `list_mark` of its bytes
  std::uint64_t size = 0; // bytes
  std::vector<Order> orders;
  // Of the files then: with other ones, the list must be converted again.
  std::optional<platform::FileStamp> stations;
  std::optional<platform::FileStamp> categories;
};

// User-interface thread. Nothing throws or shows a message.
class StationFiles {
public:
  explicit StationFiles(const base::ProgramFolder& folder) : folder_(folder), fold_(folder.codec()) {}

  // The current contents, never null. A file is read only when its stamp has changed since it was last read or
  // replaced; a missing, unreadable or too long file counts as empty and is tried again at the next call. Contents
  // handed out earlier never change.
  [[nodiscard]] std::shared_ptr<const StationLines> stations();
  [[nodiscard]] std::shared_ptr<const std::vector<CategoryNode>> categories();
  // Whether radios.tt has more bytes or lines than a station file may have, and is therefore not used.
  [[nodiscard]] bool stations_too_long();

  // Both files have these contents now, made from that list: the next calls above return them without reading.
  void take(StationContents fresh, std::shared_ptr<const ConvertedList> made_from);
  // What is in memory, without looking at the files; null before something was read or taken.
  [[nodiscard]] StationContents kept() const { return contents_; }
  [[nodiscard]] std::shared_ptr<const ConvertedList> made_from() const { return made_from_; }

private:
  [[nodiscard]] std::wstring path(const wchar_t* name) const;
  template <typename Content, typename Make>
  [[nodiscard]] std::shared_ptr<const Content> current(StampedContent<Content>& kept, const wchar_t* name,
                                                       const Make& make);

  const base::ProgramFolder& folder_;
  base::CodePageFold fold_;
  StationContents contents_;
  std::shared_ptr<const ConvertedList> made_from_; // null until a list has been converted in this run
};

} // namespace lumotune::stations
