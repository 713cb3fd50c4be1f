// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/media/player_rig.h"

#include "platform/media/wide.h"

#include <algorithm>
#include <cstdlib>
#include <thread>

namespace lumotune::media::rig {
namespace {

std::string describe_trouble(const StreamStatus& status) {
  const std::string code = status.http_code == 0 ? "" : " (" + std::to_string(status.http_code) + ")";
  switch (status.trouble) {
  case Trouble::none:
    return "none";
  case Trouble::no_address:
    return "no address";
  case Trouble::unsupported_address:
    return "unsupported address";
  case Trouble::lost:
    return "lost";
  case Trouble::not_answering:
    return "not answering";
  case Trouble::no_such_host:
    return "no such host";
  case Trouble::not_found:
    return "not found" + code;
  case Trouble::refused_by_server:
    return "refused" + code;
  case Trouble::not_secure:
    return "not secure";
  case Trouble::unknown_format:
    return "unknown format";
  case Trouble::ended:
    return "ended";
  case Trouble::no_device:
    return "no device";
  case Trouble::internal:
    return "internal";
  }
  return "?";
}

std::string describe_playing(const StreamStatus& status) {
  const std::string warning = status.unverified && status.just_started ? "unverified server: " : "";
  return warning + "playing " + to_utf8(status.codec) + " " + std::to_string(status.kbps) + " kbps " +
         std::to_string(status.hertz) + " Hz" + (status.title.empty() ? "" : ": " + to_utf8(status.title));
}

} // namespace

std::string describe(const StreamStatus& status) {
  const std::string trouble = status.trouble == Trouble::none ? "" : ": " + describe_trouble(status);
  switch (status.phase) {
  case Phase::stopped:
    return "stopped" + trouble;
  case Phase::connecting:
    return "connecting";
  case Phase::buffering:
    return (status.unverified ? "unverified server: buffering " : "buffering ") + std::to_string(status.percent) + " %";
  case Phase::playing:
    return trouble.empty() ? describe_playing(status) : "playing" + trouble;
  case Phase::waiting:
    break;
  }
  return "waiting" + trouble +
         (status.retry_seconds == 0 ? "" : ", retry in " + std::to_string(status.retry_seconds) + " s");
}

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

int FakeRadio::plain_hits(const std::string& path) {
  process_.write_line("plain " + path);
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
  player_->on_status_change = [this] { texts.push_back(status()); };
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

bool PlayerTest::until_said(const std::string& text) {
  return until([&] {
    for (const std::string& each : texts) {
      if (each.find(text) != std::string::npos)
        return true;
    }
    return false;
  });
}

std::string PlayerTest::told() const {
  std::string all;
  for (const std::string& each : texts)
    all += each + "\n";
  return all;
}

} // namespace lumotune::media::rig
