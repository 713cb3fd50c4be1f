// SPDX-License-Identifier: LGPL-2.1-or-later
// What bench_media measures: the player alone, told what to do by its arguments.
//   media_bench first URL COUNT      milliseconds from `play` to the first sound at a test device, one a line
//   media_bench change COUNT URL...  milliseconds from the next address to the next station's first sound at a test
//                                    device, one a line
//   media_bench changes COUNT URL... kilobytes of the process: after a fifth of the changes of station, after all
//   media_bench play URL SECONDS     plays on the machine's device as soon as a line comes in; kilobytes at the end
//   media_bench wakes URL SECONDS    how often a second each thread waited while a station played at a test device, and
//                                    after it was stopped: lines of "playing|NAME|NUMBER" and "idle|NAME|NUMBER"
#include "platform/media/player.h"
#include "platform/memory/event_loop.h"
#include "tests/media/test_device.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace lumotune::media {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// Runs the loop on the real clock until that holds or the time is over.
bool run(platform::memory::EventLoop& loop, int time_ms, int step_ms, const std::function<bool()>& condition) {
  const auto start = Clock::now();
  auto last = start;
  while (!condition()) {
    const auto passed = std::chrono::duration_cast<milliseconds>(Clock::now() - last);
    last += passed;
    loop.advance(static_cast<std::uint64_t>(passed.count()));
    if (last - start > milliseconds(time_ms))
      return false;
    std::this_thread::sleep_for(milliseconds(step_ms));
  }
  return true;
}

bool never() {
  return false;
}

std::wstring wide(const std::string& text) {
  return {text.begin(), text.end()};
}

long kilobytes(const std::string& key) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind(key + ":", 0) == 0)
      return std::atol(line.c_str() + key.size() + 1);
  }
  return 0;
}

int first_sound(const std::string& url, int count) {
  const auto device = std::make_shared<rig::TestDevice>();
  PlayerOptions options;
  options.make_output = device->factory();
  platform::memory::EventLoop loop;
  const auto player = make_media_player(loop, options);
  player->set_auto_start(false);
  player->set_url(wide(url), platform::AddressOrigin::listener);
  // A station sends in blocks: a try begins at any moment between two, not always at the same one.
  std::mt19937 chance{std::random_device{}()};
  std::uniform_int_distribution<int> pause_ms(500, 900);
  for (int i = 0; i < count; ++i) {
    (void)run(loop, pause_ms(chance), 5, never);
    const auto loud = device->loud_blocks();
    const auto start = Clock::now();
    player->play();
    if (!run(loop, 10000, 1, [&] { return device->loud_blocks() > loud; }))
      return 1;
    std::cout << std::chrono::duration<double, std::milli>(Clock::now() - start).count() << std::endl;
    player->stop();
  }
  return 0;
}

int changes(int count, const std::vector<std::string>& urls) {
  const auto device = std::make_shared<rig::TestDevice>();
  PlayerOptions options;
  options.make_output = device->factory();
  platform::memory::EventLoop loop;
  const auto player = make_media_player(loop, options);
  long warm = 0;
  for (int i = 0; i < count + count / 5; ++i) {
    if (i == count / 5)
      warm = kilobytes("VmRSS");
    player->set_url(wide(urls[static_cast<std::size_t>(i) % urls.size()]), platform::AddressOrigin::listener);
    if (!run(loop, 10000, 2, [&] { return player->played_ms() > 20; }))
      return 1;
  }
  std::cout << warm << " " << kilobytes("VmRSS") << std::endl;
  return 0;
}

