// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/file_replacing.h"

namespace lumotune::platform {
namespace {

// One retry budget for all steps of a call, which bounds the caller's wait however many files are held.
class Patience {
public:
  explicit Patience(FileSteps& steps) : steps_(steps) {}

  template <typename Step>
  [[nodiscard]] bool done(const Step& step) {
    for (;;) {
      const FileStep result = step();
      if (result != FileStep::held || ++tries_ >= file_tries)
        return result == FileStep::done;
      steps_.wait(file_wait_ms);
    }
  }

private:
  FileSteps& steps_;
  int tries_ = 0;
};

// Scanners and backup programs hold a file that they look at for a moment.
bool gone(FileSteps& steps, const std::wstring& path, Patience& patience) {
  return patience.done([&] { return steps.erase(path); });
}

bool moved(FileSteps& steps, const std::wstring& from, const std::wstring& to) {
  return steps.take_place(from, to) == FileStep::done;
}

struct Pair {
  explicit Pair(const std::wstring& first_file, const std::wstring& second_file)
      : first(first_file),
        second(second_file),
        first_new(first + L".new"),
        first_old(first + L".old"),
        second_new(second + L".new") {}
  const std::wstring& first;
  const std::wstring& second;
  std::wstring first_new;
  std::wstring first_old;
  std::wstring second_new;
};

// As long as the first file's new content waits, nothing has changed yet. The copy of the old file goes first: without
// the new content, a copy beside the second one's new content says that the first file was replaced.
void forget(FileSteps& steps, const Pair& pair, Patience& patience) {
  if (!gone(steps, pair.first_old, patience))
    return; // the next start tries again
  (void)gone(steps, pair.second_new, patience);
  (void)gone(steps, pair.first_new, patience);
}

// The first file was replaced. The second one follows, or the first one comes back; when neither can be done, what is
// needed for it stays for the next start.
[[nodiscard]] bool follow(FileSteps& steps, const Pair& pair, Patience& forward) {
  if (forward.done([&] { return steps.take_place(pair.second_new, pair.second); })) {
    (void)gone(steps, pair.first_old, forward);
    return true;
  }
  Patience back(steps);
  if (back.done([&] { return steps.take_place(pair.first_old, pair.first); }))
    (void)gone(steps, pair.second_new, back);
  return false;
}

} // namespace

bool replace_one(FileSteps& steps, const std::wstring& path, std::string_view bytes) {
  const std::wstring beside = path + L".new";
  Patience patience(steps);
  if (patience.done([&] { return steps.write_beside(beside, bytes, path); }) &&
      patience.done([&] { return steps.take_place(beside, path); }))
    return true;
  (void)gone(steps, beside, patience); // incomplete or unwanted
  return false;
}

// A copy of the first old file waits beside it until the second one is in place; an empty one where there was none.
bool replace_two(FileSteps& steps, const std::wstring& first, std::string_view first_bytes, const std::wstring& second,
                 std::string_view second_bytes) {
  const Pair pair(first, second);
  settle_two(steps, first, second);
  if (steps.there(pair.first_old))
    return false; // the last replacement still cannot be completed or taken back
  const bool had_first = steps.there(first);
  Patience patience(steps);
  const auto keep = [&] {
    return had_first ? steps.keep_copy(first, pair.first_old) : steps.write_beside(pair.first_old, "", first);
  };
  if (!patience.done([&] { return steps.write_beside(pair.first_new, first_bytes, first); }) ||
      !patience.done([&] { return steps.write_beside(pair.second_new, second_bytes, second); }) ||
      !patience.done(keep) || !patience.done([&] { return steps.take_place(pair.first_new, first); })) {
    forget(steps, pair, patience);
    return false;
  }
  if (follow(steps, pair, patience))
    return true;
  if (!had_first && !steps.there(pair.first_old))
    (void)gone(steps, first, patience); // the empty one that stood for none
  return false;
}

void settle_one(FileSteps& steps, const std::wstring& path) {
  Patience patience(steps);
  (void)gone(steps, path + L".new", patience);
}

void settle_two(FileSteps& steps, const std::wstring& first, const std::wstring& second) {
  const Pair pair(first, second);
  Patience patience(steps);
  if (steps.there(pair.first_new) || !steps.there(pair.first_old))
    return forget(steps, pair, patience);
  if (!steps.there(first)) {
    if (moved(steps, pair.first_old, first))
      forget(steps, pair, patience);
    return;
  }
  if (steps.there(pair.second_new) && !steps.newer(second, pair.second_new))
    return (void)follow(steps, pair, patience);
  if (gone(steps, pair.second_new, patience))
    (void)gone(steps, pair.first_old, patience);
}

} // namespace lumotune::platform
