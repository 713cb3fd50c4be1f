// SPDX-License-Identifier: LGPL-2.1-or-later
// Reads the windows of the running program from outside, for the desktop tests.
//   probe controls [WINDOW]  a line for each control: name, class, visible, enabled, focus, left, top, width, height,
//   text probe items           the items of the favourites list, a line each;   probe item N  the place of one, from 0
//   probe rows            the rows of the directory's list: left, top, text, further columns
//   probe nodes           the nodes of the directory's tree: left, top, depth, selected, text
//   probe selected        number of the selected row of the list, from 1
//   probe boxes           every message box: caption and texts;   probe press CAPTION  presses a button of a box
//   probe menus           the places of the menus that are open: left, top, width, height
//   probe cancel          closes the open menus
//   probe command N       sends the main window the command of a keyboard's or remote control's special key
//   probe state WINDOW X   by its system menu: x maximizes, n minimizes, r restores it
//   probe close [WINDOW]   asks the main window to close, as the system does
//   probe endsession      tells the main window that the session ends
//   probe end NAME        asks the main window to close and, right behind that, clicks its control of that name
//   probe early TEXT      sends TEXT to a window captioned "Lumotune" the moment that there is one; waits half a minute
//   probe flood FILE      floods the main window with commands until FILE exists, for a minute; tells how many a second
// Everything is UTF-8 and separated by tabs; tabs and line ends inside texts become blanks.
#include <windows.h>

#include <commctrl.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

std::string utf8(std::wstring text) {
  for (wchar_t& c : text) {
    if (c == L'\t' || c == L'\r' || c == L'\n')
      c = L' ';
  }
  std::string bytes(text.size() * 3, '\0');
  bytes.resize(
      static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                                   static_cast<int>(bytes.size()), nullptr, nullptr)));
  return bytes;
}

std::wstring text_of(HWND window) {
  DWORD_PTR length = 0;
  if (SendMessageTimeoutW(window, WM_GETTEXTLENGTH, 0, 0, SMTO_ABORTIFHUNG, 2000, &length) == 0)
    return {};
  std::wstring text(length + 1, L'\0');
  DWORD_PTR got = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_ABORTIFHUNG, 2000,
                      &got);
  text.resize(got);
  return text;
}

std::wstring class_of(HWND window) {
  wchar_t name[128] = {};
  GetClassNameW(window, name, 128);
  return name;
}

std::wstring window_name = L"Lumotune";

BOOL CALLBACK note_property(HWND, LPWSTR name, HANDLE, ULONG_PTR found) {
  const std::wstring prefix = window_name + L".";
  // Some properties are named by a number.
  if (reinterpret_cast<ULONG_PTR>(name) > 0xffff && std::wstring_view(name).starts_with(prefix) &&
      std::wstring_view(name) != L"Lumotune.Hook")
    *reinterpret_cast<std::wstring*>(found) = name + prefix.size();
  return TRUE;
}

std::wstring designer_name(HWND window) {
  std::wstring name;
  EnumPropsExW(window, note_property, reinterpret_cast<LPARAM>(&name));
  return name;
}

BOOL CALLBACK collect(HWND window, LPARAM all) {
  reinterpret_cast<std::vector<HWND>*>(all)->push_back(window);
  return TRUE;
}

HWND main_window() {
  std::vector<HWND> all;
  EnumWindows(collect, reinterpret_cast<LPARAM>(&all));
  for (const HWND window : all) {
    if (designer_name(window) == L"Form")
      return window;
  }
  return nullptr;
}

