// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/engine.h"

#include "platform/media/address.h"
#include "platform/media/decoder.h"
#include "platform/media/playlist.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <thread>
#include <utility>

namespace lumotune::media {
namespace {

using namespace std::chrono_literals;

constexpr int usual_rate = 48000;
constexpr std::size_t ring_seconds = 8;
constexpr std::uint32_t start_level_ms = 200; // sound begins with that much
constexpr std::uint32_t rebuffer_level_ms =
    1000; // and goes on with that much after it ran dry, twice as much next time
constexpr std::uint32_t highest_level_ms = 4000;
constexpr auto announce_for = 3000ms; // what is to be known of a station stands before its title for that long

std::uint32_t wanted_level_ms(std::uint32_t underruns) {
  if (underruns == 0)
    return start_level_ms;
  return std::min(rebuffer_level_ms << std::min(underruns - 1, 2U), highest_level_ms);
}

} // namespace

// The ring is made for the highest usual rate, so that a device may choose its own.
Engine::Engine(EngineOptions options, std::shared_ptr<Board> board)
    : sound(std::make_shared<Mixer>(static_cast<std::size_t>(usual_rate) * ring_seconds, usual_rate)),
      mixer(*sound),
      device(sound, options.make_output, options.latency_ms),
      options_(std::move(options)),
      board_(std::move(board)),
      random_(std::random_device{}()) {}

void Engine::start() {
  std::thread([self = shared_from_this()]() mutable {
    self->work();
    const auto end = self->end_;
    self.reset();
    const std::lock_guard lock(end->mutex);
    end->reached = true;
    end->changed.notify_all();
  }).detach();
}

void Engine::leave() {
  mixer.want(0);
  device.end();
  mailbox.close();
}

bool Engine::wait_ended(std::chrono::milliseconds time) {
  const auto limit = std::chrono::steady_clock::now() + time;
  std::unique_lock lock(end_->mutex);
  if (!end_->changed.wait_until(lock, limit, [this] { return end_->reached; }))
    return false;
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(limit - std::chrono::steady_clock::now());
  return device.wait_ended(std::max(left, 0ms));
}

void Engine::work() {
  avformat_network_init();
  while (!mailbox.closed()) {
    try {
      serve_next_wish();
    } catch (...) {
      tell_failure();
    }
  }
  mixer.let_flow(0);
}

// What nobody caught: the listener is told, and the next wish is served.
void Engine::tell_failure() noexcept {
  streaming_ = false;
  mixer.let_flow(0);
  try {
    status_ = {};
    status_.trouble = Trouble::internal;
    report();
  } catch (...) { // there is no memory for the telling either
  }
}

void Engine::serve_next_wish() {
  wish_ = mailbox.take(wish_.stream);
  if (mailbox.closed())
    return;
  mixer.let_flow(0);
  mixer.ring.discard();
  // Where nobody takes samples out, the old ones would fill the room for ever.
  (void)device.while_unused([this] { (void)mixer.ring.skip(); });
  status_ = {};
  if (wish_.playing)
    play(wish_);
}

void Engine::report() {
  board_->report(wish_.stream, status_);
}

std::uint32_t Engine::level_ms() const {
  return static_cast<std::uint32_t>(mixer.ring.level() * 1000 / static_cast<std::size_t>(std::max(mixer.rate(), 1)));
}

// A sound system that does not answer must keep nobody from the next wish, nor from hearing later what is decoded now.
bool Engine::wait_for_rate() {
  constexpr auto longest = 3000ms;
  constexpr auto look_every = 20ms;
  const auto limit = std::chrono::steady_clock::now() + longest;
  while (!device.wait_for_rate(look_every)) {
    if (superseded())
      return false;
    if (std::chrono::steady_clock::now() > limit)
      break;
  }
  device.settle_rate();
  return true;
}

// For as long as the listener wants it: there is no last try.
void Engine::play(const Wish& wish) {
  retry_ = {};
  if (!wait_for_rate())
    return;
  while (!superseded()) {
    status_ = {};
    status_.phase = Phase::connecting;
    report();
    const Attempt result = try_once(wish);
    if (result.outcome == Outcome::cancelled || superseded())
      return;
    const bool hopeless = result.trouble == Trouble::no_address || result.trouble == Trouble::unsupported_address;
    if (hopeless || result.outcome == Outcome::ended) {
      status_ = {};
      status_.trouble = result.trouble;
      report();
      return;
    }
    if (!wait_and_count_down(result))
      return;
  }
}

// No memory for a stream is a trouble of that stream.
Engine::Attempt Engine::try_once(const Wish& wish) {
  failed_inside_ = false;
  try {
    OpenBudget budget;
    return attempt({wish.address, wish.origin, 0}, budget);
  } catch (...) {
    streaming_ = false;
    return {Outcome::failed, Trouble::internal};
  }
}

bool Engine::wait_and_count_down(const Attempt& failure) {
  const double random = std::uniform_real_distribution<double>(0.0, 1.0)(random_);
  auto left = std::chrono::milliseconds(std::llround(retry_.next_delay_ms(random) * options_.retry_scale));
  status_ = {};
  status_.phase = Phase::waiting;
  status_.trouble = failure.trouble;
  status_.http_code = failure.http_code;
  while (left > 0ms) {
    status_.retry_seconds = static_cast<int>((left.count() + 999) / 1000);
    report();
    const auto piece = std::min(left, std::chrono::milliseconds((left.count() - 1) % 1000 + 1));
    if (mailbox.wait(wish_.stream, piece))
      return false;
    left -= piece;
  }
  return true;
}

Engine::Attempt Engine::attempt(const Lead& lead, OpenBudget& budget) {
  if (address_kind(lead.address) == AddressKind::none)
    return {Outcome::failed, Trouble::no_address};
  if (!may_open(lead.address, lead.origin))
    return {Outcome::failed, Trouble::unsupported_address};
  Attempt last{Outcome::failed, Trouble::unknown_format}; // of lists that lead nowhere
  for (const std::string& each : openable_addresses(lead.address)) {
    if (!budget.allows(each))
      continue;
    Opened opened = open(each, lead.origin, budget);
    if (superseded())
      return {Outcome::cancelled};
    if (opened.cancelled || failed_inside_) // by what was thrown
      return {Outcome::failed, Trouble::internal};
    if (opened.source != nullptr)
      return stream(*opened.source);
    if (!opened.entries.empty())
      return attempt_entries(lead, opened.entries, budget);
    last = {Outcome::failed, opened.trouble, opened.http_code};
  }
  return last;
}

// The source takes from the budget what it opens, this address included.
Opened Engine::open(const std::string& address, platform::AddressOrigin origin, OpenBudget& budget) {
  using std::chrono::duration_cast;
  using std::chrono::milliseconds;
  SourceOptions options;
  options.user_agent = options_.user_agent;
  options.proxy = [this](const std::string& asked) {
    try {
      return options_.proxy ? options_.proxy(asked) : std::string();
    } catch (...) {
      failed_inside_ = true;
      return std::string();
    }
  };
  options.timeout_ms = options_.timeout_ms;
  options.ca_file = options_.ca_file;
  const auto left = duration_cast<milliseconds>(budget.deadline() - OpenBudget::Clock::now());
  options.open_limit_ms = static_cast<int>(std::clamp<std::int64_t>(left.count(), 1, options.open_limit_ms));
  options.from_network = origin == platform::AddressOrigin::station;
  options.budget = &budget;
  options.interrupted = [this] { return interrupted(); };
  return Source::open(address, options);
}

// Called by FFmpeg, which is C: nothing may be thrown through it.
bool Engine::interrupted() noexcept {
  try {
    tend();
  } catch (...) {
    failed_inside_ = true;
  }
  return failed_inside_ || superseded();
}

// One after the other until one plays. What the first one lacks is told when none does.
Engine::Attempt Engine::attempt_entries(const Lead& list, const std::vector<std::string>& entries, OpenBudget& budget) {
  Attempt first{Outcome::failed, Trouble::unknown_format};
  if (list.depth >= max_playlist_depth)
    return first;
  bool tried = false;
  for (const std::string& entry : entries) {
    if (budget.over())
      break;
    const Attempt result = attempt({entry, origin_of_entry(list.address, list.origin, entry), list.depth + 1}, budget);
    if (result.outcome != Outcome::failed)
      return result;
    if (!tried)
      first = result;
    tried = true;
  }
  // Nothing in a list is ours to call hopeless: tomorrow's list may be another.
  if (first.trouble == Trouble::no_address || first.trouble == Trouble::unsupported_address)
    first.trouble = Trouble::unknown_format;
  return first;
}

Engine::Attempt Engine::stream(Source& source) {
  Decoder decoder(mixer.rate());
  if (!decoder.open(source.parameters()))
    return {Outcome::failed, Trouble::unknown_format};
  streaming_ = true;
  flowed_ = mixer.flows(); // what is left of the lost connection still plays
  underruns_ = 0;
  coming_titles_.clear();
  // Who joins a station in the middle first decodes silence, because frames lean on those before them.
  constexpr std::size_t most_leading_silence_ms = 200;
  const bool joins = source.live() && !flowed_;
  leading_silence_ = joins ? static_cast<std::size_t>(mixer.rate()) * most_leading_silence_ms / 1000 : 0;
  drift_ = {};
  drift_checked_ = std::chrono::steady_clock::now();
  status_ = {};
  status_.phase = flowed_ ? Phase::playing : Phase::buffering;
  status_.unverified = source.unverified();
  status_.codec = source.codec_name();
  status_.kbps = source.kbps();
  status_.hertz = source.parameters().sample_rate;
  const auto opened = std::chrono::steady_clock::now();
  sound_began_ = opened;
  Attempt result;
  while (pump(source, decoder, result)) {
  }
  streaming_ = false;
  if (flowed_)
    retry_.heard(static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - opened).count()));
  return result;
}

