// SPDX-License-Identifier: LGPL-2.1-or-later
// The owner of radios.tt and kategories.tt in the program folder: who needs their content asks here, and the update
// replaces them here.
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

  // What the files hold now, never null. A file is read only when its stamp is not the one of the last reading or
  // replacing; a missing, unreadable or too long one holds nothing and is tried again at the next call. Whoever keeps
  // an older content keeps it as it was.
  [[nodiscard]] std::shared_ptr<const StationLines> stations();
  [[nodiscard]] std::shared_ptr<const std::vector<CategoryNode>> categories();

  // Makes both files of the downloaded list, which is read completely first and must then be `announced_size` bytes
  // long. What is written is what the next call above answers: it is not read back.
  [[nodiscard]] Conversion convert_download(std::uint64_t announced_size, ConversionPort& port);

private:
  // What was made of a file's bytes while the file had that stamp; none when it was not read.
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
