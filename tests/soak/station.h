// SPDX-License-Identifier: LGPL-2.1-or-later
// A simulated station: when its packets arrive, and what is wrong at which time.
#pragma once

#include "platform/media/current_wish.h"
#include "platform/media/source.h"
#include "tests/soak/soak.h"

#include <chrono>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace lumotune::media::soak {

using Time = WorkerClock::Time;
using Millis = std::chrono::milliseconds;

enum class Kind { none, cut, stall, silent, refused, busy, corrupt, slow, device };

struct Fault {
  Kind kind = Kind::none;
  std::string name;
  Time begin;
  Time end;
};

// The faults of the whole run, each kind once before any comes again, decided by the seed.
[[nodiscard]] std::vector<Fault> plan_faults(Time start, Time end, const Settings& settings);

// One connection to a station. Its packets are real ones of a file that never ends.
class SimulatedSource final : public PacketSource {
public:
  // `fault` tells what is wrong now; `drift` is the station's clock in millionths.
  SimulatedSource(const Settings& settings, std::string file, CurrentWish& wish, std::function<const Fault&()> fault,
                  std::function<double()> drift);

  [[nodiscard]] ReadResult read(AVPacket& packet) override;
  [[nodiscard]] bool stalled() const override;
  void brought(Patience::Time sound) override { patience_.brought(sound); }
  [[nodiscard]] const AVCodecParameters& parameters() const override { return inner_->parameters(); }
  [[nodiscard]] std::optional<std::wstring> new_title() override;
  [[nodiscard]] std::wstring codec_name() const override { return inner_->codec_name(); }
  [[nodiscard]] int kbps() const override { return 128; }
  [[nodiscard]] bool live() const override { return true; }
  [[nodiscard]] bool unverified() const override { return false; }
  [[nodiscard]] bool opened() const { return inner_ != nullptr; }

private:
  void open();
  [[nodiscard]] bool next(AVPacket& packet);
  void send(Time now);
  [[nodiscard]] ReadResult wait(Time until);

  const Settings& settings_;
  const std::string file_;
  CurrentWish& wish_;
  const std::function<const Fault&()> fault_;
  const std::function<double()> drift_;
  std::unique_ptr<Source> inner_;
  double bytes_a_second_ = 16000;
  double sent_ = 0;     // bytes that the station has sent
  double received_ = 0; // bytes that were read
  Time sent_at_;
  Time arrived_;
  Time titled_;
  bool reading_ = false;
  int number_ = 0; // of the title
  Patience patience_;
  std::minstd_rand noise_;
};

} // namespace lumotune::media::soak
