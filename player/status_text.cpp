// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/status_text.h"

namespace lumotune::player {
namespace {

using platform::StreamStatus;
using Phase = platform::StreamPhase;
using Trouble = platform::StreamTrouble;

std::wstring trouble_text(const StreamStatus& status) {
  switch (status.trouble) {
  case Trouble::no_address:
    return L"Není zadána adresa stanice";
  case Trouble::unsupported_address:
    return L"Neznámý druh adresy";
  case Trouble::lost:
    return L"Spojení ztraceno";
  case Trouble::not_answering:
    return L"Stanice neodpovídá";
  case Trouble::no_such_host:
    return L"Adresu stanice nelze najít";
  case Trouble::not_found:
    return status.http_code != 0 ? L"Stanice nenalezena (404)" : L"Soubor nenalezen";
  case Trouble::refused_by_server:
    return L"Stanice odmítla spojení (" + std::to_wstring(status.http_code) + L")";
  case Trouble::not_secure:
    return L"Zabezpečené spojení se nezdařilo";
  case Trouble::unknown_format:
    return L"Neznámý formát zvuku";
  case Trouble::ended:
    return L"Přehrávání skončilo";
  case Trouble::no_device:
    return L"Zvukové zařízení není k dispozici";
  case Trouble::internal:
    return L"Přehrávání selhalo";
  case Trouble::none:
    break;
  }
  return {};
}

bool plays(const StreamStatus& status) {
  return status.phase == Phase::playing && status.trouble == Trouble::none;
}

// Whether the warning replaces the state.
bool announces(const StreamStatus& status) {
  return status.unverified && (status.phase == Phase::buffering || (plays(status) && status.just_started));
}

// Cuts or pads to exactly `width` characters.
std::wstring column(std::wstring text, std::size_t width) {
  text.resize(width, L' ');
  return text;
}

// 44100 is "44,1 kHz", 48000 "48 kHz", 22050 "22,05 kHz".
std::wstring kilohertz(int hertz) {
  std::wstring text = std::to_wstring(hertz / 1000);
  const int rest = hertz % 1000;
  if (rest != 0) {
    std::wstring digits = std::to_wstring(1000 + rest).substr(1);
    digits.erase(digits.find_last_not_of(L'0') + 1);
    text += L"," + digits;
  }
  return text + L" kHz";
}

} // namespace

std::wstring warning_text(const StreamStatus& status) {
  return status.unverified && (status.phase == Phase::buffering || status.phase == Phase::playing) ? L"Neověřený server"
                                                                                                   : L"";
}

std::wstring state_text(const StreamStatus& status) {
  if (announces(status))
    return warning_text(status);
  const std::wstring trouble = trouble_text(status);
  switch (status.phase) {
  case Phase::stopped:
    return trouble.empty() ? L"Zastaveno" : trouble;
  case Phase::connecting:
    return L"Připojování...";
  case Phase::buffering:
    return L"Načítání do vyrovnávací paměti (" + std::to_wstring(status.percent) + L" %)";
  case Phase::playing:
    return trouble.empty() ? L"Přehrávání" : trouble;
  case Phase::waiting:
    break;
  }
  if (status.retry_seconds <= 0)
    return trouble;
  return trouble + L", další pokus za " + std::to_wstring(status.retry_seconds) + L" s";
}

std::wstring quality_text(const StreamStatus& status) {
  std::wstring text = status.codec;
  const auto add = [&](const std::wstring& part) { text += text.empty() ? part : L" " + part; };
  if (status.kbps > 0)
    add(std::to_wstring(status.kbps) + L" kbps");
  if (status.hertz > 0)
    add(kilohertz(status.hertz));
  return text;
}

std::wstring status_text(const StreamStatus& status) {
  // While there is no sound, the reason matters more than the title of what was heard.
  if (!plays(status) || announces(status))
    return state_text(status);
  const std::wstring quality = quality_text(status);
  const std::wstring named = status.title.empty() ? state_text(status) : status.title;
  return quality.empty() ? named : named + L" · " + quality;
}

std::wstring Status1(const StreamStatus& status, bool heard) {
  constexpr std::size_t state_width = 32;
  constexpr std::size_t blank_width = 22;
  return column(state_text(status), state_width) + std::wstring(heard ? 0 : blank_width, L' ') + status_text(status);
}

} // namespace lumotune::player
