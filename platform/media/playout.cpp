// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/playout.h"

#include "platform/media/decoder.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace lumotune::media {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::uint32_t plenty_ms = 4000; // a buffer that outlasts most pauses

// How much is buffered before sound starts: little at first, more after an underrun, twice as much after each further
// one.
std::uint32_t start_level_ms(std::uint32_t underruns) {
  constexpr std::uint32_t first_ms = 200;
  constexpr std::uint32_t after_underrun_ms = 1000;
  if (underruns == 0)
    return first_ms;
  return std::min(after_underrun_ms << std::min(underruns - 1, 2U), plenty_ms);
}

// In tens, which limits the updates.
int percent_of(std::uint32_t part, std::uint32_t whole) {
  return static_cast<int>(std::min(part * 10 / whole, 10U) * 10);
}

} // namespace

void Playout::discard() {
  worker_thread_.check();
  mixer_.let_flow(0);
  mixer_.ring.discard();
  // A discard is carried out by the consumer. With no device consuming, old samples would fill the ring forever.
  (void)channels_.device.while_unused([this] { (void)mixer_.ring.skip(); });
}

// A sound system that does not respond must not delay the next wish or keep a stream from being decoded.
bool Playout::wait_for_rate() {
  constexpr auto limit = 3000ms;
  constexpr auto poll = 20ms;
  const auto deadline = Clock::now() + limit;
  while (!channels_.device.wait_for_rate(poll)) {
    if (wish_.superseded())
      return false;
    if (Clock::now() > deadline)
      break;
  }
  channels_.device.settle_rate();
  return true;
}

std::uint32_t Playout::level_ms() const {
  return static_cast<std::uint32_t>(mixer_.ring.level() * 1000 / static_cast<std::size_t>(std::max(mixer_.rate(), 1)));
}

void Playout::begin(const StreamStatus& status, bool live, std::function<bool()> stalled) {
  worker_thread_.check();
  streaming_ = true;
  stalled_ = std::move(stalled);
  live_ = live;
  flowed_ = mixer_.flows(); // what a lost connection left in the buffer still plays
  underruns_ = 0;
  titles_.clear();
  // Joining mid-stream, the first frames lack their predecessors and decode to silence.
  constexpr std::size_t max_leading_silence_ms = 200;
  const bool joins = live && !flowed_;
  leading_silence_ = joins ? static_cast<std::size_t>(mixer_.rate()) * max_leading_silence_ms / 1000 : 0;
  drift_ = {};
  drift_checked_ = sound_began_ = wish_.now();
  waited_since_pause_ = {};
  reads_that_waited_ = 0;
  status_ = status;
  status_.phase = flowed_ ? Phase::playing : Phase::buffering;
}

void Playout::update(bool unverified, int sample_rate) {
  status_.unverified = unverified;
  if (sample_rate != 0)
    status_.hertz = sample_rate;
}

void Playout::add_title(std::wstring title) {
  titles_.add(mixer_.ring.written(), std::move(title));
}

// A live stream arrives in small pieces. With enough buffered they collect in the socket, so that the worker wakes up
// rarely. A pause is shorter than what is read between two: a server's burst moves into the ring by and by, where the
// drift control sees it and where a silence of the server shows as soon as it begins. Reads that waited for the server
// have emptied the socket: with no burst to be moved, the pauses are hardly shorter, and longer with a well-filled
// buffer.
void Playout::pace_reads() {
  constexpr std::uint32_t enough_ms = 1500;
  constexpr std::uint32_t well_filled_ms = 2500;
  constexpr std::uint32_t read_ms = 500;
  constexpr int sure = 2; // a busy machine makes reads slow, too
  const std::uint32_t level = level_ms();
  const bool rarely = reads_that_waited_ == sure && level >= well_filled_ms;
  if (!live_ || !mixer_.flows() || level < enough_ms ||
      written_since_pause_ * 1000 < static_cast<std::size_t>(mixer_.rate()) * (rarely ? read_ms * 2 : read_ms))
    return;
  reads_that_waited_ = waited_since_pause_ < 20ms ? 0 : std::min(reads_that_waited_ + 1, sure);
  written_since_pause_ = 0;
  waited_since_pause_ = {};
  if (reads_that_waited_ < sure)
    (void)wish_.wait(400ms);
  else
    pause(rarely ? 2 : 1);
}

