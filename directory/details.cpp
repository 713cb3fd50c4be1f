// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/details.h"

#include "base/boxes.h"
#include "base/text.h"
#include "companions/command_lines.h"

#include <utility>

namespace lumotune::directory {
namespace {

using stations::StationField;

constexpr const wchar_t* television_category = L"100003";
constexpr platform::Colour hover_colour{0xC00000};
constexpr platform::Colour black{0};

} // namespace

Details::Details(const Uses& uses) : uses_(uses) {
  for (std::size_t n = 0; n < quality_count; ++n)
    qualities_[n].caption = L"K" + std::to_wstring(n + 1);
}

void Details::MenuRadia() {
  const auto record = uses_.list.selected_record();
  if (!record)
    return;
  selected_ = {record->text(StationField::id), record->text(StationField::name), record->text(StationField::www), {}};
  for (std::size_t n = 1; n <= quality_count; ++n) {
    QualityEntry& entry = qualities_[n - 1];
    const std::wstring rate = record->text(stations::bit_rate_of(n));
    entry.visible = !rate.empty();
    if (!entry.visible)
      continue;
    entry.caption = rate + L" kbps";
    selected_.stream_addresses[n - 1] = record->text(stations::address_of(n));
  }
}

void Details::NactiInfoRadio() {
  const auto record = uses_.list.selected_record();
  if (!record)
    return;
  uses_.form.Label2.set_text(record->text(StationField::name));
  uses_.form.Label3.set_text(record->text(StationField::country));
  uses_.form.Label4.set_text(record->text(StationField::www));
  uses_.form.Text1.set_text(record->text(StationField::description));
}

bool Details::is_television(const std::wstring& id) {
  return base::mid(uses_.stations.RadioInfo(id, L"kk"), 1, 6) == television_category;
}

void Details::NaladitRadio(const std::wstring& Kvalita) {
  MenuRadia();
  auto& settings = uses_.settings;
  const std::wstring id = uses_.list.selected_id();
  if (id.empty()) { // keep the tuned station
    if (uses_.list.row_selected())
      uses_.form.Label1.set_text(L"Toto rádio nelze naladit.");
    return uses_.advert.ReklamaTest();
  }
  const auto before = std::pair(settings.IDlastRadio, settings.KvalitaLT);
  settings.IDlastRadio = id;
  settings.KvalitaLT = Kvalita;
  if (is_television(id)) {
    const auto player = companions::television(companions::companion_values(uses_.folder, settings),
                                               uses_.stations.RadioInfo(id, L"u" + Kvalita));
    if (player.has_value())
      companions::launch(uses_.shell, *player);
    settings.IDlastRadio = before.first;
    settings.KvalitaLT = before.second;
  } else {
    uses_.playback.PlayAll(uses_.stations.RadioInfo(id, L"u" + Kvalita));
    uses_.main_form.window.activate();
  }
  uses_.advert.ReklamaTest();
}

void Details::KvalitaInfo_Click() {
  base::inform(
      uses_.dialogs,
      L"Zvolte kvalitu úměrnou k rychlosti vašeho připojení k intenetu.\r\n"
      L"Čím je kvalita zvuku větší, tím je více náročná na rychlost vašeho připojení.\r\n"
      L"Pokud vyberete příliš vysokou kvalitu a jste připojení např. přes klasický modem, může se stát, že přehrávání "
      L"nebude plynulé!");
}

void Details::show_quality_choice() {
  DostupnaKvalita_visible_ = !is_television(uses_.list.selected_id());
  uses_.form.Label5.set_visible(DostupnaKvalita_visible_);
}

void Details::show_fields() {
  auto& form = uses_.form;
  form.Text1.set_visible(true);
  for (platform::Label* label :
       {&form.Label8, &form.Label3, &form.Label4, &form.Label6, &form.Label7, &form.Label9, &form.Label10})
    label->set_visible(true);
}

void Details::hide_fields() {
  auto& form = uses_.form;
  form.Text1.set_visible(false);
  for (platform::Label* label : {&form.Label8, &form.Label3, &form.Label4, &form.Label5, &form.Label6, &form.Label7,
                                 &form.Label9, &form.Label10})
    label->set_visible(false);
}

void Details::show_all() {
  show_fields();
  uses_.form.Label5.set_visible(true);
}

// Moving from one label straight to its neighbour fires no event for the first: reset all of them.
void Details::hover(platform::Label& label) {
  if (label.underline())
    return;
  ZpetMouseMove();
  label.set_underline(true);
  if (&label == &uses_.form.Label4)
    label.set_text_colour(hover_colour);
}

void Details::ZpetMouseMove() {
  auto& form = uses_.form;
  for (platform::Label* label : {&form.Label4, &form.Label5, &form.Label6, &form.Label7, &form.Label9, &form.Label10})
    label->set_underline(false);
  form.Label4.set_text_colour(black);
}

} // namespace lumotune::directory
