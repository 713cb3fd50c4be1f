// SPDX-License-Identifier: LGPL-2.1-or-later
// Commands between real programs: this one, a second time, which hangs or floods.
#include "player/client_commands.h"
#include "tests/contract/fixture_player.h"
#include "tests/support/playback_parts.h"

#include <gtest/gtest.h>

#include <psapi.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace lumotune::contract {
namespace {

constexpr const wchar_t* role_variable = L"LUMOTUNE_TEST_ROLE";
constexpr const wchar_t* window_variable = L"LUMOTUNE_TEST_WINDOW";

std::wstring variable(const wchar_t* name) {
  wchar_t text[MAX_PATH] = {};
  GetEnvironmentVariableW(name, text, MAX_PATH);
  return text;
}

// A window that never looks at its messages.
void hang(const std::wstring& caption) {
  CreateWindowExW(0, L"STATIC", caption.c_str(), WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
  Sleep(120'000);
}

bool send(HWND target, std::string text) {
  COPYDATASTRUCT record{};
  record.dwData = 1;
  record.cbData = static_cast<DWORD>(text.size());
  record.lpData = text.data();
  DWORD_PTR answer = 0;
  return SendMessageTimeoutW(target, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&record), SMTO_NORMAL, 30'000, &answer) !=
         0;
}

// As fast as the window answers, from several threads, until it is gone.
void flood(HWND target) {
  std::vector<std::thread> senders;
  for (int i = 0; i < 3; ++i)
    senders.emplace_back([target] {
      while (send(target, "list")) {
      }
    });
  (void)send(target, std::string(8U << 20, 'x'));
  for (std::thread& sender : senders)
    sender.join();
}

// As a second program of its own it plays its part, and no test runs in it.
bool play_the_part() {
  const std::wstring role = variable(role_variable);
  const std::wstring window = variable(window_variable);
  if (role == L"hang")
    hang(window);
  else if (role == L"flood")
    flood(reinterpret_cast<HWND>(static_cast<std::uintptr_t>(std::stoull(window))));
  else
    return false;
  ExitProcess(0);
}
const bool never_played = play_the_part(); // before any test

// This program once more, ended with the test.
class Part {
public:
  Part(const wchar_t* role, const std::wstring& window) {
    SetEnvironmentVariableW(role_variable, role);
    SetEnvironmentVariableW(window_variable, window.c_str());
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    started_ = CreateProcessW(path, nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process_) != 0;
    SetEnvironmentVariableW(role_variable, nullptr);
    SetEnvironmentVariableW(window_variable, nullptr);
  }
  Part(const Part&) = delete;
  Part& operator=(const Part&) = delete;
  ~Part() {
    if (!started_)
      return;
    TerminateProcess(process_.hProcess, 0);
    WaitForSingleObject(process_.hProcess, 10'000);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }
  [[nodiscard]] bool started() const { return started_; }

private:
  PROCESS_INFORMATION process_{};
  bool started_ = false;
};

std::size_t private_bytes() {
  PROCESS_MEMORY_COUNTERS_EX counters{};
  counters.cb = sizeof counters;
  K32GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters), sizeof counters);
  return counters.PrivateUsage;
}

TEST(Win32Messages, AHungWindowKeepsNobodyForLong) {
  Backend b;
  const std::wstring caption = L"Lumotune hung " + std::to_wstring(GetCurrentProcessId());
  const Part hung(L"hang", caption);
  ASSERT_TRUE(hung.started());
  auto target = platform::WindowRef::none;
  ASSERT_TRUE(b.until([&] {
    target = b.messages.find_by_caption(caption);
    return target != platform::WindowRef::none;
  }));
  int ticks = 0;
  const auto clock = b.loop.make_timer(50, [&] { ++ticks; });
  clock->start();
  const ULONGLONG start = GetTickCount64();
  b.messages.send_copy_data(target, "orbend");
  EXPECT_LE(GetTickCount64() - start, 100U) << "the call does not wait";
  EXPECT_TRUE(b.messages.sending());
  ULONGLONG longest_pass = 0;
  while (b.messages.sending()) {
    const ULONGLONG pass = GetTickCount64();
    ASSERT_TRUE(b.loop.wait_a_little());
    longest_pass = std::max(longest_pass, GetTickCount64() - pass);
  }
  RecordProperty("longest_pass_ms", static_cast<int>(longest_pass));
  EXPECT_GE(ticks, 20) << "events ran meanwhile";
  EXPECT_LE(GetTickCount64() - start, platform::WindowMessages::send_limit_ms + 1500);
  EXPECT_LE(platform::WindowMessages::send_limit_ms, 5000U);
}

// To our own window: its thread is the receiver, and handles them in its waits.
TEST(Win32Messages, WhatIsSentArrivesInOrder) {
  Backend b;
  std::vector<std::string> got;
  b.messages.hook([&](const platform::CopyData& data) { got.push_back(data.bytes); });
  const auto own = static_cast<platform::WindowRef>(reinterpret_cast<std::uintptr_t>(b.window.handle()));
  std::vector<std::string> sent;
  for (std::size_t i = 0; i < platform::WindowMessages::max_waiting; ++i) {
    sent.push_back(std::to_string(i) + std::string(i * 1000, 'x'));
    b.messages.send_copy_data(own, sent.back());
  }
  b.messages.send_copy_data(own, std::string(platform::WindowMessages::max_bytes + 1, 'x'));
  EXPECT_TRUE(got.empty()) << "the call does not wait";
  EXPECT_TRUE(b.until([&] { return !b.messages.sending(); }));
  EXPECT_EQ(got, sent);
  b.messages.send_copy_data(own, "once more");
  EXPECT_TRUE(b.until([&] { return !b.messages.sending(); }));
  EXPECT_EQ(got.back(), "once more");
  b.messages.hook({});
}

TEST(Win32Messages, TooManyForAHungWindowAreDroppedAndDestructionDoesNotWait) {
  const std::wstring caption = L"Lumotune hung too " + std::to_wstring(GetCurrentProcessId());
  const Part hung(L"hang", caption);
  ASSERT_TRUE(hung.started());
  ULONGLONG start = 0;
  {
    Backend b;
    auto target = platform::WindowRef::none;
    ASSERT_TRUE(b.until([&] {
      target = b.messages.find_by_caption(caption);
      return target != platform::WindowRef::none;
    }));
    start = GetTickCount64();
    for (int i = 0; i < 1000; ++i)
      b.messages.send_copy_data(target, "orbend");
  }
  EXPECT_LE(GetTickCount64() - start, 2000U);
}

// Each command takes a while, as "list" does when the station file is long.
struct SlowFavourites final : player::FavouritesPort {
  void show_in_place() override {}
  void ZobrazOblibene() override {
    Sleep(5);
    ++shown;
  }
  int shown = 0;
};

TEST(Win32Messages, AFloodLeavesTheWindowAnswering) {
  Backend b;
  const auto player = make_player(b.loop);
  test::PlaybackParts parts(
      {b.files, b.codec, b.real.machine, b.loop, b.window, b.messages, b.real.shell, b.real.dialogs, *player});
  SlowFavourites favourites;
  player::ClientCommands commands{{parts.settings, parts.session, parts.form, b.loop, b.messages, b.real.dialogs,
                                   b.codec, parts.playback, favourites}};
  std::size_t got = 0;
  b.messages.hook([&](const platform::CopyData& data) {
    ++got;
    commands.receive(data);
  });
  const std::size_t memory = private_bytes();
  const ULONGLONG start = GetTickCount64();
  // The system lets timers tick after everything else: where they do, the user gets his turn as well.
  int ticks = 0;
  bool in_time = false;
  const auto user = b.loop.make_timer(20, [&] {
    ++ticks;
    in_time = ticks >= 100 && got >= 2'000 && favourites.shown >= 100;
    if (in_time)
      b.loop.quit();
  });
  std::atomic<bool> over = false;
  const auto give_up = b.loop.make_waker([&] { b.loop.quit(); });
  std::thread watch([&] {
    for (int i = 0; i < 600 && !over; ++i)
      Sleep(100);
    give_up->wake();
  });
  user->start();
  {
    const auto window = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(b.window.handle()));
    const Part flooder(L"flood", std::to_wstring(window));
    EXPECT_TRUE(flooder.started());
    b.loop.run();
  }
  over = true;
  watch.join();
  const ULONGLONG took = GetTickCount64() - start;
  EXPECT_TRUE(in_time) << (b.loop.quitting() ? "given up: " : "the loop ended by itself: ") << ticks << " ticks, "
                       << got << " messages, " << favourites.shown << " commands in " << took << " ms";
  RecordProperty("messages_a_second", static_cast<int>(got * 1000 / std::max<ULONGLONG>(took, 1)));
  RecordProperty("ticks", ticks);
  const std::size_t now = private_bytes();
  EXPECT_LT(now, memory + (48U << 20)) << "a flood is not kept";
  b.messages.hook({});
}

} // namespace
} // namespace lumotune::contract
