// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/favourite_lists.h"

#include "base/boxes.h"
#include "base/line_walk.h"
#include "base/record_bytes.h"
#include "base/text.h"
#include "companions/web_address.h"
#include "stations/station_record.h"

#include <algorithm>
#include <unordered_map>

namespace lumotune::player {
namespace {

constexpr std::size_t qualities = 5;
constexpr std::size_t max_name = 200; // bytes

// Of a playlist that another program wrote.
std::wstring shown(std::wstring text) {
  constexpr auto breaks_line = [](wchar_t each) { return each < L' ' || (each >= 0x7f && each <= 0x9f); };
  text.resize(std::min(text.size(), FavouriteLists::told_characters));
  std::replace_if(text.begin(), text.end(), breaks_line, L' ');
  return text;
}

} // namespace

std::string playlist_of(std::string_view favourites, const stations::StationLines& stations,
                        const platform::AnsiCodec& codec) {
  std::string list = "#EXTM3U\r\n";
  for (const stations::Favourite& favourite : stations::read_favourites(favourites)) {
    const auto line = stations.last_of(favourite.id);
    if (!line.has_value())
      continue;
    const stations::StationRecord record(*line, codec);
    const std::string_view address = record[stations::address_of(favourite.quality)];
    if (!companions::is_stream_address(codec.decode(address)))
      continue;
    list.append("#EXTINF:-1,").append(record[stations::StationField::name].substr(0, max_name));
    list.append(" (").append(record[stations::bit_rate_of(favourite.quality)]).append(" kbps)\r\n");
    list.append(address).append("\r\n");
  }
  std::replace(list.begin(), list.end(), '\0', ' ');
  return list;
}

std::vector<std::string_view> entries_of_playlist(std::string_view bytes, std::size_t most) {
  constexpr std::string_view mark = "\xef\xbb\xbf"; // of UTF-8
  if (bytes.starts_with(mark))
    bytes.remove_prefix(mark.size());
  std::vector<std::string_view> entries;
  for (base::LineWalk walk(bytes); walk.next() && entries.size() < most;) {
    const std::string_view line = base::trimmed(walk.line());
    if (!line.empty() && !line.starts_with('#'))
      entries.push_back(line);
  }
  return entries;
}

// Of several stations with one address the last one counts, as of several records of one station.
std::vector<std::wstring> favourite_lines_of(const std::vector<std::string_view>& entries,
                                             const stations::StationLines& stations, const platform::AnsiCodec& codec) {
  std::unordered_map<std::string_view, std::wstring> found;
  for (const std::string_view entry : entries)
    found.emplace(entry, std::wstring());
  for (std::size_t i = 0; i < stations.count(); ++i) {
    const std::string_view line = stations.line(i);
    const stations::StationRecord record(line, codec);
    for (std::size_t quality = 1; quality <= qualities; ++quality) {
      const auto wanted = found.find(record[stations::address_of(quality)]);
      if (wanted == found.end() || line.size() < base::station_id_length)
        continue;
      const std::string_view id = line.substr(0, base::station_id_length);
      if (const auto last = stations.last_of(id); last.has_value() && last->data() == line.data())
        wanted->second = stations::favourite_line(codec.decode(id), std::to_wstring(quality));
    }
  }
  std::vector<std::wstring> lines;
  lines.reserve(entries.size());
  for (const std::string_view entry : entries)
    lines.push_back(found.at(entry));
  return lines;
}

void FavouriteLists::export_list() {
  const std::string list = playlist_of(file_.read(), *uses_.station_files.stations(), uses_.folder.codec());
  const std::wstring path = uses_.folder.path(exported_file);
  const auto count = entries_of_playlist(list, max_entries * max_entries).size();
  if (uses_.folder.files().replace(path, list))
    base::inform(uses_.dialogs, L"Oblíbené stanice jsou uloženy v souboru:\r\n" + path + L"\r\nPočet stanic: " +
                                    std::to_wstring(count));
  else
    base::inform(uses_.dialogs, L"Oblíbené se nepodařilo uložit do souboru:\r\n" + path);
}

void FavouriteLists::import_list(const std::wstring& path) {
  std::string bytes;
  if (!uses_.folder.files().read_at_most(path, bytes, max_bytes))
    return base::inform(uses_.dialogs, L"Seznam nelze přečíst, nebo je příliš dlouhý.");
  const auto entries = entries_of_playlist(bytes, max_entries);
  const auto lines = favourite_lines_of(entries, *uses_.station_files.stations(), uses_.folder.codec());
  std::vector<std::wstring> known;
  std::wstring unknown;
  std::size_t unknown_count = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!lines[i].empty())
      known.push_back(lines[i]);
    else if (++unknown_count <= told_unknown)
      unknown += L"\r\n" + shown(uses_.folder.codec().decode(entries[i]));
  }
  const auto added = file_.add_all(known);
  if (!added.has_value())
    return base::inform(uses_.dialogs, stations::favourites_not_saved);
  uses_.favourites.ZobrazOblibene();
  std::wstring told = L"Přidáno do oblíbených: " + std::to_wstring(*added) + L"\r\nUž v nich byly: " +
                      std::to_wstring(known.size() - *added);
  if (unknown_count > 0)
    told += L"\r\nNeznámé adresy: " + std::to_wstring(unknown_count) + unknown +
            (unknown_count > told_unknown ? L"\r\n..." : L"");
  base::inform(uses_.dialogs, told);
}

} // namespace lumotune::player
