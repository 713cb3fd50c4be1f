// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/actions.h"

#include "base/boxes.h"
#include "base/text.h"
#include "companions/command_lines.h"
#include "directory/station_menu.h"

#include <algorithm>
#include <array>

namespace lumotune::directory {

namespace {

bool is_quality(const std::wstring& text) {
  return text.size() == 1 && text[0] >= L'1' && text[0] <= L'5';
}

} // namespace

// A quality that does not exist yields an empty line, which is reported as added but not written.
void Actions::PridejRadioDoFAST(const std::wstring& Kvalita) {
  std::wstring line;
  const auto record = uses_.list.table().last_of(uses_.list.selected_id());
  if (!record)
    return base::inform(uses_.dialogs, uses_.list.row_selected()
                                           ? L"Toto rádio nelze přidat k oblíbeným."
                                           : L"Vyberte prosím rádio, které chcete přidat k oblíbeným.");
  if (is_quality(Kvalita))
    line = stations::favourite_line(record->text(stations::StationField::id), Kvalita);
  const stations::FavouriteAdded result = uses_.favourites.add(line);
  if (result == stations::FavouriteAdded::failed)
    return base::inform(uses_.dialogs, stations::favourites_not_saved);
  uses_.favourites.ZobrazOblibene();
  if (result == stations::FavouriteAdded::already_there)
    base::inform(uses_.dialogs, L"Rádio se v oblíbených již nachází.");
  else
    base::inform(uses_.dialogs, L"Rádio bylo přidáno k oblíbeným.\r\nMělo by se zobrazit v seznanu Lumotune.");
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
    return base::inform(uses_.dialogs, L"Vyberte prosím rádio, s jehož poslechem máte potíže.");
  companions::launch(uses_.shell,
                     companions::problem_report(companions::companion_values(uses_.folder, uses_.settings), id, name));
}

void Actions::show_users(const std::wstring& id) {
  // A missing nickname is not an error.
  (void)uses_.identity.LoadOptionsNick();
  uses_.sender.show_users(L"orb.exe ", L"Orb - Lumotune", L"lts:" + id, L"2");
}

void Actions::ShowUsers_Click() {
  show_users(uses_.details.selected().id);
}

void Actions::Label9_Click() {
  const std::wstring id = uses_.list.selected_id();
  if (id.empty())
    return base::inform(uses_.dialogs, L"Vyberte prosím rádio, jehož posluchače chcete zobrazit.");
  show_users(id);
}

void Actions::Label4_Click() {
  const std::wstring address = uses_.form.Label4.text();
  if (!base::trimmed(address).empty() && !uses_.web.open_station_web(address))
    tell_refused(uses_.form);
}

void Actions::WebRadia_Click(const std::wstring& address) {
  if (!uses_.web.open_station_web(address))
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

// For the station that MenuRadia found.
void Actions::prepare(StationMenu& menu) const {
  static constexpr std::array<StationMenu::Name, quality_count> play = {
      L"Kvalita1play", L"Kvalita2play", L"Kvalita3play", L"Kvalita4play", L"Kvalita5play"};
  static constexpr std::array<StationMenu::Name, quality_count> add = {L"Kvalita1", L"Kvalita2", L"Kvalita3",
                                                                       L"Kvalita4", L"Kvalita5"};
  for (std::size_t n = 0; n < quality_count; ++n) {
    const QualityEntry& entry = uses_.details.qualities()[n];
    for (const StationMenu::Name name : {play[n], add[n]}) {
      menu.item(name).caption = entry.caption;
      menu.item(name).visible = entry.visible;
    }
  }
  menu.item(L"DostupnaKvalita").visible = uses_.details.DostupnaKvalita_visible();
  const std::wstring& web = uses_.details.selected().web;
  platform::MenuItem& page = menu.item(L"WebRadia");
  page.enabled = !base::trimmed(web).empty();
  if (page.enabled)
    page.caption = web;
}

void Actions::offer(const StationMenu& menu, const std::vector<platform::MenuItem>& shown,
                    const platform::Control& anchor) {
  const std::wstring id = uses_.list.selected_id();
  const auto chosen = menu.chosen(uses_.menus.pop_up(shown, &anchor));
  if (chosen && !uses_.loop.quitting())
    chosen->row.act(*this, {chosen->caption, id});
}

// An update may have landed while the menu was open: another row may be selected, the quality may be gone.
bool Actions::still_offers(const std::wstring& id, std::size_t quality) {
  if (!base::equal_ignoring_case(uses_.list.selected_id(), id))
    return false;
  uses_.details.MenuRadia();
  return uses_.details.qualities()[quality - 1].visible;
}

void Actions::play_quality(const Choice& choice, std::size_t quality) {
  if (still_offers(choice.id, quality))
    uses_.details.NaladitRadio(std::to_wstring(quality));
}

void Actions::add_quality(const Choice& choice, std::size_t quality) {
  if (still_offers(choice.id, quality))
    PridejRadioDoFAST(std::to_wstring(quality));
}

void Actions::Label5_Click() {
  uses_.details.MenuRadia();
  StationMenu menu;
  prepare(menu);
  offer(menu, menu.below(L"DostupnaKvalita"), uses_.form.Label5);
}

void Actions::Label7_Click() {
  uses_.details.MenuRadia();
  offer_qualities(uses_.form.Label7);
}

void Actions::offer_qualities(const platform::Control& anchor) {
  StationMenu menu;
  prepare(menu);
  offer(menu, menu.below(L"NaladRadio"), anchor);
}

void Actions::pop_up_station_menu() {
  uses_.details.MenuRadia();
  StationMenu menu;
  prepare(menu);
  offer(menu, menu.below(L"SkryteMenu"), uses_.form.ListView1);
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
    offer_qualities(uses_.form.ListView1);
}

} // namespace lumotune::directory
