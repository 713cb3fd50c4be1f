// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/updater.h"

#include "base/boxes.h"
#include "base/disk_room.h"
#include "companions/command_lines.h"
#include "stations/file_names.h"

namespace lumotune::directory {
namespace {

constexpr std::uint32_t watch_ms = 100;
constexpr std::uint32_t categories_ms = 500;

} // namespace

Updater::Updater(const Uses& uses)
    : uses_(uses),
      conversion_({uses.folder, uses.station_files, uses.shows, uses.worker, uses.loop}),
      Timer1(uses.loop.make_timer(watch_ms, [this] { carry_out(update_.Timer1_Timer(list_facts())); })),
      Timer2(uses.loop.make_timer(
          categories_ms, [this] { carry_out(update_.Timer2_Timer(facts(path(stations::new_categories_file)))); })),
      Timer3(uses.loop.make_timer(watch_ms,
                                  [this] { carry_out(update_.Timer3_Timer(facts(path(stations::probe_file)))); })) {}

std::wstring Updater::path(const wchar_t* name) const {
  return uses_.folder.path(name);
}

// Asks whether a file is being written only where it matters: the check briefly locks writers out, and a downloader may
// reopen its file for every piece.
FileFacts Updater::facts(const std::wstring& file) const {
  const auto length = uses_.folder.files().size(file);
  return {length, length.value_or(0) > 0 && uses_.folder.files().being_written(file), uses_.loop.tick_count_ms()};
}

// Forward slash on purpose: the downloader is given exactly this path.
FileFacts Updater::list_facts() const {
  const std::wstring file = uses_.folder.path() + L"/" + stations::download_file;
  const auto length = uses_.folder.files().size(file);
  const std::uint64_t announced = update_.announced_size();
  const std::uint32_t now = uses_.loop.tick_count_ms();
  FileFacts list{length, length == announced && uses_.folder.files().being_written(file), now};
  if (update_.stands(now) && length.value_or(0) < announced)
    list.full_disk = base::full_disk(uses_.folder, announced - length.value_or(0));
  return list;
}

void Updater::LoadAktualizaceRadii() {
  const bool too_long = uses_.station_files.stations_too_long();
  carry_out(update_.LoadAktualizaceRadii(too_long ? L"Soubor radios.tt je příliš dlouhý." : L""));
}

void Updater::convert(unsigned run) {
  conversion_.start(update_.announced_size(),
                    [this, run](stations::Conversion result) { carry_out(converted(run, result)); });
}

// Both new files and a copy of the old stations are on the disk at once.
UpdateSteps Updater::converted(unsigned run, stations::Conversion result) {
  std::wstring full_disk;
  if (result == stations::Conversion::not_written)
    full_disk = base::full_disk(uses_.folder, update_.announced_size() +
                                                  uses_.folder.files().size(path(stations::stations_file)).value_or(0));
  return update_.converted(run, result, full_disk);
}

void Updater::watch_for_categories() {
  if (!uses_.folder.files().exists(path(stations::new_categories_file)))
    Timer2->start();
}

void Updater::carry_out(const UpdateSteps& steps) {
  for (const UpdateStep& step : steps.steps) {
    if (steps.run != update_.run() || uses_.loop.quitting())
      return;
    carry_out(step, steps.run);
  }
}

// A step that asks for an answer continues with the steps that the answer leads to.
void Updater::carry_out(const UpdateStep& step, unsigned run) {
  switch (step.step) {
  case Step::read_probe:
    carry_out(update_.probe_read(run, read_probe(run)));
    return;
  case Step::convert:
    return convert(run);
  case Step::give_up_conversion:
    return conversion_.give_up();
  case Step::TestOnLine:
    carry_out(update_.online(run, TestOnLine() == L"true"));
    return;
  case Step::repaint:
    return uses_.loop.run_pending();
  case Step::Timer1_on:
    return Timer1->start();
  case Step::Timer1_off:
    return Timer1->stop();
  case Step::Timer2_off:
    return Timer2->stop();
  case Step::Timer3_on:
    return Timer3->start();
  case Step::Timer3_off:
    return Timer3->stop();
  case Step::remove_file:
  case Step::set_status:
  case Step::show_progress:
  case Step::hide_progress:
  case Step::start_probe:
  case Step::start_list:
  case Step::reload:
  case Step::NactiKategorie:
  case Step::CommandOK:
  case Step::Command1_on:
  case Step::Command1_off:
  case Step::show_message:
    return act_on_window(step);
  }
}

void Updater::act_on_window(const UpdateStep& step) {
  auto& form = uses_.form;
  switch (step.step) {
  case Step::remove_file:
    return (void)uses_.folder.files().remove(path(step.text.c_str())); // a missing file is no error
  case Step::set_status:
    return form.Label1.set_text(step.text);
  case Step::show_progress:
    form.Progress.set_percent(step.number);
    return form.Progress.set_visible(true);
  case Step::hide_progress:
    return form.Progress.set_visible(false);
  case Step::start_probe:
    return companions::launch(
        uses_.shell, companions::station_list_size(companions::companion_values(uses_.folder, uses_.settings)));
  case Step::start_list:
    return companions::launch(uses_.shell,
                              companions::station_list(companions::companion_values(uses_.folder, uses_.settings)));
  case Step::reload:
    return uses_.list.reload();
  case Step::NactiKategorie:
    return uses_.list.NactiKategorie();
  case Step::CommandOK:
    return uses_.list.CommandOK();
  case Step::Command1_on:
  case Step::Command1_off:
    return form.Command1.set_enabled(step.step == Step::Command1_on);
  case Step::show_message:
    return base::inform(uses_.dialogs, step.text);
  case Step::read_probe:
  case Step::convert:
  case Step::give_up_conversion:
  case Step::TestOnLine:
  case Step::repaint:
  case Step::Timer1_on:
  case Step::Timer1_off:
  case Step::Timer2_off:
  case Step::Timer3_on:
  case Step::Timer3_off:
    return; // carry_out does these itself
  }
}

// The window repaints after each line, however many a server sends. Reading stops when the update was replaced or the
// program ends.
std::optional<Probe> Updater::read_probe(unsigned run) {
  if (uses_.folder.files().size(path(stations::probe_file)).value_or(0) > max_probe_bytes)
    return Probe{};
  std::string bytes;
  if (!uses_.folder.files().read_at_most(path(stations::probe_file), bytes, max_probe_bytes))
    return std::nullopt;
  return parse_probe(bytes, uses_.settings.server_address, uses_.folder.codec(), [this, run] {
    uses_.loop.run_pending();
    return run == update_.run() && !uses_.loop.quitting();
  });
}

std::wstring Updater::TestOnLine() {
  uses_.loop.run_pending();
  const bool connected = uses_.connection.state().connected;
  uses_.loop.run_pending();
  return connected ? L"true" : L"false";
}

} // namespace lumotune::directory
