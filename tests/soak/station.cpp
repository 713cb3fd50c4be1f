// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/soak/station.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace lumotune::media::soak {
namespace {

using namespace std::chrono_literals;

constexpr double burst_seconds = 3;
constexpr double file_seconds = 10;

struct Row {
  Kind kind;
  const char* name;
  std::chrono::seconds length;
};

constexpr Row rows[] = {{Kind::cut, "cut", 0s},           {Kind::stall, "stall 5 s", 5s},
                        {Kind::stall, "stall 20 s", 20s}, {Kind::silent, "silent", 30s},
                        {Kind::refused, "refused", 30s},  {Kind::busy, "503, Retry-After", 20s},
                        {Kind::corrupt, "corrupt", 3s},   {Kind::slow, "half speed", 20s},
                        {Kind::cut, "cut", 0s},           {Kind::device, "device lost", 0s}};

} // namespace

std::vector<Fault> plan_faults(Time start, Time end, const Settings& settings) {
  std::vector<Fault> plan;
  std::minstd_rand random(settings.seed);
  std::uniform_int_distribution<int> pause(settings.shortest_pause_s, settings.longest_pause_s);
  std::uniform_int_distribution<std::size_t> which(0, std::size(rows) - 1);
  Time at = start + 60s;
  // A last fault has time to be recovered from.
  for (std::size_t number = 0; at < end - 120s; ++number) {
    const Row& row = rows[number < std::size(rows) ? number : which(random)];
    plan.push_back({row.kind, row.name, at, at + row.length});
    at += row.length + std::chrono::seconds(pause(random));
  }
  return plan;
}

SimulatedSource::SimulatedSource(const Settings& settings, std::string file, CurrentWish& wish,
                                 std::function<const Fault&()> fault, std::function<double()> drift)
    : settings_(settings),
      file_(std::move(file)),
      wish_(wish),
      fault_(std::move(fault)),
      drift_(std::move(drift)),
      sent_at_(wish.now()),
      arrived_(wish.now()),
      titled_(wish.now()) {
  bytes_a_second_ = static_cast<double>(settings.sound.at(file_).size()) / file_seconds;
  sent_ = bytes_a_second_ * burst_seconds;
  open();
}

void SimulatedSource::open() {
  SourceOptions options;
  options.memory = [this](const std::string&) { return std::optional(settings_.sound.at(file_)); };
  inner_ = std::move(Source::open("http://soak/" + file_, options).source);
}

// The file's end is the station's next song.
bool SimulatedSource::next(AVPacket& packet) {
  for (int tries = 0; tries < 2 && inner_ != nullptr; ++tries) {
    ReadResult result = inner_->read(packet);
    while (result == ReadResult::other)
      result = inner_->read(packet);
    if (result == ReadResult::packet)
      return true;
    open();
  }
  return false;
}

// What the station has sent by now waits in the socket.
void SimulatedSource::send(Time now) {
  const double seconds = std::chrono::duration<double>(now - sent_at_).count();
  sent_at_ = now;
  const Kind kind = fault_().kind;
  if (kind != Kind::stall && kind != Kind::silent && kind != Kind::refused && kind != Kind::busy)
    sent_ += seconds * bytes_a_second_ * (1 + drift_() / 1e6) * (kind == Kind::slow ? 0.5 : 1);
}

// FFmpeg reads each piece as it arrives and calls back several times a second while it waits.
ReadResult SimulatedSource::wait(Time until) {
  const Time now = wish_.now();
  if (now >= until)
    return ReadResult::lost;
  if (wish_.wait(Millis(settings_.piece_ms)))
    return ReadResult::cancelled;
  return wish_.interrupted() ? ReadResult::cancelled : ReadResult::packet;
}

ReadResult SimulatedSource::read(AVPacket& packet) {
  const Time begin = wish_.now();
  const Time deadline = begin + patience_.left();
  arrived_ = begin;
  reading_ = true;
  ReadResult result = next(packet) ? ReadResult::packet : ReadResult::lost;
  received_ += packet.size;
  while (result == ReadResult::packet) {
    send(wish_.now());
    if (fault_().kind == Kind::cut)
      result = ReadResult::lost;
    else if (sent_ >= received_)
      break;
    else
      result = wait(deadline);
  }
  reading_ = false;
  if (!patience_.waited(std::chrono::duration_cast<Patience::Time>(wish_.now() - begin)))
    result = ReadResult::lost;
  if (fault_().kind == Kind::corrupt && result == ReadResult::packet && av_packet_make_writable(&packet) >= 0)
    std::generate_n(packet.data, packet.size, [this] { return static_cast<std::uint8_t>(noise_()); });
  return result;
}

bool SimulatedSource::stalled() const {
  return reading_ && wish_.now() - arrived_ >= patience_.stall();
}

std::optional<std::wstring> SimulatedSource::new_title() {
  if (wish_.now() - titled_ < 30s)
    return std::nullopt;
  titled_ = wish_.now();
  return L"Umělec - Píseň " + std::to_wstring(++number_);
}

} // namespace lumotune::media::soak