void print_control(const std::wstring& name, HWND window, HWND focus) {
  RECT place{};
  GetWindowRect(window, &place);
  const bool own = (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
  std::printf("%s\t%s\t%d\t%d\t%d\t%ld\t%ld\t%ld\t%ld\t%s\t%d\n", utf8(name).c_str(), utf8(class_of(window)).c_str(),
              own, IsWindowEnabled(window) != 0, window == focus, place.left, place.top, place.right - place.left,
              place.bottom - place.top, utf8(text_of(window)).c_str(),
              (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0);
}

int print_controls() {
  const HWND form = main_window();
  if (form == nullptr)
    return 1;
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(form, nullptr), &info);
  print_control(L"Form", form, info.hwndFocus);
  std::vector<HWND> children;
  EnumChildWindows(form, collect, reinterpret_cast<LPARAM>(&children));
  for (const HWND child : children) {
    if (const std::wstring name = designer_name(child); !name.empty())
      print_control(name, child, info.hwndFocus);
  }
  return 0;
}

HWND control(const wchar_t* name) {
  std::vector<HWND> children;
  EnumChildWindows(main_window(), collect, reinterpret_cast<LPARAM>(&children));
  for (const HWND child : children) {
    if (designer_name(child) == name)
      return child;
  }
  return nullptr;
}

int print_items() {
  const HWND list = control(L"Control_List");
  const LRESULT count = SendMessageW(list, LB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    std::wstring text(static_cast<std::size_t>(SendMessageW(list, LB_GETTEXTLEN, static_cast<WPARAM>(i), 0)) + 1,
                      L'\0');
    SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    std::printf("%s\n", utf8(text).c_str());
  }
  return 0;
}

// A piece of the other process's memory, which its controls read from and write to.
class Remote {
public:
  Remote(HWND window, std::size_t bytes) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    place_ = VirtualAllocEx(process_, nullptr, bytes, MEM_COMMIT, PAGE_READWRITE);
  }
  Remote(const Remote&) = delete;
  Remote& operator=(const Remote&) = delete;
  ~Remote() {
    VirtualFreeEx(process_, place_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }
  [[nodiscard]] char* at(std::size_t offset) const { return static_cast<char*>(place_) + offset; }
  void write(const void* from, std::size_t bytes) const { WriteProcessMemory(process_, place_, from, bytes, nullptr); }
  void read(std::size_t offset, void* to, std::size_t bytes) const {
    ReadProcessMemory(process_, at(offset), to, bytes, nullptr);
  }

private:
  HANDLE process_ = nullptr;
  void* place_ = nullptr;
};

constexpr int text_characters = 512;
constexpr std::size_t text_offset = 256; // in the remote piece, behind the record
constexpr std::size_t remote_bytes = text_offset + text_characters * sizeof(wchar_t);

// What a control wrote behind the record.
std::wstring remote_text(const Remote& remote) {
  std::wstring text(text_characters, L'\0');
  remote.read(text_offset, text.data(), text.size() * sizeof(wchar_t));
  text.resize(wcsnlen(text.c_str(), text.size()));
  return text;
}

int print_rows() {
  window_name = L"ListRadios";
  const HWND list = control(L"ListView1");
  if (list == nullptr)
    return 1;
  const Remote remote(list, remote_bytes);
  const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
  for (int row = 0; row < count; ++row) {
    RECT place{};
    place.left = LVIR_LABEL;
    remote.write(&place, sizeof place);
    SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(remote.at(0)));
    remote.read(0, &place, sizeof place);
    MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&place), 2);
    std::printf("%ld\t%ld", place.left + 8, (place.top + place.bottom) / 2);
    for (int column = 0; column < 2; ++column) {
      LVITEMW item{};
      item.iSubItem = column;
      item.pszText = reinterpret_cast<LPWSTR>(remote.at(text_offset));
      item.cchTextMax = text_characters;
      remote.write(&item, sizeof item);
      SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(remote.at(0)));
      std::printf("\t%s", utf8(remote_text(remote)).c_str());
    }
    std::printf("\n");
  }
  return 0;
}

HTREEITEM next_of(HWND tree, WPARAM which, HTREEITEM node) {
  return reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(node)));
}

