// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/favourites.h"

#include "base/boxes.h"
#include "base/busy.h"
#include "base/record_bytes.h"
#include "base/text.h"
#include "player/visible_controls.h"
#include "stations/station_record.h"

#include <algorithm>
#include <utility>

namespace lumotune::player {
namespace {

constexpr std::size_t shown_columns = 93;
constexpr std::size_t quality_column = 94;
constexpr std::size_t id_column = 95;
constexpr std::size_t address_column = 101;

// The list box knows texts that a zero ends; a blank in its place keeps the columns.
std::wstring without_zeros(std::wstring text) {
  std::replace(text.begin(), text.end(), L'\0', L' ');
  return text;
}

std::wstring favourite_item(const stations::Favourite& favourite, const stations::StationRecord& record,
                            const platform::AnsiCodec& codec) {
  using stations::StationField;
  // No more of a long name is decoded than is ever shown.
  const auto shown = [&](StationField field) { return codec.decode(record[field].substr(0, shown_columns)); };
  std::wstring item = shown(StationField::name) + L"  (" + shown(stations::bit_rate_of(favourite.quality)) + L"kbps)";
  item.resize(shown_columns, L' ');
  item += static_cast<wchar_t>(L'0' + favourite.quality);
  item += codec.decode(favourite.id);
  item += record.text(stations::address_of(favourite.quality));
  return without_zeros(std::move(item));
}

} // namespace

std::optional<FavouriteItem> read_favourite_item(std::wstring_view item) {
  if (item.size() < address_column - 1)
    return std::nullopt;
  return FavouriteItem{std::wstring(base::mid(item, id_column, base::station_id_length)),
                       std::wstring(base::mid(item, quality_column, 1)), std::wstring(base::mid(item, address_column))};
}

std::vector<std::wstring> favourite_items(std::string_view favourites, const stations::StationLines& stations,
                                          const platform::AnsiCodec& codec) {
  std::vector<std::wstring> items;
  for (const stations::Favourite& favourite : stations::read_favourites(favourites)) {
    if (const auto line = stations.last_of(favourite.id))
      items.push_back(favourite_item(favourite, stations::StationRecord(*line, codec), codec));
  }
  return items;
}

Favourites::Favourites(const Uses& uses) : uses_(uses), file_(uses.folder) {}

void Favourites::ZobrazOblibene() {
  // A file that cannot be read is an empty one: no favourite is shown, and their own file keeps them.
  uses_.form.Control_List.set_items(
      favourite_items(file_.read(), *uses_.station_files.stations(), uses_.folder.codec()));
  show_in_place();
}

void Favourites::show_in_place() {
  auto& session = uses_.session;
  if (!uses_.playback.stopped() || !session.OverrideURL.empty())
    return;
  session.panel = uses_.form.Control_List.count() > 0 ? base::Panel::favourites : base::Panel::hint;
  show_controls(visible_controls(session.playing, session.panel, session.skin), uses_.form);
}

void Favourites::DeleteFromOblibene(const std::wstring& RadioDelete) {
  const stations::FavouriteRemoved result = file_.remove(RadioDelete);
  if (result == stations::FavouriteRemoved::failed)
    base::inform(uses_.dialogs, stations::favourites_not_saved);
  if (result != stations::FavouriteRemoved::removed)
    return;
  ZobrazOblibene();
  base::inform(uses_.dialogs, L"Rádio bylo ostraněno z oblíbených.");
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
  uses_.session.favourite_line = stations::favourite_line(item->id, item->quality);
}

// A click of our own never counts as the second one of a double click.
void Favourites::Control_List_DblClick() {
  clicked_ = true;
  if (clicking_)
    return;
  if (const auto item = read_favourite_item(selected_text()))
    uses_.playback.PlayAll(item->address);
}

bool Favourites::Control_List_MouseDown(const platform::MouseEvent& event) {
  const auto& list = uses_.form.Control_List;
  if (event.button == platform::MouseButton::left && list.item_at(event.x, event.y) == platform::ListBox::none)
    clicked_ = true; // beside the rows: no click follows
  if (event.button != platform::MouseButton::right)
    return false;
  const base::Busy turn(clicking_);
  if (!turn)
    return false;
  click_row(event);
  return !uses_.loop.quitting() && list.visible();
}

// The click goes through the system's input, which may take its time. Before it is there the menu would be another
// row's, and a menu that is open already would get it. One that never comes is made up for.
void Favourites::click_row(const platform::MouseEvent& event) {
  constexpr std::uint32_t longest_ms = 500;
  auto& list = uses_.form.Control_List;
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

std::wstring Favourites::selected_id() const {
  const auto item = read_favourite_item(selected_text());
  return item ? item->id : std::wstring();
}

} // namespace lumotune::player
