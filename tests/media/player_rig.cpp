// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/media/player_rig.h"

#include "platform/media/wide.h"

#include <algorithm>
#include <cstdlib>
#include <thread>

namespace lumotune::media::rig {

using namespace std::chrono_literals;

FakeRadio::FakeRadio() : process_({"python3", LUMOTUNE_TEST_SOURCE "/fake_radio.py", LUMOTUNE_TEST_MEDIA}) {
  const std::string line = process_.read_line();
  EXPECT_EQ(line.substr(0, 5), "port ");
  base_ = "http://127.0.0.1:" + line.substr(std::min<std::size_t>(line.size(), 5));
}

std::string FakeRadio::url(const std::string& path) const {
  return base_ + path;
}

int FakeRadio::hits(const std::string& path) {
  process_.write_line("hits " + path);
  return std::atoi(process_.read_line().c_str());
}

int FakeRadio::total_hits() {
  process_.write_line("total");
  return std::atoi(process_.read_line().c_str());
}

void FakeRadio::command(const std::string& line) {
  process_.write_line(line);
  EXPECT_EQ(process_.read_line(), "done");
}

std::string media(const std::string& name) {
  return LUMOTUNE_TEST_MEDIA "/" + name;
}

// Short waits between tries: a test waits for what happens, not for time.
PlayerTest::PlayerTest() {
  options.make_output = device->factory();
  options.timeout_ms = 2000;
  options.retry_scale = 0.2;
}

PlayerTest::~PlayerTest() = default;

void PlayerTest::make() {
  player_ = make_media_player(loop, options);
  player_->on_status_change = [this] { texts.push_back(player_->status()); };
  player_->on_play_state_change = [this](int state) { states.push_back(state); };
}

platform::MediaPlayer& PlayerTest::player() {
  if (player_ == nullptr)
    make();
  return *player_;
}

void PlayerTest::play(const std::string& address) {
  player().set_url(from_utf8(address).value(), platform::AddressOrigin::listener);
}

bool PlayerTest::until(const std::function<bool()>& condition, int milliseconds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  while (true) {
    const auto now = std::chrono::steady_clock::now();
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(now - last_);
    last_ += passed;
    loop.advance(static_cast<std::uint64_t>(passed.count()));
    if (condition())
      return true;
    if (now > end)
      return false;
    std::this_thread::sleep_for(2ms);
  }
}

void PlayerTest::pass(int milliseconds) {
  (void)until([] { return false; }, milliseconds);
}

bool PlayerTest::until_said(const std::wstring& text) {
  return until([&] {
    for (const std::wstring& each : texts) {
      if (each.find(text) != std::wstring::npos)
        return true;
    }
    return false;
  });
}

std::string PlayerTest::told() const {
  std::string all;
  for (const std::wstring& each : texts)
    all += to_utf8(each) + "\n";
  return all;
}

} // namespace lumotune::media::rig
