// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/update.h"

#include "stations/file_names.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace lumotune::directory {
namespace {

constexpr const wchar_t* connecting_text = L"Připojování k databázi rádií...";
constexpr const wchar_t* refused_text = L"Aktualizaci nyní nelze provést, zkuste to prosím později.";
constexpr const wchar_t* not_written_text = L"Soubory seznamu používá jiný program, otevřete okno znovu.";

std::wstring full_text(const std::wstring& disk) {
  return L"Disk " + disk + L" je plný.";
}

std::wstring failed_text(stations::Conversion result, const std::wstring& full_disk) {
  if (result == stations::Conversion::too_long)
    return std::wstring(refused_text) + L" Seznam je příliš dlouhý.";
  if (result != stations::Conversion::not_written)
    return refused_text;
  return full_disk.empty() ? not_written_text : full_text(full_disk) + L" Seznam se nepodařilo uložit.";
}

std::wstring beside(const std::wstring& trouble) {
  return trouble.empty() ? trouble : L" " + trouble;
}

UpdateStep status(std::wstring text) {
  return {Step::set_status, std::move(text)};
}

// A file still being written counts as missing.
bool is_there(const FileFacts& file) {
  return file.length.value_or(0) > 0 && !file.being_written;
}

} // namespace

int progress_percentage(std::uint64_t length, double progress_factor) {
  using Range = std::numeric_limits<std::int16_t>;
  const double percent = static_cast<double>(length) * progress_factor;
  const double kept = std::clamp(percent, static_cast<double>(Range::min()), static_cast<double>(Range::max()));
  double whole = std::floor(kept);
  const double half = kept - whole;
  if (half > 0.5 || (half == 0.5 && std::fmod(whole, 2.0) != 0.0))
    whole += 1;
  return static_cast<int>(whole);
}

UpdateSteps Update::LoadAktualizaceRadii(const std::wstring& trouble) {
  ++run_;
  trouble_ = trouble;
  still_since_ms_.reset();
  silence_told_ = false;
  announced_size_ = 0;
  state_ = State::probing;
  return steps({{Step::Timer1_off},
                {Step::Timer3_off},
                {Step::give_up_conversion},
                {Step::hide_progress},
                {Step::remove_file, stations::probe_file},
                {Step::remove_file, stations::download_file},
                status(connecting_text + beside(trouble_)),
                {Step::start_probe},
                {Step::Timer3_on}});
}

UpdateSteps Update::close() {
  ++run_;
  announced_size_ = 0;
  state_ = State::idle;
  return steps({{Step::Timer1_off},
                {Step::Timer2_off},
                {Step::Timer3_off},
                {Step::give_up_conversion},
                {Step::hide_progress},
                {Step::Command1_on}});
}

UpdateSteps Update::Timer3_Timer(const FileFacts& probe) {
  if (state_ != State::probing)
    return steps({});
  if (!is_there(probe))
    return probe_missing(probe.now_ms);
  state_ = State::reading_probe;
  return steps({{Step::Timer3_off}, {Step::read_probe}});
}

// Told once: the status line is used by others meanwhile.
UpdateSteps Update::probe_missing(std::uint32_t now_ms) {
  if (!still_since_ms_)
    still_since_ms_ = now_ms;
  if (silence_told_ || now_ms - *still_since_ms_ < silence_ms)
    return steps({});
  silence_told_ = true;
  return steps({status(connecting_text + beside(trouble_) + L" Server neodpovídá.")});
}

void Update::measure_growth(std::uint64_t length, std::uint32_t now_ms) {
  if (still_since_ms_ && length == last_length_)
    return;
  still_since_ms_ = now_ms;
  last_length_ = length;
}

bool Update::stands(std::uint32_t now_ms) const {
  return state_ == State::downloading && still_since_ms_ && now_ms - *still_since_ms_ >= silence_ms;
}

// Start watching before the download so that no tick is missed.
UpdateSteps Update::probe_read(unsigned run, const std::optional<Probe>& probe) {
  if (run != run_ || state_ != State::reading_probe)
    return steps({});
  if (!probe.has_value()) {
    state_ = State::probing;
    return steps({{Step::Timer3_on}});
  }
  if (probe->kind != Probe::Kind::size || probe->size == 0) {
    state_ = State::idle;
    return steps({status(refused_text)});
  }
  announced_size_ = probe->size;
  progress_factor_ = 100.0 / static_cast<double>(announced_size_);
  state_ = State::downloading;
  still_since_ms_.reset();
  return steps({{Step::Timer1_on}, {Step::repaint}, {Step::start_list}});
}

UpdateSteps Update::Timer1_Timer(const FileFacts& list) {
  if (state_ != State::downloading)
    return steps({});
  const std::uint64_t length = list.length.value_or(0);
  const int percentage = progress_percentage(length, progress_factor_);
  measure_growth(length, list.now_ms);
  std::wstring text = L"Aktualizuji seznam rádií (" + std::to_wstring(percentage) + L"%)";
  if (stands(list.now_ms))
    text += L" " + (list.full_disk.empty() ? std::wstring(L"Stahování stojí.") : full_text(list.full_disk));
  std::vector<UpdateStep> list_of_steps = {status(std::move(text)),
                                           {Step::show_progress, {}, std::clamp(percentage, 0, 100)}};
  if (length == announced_size_ && !list.being_written) {
    state_ = State::converting;
    list_of_steps.push_back({Step::Timer1_off});
    list_of_steps.push_back(status(L"Zpracovávám data..."));
    list_of_steps.push_back({Step::repaint});
    list_of_steps.push_back({Step::convert});
  }
  return steps(std::move(list_of_steps));
}

// A list that cannot be read yet, or whose length no longer matches, is retried at the next tick. The button keeps its
// state when the update fails; the next time the window opens it is enabled and an update starts.
UpdateSteps Update::converted(unsigned run, stations::Conversion result, const std::wstring& full_disk) {
  if (run != run_ || state_ != State::converting)
    return steps({});
  if (result == stations::Conversion::unreadable) {
    state_ = State::downloading;
    return steps({{Step::Timer1_on}});
  }
  state_ = State::idle;
  if (result != stations::Conversion::done)
    return steps({status(failed_text(result, full_disk)), {Step::hide_progress}});
  trouble_.clear();
  return steps(
      {{Step::reload}, {Step::repaint}, status(L"Hotovo, připraven..."), {Step::hide_progress}, {Step::Command1_on}});
}

UpdateSteps Update::Timer2_Timer(const FileFacts& new_categories) {
  if (!is_there(new_categories))
    return steps({});
  return steps({{Step::Timer2_off}, {Step::NactiKategorie}, {Step::CommandOK}});
}

UpdateSteps Update::Command1_Click() {
  return steps({{Step::Command1_off}, {Step::TestOnLine}});
}

// Without a connection the button stays disabled on purpose.
UpdateSteps Update::online(unsigned run, bool connected) {
  if (run != run_)
    return steps({});
  if (connected)
    return LoadAktualizaceRadii(std::wstring(trouble_));
  return steps({{Step::show_message, L"Nejste připojeni k internetu.\r\nProsím připojte se!"}});
}

} // namespace lumotune::directory
