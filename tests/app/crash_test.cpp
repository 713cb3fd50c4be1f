// SPDX-License-Identifier: LGPL-2.1-or-later
// The whole program ends during any of the steps by which it changes the disk; the next start finds every file as it
// was before the change or after it, and nothing beside.
#include "base/error_log.h"
#include "tests/app/program_world.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace lumotune::test {
namespace {

using platform::memory::Files;
using Disk = std::map<std::wstring, std::string>;

const std::wstring error_log = L"c:\\orb\\orb_data\\error.log";

struct OneRun : ProgramWorld {
  void TestBody() override {}

  // What makes every kind of change: a settings file with all values, a server file to restore, an error log that is
  // full, an unread reply, an older update.
  OneRun() {
    for (const auto& [name, bytes] : Disk(files.disk())) {
      const std::wstring second = L"c:\\orb\\orb_data\\skins\\druha";
      const std::wstring first = L"c:\\orb\\orb_data\\skins\\lumo";
      if (name.starts_with(first))
        files.written_by_another(second + name.substr(first.size()), bytes);
    }
    auto lines = option_lines();
    lines[18] = "#018:DDD:off";
    outside(L"Orb_Data\\options.ini", joined(lines));
    outside(L"Orb_Data\\orb_server.tt", "torn");
    outside(L"Orb_Data\\orb_server.tt.tmp", "a\r\nb\r\nc\r\nd\r\ne\r\nf\r\n123456789012345http://server\r\n");
    outside(L"Orb_Data\\error.log", std::string(base::ErrorLog::max_bytes - 2, 'x') + "\r\n");
    outside(L"kategories.tt", "new//100000/@/Vse\r\n\r\n");
    outside(L"list.tt", "lt:RADIO1/1\r\n");
    outside(L"skladby.txt", "zapisovat:ano\r\n");
    outside(L"orblt.tt", "old");
    outside(L"seznam.tt", "old");
    outside(L"orb_test_size.tt", "old");
  }
  void outside(const wchar_t* name, const std::string& bytes) {
    files.written_by_another(machine.folder + L"\\" + name, bytes);
    if (const auto copy = files.after_change)
      copy();
  }

  // A listener's evening: each way by which the program comes to change a file.
  void session() {
    (void)program.start();
    play_and_be_asked();
    hear(L"Kometa");
    popups.choices = {L"LT_Menu_Skins_SKIN(0)"};
    program.menus.open_main();
    update_and_keep_a_favourite();
    program.favourites.DeleteFromOblibene(L"lt:RADIO1/1");
    program.error_log.add(L"LoadSkin", L"the second line of a log");
    program.shutdown.Konec();
  }

private:
  void hear(const wchar_t* title) {
    platform::StreamStatus status;
    status.phase = platform::StreamPhase::playing;
    status.title = title;
    player.reported = status;
    loop.advance(1000);
  }
  void play_and_be_asked() {
    (void)window.picture(L"Control_Play")->user_click();
    loop.advance(3000); // the report
    outside(L"orblt.tt", "new:2 zpravy\r\ninf:od nekoho\r\n");
    loop.advance(500);
  }
  void update_and_keep_a_favourite() {
    program.directory.Naladit();
    const std::string list =
        PlayerWorld::record("RADIO1", "Novy", "u1", "u2") + "orb:k:new//100001/@/Nove\r\n<end>\r\n";
    outside(L"orb_test_size.tt", "size:" + std::to_string(list.size()) + "\r\n");
    loop.advance(100);
    outside(L"seznam.tt", list);
    loop.advance(100);
    (void)framed_windows.last->find<platform::memory::ListView>(L"ListView1")
        ->user_pick(1, platform::MouseButton::left);
    popups.choices = {L"Kvalita2"};
    (void)framed_windows.last->find<platform::memory::Label>(L"Label5")->user_click();
  }
};

// The log alone is appended to in place: a part of the line that was being written may stay.
bool is_log_between(const std::string& log, const std::string& before, const std::string& after) {
  return log == before || log == after || (log.starts_with(before) && after.starts_with(log));
}

bool is_between(Disk found, Disk before, Disk after) {
  const bool log_is = is_log_between(found[error_log], before[error_log], after[error_log]);
  found[error_log] = before[error_log] = after[error_log] = {};
  return log_is && (found == before || found == after);
}

std::string differences(const Disk& found, const Disk& wanted) {
  std::string names;
  for (const Disk* one : {&found, &wanted}) {
    for (const auto& [name, bytes] : *one) {
      const Disk& other = one == &found ? wanted : found;
      if (const auto there = other.find(name); there == other.end() || there->second != bytes)
        names += " " + std::string(name.begin(), name.end());
    }
  }
  return names;
}

struct CrashTest : testing::TestWithParam<Files::Left> {
  struct Moment {
    std::size_t changes = 0; // of the program so far
    Disk disk;
  };
  std::vector<Moment> moments; // of a run without a crash: its beginning, and after each change by whomever

