// SPDX-License-Identifier: LGPL-2.1-or-later
// Reads the items of the main window's list, and the rows and nodes of the directory's.
#include "probe_commands.h"
#include "probe_windows.h"

#include <commctrl.h>

#include <cstdio>
#include <cstring>
#include <cwchar>

namespace probe {
namespace {

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

} // namespace

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

int print_item_place(int index) {
  const HWND list = control(L"Control_List");
  RECT place{}; // the messages of this old class carry their records from process to process
  SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
  MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&place), 2);
  std::printf("%ld\t%ld\n", place.left + 20, (place.top + place.bottom) / 2);
  return 0;
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

int print_nodes() {
  window_name = L"ListRadios";
  const HWND tree = control(L"TreeView1");
  if (tree == nullptr)
    return 1;
  const Remote remote(tree, remote_bytes);
  print_branch(tree, remote, next_of(tree, TVGN_ROOT, nullptr), 0);
  return 0;
}

int print_selected() {
  window_name = L"ListRadios";
  const LRESULT row = SendMessageW(control(L"ListView1"), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
  std::printf("%d\n", static_cast<int>(row) + 1);
  return 0;
}

} // namespace probe
