// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/media/hostile_rig.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace lumotune::media::rig {
namespace {

using Clock = std::chrono::steady_clock;

long status_kb(const std::string& key) {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.starts_with(key + ":"))
      return std::atol(line.c_str() + key.size() + 1);
  }
  return 0;
}

} // namespace

HostileRadio::HostileRadio() : process_({"python3", LUMOTUNE_TEST_SOURCE "/hostile_radio.py", LUMOTUNE_TEST_MEDIA}) {
  const std::string line = process_.read_line();
  EXPECT_TRUE(line.starts_with("port ")) << line;
  port_ = line.substr(std::min<std::size_t>(line.size(), 5));
}

std::string HostileRadio::url(const std::string& path, const std::string& scheme) const {
  return scheme + "://127.0.0.1:" + port_ + path;
}

std::string HostileRadio::text_url(const std::string& body, const std::string& type, const std::string& more) const {
  return url("/text/list?type=" + escaped(type) + "&body=" + escaped(body) + more);
}

std::string HostileRadio::ask(const std::string& line) {
  process_.write_line(line);
  return process_.read_line();
}

int HostileRadio::hits(const std::string& path) {
  return std::atoi(ask("hits " + path).c_str());
}
long long HostileRadio::sent(const std::string& path) {
  return std::atoll(ask("sent " + path).c_str());
}
std::string HostileRadio::heads(const std::string& path) {
  return ask("heads " + path);
}

std::map<std::string, std::string> HostileRadio::tls(std::string& root) {
  std::istringstream words(ask("tls"));
  std::map<std::string, std::string> ports;
  std::string key;
  std::string value;
  while (words >> key >> value)
    ports[key] = value;
  root = ports["root"];
  return ports;
}

SourceTest::SourceTest() {
  av_log_set_level(AV_LOG_QUIET);
  options.user_agent = "Test/1";
  options.timeout_ms = 2000;
  options.open_limit_ms = 10000;
  options.interrupted = [this] { return Clock::now() > give_up_; };
}

Heard SourceTest::hear(Source& source, double seconds, std::chrono::milliseconds longest, bool decodes) {
  Heard heard;
  const auto begin = Clock::now();
  give_up_ = begin + longest;
  const Packet packet(av_packet_alloc());
  constexpr int bytes_a_second = 16000; // of 128 kbps
  std::size_t bytes = 0;
  while (heard.seconds_of_sound < seconds && Clock::now() < give_up_) {
    heard.last = source.read(*packet);
    bytes += static_cast<std::size_t>(packet->size);
    if (decodes)
      source.brought(std::chrono::microseconds(packet->size * 1'000'000LL / bytes_a_second));
    av_packet_unref(packet.get());
    heard.seconds_of_sound = static_cast<double>(bytes) / bytes_a_second;
    if (heard.last != ReadResult::packet && heard.last != ReadResult::other)
      break;
  }
  heard.took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
  return heard;
}

MemoryWatch::MemoryWatch() {
  std::ofstream("/proc/self/clear_refs") << 5; // the peak is the present again
  before_kb_ = status_kb("VmRSS");
}

long MemoryWatch::grown_mb() const {
  return (status_kb("VmHWM") - before_kb_) / 1024;
}

std::string escaped(const std::string& text) {
  constexpr const char* digits = "0123456789abcdef";
  std::string all;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    all += {'%', digits[byte >> 4], digits[byte & 15]};
  }
  return all;
}

} // namespace lumotune::media::rig
