// SPDX-License-Identifier: LGPL-2.1-or-later
#include "menus/menu_commands.h"

#include "base/text.h"

#include <string_view>

namespace lumotune::menus {

struct MenuCommands::Row {
  std::wstring_view item;
  void (*act)(MenuCommands& menus, const std::wstring& caption);
};

namespace {

using M = MenuCommands;
using C = const std::wstring;

} // namespace

// From item to procedure; the elements of an array share one.
const MenuCommands::Row MenuCommands::table[] = {
    {L"LT_TrayMenu_Play", [](M& m, C&) { m.LT_TrayMenu_Play_Click(); }},
    {L"Volume5", [](M& m, C&) { m.uses_.playback.VolumeSet(100); }},
    {L"Volume4", [](M& m, C&) { m.uses_.playback.VolumeSet(80); }},
    {L"Volume3", [](M& m, C&) { m.uses_.playback.VolumeSet(60); }},
    {L"Volume2", [](M& m, C&) { m.uses_.playback.VolumeSet(40); }},
    {L"Volume1", [](M& m, C&) { m.uses_.playback.VolumeSet(20); }},
    {L"Volume0", [](M& m, C&) { m.uses_.playback.VolumeSet(0); }},
    {L"LT_TrayMenu_Melodeon", [](M& m, C&) { m.OrbMelodeon(); }},
    {L"LT_TrayMenu_RadioList", [](M& m, C&) { m.uses_.directory.Naladit(); }},
    {L"LT_TrayMenu_Konec", [](M& m, C&) { m.uses_.shutdown.Konec(); }},
    {L"LT_Menu_Orbcz", [](M& m, C&) { m.LT_Menu_Orbcz_Click(); }},
    {L"LT_Menu_ShowUsers", [](M& m, C&) { m.uses_.client_link.Control_ShowUser_Click(); }},
    {L"LT_Menu_Disk", [](M& m, C&) { m.LT_Menu_Disk_Click(); }},
    {L"LT_Menu_Potize", [](M& m, C&) { m.LT_Menu_Potize_Click(); }},
    {L"LT_Menu_Mp3rec", [](M& m, C&) { m.LT_Menu_Mp3rec_Click(); }},
    {L"LT_Menu_library",
     [](M& m, C&) { companions::launch(m.uses_.shell, companions::recordings_library(m.values())); }},
    {L"LT_Menu_OM", [](M& m, C&) { m.OrbMelodeon(); }},
    {L"LT_Menu_LTadd", [](M& m, C&) { m.LT_Menu_LTadd_Click(); }},
    {L"LT_Menu_FAQ", [](M& m, C&) { m.LT_Menu_FAQ_Click(); }},
    {L"LT_Menu_Skins_SKIN", [](M& m, C& caption) { m.LT_Menu_Skins_SKIN_Click(caption); }},
    {L"LT_Menu_Nastaveni_AutoStart", [](M& m, C&) { m.LT_Menu_Nastaveni_AutoStart_Click(); }},
    {L"LT_Menu_Nastaveni_OnTop", [](M& m, C&) { m.uses_.chrome.LineMenu_OnTop_Click(); }},
    {L"LT_Menu_Nastaveni_LTCC", [](M& m, C&) { m.uses_.console.LTconsole(); }},
    {L"LT_MenuRadia_Naladit", [](M& m, C&) { m.uses_.form.PlayTL.press(); }},
    {L"LT_MenuRadia_ZobrazUzivatele", [](M& m, C&) { m.uses_.client_link.Control_ShowUser_Click(); }},
    {L"LT_MenuRadia_Disk", [](M& m, C&) { m.LT_MenuRadia_Disk_Click(); }},
    {L"LT_MenuRadia_Potize", [](M& m, C&) { m.LT_MenuRadia_Potize_Click(); }},
    {L"LT_MenuRadia_Delete", [](M& m, C&) { m.LT_MenuRadia_Delete_Click(); }},
    {L"LT_MenuPlRaria_www", [](M& m, C& caption) { m.LT_MenuPlRaria_www_Click(caption); }},
    {L"LT_MenuPlRaria_Users", [](M& m, C&) { m.uses_.client_link.Control_ShowUser_Click(); }},
    {L"LT_MenuPlRaria_Disk", [](M& m, C&) { m.LT_Menu_Disk_Click(); }},
    {L"LT_MenuPlRaria_Err", [](M& m, C&) { m.LT_Menu_Potize_Click(); }},
    {L"LT_MenuPlRaria_K_1", [](M& m, C&) { m.LT_MenuPlRaria_K_Click(L"1"); }},
    {L"LT_MenuPlRaria_K_2", [](M& m, C&) { m.LT_MenuPlRaria_K_Click(L"2"); }},
    {L"LT_MenuPlRaria_K_3", [](M& m, C&) { m.LT_MenuPlRaria_K_Click(L"3"); }},
    {L"LT_MenuPlRaria_K_4", [](M& m, C&) { m.LT_MenuPlRaria_K_Click(L"4"); }},
    {L"LT_MenuPlRaria_K_5", [](M& m, C&) { m.LT_MenuPlRaria_K_Click(L"5"); }},
    {L"LT_MenuPlRariaSat", [](M& m, C&) { m.uses_.directory.Naladit(); }},
};

void MenuCommands::run(const std::wstring& name, const std::wstring& caption) {
  const std::wstring_view item = std::wstring_view(name).substr(0, name.find(L'('));
  for (const Row& row : table) {
    if (row.item == item)
      return row.act(*this, caption);
  }
}

void MenuCommands::inform(const std::wstring& text) {
  (void)uses_.dialogs.message(text, platform::Dialogs::default_title, platform::BoxIcon::information,
                              platform::BoxButtons::ok);
}

void MenuCommands::tell_refused() {
  if (uses_.status.can_tell())
    uses_.status.tell(player::address_refused);
  else
    inform(player::address_refused);
}

// Until the server's address is known there is no page to open.
bool MenuCommands::ready() {
  uses_.options.LoadOptionsServer();
  if (!uses_.settings.server_address.empty())
    return true;
  inform(L"Nejprve použujte funkci Naladit rádio.\r\n(program ještě není úplně zaveden...)");
  return false;
}

std::wstring MenuCommands::tuned_name() {
  return uses_.stations.RadioInfo(uses_.settings.IDlastRadio, L"name");
}

// A hidden window gets the keyboard when it is shown next; it stays hidden.
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

// The address is read anew, as for the pages: at the first menu of a run nobody may have read it yet.
void MenuCommands::report_problem(const std::wstring& station_name) {
  uses_.options.LoadOptionsServer();
  companions::launch(uses_.shell, companions::problem_report(values(), uses_.settings.IDlastRadio, station_name));
}

void MenuCommands::LT_Menu_Potize_Click() {
  const std::wstring name = uses_.settings.IDlastRadio.empty() ? std::wstring() : tuned_name();
  if (name.empty()) {
    inform(
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

void MenuCommands::LT_Menu_LTadd_Click() {
  if (ready())
    companions::launch(uses_.shell, companions::add_station(values()));
}

void MenuCommands::LT_Menu_FAQ_Click() {
  uses_.options.LoadOptionsServer();
  open_own(companions::help_address(values()));
}

// LoadSkin resets what follows the play state, the volume and the favourites: each is shown anew.
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
  const bool on = uses_.settings.LTautoStart != L"1";
  uses_.tree.check_auto_start(on);
  uses_.settings.LTautoStart = on ? L"1" : L"0";
}

void MenuCommands::LT_MenuRadia_Delete_Click() {
  const std::wstring line = uses_.session.favourite_line;
  if (!line.empty() && line != L"lt:/")
    uses_.favourites.DeleteFromOblibene(line);
}

// The other items keep their marks until the menu is prepared again.
void MenuCommands::LT_MenuPlRaria_K_Click(const std::wstring& quality) {
  uses_.playback.PlayAll(uses_.stations.RadioInfo(uses_.settings.IDlastRadio, L"u" + quality));
  uses_.settings.KvalitaLT = quality;
  uses_.tree.item(L"LT_MenuPlRaria_K_" + quality).checked = true;
}

} // namespace lumotune::menus
