// SPDX-License-Identifier: LGPL-2.1-or-later
// A headless framed window with simulated user actions, for tests.
#pragma once

#include "platform/framed_window.h"
#include "platform/memory/window.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace lumotune::platform::memory {

class TreeView final : public ControlOf<platform::TreeView> {
public:
  using ControlOf::ControlOf;
  void clear() override;
  [[nodiscard]] bool add(const std::wstring& key, const std::wstring& parent_key, const std::wstring& text) override;
  [[nodiscard]] std::size_t count() const override { return nodes_.size(); }
  [[nodiscard]] std::wstring key(std::size_t index) const override;
  [[nodiscard]] std::wstring node_text(std::size_t index) const override;
  [[nodiscard]] std::size_t selected() const override { return selected_; }
  [[nodiscard]] bool expanded(std::size_t index) const override;
  void expand(std::size_t index) override;
  void select(std::size_t index) override;
  [[nodiscard]] std::size_t parent(std::size_t index) const; // 0 for a root
  [[nodiscard]] std::size_t find(const std::wstring& key) const;

  bool user_pick(std::size_t index);                   // clicks the node
  bool user_arrow(std::size_t index);                  // moves to the node with the keyboard
  bool user_expands(std::size_t index, bool expanded); // clicks its button
  bool user_enter();                                   // presses Enter on the selected node, which stays selected

private:
  struct Node {
    std::wstring key;
    std::wstring text;
    std::size_t parent = 0;
    bool expanded = false;
  };
  std::vector<Node> nodes_;
  std::size_t selected_ = 0;
};

class ListView final : public ControlOf<platform::ListView> {
public:
  struct Column {
    std::wstring key;
    std::wstring caption;
    int width = 0;
  };
  using ControlOf::ControlOf;
  void set_rows(const RowModel* rows) override;
  void add_column(const std::wstring& key, const std::wstring& caption, int width) override;
  void rows_changed() override;
  [[nodiscard]] std::size_t selected() const override { return selected_ <= count() ? selected_ : 0; }
  void select(std::size_t index) override;
  void take_keyboard() override { take_focus(); }
  void set_empty_text(const std::wstring& text) override { empty_text_ = text; }
  [[nodiscard]] std::wstring empty_text() const override { return empty_text_; }
  [[nodiscard]] std::size_t count() const { return rows_ == nullptr ? 0 : std::min(told_, rows_->count()); }
  [[nodiscard]] std::wstring cell(std::size_t row, std::size_t column) const;
  [[nodiscard]] const std::vector<Column>& columns() const { return columns_; }

  bool user_pick(std::size_t index, MouseButton button);
  bool user_double_pick(std::size_t index);
  bool user_arrow(std::size_t index);
  bool user_type(wchar_t character);

  int changes = 0; // number of calls of rows_changed

private:
  const RowModel* rows_ = nullptr;
  std::size_t told_ = 0; // number of rows at the last rows_changed: the list asks its model for no more
  std::vector<Column> columns_;
  std::wstring empty_text_;
  std::size_t selected_ = 0;
};

class TextEntry final : public ControlOf<platform::TextEntry> {
public:
  using ControlOf::ControlOf;
  void set_cue(const std::wstring& cue) override { cue_ = cue; }
  [[nodiscard]] std::wstring cue() const override { return cue_; }
  void take_keyboard() override { take_focus(); }

  bool user_writes(const std::wstring& text); // replaces what is there
  bool user_enter();

private:
  std::wstring cue_;
};

class TextBox final : public ControlOf<platform::TextBox> {
public:
  using ControlOf::ControlOf;
};

class ProgressBar final : public ControlOf<platform::ProgressBar> {
public:
  using ControlOf::ControlOf;
  void set_percent(int percent) override { percent_ = percent < 0 ? 0 : percent > 100 ? 100 : percent; }
  [[nodiscard]] int percent() const override { return percent_; }

private:
  int percent_ = 0;
};

class Frame final : public ControlOf<platform::Frame> {
public:
  using ControlOf::ControlOf;
};

class Browser final : public ControlOf<platform::Browser> {
public:
  using ControlOf::ControlOf;
  void navigate(const std::wstring& address) override { visited.push_back(address); }
  std::vector<std::wstring> visited;
};

class FramedWindow final : public platform::FramedWindow {
public:
  FramedWindow(std::wstring name, const platform::Files& files) : name_(std::move(name)), files_(files) {
    note_sight();
  }

  [[nodiscard]] platform::TreeView& make_tree(const std::wstring& designer_name) override;
  [[nodiscard]] platform::ListView& make_list_view(const std::wstring& designer_name) override;
  [[nodiscard]] platform::Label& make_label(const std::wstring& designer_name, LabelKind kind, LabelFont font) override;
  [[nodiscard]] platform::Button& make_button(const std::wstring& designer_name) override;
  [[nodiscard]] platform::PictureBox& make_picture(const std::wstring& designer_name, PictureKind kind) override;
  [[nodiscard]] platform::TextBox& make_text_box(const std::wstring& designer_name) override;
  [[nodiscard]] platform::TextEntry& make_text_entry(const std::wstring& designer_name) override;
  [[nodiscard]] platform::ProgressBar& make_progress(const std::wstring& designer_name) override;
  [[nodiscard]] platform::Frame& make_frame(const std::wstring& designer_name) override;
  [[nodiscard]] platform::Browser& make_browser(const std::wstring& designer_name) override;