// One packet; false when the stream is over, for the reason in `result`.
bool Engine::pump(Source& source, Decoder& decoder, Attempt& result) {
  std::size_t decoded = 0;
  const auto sink = [&, this](const float* frames, std::size_t count) {
    decoded += count;
    write(frames, count);
    return !superseded();
  };
  const Packet packet(av_packet_alloc());
  const ReadResult read = packet == nullptr ? ReadResult::lost : source.read(*packet);
  if (superseded()) {
    result = {Outcome::cancelled};
    return false;
  }
  if (read == ReadResult::cancelled || failed_inside_) { // by what was thrown
    result = {Outcome::failed, Trouble::internal};
    return false;
  }
  if (read == ReadResult::lost) {
    result = {Outcome::lost, Trouble::lost};
    return false;
  }
  if (read == ReadResult::ended) {
    decoder.flush(sink);
    drain();
    result = superseded() ? Attempt{Outcome::cancelled} : Attempt{Outcome::ended, Trouble::ended};
    return false;
  }
  if (read == ReadResult::packet && !decoder.decode(*packet, sink)) {
    result = {Outcome::failed, Trouble::unknown_format};
    return false;
  }
  source.brought(decoder.duration(decoded));
  status_.unverified = source.unverified();
  if (decoder.sample_rate() != 0)
    status_.hertz = decoder.sample_rate();
  if (auto title = source.new_title())
    coming_titles_.add(mixer.ring.written(), std::move(*title));
  correct_drift(decoder, source.live());
  tend();
  rest(source.live());
  return !superseded();
}