// From one station to the next while the first one plays. A change begins at any moment of the worker's rhythm.
int change(int count, const std::vector<std::string>& urls) {
  const auto device = std::make_shared<rig::TestDevice>();
  PlayerOptions options;
  options.make_output = device->factory();
  options.latency_ms = rig::TestDevice::block_ms; // it has no more of the old station's sound than that
  platform::memory::EventLoop loop;
  const auto player = make_media_player(loop, options);
  std::mt19937 chance{std::random_device{}()};
  std::uniform_int_distribution<int> pause_ms(1500, 3000);
  std::uint64_t loud = 0;
  // A block is rendered before it is counted: those seen before the new station is heard are the old one's.
  const auto heard = [&] {
    const std::uint64_t now = device->loud_blocks();
    if (player->played_ms() == 0)
      loud = now;
    return player->played_ms() != 0 && device->loud_blocks() > loud;
  };
  for (int i = 0; i <= count; ++i) {
    const auto start = Clock::now();
    player->set_url(wide(urls[static_cast<std::size_t>(i) % urls.size()]), platform::AddressOrigin::listener);
    if (!run(loop, 10000, 1, heard))
      return 1;
    if (i > 0)
      std::cout << std::chrono::duration<double, std::milli>(Clock::now() - start).count() << std::endl;
    (void)run(loop, pause_ms(chance), 5, never);
  }
  return 0;
}

// How often each thread of this process has waited; threads of one name together.
std::map<std::string, long> waits() {
  std::map<std::string, long> found;
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    std::string name;
    std::ifstream comm(task.path() / "comm");
    (void)std::getline(comm, name);
    std::ifstream status(task.path() / "status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with("voluntary_ctxt_switches:"))
        found[name] += std::atol(line.c_str() + line.find(':') + 1);
    }
  }
  return found;
}

void print_wakes(const char* state, int seconds) {
  const auto before = waits();
  std::this_thread::sleep_for(std::chrono::seconds(seconds));
  for (const auto& [name, count] : waits()) {
    const auto earlier = before.find(name);
    std::cout << state << "|" << name << "|"
              << static_cast<double>(count - (earlier == before.end() ? 0 : earlier->second)) / seconds << std::endl;
  }
}

int wakes(const std::string& url, int seconds) {
  const auto device = std::make_shared<rig::TestDevice>();
  PlayerOptions options;
  options.make_output = device->factory();
  platform::memory::EventLoop loop;
  const auto player = make_media_player(loop, options);
  player->set_url(wide(url), platform::AddressOrigin::listener);
  // The burst has moved into the buffer by then.
  if (!run(loop, 60000, 50, [&] { return player->played_ms() > 20000; }))
    return 1;
  print_wakes("playing", seconds);
  player->stop();
  (void)run(loop, 1000, 50, never);
  print_wakes("idle", seconds);
  return 0;
}

int play(const std::string& url, int seconds) {
  platform::memory::EventLoop loop;
  const auto player = make_media_player(loop, {});
  player->set_auto_start(false);
  player->set_url(wide(url), platform::AddressOrigin::listener);
  std::string line;
  std::getline(std::cin, line);
  player->play();
  (void)run(loop, seconds * 1000, 50, never);
  std::cout << kilobytes("VmRSS") << " " << player->played_ms() << std::endl;
  return 0;
}

} // namespace
} // namespace lumotune::media

int main(int count, char** values) {
  const std::vector<std::string> arguments(values + 1, values + count);
  if (arguments.size() >= 3 && arguments[0] == "first")
    return lumotune::media::first_sound(arguments[1], std::atoi(arguments[2].c_str()));
  if (arguments.size() >= 3 && arguments[0] == "changes")
    return lumotune::media::changes(std::atoi(arguments[1].c_str()), {arguments.begin() + 2, arguments.end()});
  if (arguments.size() >= 4 && arguments[0] == "change")
    return lumotune::media::change(std::atoi(arguments[1].c_str()), {arguments.begin() + 2, arguments.end()});
  if (arguments.size() >= 3 && arguments[0] == "wakes")
    return lumotune::media::wakes(arguments[1], std::atoi(arguments[2].c_str()));
  if (arguments.size() >= 3 && arguments[0] == "play")
    return lumotune::media::play(arguments[1], std::atoi(arguments[2].c_str()));
  return 2;
}
