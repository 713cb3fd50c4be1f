// SPDX-License-Identifier: LGPL-2.1-or-later
// Copies of the program that start beside each other, and the limit of the end.
#include "platform/win32/end_limit.h"
#include "platform/win32/running_mark.h"
#include "tests/contract/fixture_win32.h"

#include <gtest/gtest.h>

#include <sddl.h>

#include <chrono>
#include <future>
#include <memory>
#include <thread>

namespace lumotune::contract {
namespace {

using platform::win32::KernelHandle;
using platform::win32::RunningMark;

// A copy in a thread of its own, because a mark belongs to a thread.
class Copy {
public:
  Copy() : thread_([this] { live(); }) { previous_ = made_.get_future().get(); }
  Copy(const Copy&) = delete;
  Copy& operator=(const Copy&) = delete;
  ~Copy() {
    end();
    thread_.join();
  }
  [[nodiscard]] bool previous() const { return previous_; }
  void begin_end() {
    begin_.set_value();
    begun_.get_future().get();
    ending_ = true;
  }
  void end() {
    if (!ending_)
      begin_end();
    if (!ended_)
      end_.set_value();
    ended_ = true;
  }

private:
  void live() {
    RunningMark mark;
    made_.set_value(mark.previous());
    begin_.get_future().get();
    if (!mark.previous())
      mark.begin_end();
    begun_.set_value();
    end_.get_future().get();
  }

  bool previous_ = false;
  bool ending_ = false;
  bool ended_ = false;
  std::promise<bool> made_;
  std::promise<void> begin_;
  std::promise<void> begun_;
  std::promise<void> end_;
  std::thread thread_;
};

TEST(Win32RunningMark, ASecondCopySeesTheFirstAndAThirdTheirAbsence) {
  {
    Copy first;
    EXPECT_FALSE(first.previous());
    Copy second;
    EXPECT_TRUE(second.previous());
  }
  Copy third;
  EXPECT_FALSE(third.previous());
}

// As the mark of a copy with more rights is closed to one with fewer.
TEST(Win32RunningMark, AMarkThatMayNotBeOpenedIsACopyThatRuns) {
  SECURITY_ATTRIBUTES nobody{sizeof nobody, nullptr, FALSE};
  ASSERT_NE(ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:", SDDL_REVISION_1, &nobody.lpSecurityDescriptor,
                                                                 nullptr),
            0);
  const KernelHandle mark(CreateMutexW(&nobody, TRUE, L"Local\\Lumotune.Running"));
  LocalFree(nobody.lpSecurityDescriptor);
  ASSERT_NE(mark, nullptr);
  Copy copy;
  EXPECT_TRUE(copy.previous());
}

// Wine opens a mark whatever its rights are, so the refusal itself is given here.
TEST(Win32RunningMark, AMarkThatIsRefusedTellsOfACopy) {
  EXPECT_TRUE(platform::win32::tells_of_a_copy(ERROR_ACCESS_DENIED));
  EXPECT_TRUE(platform::win32::tells_of_a_copy(ERROR_ALREADY_EXISTS));
  EXPECT_FALSE(platform::win32::tells_of_a_copy(ERROR_SUCCESS));
  EXPECT_FALSE(platform::win32::tells_of_a_copy(ERROR_NOT_ENOUGH_MEMORY));
}

TEST(Win32RunningMark, AStartDuringTheEndWaitsForItAndIsTheFirst) {
  auto first = std::make_unique<Copy>();
  first->begin_end();
  auto second = std::async(std::launch::async, [] { return std::make_unique<Copy>(); });
  EXPECT_EQ(second.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout) << "it waits";
  first.reset();
  const auto copy = second.get();
  EXPECT_FALSE(copy->previous());
}

TEST(Win32RunningMark, OfTwoThatWaitOneIsTheFirst) {
  auto first = std::make_unique<Copy>();
  first->begin_end();
  auto second = std::async(std::launch::async, [] { return std::make_unique<Copy>(); });
  auto third = std::async(std::launch::async, [] { return std::make_unique<Copy>(); });
  EXPECT_EQ(second.wait_for(std::chrono::milliseconds(200)), std::future_status::timeout);
  EXPECT_EQ(third.wait_for(std::chrono::milliseconds(0)), std::future_status::timeout);
  first.reset();
  const auto one = second.get();
  const auto other = third.get();
  EXPECT_NE(one->previous(), other->previous());
}

TEST(Win32RunningMark, AnEndThatLastsTooLongIsNotWaitedForForEver) {
  Copy first;
  first.begin_end();
  const auto begun = std::chrono::steady_clock::now();
  Copy second;
  EXPECT_TRUE(second.previous());
  const auto waited = std::chrono::steady_clock::now() - begun;
  EXPECT_GE(waited, std::chrono::milliseconds(RunningMark::longest_wait_ms));
  EXPECT_LT(waited, std::chrono::milliseconds(RunningMark::longest_wait_ms + 3000));
}

TEST(Win32EndLimit, EndsAProcessThatHangs) {
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EXIT(
      {
        platform::win32::limit_end(100);
        Sleep(INFINITE);
      },
      testing::ExitedWithCode(0), "");
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(30)) << "the start of the process included";
}

// What a library would run at the end of the process; here it tells that it was run.
constexpr unsigned last_code_ran = 9;
void WINAPI last_code(void* /*unused*/) {
  TerminateProcess(GetCurrentProcess(), last_code_ran);
}
bool arm_last_code() {
  static bool armed = false;
  armed = true;
  return FlsSetValue(FlsAlloc(last_code), &armed) != 0;
}

TEST(Win32EndLimit, TheEndAsksNoLibrary) {
  EXPECT_EXIT(arm_last_code() ? ExitProcess(7) : void(), testing::ExitedWithCode(last_code_ran), "") << "the usual way";
  EXPECT_EXIT(arm_last_code() ? platform::win32::end_now(7) : void(), testing::ExitedWithCode(7), "");
}

// The window that a copy of the program would have, and another that bears its caption.
TEST(Win32Copies, TheWindowOfTheProgramGoesBeforeOneThatMerelyBearsItsCaption) {
  Backend b;
  const HINSTANCE program = GetModuleHandleW(nullptr);
  const wchar_t* const caption = L"Lumotune zkouška kopií";
  const auto make = [&](const wchar_t* kind) {
    return CreateWindowExW(0, kind, caption, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, program, nullptr);
  };
  const HWND stranger_below = make(L"STATIC");
  const auto ref = [](HWND window) {
    return static_cast<platform::WindowRef>(reinterpret_cast<std::uintptr_t>(window));
  };
  EXPECT_EQ(b.messages.find_copy(caption), ref(stranger_below)) << "without one, the caption decides";
  platform::win32::Window copy(b.loop, L"Kopie", 1);
  copy.set_caption(caption);
  const HWND stranger_above = make(L"STATIC");
  EXPECT_EQ(b.messages.find_copy(caption), ref(copy.handle()));
  b.window.set_caption(caption);
  EXPECT_EQ(b.messages.find_copy(caption), ref(copy.handle())) << "never our own";
  DestroyWindow(stranger_above);
  DestroyWindow(stranger_below);
}

} // namespace
} // namespace lumotune::contract
