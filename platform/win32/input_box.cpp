// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/input_box.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace lumotune::platform::win32 {
namespace {

constexpr std::size_t most_letters = 2000;
constexpr WORD id_prompt = 100;
constexpr WORD id_text = 101;

// The system's numbers for the classes of a template.
enum class TemplateClass : WORD { button = 0x80, edit = 0x81, text = 0x82 };

struct Place {
  short x, y, width, height; // dialog units: a quarter and an eighth of a letter
};

// A template as the system reads it: records of words, each control's at a multiple of four bytes.
class Template {
public:
  Template(Place place, WORD controls, const LOGFONTW& font, WORD points) {
    constexpr WORD extended = 0xffff;
    put<WORD>(1);
    put<WORD>(extended);
    put<DWORD>(0); // help
    put<DWORD>(0); // extended style
    put<DWORD>(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT | DS_SETFOREGROUND);
    put<WORD>(controls);
    put(place);
    put<WORD>(0); // no menu
    put<WORD>(0); // the usual class
    put<WORD>(0); // the title comes later
    put<WORD>(points);
    put<WORD>(static_cast<WORD>(font.lfWeight));
    put<BYTE>(font.lfItalic);
    put<BYTE>(font.lfCharSet);
    put_text(font.lfFaceName);
  }

  void add(TemplateClass kind, WORD id, DWORD style, Place place, const wchar_t* text) {
    bytes_.resize((bytes_.size() + 3) / 4 * 4);
    put<DWORD>(0); // help
    put<DWORD>(0); // extended style
    put<DWORD>(style | WS_CHILD | WS_VISIBLE);
    put(place);
    put<DWORD>(id);
    put<WORD>(0xffff);
    put(kind);
    put_text(text);
    put<WORD>(0); // no data for its making
  }

  [[nodiscard]] const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(bytes_.data()); }

private:
  template <typename Value>
  void put(Value value) {
    const std::size_t at = bytes_.size();
    bytes_.resize(at + sizeof value);
    std::memcpy(bytes_.data() + at, &value, sizeof value);
  }
  void put_text(const wchar_t* text) {
    do
      put<WORD>(static_cast<WORD>(*text));
    while (*text++ != 0);
  }

  std::vector<BYTE> bytes_;
};

// In the system's message font; the system itself scales a dialog with the resolution of its monitor.
Template make_template() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  LOGFONTW font{};
  WORD points = 9;
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0) != 0) {
    font = metrics.lfMessageFont;
    points = static_cast<WORD>(MulDiv(std::max(1L, std::abs(font.lfHeight)), 72, static_cast<int>(GetDpiForSystem())));
  }
  Template made({0, 0, 232, 68}, 4, font, points);
  made.add(TemplateClass::text, id_prompt, SS_LEFT | SS_NOPREFIX, {7, 7, 218, 9}, L"");
  made.add(TemplateClass::edit, id_text, ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, {7, 20, 218, 14}, L"");
  made.add(TemplateClass::button, IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP, {119, 47, 50, 14}, L"OK");
  made.add(TemplateClass::button, IDCANCEL, BS_PUSHBUTTON | WS_TABSTOP, {175, 47, 50, 14}, L"Storno");
  return made;
}

struct Answer {
  CaughtErrors& caught;
  bool done = false;
  std::optional<std::wstring> text;
};

std::wstring text_of(HWND control) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
  return text;
}

INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(dialog, DWLP_USER, l);
    return TRUE; // the text, the first that takes it, gets the keyboard
  }
  auto* answer = reinterpret_cast<Answer*>(GetWindowLongPtrW(dialog, DWLP_USER));
  if (answer == nullptr || answer->done || message != WM_COMMAND)
    return FALSE;
  if (LOWORD(w) == IDOK)
    answer->caught.guard([&] { answer->text = text_of(GetDlgItem(dialog, id_text)); });
  else if (LOWORD(w) != IDCANCEL) // Escape and the system's close come as this one too
    return FALSE;
  answer->done = true;
  return TRUE;
}

void centre(HWND dialog, HWND owner) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  RECT place{};
  if (GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTONEAREST), &monitor) == 0 ||
      GetWindowRect(dialog, &place) == 0)
    return;
  const RECT& room = monitor.rcWork;
  const int x = (room.left + room.right - (place.right - place.left)) / 2;
  const int y = (room.top + room.bottom - (place.bottom - place.top)) / 2;
  SetWindowPos(dialog, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Its own modal loop: DialogBox would not notice the end of the program.
void wait_for(const Answer& answer, HWND dialog, const platform::EventLoop& loop) {
  MSG message{};
  while (!answer.done && !loop.ending()) {
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got == 0)
      PostQuitMessage(static_cast<int>(message.wParam)); // it was meant for the loop outside
    if (got <= 0)
      return;
    if (IsDialogMessageW(dialog, &message) == 0) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
}

} // namespace

std::optional<std::wstring> InputBox::ask(const std::wstring& prompt, const std::wstring& title,
                                          const std::wstring& default_text) {
  loop_.check_thread();
  if (open_ || loop_.ending())
    return std::nullopt;
  Answer answer{loop_.caught(), false, std::nullopt};
  const HWND dialog = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), make_template().get(), owner_, procedure,
                                                 reinterpret_cast<LPARAM>(&answer));
  if (dialog == nullptr)
    return std::nullopt;
  open_ = true;
  const HWND text = GetDlgItem(dialog, id_text);
  SetPropW(dialog, L"InputBox.Form", reinterpret_cast<HANDLE>(1));
  SetPropW(text, L"InputBox.Text", reinterpret_cast<HANDLE>(1));
  SetWindowTextW(dialog, title.c_str());
  SetDlgItemTextW(dialog, id_prompt, prompt.c_str());
  SendMessageW(text, EM_LIMITTEXT, most_letters, 0);
  SetWindowTextW(text, default_text.substr(0, most_letters).c_str());
  SendMessageW(text, EM_SETSEL, 0, -1);
  centre(dialog, owner_);
  const bool owner_was_enabled = EnableWindow(owner_, FALSE) == 0;
  ShowWindow(dialog, SW_SHOW);
  wait_for(answer, dialog, loop_);
  // Before the box is destroyed: activation then goes to an enabled window.
  if (owner_was_enabled)
    EnableWindow(owner_, TRUE);
  DestroyWindow(dialog);
  open_ = false;
  return answer.text;
}

} // namespace lumotune::platform::win32
