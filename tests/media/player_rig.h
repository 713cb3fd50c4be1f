// SPDX-License-Identifier: LGPL-2.1-or-later
// A real player on a test device, in a loop whose clock follows the real one.
#pragma once

#include "platform/media/player.h"
#include "platform/media/stream_status.h"
#include "platform/memory/event_loop.h"
#include "tests/media/process.h"
#include "tests/media/test_device.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace lumotune::media::rig {

inline constexpr int patience_ms = 20000; // bounds a test that fails; nothing waits for it in one that passes

class FakeRadio {
public:
  FakeRadio();
  [[nodiscard]] std::string url(const std::string& path) const;
  [[nodiscard]] int hits(const std::string& path);
  [[nodiscard]] int plain_hits(const std::string& path); // of requests that wanted no titles
  [[nodiscard]] int total_hits();
  void command(const std::string& line); // "close", "open", "cut"

private:
  Process process_;
  std::string base_;
};

// The folder of the tests' sound.
[[nodiscard]] std::string media(const std::string& name);

// "playing MP3 128 kbps 44100 Hz: Artist - Title", "waiting: not found (404), retry in 3 s". UTF-8.
[[nodiscard]] std::string describe(const StreamStatus& status);

class PlayerTest : public ::testing::Test {
protected:
  PlayerTest();
  ~PlayerTest() override;

  void make(); // with `options`; the first call of the others makes it, too
  [[nodiscard]] platform::MediaPlayer& player();
  void play(const std::string& address); // UTF-8

  // Lets the loop run until that holds; false when it does not in time.
  [[nodiscard]] bool until(const std::function<bool()>& condition, int milliseconds = patience_ms);
  void pass(int milliseconds);
  [[nodiscard]] bool until_hears(double hertz) {
    return until([=, this] { return device->hears(hertz); });
  }
  // Waits for a status whose description holds that text, also one that is gone already.
  [[nodiscard]] bool until_said(const std::string& text);
  [[nodiscard]] std::string status() { return describe(player().status()); }
  [[nodiscard]] bool says(const std::string& text) { return status().find(text) != std::string::npos; }
  [[nodiscard]] std::string told() const; // every status, for messages

  std::shared_ptr<TestDevice> device = std::make_shared<TestDevice>();
  PlayerOptions options;
  std::vector<std::string> texts; // descriptions
  std::vector<int> states;
  platform::memory::EventLoop loop;

private:
  std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
  std::unique_ptr<platform::MediaPlayer> player_;
};

} // namespace lumotune::media::rig
