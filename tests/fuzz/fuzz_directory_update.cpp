// SPDX-License-Identifier: LGPL-2.1-or-later
// Any order of ticks, answers, presses and closings: the timers that run are those that the state needs, a list is
// converted only when it is as long as announced and complete, and files are removed only by a start.
#include "directory/update.h"
#include "tests/fuzz/fuzzing.h"

#include <cstddef>
#include <cstdint>

using namespace lumotune;
using directory::Step;
using directory::UpdateSteps;
using fuzz::demand;

namespace {

// Carries out what concerns the timers, and notes what waits for an answer.
struct Carrier {
  directory::Update update;
  bool Timer1 = false;
  bool Timer3 = false;
  bool probe_asked = false;
  bool convert_asked = false;
  unsigned asked_run = 0;
  std::uint64_t announced = 0;
  int removed = 0;

  void carry_out(const UpdateSteps& steps) {
    demand(steps.steps.empty() || steps.run == update.run());
    removed = 0;
    for (const auto& step : steps.steps)
      carry_out(step, steps.run);
    demand(!Timer1 || !Timer3);
  }
  void carry_out(const directory::UpdateStep& step, unsigned run) {
    if (step.step == Step::Timer1_on || step.step == Step::Timer1_off)
      Timer1 = step.step == Step::Timer1_on;
    if (step.step == Step::Timer3_on || step.step == Step::Timer3_off)
      Timer3 = step.step == Step::Timer3_on;
    removed += step.step == Step::remove_file ? 1 : 0;
    probe_asked |= step.step == Step::read_probe;
    convert_asked |= step.step == Step::convert;
    if (step.step == Step::read_probe || step.step == Step::convert)
      asked_run = run;
    if (step.step == Step::show_progress)
      demand(step.number >= 0 && step.number <= 100);
  }
};

directory::FileFacts facts(std::uint8_t byte) {
  if (byte % 7 == 0)
    return {};
  return {byte % 16U, byte % 5 == 0};
}

void answer_probe(Carrier& carrier, std::uint8_t byte) {
  using Kind = directory::Probe::Kind;
  const auto kind = byte % 3 == 0 ? Kind::refused : byte % 3 == 1 ? Kind::unusable : Kind::size;
  const bool read = byte % 8 != 0;
  const bool current = carrier.probe_asked && carrier.asked_run == carrier.update.run();
  carrier.carry_out(carrier.update.probe_read(carrier.asked_run,
                                              read ? std::optional(directory::Probe{kind, byte % 16U}) : std::nullopt));
  demand(current || !carrier.Timer1 || carrier.announced != 0);
  if (current && read)
    carrier.announced = kind == Kind::size ? byte % 16U : 0;
  carrier.probe_asked = false;
}

void tick_Timer1(Carrier& carrier, std::uint8_t byte) {
  const auto list = facts(byte);
  carrier.carry_out(carrier.update.Timer1_Timer(list));
  if (carrier.convert_asked)
    demand(list.length == carrier.announced && carrier.announced > 0 && !list.being_written && !carrier.Timer1);
}

void answer_conversion(Carrier& carrier, std::uint8_t byte) {
  using stations::Conversion;
  const auto result = byte % 3 == 0   ? Conversion::done
                      : byte % 3 == 1 ? Conversion::unreadable
                      : byte % 2 == 0 ? Conversion::too_long
                                      : Conversion::not_written;
  carrier.carry_out(carrier.update.converted(carrier.asked_run, result));
  carrier.convert_asked = false;
}

void start_or_close(Carrier& carrier, std::uint8_t byte) {
  if (byte % 4 == 0) {
    carrier.carry_out(carrier.update.close());
    demand(!carrier.Timer1 && !carrier.Timer3 && carrier.removed == 0);
  } else if (byte % 4 == 1) {
    carrier.carry_out(carrier.update.Command1_Click());
    demand(carrier.removed == 0);
    carrier.carry_out(carrier.update.online(carrier.update.run(), byte % 3 == 0));
  } else {
    carrier.carry_out(carrier.update.LoadAktualizaceRadii());
    demand(carrier.Timer3 && !carrier.Timer1 && carrier.removed == 2);
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Carrier carrier;
  for (std::size_t i = 0; i + 1 < size; i += 2) {
    const std::uint8_t byte = data[i + 1];
    switch (data[i] % 8) {
    case 0:
      start_or_close(carrier, byte);
      break;
    case 1:
    case 2:
      if (carrier.Timer3)
        carrier.carry_out(carrier.update.Timer3_Timer(facts(byte)));
      break;
    case 3:
      if (carrier.probe_asked)
        answer_probe(carrier, byte);
      break;
    case 4:
      if (carrier.convert_asked)
        answer_conversion(carrier, byte);
      break;
    case 5:
      (void)directory::progress_percentage(byte, 100.0 / (byte + 1));
      break;
    default:
      if (carrier.Timer1 && !carrier.convert_asked)
        tick_Timer1(carrier, byte);
    }
  }
  return 0;
}
