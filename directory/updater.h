// SPDX-License-Identifier: LGPL-2.1-or-later
// Carries out the steps of the update: timers, files, the downloader, the status line.
#pragma once

#include "base/program_folder.h"
#include "base/session.h"
#include "base/settings_files.h"
#include "directory/list_radios_form.h"
#include "directory/station_list.h"
#include "directory/update.h"
#include "platform/connection.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/shell.h"
#include "platform/worker.h"
#include "stations/download_conversion.h"
#include "stations/station_files.h"

#include <memory>
#include <string>

namespace lumotune::directory {

// User-interface thread. Steps that run events may see the window closed or a new update started.
class Updater {
public:
  struct Uses {
    ListRadiosForm& form;
    StationList& list;
    stations::ConversionPort& shows; // receives the orders in the list: advertisement, information line
    stations::StationFiles& station_files;
    base::Settings& settings;
    platform::EventLoop& loop;
    const base::ProgramFolder& folder;
    platform::Shell& shell;
    platform::Dialogs& dialogs;
    platform::Connection& connection;
    platform::Worker& worker;
  };
  explicit Updater(const Uses& uses);

  void LoadAktualizaceRadii();
  void Command1_Click() { carry_out(update_.Command1_Click()); }
  [[nodiscard]] std::wstring TestOnLine(); // "true" or "false"; events run meanwhile
  // Refills the tree once another program has written new categories; does nothing when they are there already.
  void watch_for_categories();
  void close() { carry_out(update_.close()); }

private:
  void carry_out(const UpdateSteps& steps);
  void carry_out(const UpdateStep& step, unsigned run);
  void act_on_window(const UpdateStep& step);
  [[nodiscard]] std::wstring path(const wchar_t* name) const;
  [[nodiscard]] FileFacts facts(const std::wstring& file) const;
  [[nodiscard]] FileFacts list_facts() const;
  void convert(unsigned run);
  [[nodiscard]] UpdateSteps converted(unsigned run, stations::Conversion result);
  [[nodiscard]] std::optional<Probe> read_probe(unsigned run);

  Uses uses_;
  Update update_;
  stations::DownloadConversion conversion_;
  std::unique_ptr<platform::Timer> Timer1;
  std::unique_ptr<platform::Timer> Timer2;
  std::unique_ptr<platform::Timer> Timer3;
};

} // namespace lumotune::directory