// In the middle of a long pause the titles and the device are looked after.
void Playout::pause(int times) {
  for (int i = 0; i < times && !wish_.wait(450ms); ++i) {
    if (i + 1 < times)
      tick();
  }
}

// When the ring is full, waits until it is half empty, so that the worker wakes up rarely.
void Playout::write(const float* frames, std::size_t count) {
  worker_thread_.check();
  for (; leading_silence_ > 0 && count > 0 && frames[0] == 0.0F && frames[1] == 0.0F; --leading_silence_, --count)
    frames += 2;
  if (count > 0)
    leading_silence_ = 0;
  while (count > 0 && !wish_.superseded()) {
    const std::size_t taken = mixer_.ring.write(frames, count);
    frames += taken * 2;
    count -= taken;
    written_since_pause_ += taken;
    if (count == 0)
      break;
    tick();
    const auto rate = static_cast<std::size_t>(std::max(mixer_.rate(), 1));
    const auto half = std::chrono::milliseconds(mixer_.ring.capacity() * 500 / rate);
    // Without a device, only our own tick drains the ring.
    const bool consumed = mixer_.flows() && !channels_.device.missing();
    if (wish_.wait(consumed ? std::min<std::chrono::milliseconds>(half, 1000ms) : 50ms))
      break;
  }
}

void Playout::drain() {
  if (!mixer_.flows())
    start_flow();
  while (mixer_.ring.level() > 0 && mixer_.flows() && !wish_.wait(50ms)) {
  }
}

void Playout::start_flow() {
  mixer_.let_flow(wish_.stream());
  channels_.device.flow();
}

void Playout::tick() {
  worker_thread_.check();
  check_device();
  if (!streaming_)
    return;
  if (!mixer_.flows())
    update_buffering();
  update_title();
  if (mixer_.flows())
    update_playing();
  channels_.board->report(wish_.stream(), status_);
}

void Playout::update_buffering() {
  if (std::exchange(flowed_, false))
    ++underruns_;
  const std::uint32_t wanted = start_level_ms(underruns_);
  const std::uint32_t buffered = level_ms();
  status_.phase = Phase::buffering;
  status_.percent = percent_of(buffered, wanted);
  if (buffered < wanted)
    return;
  if (underruns_ == 0)
    sound_began_ = wish_.now();
  start_flow();
  flowed_ = true;
}

// Before sound flows the newest title is shown; from then on each title when its sound is heard.
void Playout::update_title() {
  const std::uint64_t played = mixer_.flows() ? mixer_.ring.consumed() : std::numeric_limits<std::uint64_t>::max();
  if (auto title = titles_.take_due(played))
    status_.title = std::move(*title);
}

void Playout::update_playing() {
  constexpr auto just_started_for = 3000ms;
  const bool stalled = stalled_ && stalled_();
  status_.phase = stalled ? Phase::buffering : Phase::playing;
  if (stalled)
    status_.percent = percent_of(level_ms(), plenty_ms);
  status_.trouble = channels_.device.missing() ? Trouble::no_device : Trouble::none;
  status_.just_started = wish_.now() - sound_began_ < just_started_for;
}

void Playout::check_device() {
  if (channels_.device.missing())
    (void)channels_.device.while_unused([this] { drop_unheard(); });
  // A sound system that responds again starts live, not with the accumulated backlog.
  if (std::exchange(device_hung_, channels_.device.hung()) && !device_hung_)
    mixer_.ring.discard();
}

// Stands in for a missing device: keeps the newest second, so that a device that appears starts live; less if at a very
// high rate the ring holds less than two seconds.
void Playout::drop_unheard() {
  const auto kept = std::min(static_cast<std::size_t>(mixer_.rate()), mixer_.ring.capacity() / 4);
  const std::size_t level = mixer_.ring.level();
  if (level <= kept * 2)
    return;
  std::vector<float> unheard((level - kept) * 2);
  (void)mixer_.ring.read(unheard.data(), level - kept);
}

void Playout::correct_drift(Decoder& decoder) {
  const auto now = wish_.now();
  if (!live_ || !mixer_.flows() || now - drift_checked_ < 1000ms)
    return;
  drift_checked_ = now;
  const int correction = drift_.step(level_ms());
  if (correction != 0)
    decoder.compensate(correction);
}

} // namespace lumotune::media
