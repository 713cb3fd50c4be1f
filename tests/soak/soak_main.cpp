// SPDX-License-Identifier: LGPL-2.1-or-later
// media_soak HOURS SEED FILE...: simulated hours of stations that send these files; a line of TSV each ten minutes.
#include "platform/media/ffmpeg.h"
#include "tests/soak/soak.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

int main(int argc, char** argv) {
  using namespace lumotune::media;
  if (argc < 4)
    return 2;
  av_log_set_level(AV_LOG_QUIET);
  soak::Settings settings;
  settings.minutes = std::atoi(argv[1]) * 60;
  settings.seed = static_cast<unsigned>(std::atoi(argv[2]));
  for (int i = 3; i < argc; ++i) {
    std::ifstream in(argv[i], std::ios::binary);
    settings.sound[argv[i]] = {std::istreambuf_iterator<char>(in), {}};
  }
  std::puts("minute\tlowest_ms\tmean_ms\thighest_ms\trss_kb\theap_kb\tthreads\tfaults\trecovered\tunderruns\tlongest_"
            "recovery_ms");
  const soak::Result result = soak::run(settings, [](const soak::Sample& s) {
    std::printf("%d\t%u\t%u\t%u\t%ld\t%ld\t%d\t%d\t%d\t%d\t%u\n", s.minute, s.lowest_ms, s.mean_ms, s.highest_ms,
                s.rss_kb, s.heap_kb, s.threads, s.faults, s.recovered, s.underruns, s.longest_recovery_ms);
    std::fflush(stdout);
  });
  for (const auto& [name, count] : result.faults)
    std::fprintf(stderr, "%s: %d\n", name.c_str(), count);
  for (const auto& name : result.unrecovered)
    std::fprintf(stderr, "not recovered from: %s\n", name.c_str());
  return result.unrecovered.empty() ? 0 : 1;
}
