// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/actions.h"

#include "base/text.h"
#include "companions/command_lines.h"

#include <algorithm>

namespace lumotune::directory {

using platform::MenuItem;

namespace {

bool is_quality(const std::wstring& text) {
  return text.size() == 1 && text[0] >= L'1' && text[0] <= L'5';
}

MenuItem separator(const wchar_t* name) {
  return {name, L"-", false, true, true, {}, true};
}

} // namespace

void Actions::say(const wchar_t* text) {
  (void)uses_.dialogs.message(text, platform::Dialogs::default_title, platform::BoxIcon::information,
                              platform::BoxButtons::ok);
}

// A quality that there is not makes an empty line, which counts as added and is not written.
void Actions::PridejRadioDoFAST(const std::wstring& Kvalita) {
  std::wstring line;
  const auto record = uses_.list.table().last_of(uses_.list.selected_id());
  if (!record)
    return say(uses_.list.row_selected() ? L"Toto rádio nelze přidat k oblíbeným."
                                         : L"Vyberte prosím rádio, které chcete přidat k oblíbeným.");
  if (is_quality(Kvalita))
    line = stations::favourite_line(record->text(stations::StationField::id), Kvalita);
  const stations::FavouriteAdded result = uses_.favourites.add(line);
  if (result == stations::FavouriteAdded::failed)
    return say(stations::favourites_not_saved);
  uses_.favourites.ZobrazOblibene();
  if (result == stations::FavouriteAdded::already_there)
    say(L"Rádio se v oblíbených již nachází.");
  else
    say(L"Rádio bylo přidáno k oblíbeným.\r\nMělo by se zobrazit v seznanu Lumotune.");
}

void Actions::Diskuze_Click() {
  const SelectedStation& station = uses_.details.selected();
  companions::launch(uses_.shell, companions::discussion(companions::companion_values(uses_.folder, uses_.settings),
                                                         station.id, station.name));
}

void Actions::Label10_Click() {
  companions::launch(uses_.shell, companions::discussion(companions::companion_values(uses_.folder, uses_.settings),
                                                         uses_.list.selected_id(), uses_.list.selected_text()));
}

void Actions::Potize_Click() {
  const SelectedStation& station = uses_.details.selected();
  companions::launch(uses_.shell, companions::problem_report(companions::companion_values(uses_.folder, uses_.settings),
                                                             station.id, station.name));
}

void Actions::Label6_Click() {
  const std::wstring id = uses_.list.selected_id();
  const std::wstring name = uses_.list.selected_text();
  if (id.empty() || name.empty())
    return say(L"Vyberte prosím rádio, s jehož poslechem máte potíže.");
  companions::launch(uses_.shell,
                     companions::problem_report(companions::companion_values(uses_.folder, uses_.settings), id, name));
}

void Actions::show_users(const std::wstring& id) {
  // Without a nickname the listeners are shown all the same.
  (void)uses_.identity.LoadOptionsNick();
  uses_.sender.show_users(L"orb.exe ", L"Orb - Lumotune", L"lts:" + id, L"2");
}

void Actions::ShowUsers_Click() {
  show_users(uses_.details.selected().id);
}

void Actions::Label9_Click() {
  const std::wstring id = uses_.list.selected_id();
  if (id.empty())
    return say(L"Vyberte prosím rádio, jehož posluchače chcete zobrazit.");
  show_users(id);
}

void Actions::Label4_Click() {
  const std::wstring address = uses_.form.Label4.text();
  if (!base::trimmed(address).empty() && !uses_.web.open_station_web(address))
    tell_refused(uses_.form);
}

void Actions::WebRadia_Click() {
  if (!uses_.web.open_station_web(WebRadia_caption_))
    tell_refused(uses_.form);
}

void Actions::Image3_Click() {
  const std::wstring token = uses_.identity.Heslo(uses_.settings.h);
  if (uses_.loop.quitting())
    return;
  const auto values = companions::companion_values(uses_.folder, uses_.settings);
  if (!uses_.web.open_own(companions::login_address(values, token, L"")))
    tell_refused(uses_.form);
}

std::vector<MenuItem> Actions::quality_items(const wchar_t* suffix) const {
  std::vector<MenuItem> items;
  for (std::size_t n = 0; n < quality_count; ++n) {
    const QualityEntry& entry = uses_.details.qualities()[n];
    items.push_back({L"Kvalita" + std::to_wstring(n + 1) + suffix, entry.caption, false, true, entry.visible, {}});
  }
  return items;
}

std::vector<MenuItem> Actions::DostupnaKvalita() const {
  auto items = quality_items(L"");
  items.push_back(separator(L"cara"));
  items.push_back({L"KvalitaInfo", L"Informace", false, true, true, {}});
  return items;
}

std::vector<MenuItem> Actions::NaladRadio() const {
  auto items = quality_items(L"play");
  items.push_back(separator(L"caraa"));
  return items;
}

std::vector<MenuItem> Actions::SkryteMenu() const {
  return {
      {L"WebRadia", WebRadia_caption_, false, WebRadia_enabled_, true, {}},
      separator(L"cara1"),
      {L"NaladRadio", L"Naladit rádio", false, true, true, NaladRadio()},
      {L"DostupnaKvalita", L"Přidat rádio do rychlého seznamu", false, true, uses_.details.DostupnaKvalita_visible(),
       DostupnaKvalita()},
      separator(L"cara2"),
      {L"ShowUsers", L"Zobrazit posluchače", false, true, true, {}},
      {L"Diskuze", L"Diskuze k rádiové stanici", false, true, true, {}},
      {L"Potize", L"Mám potíže s poslechem tohoto rádia", false, true, true, {}},
  };
}

void Actions::offer(const std::vector<MenuItem>& items, const platform::Control& anchor) {
  const std::wstring id = uses_.list.selected_id();
  const std::wstring name = uses_.menus.pop_up(items, &anchor);
  if (!uses_.loop.quitting())
    choose(name, id);
}

// An update may have landed while the menu was open: another row may be selected, the quality may be gone.
bool Actions::still_offers(const std::wstring& id, std::size_t quality) {
  if (!base::equal_ignoring_case(uses_.list.selected_id(), id))
    return false;
  uses_.details.MenuRadia();
  return uses_.details.qualities()[quality - 1].visible;
}

void Actions::choose(const std::wstring& name, const std::wstring& id) {
  for (std::size_t n = 1; n <= quality_count; ++n) {
    const std::wstring number = std::to_wstring(n);
    const bool add = name == L"Kvalita" + number;
    if (!add && name != L"Kvalita" + number + L"play")
      continue;
    if (!still_offers(id, n))
      return;
    return add ? PridejRadioDoFAST(number) : uses_.details.NaladitRadio(number);
  }
  if (name == L"KvalitaInfo")
    uses_.details.KvalitaInfo_Click();
  else if (name == L"WebRadia")
    WebRadia_Click();
  else if (name == L"ShowUsers")
    ShowUsers_Click();
  else if (name == L"Diskuze")
    Diskuze_Click();
  else if (name == L"Potize")
    Potize_Click();
}

void Actions::Label5_Click() {
  uses_.details.MenuRadia();
  offer(DostupnaKvalita(), uses_.form.Label5);
}

void Actions::Label7_Click() {
  uses_.details.MenuRadia();
  offer(NaladRadio(), uses_.form.Label7);
}

void Actions::pop_up_station_menu() {
  uses_.details.MenuRadia();
  const std::wstring& web = uses_.details.selected().web;
  WebRadia_enabled_ = !base::trimmed(web).empty();
  WebRadia_caption_ = WebRadia_enabled_ ? web : L"Web rádia";
  offer(SkryteMenu(), uses_.form.ListView1);
}

void Actions::tune_row() {
  uses_.details.MenuRadia();
  const auto& qualities = uses_.details.qualities();
  const auto offered = [](const QualityEntry& entry) { return entry.visible; };
  const auto count = std::count_if(qualities.begin(), qualities.end(), offered);
  const auto first = std::find_if(qualities.begin(), qualities.end(), offered);
  if (!uses_.list.row_selected())
    return;
  if (count == 0)
    uses_.form.Label1.set_text(L"Toto rádio nemá žádnou kvalitu k poslechu.");
  else if (count == 1)
    uses_.details.NaladitRadio(std::to_wstring(first - qualities.begin() + 1));
  else
    offer(NaladRadio(), uses_.form.ListView1);
}

} // namespace lumotune::directory