  void set_caption(const std::wstring& caption) override;
  [[nodiscard]] std::wstring caption() const override { return caption_; }
  void set_visible(bool visible) override;
  [[nodiscard]] bool visible() const override { return visible_; }
  [[nodiscard]] bool minimized() const override { return minimized_; }
  void activate() override;
  void resize(int width, int height) override;
  void move(int left, int top) override;
  [[nodiscard]] TwipsRect rect() const override { return rect_; }
  void set_minimum(int width, int height) override;
  // The frame is 120 twips wide on each side, the caption 435 high. A minimised window has no client area.
  [[nodiscard]] int client_width() const override { return minimized_ ? 0 : std::max(outside().width - 240, 0); }
  [[nodiscard]] int client_height() const override {
    return minimized_ ? 0 : std::max(outside().height - frame_height(), 0);
  }
  [[nodiscard]] int frame_height() const override { return 675; }

  // The control of that name and kind; nullptr when there is none.
  template <typename Kind>
  [[nodiscard]] Kind* find(const std::wstring& name) const {
    for (const auto& control : controls_) {
      if (control->name() == name)
        return dynamic_cast<Kind*>(control.get());
    }
    return nullptr;
  }
  [[nodiscard]] std::vector<std::wstring> control_names() const { return names_of(controls_); }
  [[nodiscard]] const std::wstring& name() const { return name_; }
  void user_minimize();
  void user_maximize();
  void user_restore();
  void user_move(int left, int top); // as done by a window-arranging program, which may move it anywhere
  void user_changes_monitor(const TwipsRect& whole, const TwipsRect& without_task_bar);
  void user_leaves() { keyboard_.window_active(false); }
  void user_tab(bool back) { keyboard_.tab(back); }
  // The tab stops in order of creation.
  [[nodiscard]] std::vector<std::wstring> made_stops() const;
  [[nodiscard]] bool has_keyboard() const { return keyboard_.active(); }
  [[nodiscard]] std::wstring keyboard_at() const { return keyboard_.at() == nullptr ? L"" : keyboard_.at()->name(); }
  void user_resize(int width, int height);
  void user_close();
  bool user_key(FramedWindowKey key); // whether it was used up

  // The system's minimum window size in twips, and the only monitor, with and without the task bar.
  static constexpr int system_minimum_width = 136 * 15;
  static constexpr int system_minimum_height = 39 * 15;
  std::function<void()> while_activating; // runs once: events that the system dispatches during activation
  TwipsRect monitor{0, 0, 1920 * 15, 1080 * 15};
  TwipsRect work_area{0, 0, 1920 * 15, 1040 * 15};
  int activated = 0;
  std::pair<int, int> minimum;

private:
  [[nodiscard]] const TwipsRect& outside() const { return maximized_ ? work_area : rect_; }
  [[nodiscard]] bool in_normal_state() const { return !minimized_ && !maximized_; }
  void tell_size();
  void note_sight();
  void move_to(const ScreenPoint& corner);
  void come_into_view();
  template <typename Kind, typename... Arguments>
  Kind& make_stop(Arguments&&... arguments) {
    Kind& made = make<Kind>(std::forward<Arguments>(arguments)...);
    made.be_stop_of(keyboard_);
    return made;
  }
  template <typename Kind, typename... Arguments>
  Kind& make(Arguments&&... arguments) {
    auto made = std::make_unique<Kind>(std::forward<Arguments>(arguments)...);
    Kind& reference = *made;
    reference.be_in(keyboard_);
    controls_.push_back(std::move(made));
    return reference;
  }

  const ThreadCheck thread_{"user-interface thread"};
  std::wstring name_;
  const platform::Files& files_;
  Keyboard keyboard_;
  std::vector<std::unique_ptr<Control>> controls_;
  std::wstring caption_;
  bool visible_ = false;
  bool minimized_ = false;
  bool maximized_ = false;
  bool owed_ = false; // rect_ was resized while minimised or maximised; applied on restore
  TwipsRect rect_{1500, 1500, 9000, 6000};
  ViewKeeper view_;
};

class FramedWindowMaker final : public platform::FramedWindowMaker {
public:
  explicit FramedWindowMaker(const platform::Files& files) : files_(files) {}
  [[nodiscard]] std::unique_ptr<platform::FramedWindow> make(const std::wstring& name) override;

  std::function<void(FramedWindow&)> on_make; // called with each new window
  FramedWindow* last = nullptr;               // the latest one; dangling once its owner has destroyed it
  int made = 0;

private:
  const platform::Files& files_;
};

} // namespace lumotune::platform::memory