// A live stream comes in small pieces. With enough in the ring it is left to gather where it comes in, so that the
// worker wakes seldom.
void Engine::rest(bool live) {
  constexpr std::uint32_t enough_ms = 1500;
  constexpr std::uint32_t piece_ms = 500;
  if (!live || !mixer.flows() || unrested_ * 1000 < static_cast<std::size_t>(mixer.rate()) * piece_ms ||
      level_ms() < enough_ms)
    return;
  unrested_ = 0;
  (void)mailbox.wait(wish_.stream, std::chrono::milliseconds(piece_ms));
}

// Waits for room where there is none: until the ring is half empty, so that the worker wakes seldom.
void Engine::write(const float* frames, std::size_t count) {
  for (; leading_silence_ > 0 && count > 0 && frames[0] == 0.0F && frames[1] == 0.0F; --leading_silence_, --count)
    frames += 2;
  if (count > 0)
    leading_silence_ = 0;
  while (count > 0 && !superseded()) {
    const std::size_t taken = mixer.ring.write(frames, count);
    frames += taken * 2;
    count -= taken;
    unrested_ += taken;
    if (count == 0)
      break;
    tend();
    const auto rate = static_cast<std::size_t>(std::max(mixer.rate(), 1));
    const auto half = std::chrono::milliseconds(mixer.ring.capacity() * 500 / rate);
    // Without a device nothing is taken out but by us.
    const auto pause = mixer.flows() && !device.missing() ? std::min<std::chrono::milliseconds>(half, 1000ms) : 50ms;
    if (mailbox.wait(wish_.stream, pause))
      break;
  }
}

