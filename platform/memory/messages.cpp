// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/messages.h"

#include "platform/common/program_file.h"

#include <utility>

namespace lumotune::platform::memory {

WindowRef Messages::find_by_caption(const std::wstring& caption) const {
  thread_.check();
  if (caption.empty() || caption.size() > max_caption)
    return WindowRef::none;
  looked_up.push_back(caption);
  if (on_look_up)
    on_look_up(caption);
  const auto found = windows_.find(caption);
  return found == windows_.end() ? WindowRef::none : found->second;
}

WindowRef Messages::find_copy(const std::wstring& caption) const {
  thread_.check();
  const auto found = copies_.find(caption);
  return found != copies_.end() ? found->second : find_by_caption(caption);
}

void Messages::send_copy_data(WindowRef target, std::string_view bytes) {
  thread_.check();
  if (target != WindowRef::none && bytes.size() <= max_bytes)
    sent.push_back({target, std::string(bytes)});
}

bool Messages::sending() const {
  thread_.check();
  return busy_looks > 0 && busy_looks-- > 0;
}

void Messages::let_take_foreground(WindowRef target) {
  thread_.check();
  foreground_given.push_back(target);
}

void Messages::hook(std::function<void(const CopyData&)> receive) {
  thread_.check();
  receive_ = std::move(receive);
}

int Messages::deliver(const std::string& bytes, std::uint32_t kind) {
  if (!receive_)
    return 0;
  const auto receive = receive_;
  receive(CopyData{kind, bytes.size() > max_bytes ? std::string() : bytes});
  return -1;
}

bool Dialogs::bring_forward() {
  if (open_ == 0)
    return false;
  ++brought_forward;
  return true;
}

BoxAnswer Dialogs::message(const std::wstring& text, const std::wstring& title, BoxIcon icon, BoxButtons buttons) {
  const BoxAnswer unanswered = buttons == BoxButtons::ok ? BoxAnswer::ok : BoxAnswer::no;
  if (loop_.ending())
    return unanswered;
  shown.push_back({text, title, icon, buttons});
  ++open_;
  modal.open(while_open);
  --open_;
  if (answers.empty() || loop_.ending())
    return unanswered;
  const BoxAnswer answer = answers.front();
  answers.pop_front();
  return answer;
}

bool Shell::start(const std::wstring& command_line, const std::wstring& application, ShowWindow show) {
  if (program_file(command_line, application).name.empty())
    return false;
  started.push_back({command_line, application, show});
  if (start_works && on_start)
    on_start(Started{started.back()});
  return start_works;
}

int Shell::open(const std::wstring& quoted_target) {
  opened.push_back(quoted_target);
  return open_answer;
}

void Tray::add(const std::wstring& text) {
  thread_.check();
  added = true;
  tip = text.substr(0, max_tip);
}

void Tray::modify(const std::wstring& text) {
  thread_.check();
  if (!added)
    return;
  tip = text.substr(0, max_tip);
  ++modified;
}

void Tray::remove() {
  thread_.check();
  added = false;
}

} // namespace lumotune::platform::memory
