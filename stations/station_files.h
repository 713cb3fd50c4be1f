// SPDX-License-Identifier: LGPL-2.1-or-later
// Owns radios.tt and kategories.tt in the program folder: all reading of their contents, and the update, go through
// here.
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

  // Makes both files from the downloaded list, which is first read completely and must be `announced_size` bytes long.
  // The next calls above return what was written without reading it back.
  [[nodiscard]] Conversion convert_download(std::uint64_t announced_size, ConversionPort& port);

private:
  // The content parsed from a file and the file's stamp at that time; no stamp when it could not be read.
  template <typename Content>
  struct Kept {
    std::shared_ptr<const Content> content;
    std::optional<platform::FileStamp> stamp;
  };
  [[nodiscard]] std::wstring path(const wchar_t* name) const;
  template <typename Content, typename Make>
  [[nodiscard]] std::shared_ptr<const Content> current(Kept<Content>& kept, const wchar_t* name, const Make& make);
  [[nodiscard]] std::shared_ptr<const StationLines> lines_of(std::string bytes) const;
  [[nodiscard]] std::shared_ptr<const std::vector<CategoryNode>> nodes_of(const std::string& bytes) const;

  const base::ProgramFolder& folder_;
  base::CodePageFold fold_;
  Kept<StationLines> stations_;
  Kept<std::vector<CategoryNode>> categories_;
};

} // namespace lumotune::stations
