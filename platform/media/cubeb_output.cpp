// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/cubeb_output.h"

#include <cubeb/cubeb.h>

#include <algorithm>
#include <atomic>
#include <cstdint>

namespace lumotune::media {
namespace {

class CubebOutput final : public AudioOutput {
public:
  ~CubebOutput() override {
    if (stream_ != nullptr) {
      cubeb_stream_stop(stream_);
      cubeb_stream_destroy(stream_);
    }
    if (context_ != nullptr)
      cubeb_destroy(context_);
  }

  [[nodiscard]] int preferred_rate() override {
    std::uint32_t preferred = 0;
    const bool known = has_context() && cubeb_get_preferred_sample_rate(context_, &preferred) == CUBEB_OK;
    return known && preferred >= 8000 && preferred <= 192000 ? static_cast<int>(preferred) : 0;
  }

  [[nodiscard]] bool open(Mixer& mixer, int latency_ms) override {
    if (!has_context())
      return false;
    cubeb_stream_params parameters{};
    parameters.format = CUBEB_SAMPLE_FLOAT32NE;
    parameters.rate = static_cast<std::uint32_t>(mixer.rate());
    parameters.channels = 2;
    parameters.layout = CUBEB_LAYOUT_STEREO;
    std::uint32_t smallest = 0;
    if (cubeb_get_min_latency(context_, &parameters, &smallest) != CUBEB_OK)
      smallest = 0;
    const std::uint32_t wished = parameters.rate * static_cast<std::uint32_t>(latency_ms) / 1000;
    mixer_ = &mixer;
    return cubeb_stream_init(context_, &stream_, "Lumotune", nullptr, nullptr, nullptr, &parameters,
                             std::max(smallest, wished), render, note_state, this) == CUBEB_OK;
  }

  [[nodiscard]] bool start() override { return stream_ != nullptr && cubeb_stream_start(stream_) == CUBEB_OK; }
  void stop() override {
    if (stream_ != nullptr)
      cubeb_stream_stop(stream_);
  }
  void set_volume(float volume) override {
    if (stream_ != nullptr)
      cubeb_stream_set_volume(stream_, volume);
  }
  [[nodiscard]] bool failed() const override { return failed_.load(); }

private:
  [[nodiscard]] bool has_context() {
    if (context_ == nullptr && cubeb_init(&context_, "Lumotune", nullptr) != CUBEB_OK)
      context_ = nullptr;
    return context_ != nullptr;
  }
  static long render(cubeb_stream* /*stream*/, void* self, const void* /*input*/, void* out, long frames) {
    static_cast<CubebOutput*>(self)->mixer_->render(static_cast<float*>(out), static_cast<std::size_t>(frames));
    return frames;
  }
  static void note_state(cubeb_stream* /*stream*/, void* self, cubeb_state state) {
    auto& output = *static_cast<CubebOutput*>(self);
    if (state == CUBEB_STATE_ERROR && !output.failed_.exchange(true) && output.on_failed)
      output.on_failed();
  }

  Mixer* mixer_ = nullptr;
  cubeb* context_ = nullptr;
  cubeb_stream* stream_ = nullptr;
  std::atomic<bool> failed_ = false;
};

} // namespace

std::unique_ptr<AudioOutput> make_cubeb_output() {
  return std::make_unique<CubebOutput>();
}

} // namespace lumotune::media
