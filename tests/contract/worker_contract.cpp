// SPDX-License-Identifier: LGPL-2.1-or-later
// Work beside the user-interface thread. The thread that Windows uses is run natively too, for the sanitizers.
#include "platform/common/worker_thread.h"
#include "tests/contract/fixture.h"
#ifndef _WIN32
#include "platform/memory/worker.h"

#include <pthread.h>
#endif

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace lumotune::contract {
namespace {

template <typename Made>
struct WorkerContract : testing::Test {
  Backend b;
  std::unique_ptr<platform::Worker> worker = std::make_unique<Made>(b.loop);
  std::vector<std::unique_ptr<platform::WorkerTask>> tasks;
  std::vector<std::string> worked; // the worker's thread, and this one once that is over
  std::string told;

  ~WorkerContract() override {
    tasks.clear();
    worker.reset();
  }
  void start(const std::string& name, const std::function<void()>& also = {}) {
    tasks.push_back(worker->start(
        [this, name, also] {
          if (also)
            also();
          worked.push_back(name);
        },
        [this, name](bool finished) { told += name + (finished ? " " : "! "); }));
  }
  // The twin's clock is moved by hand, in no time at all; the thread needs some.
  [[nodiscard]] bool until(const std::function<bool()>& what) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!b.until(what)) {
      if (std::chrono::steady_clock::now() > end)
        return false;
      std::this_thread::yield();
    }
    return true;
  }
  [[nodiscard]] bool until_told(const std::string& all) {
    return until([&] { return told == all; });
  }
};

#ifdef _WIN32
using Workers = testing::Types<platform::WorkerThread>;
#else
using Workers = testing::Types<platform::memory::Worker, platform::WorkerThread>;
#endif
TYPED_TEST_SUITE(WorkerContract, Workers, );

TYPED_TEST(WorkerContract, WorksOnAnotherThreadAndTellsOnThisOne) {
  std::thread::id worker_thread;
  std::thread::id end_thread;
  bool within = true;
  const auto task = this->worker->start([&] { worker_thread = std::this_thread::get_id(); },
                                        [&](bool finished) {
                                          EXPECT_TRUE(finished);
                                          EXPECT_FALSE(within) << "from the loop";
                                          end_thread = std::this_thread::get_id();
                                        });
  within = false;
  EXPECT_TRUE(this->until([&] { return end_thread != std::thread::id(); }));
  EXPECT_EQ(end_thread, std::this_thread::get_id());
  EXPECT_NE(worker_thread, end_thread);
}

TYPED_TEST(WorkerContract, DoesOneAfterAnother) {
  for (const char* name : {"a", "b", "c"})
    this->start(name);
  EXPECT_TRUE(this->until_told("a b c "));
  EXPECT_EQ(this->worked, std::vector<std::string>({"a", "b", "c"}));
  this->start("d"); // after it had nothing to do
  EXPECT_TRUE(this->until_told("a b c d "));
}

TYPED_TEST(WorkerContract, WorkThatThrowsIsToldAndTheNextIsDone) {
  this->start("a", [] { throw std::bad_alloc(); });
  this->start("b", [] { throw 1; });
  this->start("c");
  EXPECT_TRUE(this->until_told("a! b! c "));
}

TYPED_TEST(WorkerContract, CancelledBeforeItBeganItIsNotDone) {
  std::promise<void> go;
  auto gone = go.get_future();
  this->start("a", [&] { gone.wait(); });
  this->start("b");
  this->start("c");
  this->tasks.erase(this->tasks.begin() + 1);
  go.set_value();
  EXPECT_TRUE(this->until_told("a c "));
  EXPECT_EQ(this->worked, std::vector<std::string>({"a", "c"}));
}

TYPED_TEST(WorkerContract, CancelledAtAnyTimeItIsNotTold) {
  for (int i = 0; i < 20; ++i) {
    this->start("a");
    if (i % 2 == 1)
      std::this_thread::yield(); // it may have begun, or be over
    this->tasks.clear();
  }
  this->start("b");
  EXPECT_TRUE(this->until_told("b "));
}

TYPED_TEST(WorkerContract, ATaskMayGoInItsOwnEndAndStartAnother) {
  std::unique_ptr<platform::WorkerTask> task;
  task = this->worker->start([] {},
                             [&](bool) {
                               task.reset();
                               this->start("b");
                             });
  this->start("a");
  EXPECT_TRUE(this->until_told("a b "));
}

// What it holds may be large: it is not kept until the end is told.
TYPED_TEST(WorkerContract, WorkIsGoneWhenItsEndIsTold) {
  auto held = std::make_shared<int>(1);
  const std::weak_ptr<int> watched = held;
  std::optional<bool> gone;
  const auto task = this->worker->start([held = std::move(held)] {}, [&](bool) { gone = watched.expired(); });
  EXPECT_TRUE(this->until([&] { return gone.has_value(); }));
  EXPECT_TRUE(gone.value_or(false));
}

TYPED_TEST(WorkerContract, AtItsEndWhatWaitsIsDropped) {
  for (const char* name : {"a", "b", "c", "d"})
    this->start(name);
  this->worker.reset();
  const auto before = this->worked.size();
  this->b.pass(50);
  EXPECT_EQ(this->worked.size(), before) << "nothing works on";
  EXPECT_EQ(this->told, "");
  this->tasks.clear(); // they may go after it
}

TYPED_TEST(WorkerContract, AtItsEndWorkUnderWayIsWaitedFor) {
  std::promise<void> begun;
  const auto under_way = begun.get_future();
  this->start("a", [&] { begun.set_value(); });
  ASSERT_TRUE(this->until([&] { return under_way.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
  this->worker.reset();
  EXPECT_EQ(this->worked, std::vector<std::string>({"a"}));
}

#ifndef _WIN32
struct NativeWorkerThread : WorkerContract<platform::WorkerThread> {};

TEST_F(NativeWorkerThread, HasAName) {
  std::array<char, 16> name{};
  const auto task = worker->start([&] { (void)pthread_getname_np(pthread_self(), name.data(), name.size()); },
                                  [&](bool) { told = name.data(); });
  EXPECT_TRUE(until_told("file worker"));
}
#endif

} // namespace
} // namespace lumotune::contract
