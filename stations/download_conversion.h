// SPDX-License-Identifier: LGPL-2.1-or-later
// Makes radios.tt and kategories.tt from the downloaded list beside the user-interface thread.
#pragma once

#include "base/program_folder.h"
#include "platform/event_loop.h"
#include "platform/worker.h"
#include "stations/conversion.h"
#include "stations/station_files.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace lumotune::stations {

// User-interface thread. Must not be destroyed while it shows the orders of a list: those run events.
class DownloadConversion {
public:
  struct Uses {
    const base::ProgramFolder& folder;
    StationFiles& station_files; // gets what was written, without reading it back
    ConversionPort& shows;
    platform::Worker& worker;
    platform::EventLoop& loop;
  };
  explicit DownloadConversion(const Uses& uses) : uses_(uses) {}

  // The list is read completely and must be `announced_size` bytes long; then its orders are shown; then both files are
  // replaced, or neither. A file that has the new bytes already is left alone, and the list that both files were made
  // from is not converted again. `done` is called from the event loop. Gives up a conversion that is under way.
  void start(std::uint64_t announced_size, std::function<void(Conversion)> done);
  // Nothing is shown or told any more. The files stay as they are, unless they are just being replaced: then both are.
  void give_up();

private:
  struct List;
  void show(List& list);
  void write(const std::shared_ptr<List>& list);
  void end(Conversion result);

  Uses uses_;
  unsigned run_ = 0;
  std::function<void(Conversion)> done_;
  std::unique_ptr<platform::WorkerTask> task_;
};

} // namespace lumotune::stations