// The end of a file: what is in the ring is still to be heard.
void Engine::drain() {
  if (!mixer.flows())
    let_flow();
  while (mixer.ring.level() > 0 && mixer.flows() && !mailbox.wait(wish_.stream, 50ms)) {
  }
}

void Engine::let_flow() {
  mixer.let_flow(wish_.stream);
  device.flow();
}

// Until sound flows the newest title is the right one; then each has its moment.
void Engine::show_due_title() {
  const std::uint64_t played = mixer.flows() ? mixer.ring.consumed() : std::numeric_limits<std::uint64_t>::max();
  if (auto title = coming_titles_.take_due(played))
    status_.title = std::move(*title);
}

// Lets sound flow when there is enough of it, and says what is going on. Called often, also from inside FFmpeg's waits.
void Engine::tend() {
  tend_device();
  if (!streaming_)
    return;
  if (!mixer.flows()) {
    if (flowed_) {
      flowed_ = false;
      ++underruns_;
    }
    const std::uint32_t wanted = wanted_level_ms(underruns_);
    const std::uint32_t there = level_ms();
    status_.phase = Phase::buffering;
    // In steps of ten: nobody reads faster.
    status_.percent = static_cast<int>(std::min(there * 10 / wanted, 10U) * 10);
    if (there >= wanted) {
      if (underruns_ == 0)
        sound_began_ = std::chrono::steady_clock::now();
      let_flow();
      flowed_ = true;
    }
  }
  show_due_title();
  if (mixer.flows())
    show_flow();
  report();
}

void Engine::show_flow() {
  status_.phase = Phase::playing;
  status_.trouble = device.missing() ? Trouble::no_device : Trouble::none;
  status_.announces = status_.unverified && std::chrono::steady_clock::now() - sound_began_ < announce_for;
}

void Engine::tend_device() {
  if (device.missing())
    (void)device.while_unused([this] { tend_missing_device(); });
  // A sound system that answers again starts live, not with what has waited for it.
  if (std::exchange(device_hung_, device.hung()) && !device_hung_)
    mixer.ring.discard();
}

// Nothing takes samples out: we do, and keep the newest second, so that a device that appears starts live. The ring
// holds less than two seconds of the highest rates.
void Engine::tend_missing_device() {
  const auto second = std::min(static_cast<std::size_t>(mixer.rate()), mixer.ring.capacity() / 4);
  const std::size_t level = mixer.ring.level();
  if (level <= second * 2)
    return;
  std::vector<float> unheard((level - second) * 2);
  (void)mixer.ring.read(unheard.data(), level - second);
}

void Engine::correct_drift(Decoder& decoder, bool live) {
  const auto now = std::chrono::steady_clock::now();
  if (!live || !mixer.flows() || now - drift_checked_ < 1000ms)
    return;
  drift_checked_ = now;
  const int correction = drift_.step(level_ms());
  if (correction != 0)
    decoder.compensate(correction);
}

} // namespace lumotune::media