void print_branch(HWND tree, const Remote& remote, HTREEITEM node, int depth) {
  for (; node != nullptr; node = next_of(tree, TVGN_NEXT, node)) {
    RECT place{};
    memcpy(&place, &node, sizeof node); // the record names the node that is meant
    remote.write(&place, sizeof place);
    const bool seen = SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(remote.at(0))) != 0;
    remote.read(0, &place, sizeof place);
    MapWindowPoints(tree, nullptr, reinterpret_cast<POINT*>(&place), 2);
    TVITEMW item{};
    item.mask = TVIF_TEXT | TVIF_STATE;
    item.stateMask = TVIS_SELECTED;
    item.hItem = node;
    item.pszText = reinterpret_cast<LPWSTR>(remote.at(text_offset));
    item.cchTextMax = text_characters;
    remote.write(&item, sizeof item);
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(remote.at(0)));
    remote.read(0, &item, sizeof item);
    std::printf("%ld\t%ld\t%d\t%d\t%s\n", seen ? place.left + 8 : -1, seen ? (place.top + place.bottom) / 2 : -1, depth,
                (item.state & TVIS_SELECTED) != 0, utf8(remote_text(remote)).c_str());
    print_branch(tree, remote, next_of(tree, TVGN_CHILD, node), depth + 1);
  }
}

int print_nodes() {
  window_name = L"ListRadios";
  const HWND tree = control(L"TreeView1");
  if (tree == nullptr)
    return 1;
  const Remote remote(tree, remote_bytes);
  print_branch(tree, remote, next_of(tree, TVGN_ROOT, nullptr), 0);
  return 0;
}

int print_item_place(int index) {
  const HWND list = control(L"Control_List");
  RECT place{}; // the messages of this old class carry their records from process to process
  SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
  MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&place), 2);
  std::printf("%ld\t%ld\n", place.left + 20, (place.top + place.bottom) / 2);
  return 0;
}

int print_selected() {
  window_name = L"ListRadios";
  const LRESULT row = SendMessageW(control(L"ListView1"), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
  std::printf("%d\n", static_cast<int>(row) + 1);
  return 0;
}

// As the buttons of the caption do it.
int change_state(const wchar_t* window, wchar_t state) {
  window_name = window;
  const WPARAM command = state == L'x' ? SC_MAXIMIZE : state == L'n' ? SC_MINIMIZE : SC_RESTORE;
  return PostMessageW(main_window(), WM_SYSCOMMAND, command, 0) != 0 ? 0 : 1;
}

int print_menus() {
  std::vector<HWND> all;
  EnumWindows(collect, reinterpret_cast<LPARAM>(&all));
  for (const HWND menu : all) {
    RECT place{};
    if (class_of(menu) == L"#32768" && IsWindowVisible(menu) != 0 && GetWindowRect(menu, &place) != 0)
      std::printf("%ld\t%ld\t%ld\t%ld\n", place.left, place.top, place.right - place.left, place.bottom - place.top);
  }
  return 0;
}

// Whichever window the menu belongs to.
int cancel_menus() {
  for (const wchar_t* name : {L"Lumotune", L"ListRadios"}) {
    window_name = name;
    if (const HWND window = main_window())
      PostMessageW(window, WM_CANCELMODE, 0, 0);
  }
  return 0;
}

int for_boxes(const wchar_t* button) {
  std::vector<HWND> all;
  EnumWindows(collect, reinterpret_cast<LPARAM>(&all));
  int found = 1;
  for (const HWND box : all) {
    if (class_of(box) != L"#32770" || IsWindowVisible(box) == 0)
      continue;
    std::vector<HWND> children;
    EnumChildWindows(box, collect, reinterpret_cast<LPARAM>(&children));
    if (button == nullptr) {
      found = 0;
      std::printf("%s", utf8(text_of(box)).c_str());
      for (const HWND child : children)
        std::printf("\t%s", utf8(text_of(child)).c_str());
      std::printf("\n");
      continue;
    }
    for (const HWND child : children) {
      if (text_of(child) == button) {
        PostMessageW(child, BM_CLICK, 0, 0);
        return 0;
      }
    }
  }
  return found;
}

// From several threads, so that a command waits whenever one was taken.
int flood(const wchar_t* until) {
  constexpr int senders = 4;
  constexpr ULONGLONG longest_ms = 60000;
  const HWND window = main_window();
  const ULONGLONG begun = GetTickCount64();
  std::atomic<unsigned> sent = 0;
  std::atomic<bool> over = false;
  std::vector<std::thread> threads;
  for (int i = 0; i < senders; ++i) {
    threads.emplace_back([&] {
      char text[] = "idk:1";
      COPYDATASTRUCT command{1, sizeof text - 1, text};
      while (!over) {
        DWORD_PTR taken = 0;
        if (SendMessageTimeoutW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&command), SMTO_NORMAL, 5000,
                                &taken) != 0)
          ++sent;
      }
    });
  }
  while (GetFileAttributesW(until) == INVALID_FILE_ATTRIBUTES && GetTickCount64() - begun < longest_ms)
    Sleep(10);
  const ULONGLONG lasted = GetTickCount64() - begun;
  over = true;
  for (std::thread& thread : threads)
    thread.join();
  std::printf("%u\t%u\n", sent.load(), static_cast<unsigned>(sent * 1000ULL / (lasted + 1)));
  return 0;
}

