// SPDX-License-Identifier: LGPL-2.1-or-later
// What the program makes of a list: list_check LIST PROBE SERVER-ADDRESS < questions, all in files of Windows-1250.
// Both names of files may be "-" for none. Prints the counts first and then a line of UTF-8 for each question:
//     field ID NAME     the field as the main window looks it up
//     node KEY          how many stations the category shows and its name in the tree
//     stations, categories FILE    "same" or "other": the file's bytes against the converted ones
#include "directory/probe.h"
#include "directory/station_rows.h"
#include "platform/memory/files.h"
#include "platform/memory/messages.h"
#include "stations/conversion.h"
#include "stations/file_names.h"
#include "stations/station_lookup.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <sstream>
#include <string>

namespace {

using namespace lumotune;

std::string bytes_of(const std::string& path) {
  std::ifstream source(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(source), {}};
}

std::string utf8(const std::wstring& text) {
  std::string bytes;
  for (const wchar_t character : text) {
    const auto code = static_cast<unsigned>(character);
    if (code < 0x80) {
      bytes += static_cast<char>(code);
    } else if (code < 0x800) {
      bytes += static_cast<char>(0xC0 | code >> 6);
      bytes += static_cast<char>(0x80 | (code & 0x3F));
    } else {
      bytes += static_cast<char>(0xE0 | code >> 12);
      bytes += static_cast<char>(0x80 | (code >> 6 & 0x3F));
      bytes += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return bytes;
}

std::wstring wide(const std::string& ascii) {
  return {ascii.begin(), ascii.end()};
}

// The program's folder after an update with that list.
struct Folder {
  platform::memory::Files files;
  platform::memory::Codec codec;
  platform::memory::Machine machine;
  base::ProgramFolder folder{files, codec, machine};
  stations::Converted converted;
  stations::StationFiles station_files{folder};
  stations::StationLookup lookup{{station_files, codec}};
  directory::StationRows rows{codec};

  explicit Folder(stations::Converted list) : converted(std::move(list)) {
    (void)files.replace(folder.path(stations::stations_file), converted.stations);
    (void)files.replace(folder.path(stations::categories_file), converted.categories);
  }

  std::string node(const std::wstring& key) {
    const auto nodes = station_files.categories();
    const auto found = std::find_if(nodes->begin(), nodes->end(), [&](const auto& each) { return each.key == key; });
    std::wstring category = stations::category_of_node(key);
    rows.ZobrazKategoriiRadii(station_files.stations(), category);
    return std::to_string(rows.count()) + " " + (found == nodes->end() ? "-" : utf8(found->name));
  }

  std::string answer(const std::string& question) {
    std::istringstream words(question);
    std::string what;
    std::string first;
    std::string second;
    words >> what >> first >> second;
    if (what == "field")
      return utf8(lookup.RadioInfo(wide(first), wide(second)));
    if (what == "node")
      return node(wide(first));
    return bytes_of(first) == (what == "stations" ? converted.stations : converted.categories) ? "same" : "other";
  }
};

void tell_probe(const std::string& bytes, const std::string& server) {
  const directory::Probe probe = directory::parse_probe(bytes, wide(server), platform::memory::Codec());
  if (probe.kind == directory::Probe::Kind::size)
    std::cout << "size " << probe.size << "\n";
  else
    std::cout << (probe.kind == directory::Probe::Kind::refused ? "refused\n" : "unusable\n");
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 4)
    return 2;
  if (argv[2] != std::string("-"))
    tell_probe(bytes_of(argv[2]), argv[3]);
  if (argv[1] == std::string("-"))
    return 0;
  auto list = stations::convert(bytes_of(argv[1]));
  if (!list) {
    std::cout << "refused\n";
    return 0;
  }
  Folder folder(std::move(*list));
  std::wstring everything;
  folder.rows.ZobrazKategoriiRadii(folder.station_files.stations(), everything);
  std::cout << folder.rows.count() << " stations " << folder.station_files.categories()->size() << " categories "
            << folder.converted.orders.size() << " orders\n";
  for (std::string question; std::getline(std::cin, question);)
    std::cout << folder.answer(question) << "\n";
}
