// SPDX-License-Identifier: LGPL-2.1-or-later
// The station directory window `ListRadios`: its parts, its opening and closing, and who hears its events.
#pragma once

#include "base/lumotune_form.h"
#include "base/program_folder.h"
#include "base/session.h"
#include "base/settings_files.h"
#include "base/stepped_work.h"
#include "companions/identity.h"
#include "companions/open_url.h"
#include "companions/send_command.h"
#include "directory/actions.h"
#include "directory/advert.h"
#include "directory/details.h"
#include "directory/filter_line.h"
#include "directory/info_panel.h"
#include "directory/layout.h"
#include "directory/list_radios_form.h"
#include "directory/station_list.h"
#include "directory/updater.h"
#include "platform/connection.h"
#include "platform/framed_window.h"
#include "platform/popup_menus.h"
#include "platform/worker.h"
#include "player/favourites.h"
#include "player/playback.h"
#include "stations/station_files.h"
#include "stations/station_lookup.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace lumotune::directory {

// What the window takes over from the one before, as long as the program runs.
struct KeptView {
  std::optional<platform::TwipsRect> place; // where the last one was, and how large
  std::vector<std::wstring> open_categories;
};

// What the directory is built on; everything outlives it.
struct DirectoryUses {
  base::Settings& settings;
  base::Session& session;
  base::LumotuneForm& main_form;
  base::ErrorLog& error_log;
  stations::StationFiles& station_files;
  stations::StationLookup& stations;
  player::Playback& playback;
  player::Favourites& favourites;
  companions::CommandSender& sender;
  companions::Identity& identity;
  companions::WebPages& web;
  platform::EventLoop& loop;
  const base::ProgramFolder& folder;
  const platform::Machine& machine;
  platform::Shell& shell;
  platform::Dialogs& dialogs;
  platform::Connection& connection;
  platform::PopupMenus& menus;
  platform::FramedWindowMaker& windows;
  platform::Worker& worker;
};

// User-interface thread. Destroy only from the top of the loop: its procedures run nested loops.
class ListRadios final : public stations::ConversionPort {
public:
  ListRadios(const DirectoryUses& uses, AdvertState& advert_state, KeptView& kept_view);
  ListRadios(const ListRadios&) = delete;
  ListRadios& operator=(const ListRadios&) = delete;
  ~ListRadios() override;

  // Shows the window, loads files, tree and list, starts an update and selects the tuned station. Done at once if that
  // takes a few milliseconds from that tick on, and else in turns; what the user asks of the window meanwhile is done
  // after it. False when another copy of the program runs already: then the program ends.
  [[nodiscard]] bool Form_Load(std::uint32_t begun_ms);
  void Form_Unload(); // hides the window and abandons what runs
  void show();        // restores it if minimised and brings it to the front
  // Selects a station and shows its details, if it is among the rows. Does nothing while the window loads: that ends
  // with it.
  void NajdiIndexRadia(const std::wstring& IDradia);

  std::function<void()> on_unload; // the user closed it; called after Form_Unload

  // Orders in the downloaded list. An information line runs events; orders that arrive after the window was closed are
  // ignored.
  void ZobrazReklamu(const std::wstring& text) override;
  void ZobrazInfoPanel(const std::wstring& text) override { panel_.ZobrazInfoPanel(text); }
  void orders_end() override;

private:
  void load(std::uint32_t begun_ms);
  void LoadOptions(); // the server address
  void set_texts();
  void load_pictures();
  void take_place();
  void keep_view();
  void say_what_to_do();
  void bind_lists();
  void bind_details();
  void bind_window();
  [[nodiscard]] bool window_key(platform::FramedWindowKey key);
  void ListView1_Click();
  void ListView1_KeyUp();
  [[nodiscard]] std::function<void()> once_loaded(std::function<void()> action); // a handler that waits for the loading
  void wait_for_loading(const std::function<void()>& action);
  void loaded();

  DirectoryUses uses_;
  KeptView& kept_view_;
  std::unique_ptr<platform::FramedWindow> window_;
  ListRadiosForm form_;
  Layout layout_;
  StationList list_;
  FilterLine filter_;
  Advert advert_;
  InfoPanelLine panel_;
  Details details_;
  Actions actions_;
  base::TextLines List2; // the lines of the server file
  Updater updater_;
  base::SteppedWork loading_;
  std::vector<std::function<void()>> waiting_; // what the user did while the window was loading
  bool loaded_ = false;
  platform::MouseButton pressed_ = platform::MouseButton::none; // on the list, for the next click
  bool closed_ = false;
};

} // namespace lumotune::directory
