// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/favourites.h"

#include "base/busy.h"
#include "base/line_walk.h"
#include "base/record_bytes.h"
#include "base/text.h"
#include "stations/station_limits.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace lumotune::player {
namespace {

constexpr std::size_t shown_columns = 93;
constexpr std::size_t quality_column = 94;
constexpr std::size_t id_column = 95;
constexpr std::size_t address_column = 101;

// A line of the favourites file, its prefix cut off.
struct Favourite {
  std::string_view id;
  char quality = '1';
  std::uint64_t key = 0;
};

std::vector<Favourite> read_favourites(std::string_view bytes, const base::CodePageFold& folding) {
  constexpr std::string_view prefix = "lt:";
  constexpr std::size_t quality_at = 7;
  std::vector<Favourite> List5;
  for (base::LineWalk walk(bytes); walk.next();) {
    std::string_view line = walk.line();
    if (line.size() <= prefix.size() + quality_at || !folding.starts_with(line, prefix))
      continue;
    line.remove_prefix(prefix.size());
    const char quality = line[quality_at];
    if (quality >= '1' && quality <= '5')
      List5.push_back({line.substr(0, base::station_id_length), quality, folding.id_key(line)});
  }
  return List5;
}

// Says of nearly every station at once that it is no favourite: the table that knows for sure is slower, and a long
// station file asks it for every line.
class IdFilter {
public:
  void add(std::uint64_t key) { bits_[place(key) / 64] |= bit(key); }
  [[nodiscard]] bool may_have(std::uint64_t key) const { return (bits_[place(key) / 64] & bit(key)) != 0; }

private:
  // The upper 16 bits of a product in which every bit of the key takes part.
  static std::size_t place(std::uint64_t key) { return static_cast<std::size_t>(key * 0x9e3779b97f4a7c15ULL >> 48); }
  static std::uint64_t bit(std::uint64_t key) { return 1ULL << (place(key) % 64); }

  std::array<std::uint64_t, 1024> bits_{};
};

// The list box knows texts that a zero ends; a blank in its place keeps the columns.
std::wstring without_zeros(std::wstring text) {
  std::replace(text.begin(), text.end(), L'\0', L' ');
  return text;
}

std::wstring favourite_item(const Favourite& favourite, std::string_view record, const platform::AnsiCodec& codec) {
  const auto number = static_cast<std::size_t>(favourite.quality - '1');
  // No more of a long name is decoded than is ever shown.
  const auto shown = [&](std::size_t field) {
    return codec.decode(base::record_field(record, field).substr(0, shown_columns));
  };
  std::wstring item = shown(1) + L"  (" + shown(11 + number) + L"kbps)";
  item.resize(shown_columns, L' ');
  item += static_cast<wchar_t>(favourite.quality);
  item += codec.decode(favourite.id);
  item += codec.decode(base::record_field(record, 6 + number));
  return without_zeros(std::move(item));
}

} // namespace

std::optional<FavouriteItem> read_favourite_item(std::wstring_view item) {
  if (item.size() < address_column - 1)
    return std::nullopt;
  return FavouriteItem{std::wstring(base::mid(item, id_column, base::station_id_length)),
                       std::wstring(base::mid(item, quality_column, 1)), std::wstring(base::mid(item, address_column))};
}

std::vector<std::wstring> favourite_items(std::string_view favourites, std::string_view stations,
                                          const base::CodePageFold& folding, const platform::AnsiCodec& codec) {
  const std::vector<Favourite> List5 = read_favourites(favourites, folding);
  std::unordered_map<std::uint64_t, std::string_view> records;
  IdFilter filter;
  for (const Favourite& favourite : List5) {
    records.emplace(favourite.key, std::string_view());
    filter.add(favourite.key);
  }
  for (base::LineWalk walk(stations, stations::max_station_lines); walk.next();) {
    const std::string_view line = walk.line();
    if (line.size() < base::station_id_length)
      continue;
    const std::uint64_t key = folding.id_key(line);
    if (!filter.may_have(key))
      continue;
    if (const auto wanted = records.find(key); wanted != records.end())
      wanted->second = line;
  }
  std::vector<std::wstring> items;
  for (const Favourite& favourite : List5) {
    if (const std::string_view record = records[favourite.key]; !record.empty())
      items.push_back(favourite_item(favourite, record, codec));
  }
  return items;
}

Favourites::Favourites(const Uses& uses)
    : uses_(uses), file_({uses.files, uses.codec, uses.machine}), folding_(uses.codec) {}

void Favourites::ZobrazOblibene() {
  // A file that cannot be read is an empty one: no favourite is shown, and their own file keeps them.
  (void)uses_.files.read_at_most(uses_.machine.program_folder() + L"\\radios.tt", List3, stations::max_station_bytes);
  uses_.form.Control_List.set_items(favourite_items(file_.read(), List3, folding_, uses_.codec));
  show_in_place();
}

