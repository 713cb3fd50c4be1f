// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/list_radios.h"

#include "base/server_file.h"

#include <cstddef>
#include <utility>

namespace lumotune::directory {
namespace {

constexpr const wchar_t* window_name = L"ListRadios";
constexpr wchar_t enter_key = 13;
constexpr std::size_t most_waiting = 100; // actions; other programs can send clicks as fast as they like

} // namespace

ListRadios::ListRadios(const DirectoryUses& uses, AdvertState& advert_state, KeptView& kept_view)
    : uses_(uses),
      kept_view_(kept_view),
      window_(uses.windows.make(window_name)),
      form_(*window_),
      layout_(form_),
      list_({form_, uses.station_files, uses.folder.codec(), uses.session, uses.favourites}),
      filter_({form_, layout_, list_}),
      advert_({form_, layout_, advert_state}),
      panel_({form_, layout_, uses.settings, uses.loop, uses.dialogs, uses.shell, uses.folder, uses.sender,
              uses.identity, uses.web}),
      details_({form_, list_, uses.main_form, uses.settings, uses.stations, uses.playback, uses.shell, uses.folder,
                uses.dialogs, advert_}),
      actions_({form_, list_, details_, uses.identity, uses.settings, uses.favourites, uses.sender, uses.menus,
                uses.loop, uses.shell, uses.folder, uses.dialogs, uses.web}),
      updater_({form_, list_, *this, uses.station_files, uses.settings, uses.loop, uses.folder, uses.shell,
                uses.dialogs, uses.connection, uses.worker}),
      loading_(uses.loop) {
  set_texts();
  load_pictures();
  form_.InfoPanel.set_visible(false);
  form_.ImageInPan.set_visible(false);
  form_.Progress.set_visible(false);
  layout_.set_up();
  take_place();
  bind_window();
  bind_lists();
  bind_details();
}

ListRadios::~ListRadios() = default;

// Showing the window delivers messages sent by other programs: it may be closed by then, which gives the rest up.
bool ListRadios::Form_Load(std::uint32_t begun_ms) {
  if (uses_.machine.previous_instance()) {
    uses_.loop.quit();
    return false;
  }
  list_.make_columns();
  list_.set_open_categories(kept_view_.open_categories);
  load(begun_ms);
  return true;
}

void ListRadios::take_place() {
  if (!kept_view_.place)
    return;
  window_->move(kept_view_.place->left, kept_view_.place->top);
  window_->resize(kept_view_.place->width, kept_view_.place->height);
  layout_.place();
}

// A tree that is not filled yet has nothing open.
void ListRadios::keep_view() {
  kept_view_.place = window_->rect();
  if (loaded_)
    kept_view_.open_categories = list_.open_categories();
}

// Opening the window starts an update, whatever became of the last one.
void ListRadios::say_what_to_do() {
  const bool connected = uses_.connection.state().connected;
  list_.set_no_stations_text(connected ? L"Seznam rádií se stahuje, za chvíli bude tady. Pokud ne, otevřete okno znovu."
                                       : L"Nejste připojeni k internetu. Připojte se a otevřete okno znovu.");
}

void ListRadios::load(std::uint32_t begun_ms) {
  const auto whole = [](auto step) {
    return [step] {
      step();
      return true;
    };
  };
  loading_.start(
      {whole([this] { show(); }), whole([this] { list_.NactiKategorie(); }), whole([this] { LoadOptions(); }),
       // without the file, keep the values read at start
       whole([this] { (void)uses_.identity.LoadOptionsLodin(); }), whole([this] { say_what_to_do(); }),
       whole([this] { list_.begin_listing(); }), [this] { return list_.list_more(); },
       whole([this] { list_.end_listing(); }), whole([this] { updater_.LoadAktualizaceRadii(); }),
       whole([this] { updater_.watch_for_categories(); }), whole([this] { list_.index_table(); })},
      [this] { loaded(); }, begun_ms);
}

// A waiting action may open a box, and the window be closed meanwhile.
void ListRadios::loaded() {
  loaded_ = true;
  NajdiIndexRadia(uses_.settings.IDlastRadio);
  for (const auto& action : std::exchange(waiting_, {})) {
    if (closed_ || uses_.loop.quitting())
      return;
    action();
  }
}

// Runs the action once the list is complete, so that no event handler sees a partly filled one.
void ListRadios::wait_for_loading(const std::function<void()>& action) {
  if (loaded_)
    action();
  else if (!closed_ && waiting_.size() < most_waiting)
    waiting_.push_back(action);
}

std::function<void()> ListRadios::once_loaded(std::function<void()> action) {
  return [this, action = std::move(action)] { wait_for_loading(action); };
}

void ListRadios::Form_Unload() {
  closed_ = true;
  keep_view();
  loading_.give_up();
  updater_.close();
  panel_.close();
  window_->set_visible(false);
}

void ListRadios::LoadOptions() {
  base::read_server_file(uses_.folder, uses_.error_log, L"LoadOptions", List2, uses_.settings.server_address);
}

void ListRadios::show() {
  window_->set_visible(true);
  window_->activate();
}

void ListRadios::NajdiIndexRadia(const std::wstring& IDradia) {
  if (!loaded_)
    return;
  if (list_.filtered_away(IDradia))
    (void)filter_.close();
  list_.select_station(IDradia);
  details_.show_all();
  details_.NactiInfoRadio();
}

void ListRadios::ZobrazReklamu(const std::wstring& text) {
  if (!closed_)
    advert_.take_order(text);
}

void ListRadios::orders_end() {
  if (!closed_)
    advert_.request_page();
}

void ListRadios::set_texts() {
  window_->set_caption(L"Seznam rádií");
  form_.TreeView1.set_text(L"Kategorie rádií");
  form_.ListView1.set_text(L"Rádia");
  form_.Text1.set_tooltip(L"O rádiu");
  form_.Label8.set_text(L"Vybrané rádio:");
  form_.Label7.set_text(L"Naladit rádio");
  form_.Label5.set_text(L"Přidat rádio do rychlého seznamu");
  form_.Label9.set_text(L"Zobrazit posluchače");
  form_.Label10.set_text(L"Diskuze k rádiové stanici");
  form_.Label6.set_text(L"Mám potíže s poslechem tohoto rádia");
  form_.Command1.set_text(L"Aktualizovat seznam");
  form_.Image3.set_text(L"Orb");
  form_.Image3.set_tooltip(L"Přihlásit se na Orb");
}

// Missing pictures are not an error.
void ListRadios::load_pictures() {
  const std::wstring folder = uses_.folder.data(L"pictures\\");
  (void)form_.Image3.load_picture(folder + L"logo.gif");
  (void)form_.ImageInPan.load_picture(folder + L"info.gif");
}

void ListRadios::bind_window() {
  window_->on_resize = [this] { layout_.place(); };
  window_->on_window_key = [this](platform::FramedWindowKey key) { return window_key(key); };
  // Ignore a second close request before destruction.
  window_->on_close = [this] {
    if (closed_)
      return;
    Form_Unload();
    if (const auto copy = on_unload)
      copy();
  };
  form_.Command1.on_click = once_loaded([this] { updater_.Command1_Click(); });
  form_.InfoPanel.on_click = once_loaded([this] { panel_.InfoPanel_Click(); });
  form_.InfoPanel.on_mouse_move = [this](const platform::MouseEvent&) { panel_.InfoPanel_MouseMove(); };
  form_.InfoPanel.on_mouse_down = [this](const platform::MouseEvent&) { panel_.InfoPanel_MouseDown(); };
  form_.ImageInPan.on_mouse_move = [this](const platform::MouseEvent&) { panel_.ImageInPan_MouseMove(); };
}

// Escape closes nothing else here.
bool ListRadios::window_key(platform::FramedWindowKey key) {
  if (key == platform::FramedWindowKey::escape)
    return filter_.close();
  wait_for_loading([this] { filter_.open(); });
  return true;
}

void ListRadios::bind_lists() {
  const auto choose = once_loaded([this] { list_.choose_category(); });
  form_.TreeView1.on_click = choose;
  form_.TreeView1.on_key_up = choose;
  form_.ListView1.on_mouse_down = [this](const platform::MouseEvent& event) { pressed_ = event.button; };
  const auto tune = once_loaded([this] { actions_.tune_row(); });
  form_.ListView1.on_click = once_loaded([this] { ListView1_Click(); });
  form_.ListView1.on_key_up = once_loaded([this] { ListView1_KeyUp(); });
  form_.ListView1.on_double_click = tune;
  form_.ListView1.on_menu_key = [this] {
    pressed_ = platform::MouseButton::right; // so that the click opens the menu
    wait_for_loading([this] { ListView1_Click(); });
  };
  form_.ListView1.on_key_press = [tune](wchar_t character) {
    if (character == enter_key)
      tune();
  };
}

void ListRadios::bind_details() {
  const auto on_link = [this](platform::Label& label, void (Actions::*action)()) {
    label.on_click = once_loaded([this, action] { (actions_.*action)(); });
    label.on_mouse_move = [this, &label](const platform::MouseEvent&) { details_.hover(label); };
  };
  on_link(form_.Label4, &Actions::Label4_Click);
  on_link(form_.Label5, &Actions::Label5_Click);
  on_link(form_.Label6, &Actions::Label6_Click);
  on_link(form_.Label7, &Actions::Label7_Click);
  on_link(form_.Label9, &Actions::Label9_Click);
  on_link(form_.Label10, &Actions::Label10_Click);
  form_.Image3.on_click = once_loaded([this] { actions_.Image3_Click(); });
  details_.ZpetMouseMove(); // the links look the same before the first mouse move as after it
  const auto back = [this](const platform::MouseEvent&) { details_.ZpetMouseMove(); };
  form_.Frame1.on_mouse_move = back;
  form_.Image1.on_mouse_move = back;
  form_.ListView1.on_mouse_move = back;
  form_.Text1.on_mouse_move = back;
}

void ListRadios::ListView1_KeyUp() {
  list_.remember_row();
  if (!list_.row_selected())
    return;
  details_.show_quality_choice();
  details_.show_fields();
  details_.NactiInfoRadio();
}

void ListRadios::ListView1_Click() {
  if (pressed_ == platform::MouseButton::left)
    return ListView1_KeyUp();
  list_.remember_row();
  if (!list_.row_selected())
    return;
  details_.show_quality_choice();
  if (pressed_ == platform::MouseButton::right) {
    details_.hide_fields();
    actions_.pop_up_station_menu();
  }
}

} // namespace lumotune::directory