  CrashTest() {
    OneRun run;
    run.files.forget_changes();
    run.files.after_change = [&] { moments.push_back({run.files.changes().size(), run.files.disk()}); };
    run.files.after_change();
    run.session();
  }
  // The pair of files that only change together.
  static std::string stations(const Disk& disk) {
    return disk.at(L"c:\\orb\\radios.tt") + "|" + disk.at(L"c:\\orb\\kategories.tt");
  }
  void expect_whole(const Files& files, std::size_t changes) const {
    const Disk found = files.disk();
    bool known = false;
    std::string different;
    for (std::size_t i = 0; i < moments.size(); ++i) {
      const Disk& next = moments[std::min(i + 1, moments.size() - 1)].disk;
      if (moments[i].changes != changes)
        continue;
      known = known || is_between(found, moments[i].disk, next);
      different += differences(found, moments[i].disk) + " /" + differences(found, next) + " |";
    }
    EXPECT_TRUE(known) << different;
    EXPECT_TRUE(stations(found) == stations(moments.front().disk) || stations(found) == stations(moments.back().disk));
  }
  // The start after a crash, which may crash as well. Returns whether it did.
  void next_start(const Files& left, std::size_t changes) const {
    bool crashed = true;
    for (int step = 0; crashed; ++step) {
      SCOPED_TRACE("start " + std::to_string(step));
      auto second = std::make_unique<OneRun>();
      second->files.start_with_disk_of(left);
      second->files.crash_at(step, GetParam());
      (void)second->program.start();
      crashed = second->files.power_on();
      const auto third = std::make_unique<OneRun>();
      third->files.start_with_disk_of(second->files);
      ASSERT_TRUE(third->program.start());
      expect_whole(third->files, changes);
    }
  }
};

TEST_P(CrashTest, AtAnyStepOfAnyChangeLeavesTheOldOrTheNewContent) {
  bool crashed = true;
  std::size_t step = 0;
  for (; crashed && !HasFailure(); ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    OneRun first;
    first.files.forget_changes();
    first.files.crash_at(static_cast<int>(step), GetParam());
    first.session();
    const std::size_t changes = first.files.changes().size();
    crashed = first.files.power_on();
    next_start(first.files, changes);
  }
  EXPECT_GT(step, moments.back().changes) << "a change takes a step at least";
  RecordProperty("steps", static_cast<int>(step - 1));
}

// The session of this test changes what the program can change.
TEST_P(CrashTest, TheSessionChangesEveryFile) {
  const Disk& before = moments.front().disk;
  const Disk& after = moments.back().disk;
  for (const wchar_t* name : {L"orb_data\\options.ini", L"orb_data\\orb_server.tt", L"orb_data\\error.log", L"list.tt",
                              L"radios.tt", L"kategories.tt", L"skladby.txt"}) {
    const std::wstring path = std::wstring(L"c:\\orb\\") + name;
    EXPECT_NE(before.at(path), after.at(path)) << std::string(path.begin(), path.end());
  }
  EXPECT_EQ(after.count(L"c:\\orb\\orb_data\\error.log.old"), 1U);
  EXPECT_EQ(after.count(L"c:\\orb\\orblt.tt"), 0U);
  EXPECT_NE(after.at(L"c:\\orb\\orb_data\\options.ini").find("LTskin:druha"), std::string::npos);
}

std::string name_of(const testing::TestParamInfo<Files::Left>& info) {
  return info.param == Files::Left::half ? "Half" : info.param == Files::Left::empty_file ? "AnEmptyFile" : "Nothing";
}

INSTANTIATE_TEST_SUITE_P(Leaves, CrashTest,
                         testing::Values(Files::Left::half, Files::Left::empty_file, Files::Left::nothing), name_of);

} // namespace
} // namespace lumotune::test