void Favourites::show_in_place() {
  if (!uses_.playback.stopped() || !uses_.session.OverrideURL.empty())
    return;
  if (uses_.form.Control_List.count() > 0)
    show_entries();
  else
    show_hint();
}

void Favourites::hide_station_labels() {
  uses_.form.InfoName.set_visible(false);
  uses_.form.InfoTime.set_visible(false);
  uses_.form.InfoStatus.set_visible(false);
}

void Favourites::show_entries() {
  const auto& kept = uses_.session.skin;
  uses_.form.Control_List.set_visible(base::equal_ignoring_case(kept.list_show, L"show"));
  hide_station_labels();
  uses_.form.InfoNaladit.set_visible(false);
  // The picture that stood behind the empty list goes with the hint, unless the skin shows it anyway.
  const bool shown_anyway = base::equal_ignoring_case(kept.display_show, L"show") &&
                            base::equal_ignoring_case(kept.display_mode, L"showevery");
  if (base::equal_ignoring_case(kept.display_value, L"showifnulllist") && !shown_anyway)
    uses_.form.LTDisplay.set_visible(false);
}

// The empty list would cover the hint.
void Favourites::show_hint() {
  uses_.form.Control_List.set_visible(false);
  hide_station_labels();
  uses_.form.InfoNaladit.set_visible(true);
  if (base::equal_ignoring_case(uses_.session.skin.display_value, L"showifnulllist"))
    uses_.form.LTDisplay.set_visible(true);
}

void Favourites::DeleteFromOblibene(const std::wstring& RadioDelete) {
  const stations::FavouriteRemoved result = file_.remove(RadioDelete);
  if (result == stations::FavouriteRemoved::failed)
    (void)uses_.dialogs.message(stations::favourites_not_saved, platform::Dialogs::default_title,
                                platform::BoxIcon::information, platform::BoxButtons::ok);
  if (result != stations::FavouriteRemoved::removed)
    return;
  ZobrazOblibene();
  (void)uses_.dialogs.message(L"Rádio bylo ostraněno z oblíbených.", platform::Dialogs::default_title,
                              platform::BoxIcon::information, platform::BoxButtons::ok);
}

std::wstring Favourites::selected_text() const {
  const auto& list = uses_.form.Control_List;
  return list.item(list.selected());
}

void Favourites::Control_List_Click() {
  clicked_ = true;
  const std::wstring text = selected_text();
  if (base::equal_ignoring_case(text, tune_hint)) {
    directory->Naladit();
    return;
  }
  const auto item = read_favourite_item(text);
  if (!item.has_value())
    return;
  uses_.settings.IDlastRadio = item->id;
  uses_.settings.KvalitaLT = item->quality;
  uses_.playback.PripravHrani(item->address);
  uses_.session.favourite_line = L"lt:" + item->id + L"/" + item->quality;
}

// A click of our own never counts as the second one of a double click.
void Favourites::Control_List_DblClick() {
  clicked_ = true;
  if (clicking_)
    return;
  if (const auto item = read_favourite_item(selected_text()))
    uses_.playback.PlayAll(item->address);
}

void Favourites::Control_List_MouseDown(const platform::MouseEvent& event) {
  const auto& list = uses_.form.Control_List;
  if (event.button == platform::MouseButton::left && list.item_at(event.x, event.y) == platform::ListBox::none)
    clicked_ = true; // beside the rows: no click follows
  if (event.button != platform::MouseButton::right || clicking_)
    return;
  click_row(event);
  if (!uses_.loop.quitting() && uses_.form.Control_List.visible())
    open_menu();
}

// The click goes through the system's input, which may take its time. Before it is there the menu would be another
// row's, and a menu that is open already would get it. One that never comes is made up for.
void Favourites::click_row(const platform::MouseEvent& event) {
  constexpr std::uint32_t longest_ms = 500;
  auto& list = uses_.form.Control_List;
  const base::Busy guard(clicking_);
  const std::size_t row = list.item_at(event.x, event.y);
  const std::uint32_t start = uses_.loop.tick_count_ms();
  clicked_ = false;
  uses_.pointer.click_left();
  uses_.loop.run_pending();
  while (!clicked_ && list.visible() && uses_.loop.tick_count_ms() - start < longest_ms && uses_.loop.wait_a_little()) {
  }
  if (clicked_ || row == platform::ListBox::none || !list.visible() || uses_.loop.quitting())
    return;
  list.select(row);
  Control_List_Click();
}

void Favourites::open_menu() {
  std::wstring id;
  if (const auto item = read_favourite_item(selected_text()))
    id = item->id;
  uses_.menu_tree.set_tune_caption(L"Naladit rádio " + uses_.stations.RadioInfo(id, L"name"));
  menu->open_favourite();
}

} // namespace lumotune::player
