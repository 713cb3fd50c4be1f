// SPDX-License-Identifier: LGPL-2.1-or-later
// How long the list of the main window takes for 5,000 favourites that are all replaced, as after one was removed:
// shown in a window, hidden, and against a bare list box that nobody sees. Ends with 1 when a limit is passed.
#include "platform/win32/backend.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace lumotune::platform;

constexpr int favourites = 5000;
constexpr int rounds = 7;
constexpr double limit_ms = 200;

double now_ms() {
  LARGE_INTEGER frequency{};
  LARGE_INTEGER now{};
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&now);
  return static_cast<double>(now.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

template <typename Work>
double best_ms(const Work& work) {
  double best = 1e9;
  for (int i = 0; i < rounds; ++i) {
    const double start = now_ms();
    work();
    best = std::min(best, now_ms() - start);
  }
  return best;
}

std::vector<std::wstring> items() {
  std::vector<std::wstring> made;
  for (int i = 0; i < favourites; ++i) {
    std::wstring item = L"Rádio číslo " + std::to_wstring(i) + L"  (128kbps)";
    item.resize(93, L' ');
    made.push_back(item + L"2S" + std::to_wstring(10000 + i) + L"http://proud.example:8000/" + std::to_wstring(i));
  }
  return made;
}

double bare_ms(const std::vector<std::wstring>& wanted) {
  const HWND list = CreateWindowExW(0, L"LISTBOX", L"", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
  const double best = best_ms([&] {
    SendMessageW(list, LB_RESETCONTENT, 0, 0);
    for (const std::wstring& item : wanted)
      SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
  });
  DestroyWindow(list);
  return best;
}

} // namespace

int wmain() {
  win32::Backend backend(L"Lumotune", 1);
  const auto wanted = items();
  ListBox& list = backend.window.make_list(L"Control_List");
  list.resize(5820, 1800);
  backend.window.resize(6300, 3480);
  backend.window.set_visible(true);
  backend.loop.run_pending();
  const double shown = best_ms([&] {
    list.set_items(wanted);
    UpdateWindow(backend.window.handle_of(list)); // its drawing is part of it
  });
  list.set_visible(false);
  const double hidden = best_ms([&] { list.set_items(wanted); });
  const double bare = bare_ms(wanted);
  if (list.count() != favourites || list.item(favourites - 1) != wanted.back())
    return 2;
  std::printf("5,000 favourites into the list, shown, against a bare list box | %.2f ms | %.2f ms | %.2f | %.0f ms\n",
              shown, bare, shown / bare, limit_ms);
  std::printf("5,000 favourites into the list, hidden, against a bare list box | %.2f ms | %.2f ms | %.2f | %.0f ms\n",
              hidden, bare, hidden / bare, limit_ms);
  return shown <= limit_ms && hidden <= limit_ms ? 0 : 1;
}
