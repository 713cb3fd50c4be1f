// SPDX-License-Identifier: LGPL-2.1-or-later
#include "menus/menu_commands.h"

#include "base/boxes.h"
#include "base/text.h"
#include "player/notices.h"

namespace lumotune::menus {

void MenuCommands::tell_refused() {
  player::tell_or_inform(uses_.status, uses_.dialogs, player::address_refused);
}

// Until the server's address is known there is no page to open.
bool MenuCommands::ready() {
  uses_.options.LoadOptionsServer();
  if (!uses_.settings.server_address.empty())
    return true;
  base::inform(uses_.dialogs, L"Nejprve použujte funkci Naladit rádio.\r\n(program ještě není úplně zaveden...)");
  return false;
}

std::wstring MenuCommands::tuned_name() {
  return uses_.stations.RadioInfo(uses_.settings.IDlastRadio, L"name");
}

// A hidden window stays hidden and gets the focus when it is next shown.
void MenuCommands::LT_TrayMenu_Play_Click() {
  uses_.form.PlayTL.press();
  uses_.form.window.redraw();
  uses_.form.window.activate();
}

void MenuCommands::OrbMelodeon() {
  if (ready())
    companions::launch(uses_.shell, companions::OrbMelodeon(values()));
}

void MenuCommands::open_own(const std::wstring& address) {
  if (!uses_.web.open_own(address))
    tell_refused();
}

void MenuCommands::LT_MenuPlRaria_www_Click(const std::wstring& address) {
  if (!uses_.web.open_station_web(address))
    tell_refused();
}

void MenuCommands::open_login() {
  const std::wstring token = uses_.identity.Heslo(uses_.settings.h);
  if (!uses_.loop.quitting())
    open_own(companions::login_address(values(), token, L""));
}

void MenuCommands::LT_Menu_Orbcz_Click() {
  if (ready())
    open_login();
}

void MenuCommands::Orbwww_Click() {
  uses_.options.LoadOptionsServer();
  open_login();
}

void MenuCommands::LT_Menu_Disk_Click() {
  if (ready())
    companions::launch(uses_.shell,
                       companions::discussion(values(), uses_.settings.IDlastRadio, uses_.session.station_name));
}

void MenuCommands::LT_MenuRadia_Disk_Click() {
  if (ready())
    companions::launch(uses_.shell, companions::discussion(values(), uses_.settings.IDlastRadio, tuned_name()));
}

// Reloads the server address, which may not have been read yet when the first menu opens.
void MenuCommands::report_problem(const std::wstring& station_name) {
  uses_.options.LoadOptionsServer();
  companions::launch(uses_.shell, companions::problem_report(values(), uses_.settings.IDlastRadio, station_name));
}

void MenuCommands::LT_Menu_Potize_Click() {
  const std::wstring name = uses_.settings.IDlastRadio.empty() ? std::wstring() : tuned_name();
  if (name.empty()) {
    base::inform(
        uses_.dialogs,
        L"Pokud máte potíže s poslechem nějaké rádiové stanice, tak se přepněte do seznamu všech stanic.\r\n"
        L"Vyberte stanici, s kterou máte potíže a klikněte na položku v menu: 'Mám potíže s poslechem tohoto rádia'");
    return;
  }
  report_problem(name);
}

void MenuCommands::LT_MenuRadia_Potize_Click() {
  report_problem(tuned_name());
}

void MenuCommands::LT_Menu_Mp3rec_Click() {
  companions::launch(uses_.shell, companions::recorder(values(), uses_.session.station_name));
}

void MenuCommands::LT_Menu_library_Click() {
  companions::launch(uses_.shell, companions::recordings_library(values()));
}

void MenuCommands::LT_Menu_LTadd_Click() {
  if (ready())
    companions::launch(uses_.shell, companions::add_station(values()));
}

void MenuCommands::LT_Menu_FAQ_Click() {
  uses_.options.LoadOptionsServer();
  open_own(companions::help_address(values()));
}

// LoadSkin resets whatever follows the play state, the volume and the favourites: refresh each.
void MenuCommands::LT_Menu_Skins_SKIN_Click(const std::wstring& name) {
  uses_.skin.LoadSkin(name);
  if (uses_.loop.quitting())
    return;
  uses_.skin.ZobrazCoMas(uses_.form.PlayTL.text());
  uses_.skin.SkinVolume(base::volume_value(uses_.settings.LTvolume));
  uses_.favourites.ZobrazOblibene();
  uses_.status.show_status();
}

void MenuCommands::LT_Menu_Nastaveni_AutoStart_Click() {
  uses_.settings.LTautoStart = uses_.settings.LTautoStart == L"1" ? L"0" : L"1";
}

void MenuCommands::LT_MenuRadia_Delete_Click() {
  const std::wstring line = uses_.session.favourite_line;
  if (!line.empty() && line != L"lt:/")
    uses_.favourites.DeleteFromOblibene(line);
}

void MenuCommands::LT_MenuPlRaria_K_Click(const std::wstring& quality) {
  uses_.playback.PlayAll(uses_.stations.RadioInfo(uses_.settings.IDlastRadio, L"u" + quality));
  uses_.settings.KvalitaLT = quality;
}

} // namespace lumotune::menus
