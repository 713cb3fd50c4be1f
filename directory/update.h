// SPDX-License-Identifier: LGPL-2.1-or-later
// The update from the server as a state machine: facts go in, the steps to be carried out come out. Pure.
#pragma once

#include "directory/probe.h"
#include "stations/conversion.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace lumotune::directory {

enum class Step {
  remove_file,   // text: name in the program folder; a missing one is no error
  set_status,    // text of Label1
  show_progress, // number: percent, 0..100
  hide_progress,
  start_probe, // the downloader, for the list's size
  start_list,  // the downloader, for the list
  Timer1_on,   // 100 ms, watches the download: Timer1_Timer
  Timer1_off,
  Timer2_off,
  Timer3_on, // 100 ms, waits for the probe: Timer3_Timer
  Timer3_off,
  repaint,    // pending events run
  read_probe, // answer with probe_read
  convert,    // answer with converted, later
  give_up_conversion,
  reload, // the new files: table, tree, and the stations of the remembered node
  NactiKategorie,
  CommandOK,
  Command1_on,
  Command1_off,
  TestOnLine,  // answer with online
  show_message // text; information icon, default title
};

struct UpdateStep {
  Step step = Step::repaint;
  std::wstring text{};
  int number = 0;
};

// To be carried out in order. A step that runs events may see a new update start or the window close: check before each
// step that `run` is still Update::run(), otherwise drop the rest.
struct UpdateSteps {
  unsigned run = 0;
  std::vector<UpdateStep> steps;
};

// What is known of a file at a tick.
struct FileFacts {
  std::optional<std::uint64_t> length; // nothing while the file does not exist
  bool being_written = false; // another program has it open for writing; only asked when the file is otherwise ready
  std::uint32_t now_ms = 0;   // the tick count
  std::wstring full_disk{};   // the name of the disk that has no room for the rest; only asked when nothing grows
};

// User-interface thread.
class Update {
public:
  [[nodiscard]] unsigned run() const { return run_; }
  [[nodiscard]] std::uint64_t announced_size() const { return announced_size_; } // bytes, 0 before it is known

  // A probe that does not come, and a list that does not grow, are told after so long; the watch goes on.
  static constexpr std::uint32_t silence_ms = 10'000;
  // Whether the list has not grown for that long.
  [[nodiscard]] bool stands(std::uint32_t now_ms) const;

  // Starts an update and abandons the running one. `trouble` is what is wrong with the present list, told beside the
  // status; empty when nothing is.
  [[nodiscard]] UpdateSteps LoadAktualizaceRadii(const std::wstring& trouble = {});
  // The window was closed: abandons what runs and resets the button.
  [[nodiscard]] UpdateSteps close();

  [[nodiscard]] UpdateSteps Timer3_Timer(const FileFacts& probe);
  // The probe's content; nullopt when it could not be read. An answer to an older run yields no steps.
  [[nodiscard]] UpdateSteps probe_read(unsigned run, const std::optional<Probe>& probe);

  [[nodiscard]] UpdateSteps Timer1_Timer(const FileFacts& list);
  // `full_disk`: the name of the disk that had no room for the files, or empty.
  [[nodiscard]] UpdateSteps converted(unsigned run, stations::Conversion result, const std::wstring& full_disk = {});

  [[nodiscard]] UpdateSteps Timer2_Timer(const FileFacts& new_categories);

  [[nodiscard]] UpdateSteps Command1_Click();
  [[nodiscard]] UpdateSteps online(unsigned run, bool connected);

private:
  enum class State { idle, probing, reading_probe, downloading, converting };

  [[nodiscard]] UpdateSteps steps(std::vector<UpdateStep> list) const { return {run_, std::move(list)}; }

  [[nodiscard]] UpdateSteps probe_missing(std::uint32_t now_ms);
  void measure_growth(std::uint64_t length, std::uint32_t now_ms);

  State state_ = State::idle;
  std::wstring trouble_;
  std::optional<std::uint32_t> still_since_ms_; // when the probe was first waited for, or the list last grew
  std::uint64_t last_length_ = 0;               // bytes of the list at that time
  bool silence_told_ = false;
  unsigned run_ = 0;
  std::uint64_t announced_size_ = 0; // bytes
  double progress_factor_ = 0;       // percent a byte
};

// The percentage of a length, rounded half to even, clamped to 16 bits.
[[nodiscard]] int progress_percentage(std::uint64_t length, double progress_factor);

} // namespace lumotune::directory