// Both wait in the queue before the first is taken out of it.
int end_and_click(const wchar_t* name) {
  const HWND window = main_window();
  const HWND target = control(name);
  return PostMessageW(window, WM_CLOSE, 0, 0) != 0 && PostMessageW(target, BM_CLICK, 0, 0) != 0 ? 0 : 1;
}

int send_early(const std::wstring& text) {
  constexpr ULONGLONG longest_ms = 30000;
  const ULONGLONG begun = GetTickCount64();
  HWND window = nullptr;
  while (window == nullptr && GetTickCount64() - begun < longest_ms)
    window = FindWindowA(nullptr, "Lumotune");
  std::string bytes = utf8(text);
  COPYDATASTRUCT command{1, static_cast<DWORD>(bytes.size()), bytes.data()};
  DWORD_PTR answer = 0;
  SendMessageTimeoutW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&command), SMTO_NORMAL, 20000, &answer);
  return answer == static_cast<DWORD_PTR>(-1) ? 0 : 1;
}

} // namespace

int wmain(int count, wchar_t** words) {
  const std::wstring_view what = count > 1 ? words[1] : L"";
  if (what == L"controls") {
    if (count > 2)
      window_name = words[2];
    return print_controls();
  }
  if (what == L"rows")
    return print_rows();
  if (what == L"nodes")
    return print_nodes();
  if (what == L"selected")
    return print_selected();
  if (what == L"menus")
    return print_menus();
  if (what == L"cancel")
    return cancel_menus();
  if (what == L"command" && count > 2)
    return SendMessageW(main_window(), WM_APPCOMMAND, 0, MAKELPARAM(0, _wtoi(words[2]))) != 0 ? 0 : 1;
  if (what == L"item" && count > 2)
    return print_item_place(_wtoi(words[2]));
  if (what == L"items")
    return print_items();
  if (what == L"boxes")
    return for_boxes(nullptr);
  if (what == L"press" && count > 2)
    return for_boxes(words[2]);
  if (what == L"end" && count > 2)
    return end_and_click(words[2]);
  if (what == L"early" && count > 2)
    return send_early(words[2]);
  if (what == L"flood" && count > 2)
    return flood(words[2]);
  if (what == L"state" && count > 3)
    return change_state(words[2], words[3][0]);
  if (what == L"close" && count > 2)
    window_name = words[2];
  if (what == L"close")
    return PostMessageW(main_window(), WM_CLOSE, 0, 0) != 0 ? 0 : 1;
  if (what == L"endsession") {
    SendMessageW(main_window(), WM_QUERYENDSESSION, 0, 0);
    return PostMessageW(main_window(), WM_ENDSESSION, TRUE, 0) != 0 ? 0 : 1;
  }
  return 2;
}
