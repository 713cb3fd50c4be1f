// SPDX-License-Identifier: LGPL-2.1-or-later
// Updates in every state, and their steps as texts.
#pragma once

#include "directory/update.h"

#include <map>
#include <string>
#include <vector>

namespace lumotune::test {

using directory::FileFacts;
using directory::Probe;
using directory::Step;
using directory::Update;
using directory::UpdateSteps;
using stations::Conversion;
using Texts = std::vector<std::wstring>;

inline std::wstring step_text(const directory::UpdateStep& step) {
  static const std::map<Step, std::wstring> names = {{Step::remove_file, L"remove "},
                                                     {Step::set_status, L"status "},
                                                     {Step::show_progress, L"progress "},
                                                     {Step::hide_progress, L"hide progress"},
                                                     {Step::start_probe, L"start probe"},
                                                     {Step::start_list, L"start list"},
                                                     {Step::Timer1_on, L"Timer1 on"},
                                                     {Step::Timer1_off, L"Timer1 off"},
                                                     {Step::Timer2_off, L"Timer2 off"},
                                                     {Step::Timer3_on, L"Timer3 on"},
                                                     {Step::Timer3_off, L"Timer3 off"},
                                                     {Step::repaint, L"repaint"},
                                                     {Step::read_probe, L"read probe"},
                                                     {Step::convert, L"convert"},
                                                     {Step::give_up_conversion, L"give up conversion"},
                                                     {Step::reload, L"reload"},
                                                     {Step::NactiKategorie, L"NactiKategorie"},
                                                     {Step::CommandOK, L"CommandOK"},
                                                     {Step::Command1_on, L"Command1 on"},
                                                     {Step::Command1_off, L"Command1 off"},
                                                     {Step::TestOnLine, L"TestOnLine"},
                                                     {Step::show_message, L"message "}};
  return names.at(step.step) + (step.step == Step::show_progress ? std::to_wstring(step.number) : step.text);
}

inline Texts texts(const UpdateSteps& steps) {
  Texts list;
  for (const auto& step : steps.steps)
    list.push_back(step_text(step));
  return list;
}

inline FileFacts of_length(std::uint64_t length) {
  return {length, false};
}

inline Probe announcing(std::uint64_t size) {
  return {Probe::Kind::size, size};
}

inline const Texts nothing;
inline const Texts start = {L"Timer1 off",
                            L"Timer3 off",
                            L"give up conversion",
                            L"hide progress",
                            L"remove orb_test_size.tt",
                            L"remove seznam.tt",
                            L"status Připojování k databázi rádií...",
                            L"start probe",
                            L"Timer3 on"};
inline const Texts refusal = {L"status Aktualizaci nyní nelze provést, zkuste to prosím později."};
inline const std::wstring finished = L"status Hotovo, připraven...";

// An update whose probe is being read, or that downloads a list of that size.
inline Update probed() {
  Update update;
  (void)update.LoadAktualizaceRadii();
  (void)update.Timer3_Timer(of_length(7));
  return update;
}
inline Update downloading(std::uint64_t size) {
  Update update = probed();
  (void)update.probe_read(update.run(), announcing(size));
  return update;
}
inline Update converting() {
  Update update = downloading(10);
  (void)update.Timer1_Timer(of_length(10));
  return update;
}
inline std::wstring status_at(std::uint64_t length, std::uint64_t size) {
  return texts(downloading(size).Timer1_Timer(of_length(length))).at(0);
}
inline std::wstring percent(const std::wstring& number) {
  return L"status Aktualizuji seznam rádií (" + number + L"%)";
}

} // namespace lumotune::test
