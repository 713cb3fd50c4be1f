// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/skin_check.h"

#include "base/text.h"
#include "skin/skin_file.h"
#include "skin/skin_limits.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace lumotune::skin {
namespace {

constexpr int twips_a_pixel = 15; // at 96 dots an inch, for which pictures are drawn

// Kinds of the fields after the name: s show, t place, z size, c colour, l mode of the list, d of the display, o of the
// logo, i behind an empty list, k layout of the status, a alignment. The last ones from `needed` on may be missing.
struct Kind {
  const wchar_t* name;
  const wchar_t* fields;
  std::size_t needed;
  std::vector<const wchar_t*> pictures;
};

const std::vector<Kind>& kinds() {
  static const std::vector<Kind> all = {
      {L"LTform", L"zz", 2, {L"form"}},
      {L"LineMenu_OnTop", L"stt", 3, {L"ot", L"otn"}},
      {L"LineMenu_Min", L"stt", 3, {L"min"}},
      {L"LineMenu_End", L"stt", 3, {L"end"}},
      {L"Control_Play", L"stt", 3, {L"play", L"stop"}},
      {L"Control_Rec", L"stt", 3, {L"rec"}},
      {L"Control_ShowUser", L"stt", 3, {L"show"}},
      {L"Control_Menu", L"stt", 3, {L"menu"}},
      {L"Control_Sat", L"stt", 3, {L"sat"}},
      {L"Control_Volume", L"stt", 3, {L"vol0", L"vol1", L"vol2", L"vol3", L"vol4", L"vol5"}},
      {L"Control_List", L"sttlzzccc", 8, {}},
      {L"LTDisplay", L"sttdi", 4, {L"display"}},
      {L"Orbwww", L"stto", 4, {L"orb"}},
      {L"InfoName", L"ttzzca", 5, {}},
      {L"InfoTime", L"ttzzca", 5, {}},
      {L"InfoNaladit", L"ttzzca", 5, {}},
      {L"InfoStatus", L"ktttzzzca", 8, {}},
      {L"LTNeedle", L"tzttc", 5, {}},
  };
  return all;
}

std::vector<const wchar_t*> words_of(wchar_t kind) {
  switch (kind) {
  case L's':
    return {L"show", L"hide"};
  case L'l':
  case L'd':
  case L'o':
    return {L"showevery", L"showstop", L"hideplay"};
  case L'a':
    return {L"left", L"centre", L"right"};
  default:
    return {};
  }
}

class Check {
public:
  Check(const platform::Files& files, std::wstring folder, std::wstring name, const PictureReader& read_picture)
      : files_(files), folder_(std::move(folder)), name_(std::move(name)), read_picture_(read_picture) {}

  std::vector<Finding> run(const platform::AnsiCodec& codec) {
    const std::wstring path = folder_ + L"\\" + name_ + L".skin";
    const auto bytes = files_.size(path).value_or(0) > max_description_bytes ? std::nullopt : files_.read(path);
    if (!bytes) {
      say(0, files_.exists(path) ? L"soubor nelze číst nebo je větší než 1 MiB" : L"soubor chybí");
      return std::move(found_);
    }
    for (const std::wstring& each : split_lines(codec.decode(*bytes))) {
      ++line_;
      check_line(each);
    }
    line_ = 0;
    if (lines_of_.count(L"LTform") == 0)
      say(0, L"chybí řádek LTform s velikostí okna");
    if (together_ > max_pixels_together)
      say(0, L"obrázky mají dohromady více než 24 megapixelů, skin se nenačte");
    return std::move(found_);
  }

private:
  void say(std::size_t line, std::wstring reason) { found_.push_back({name_ + L".skin", line, std::move(reason)}); }
  void say_of_picture(const wchar_t* picture, const wchar_t* ending, std::wstring reason) {
    found_.push_back({std::wstring(picture) + ending, 0, std::move(reason)});
  }

  void check_line(const std::wstring& text) {
    if (base::trimmed(text).empty() || text.front() == L';')
      return; // nothing, or a comment
    if (text.find(L'|') == std::wstring::npos)
      return say(line_, L"řádek bez znaku | se nepoužije");
    const auto line = SkinLine::parse(text);
    if (!line)
      return; // the author's
    const auto kind =
        std::find_if(kinds().begin(), kinds().end(), [&](const Kind& each) { return line->names(each.name); });
    if (kind == kinds().end())
      return say(line_, L"neznámý prvek '" + line->field(0) + L"'");
    if (const auto [before, is_first] = lines_of_.emplace(kind->name, line_); !is_first)
      say(line_, std::wstring(kind->name) + L" stojí už na řádku " + std::to_wstring(before->second));
    const bool whole = check_fields(*line, *kind);
    if (whole)
      note_place(*line, *kind);
  }

  // A control that is hidden may lack its numbers.
  bool check_fields(const SkinLine& line, const Kind& kind) {
    const std::wstring fields = kind.fields;
    const bool hidden = fields[0] == L's' && !line.shows();
    bool whole = !hidden;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      const std::wstring wrong = wrong_with(line, i + 1, fields[i], hidden || i >= kind.needed);
      if (wrong.empty())
        continue;
      whole = false;
      say(line_, std::wstring(kind.name) + L", pole " + std::to_wstring(i + 1) + L": " + wrong);
    }
    if (!line.blank(fields.size() + 1))
      say(line_, std::wstring(kind.name) + L": přebývá pole " + std::to_wstring(fields.size() + 1));
    return whole;
  }

  static std::wstring wrong_with(const SkinLine& line, std::size_t index, wchar_t kind, bool may_be_missing) {
    const auto one_of = [&](const std::vector<const wchar_t*>& words) {
      std::wstring listed;
      for (const wchar_t* word : words) {
        if (line.says(index, word))
          return std::wstring();
        listed += (listed.empty() ? L"" : L", ") + std::wstring(word);
      }
      return L"čeká se " + listed + L", stojí tu '" + line.field(index) + L"'";
    };
    if (line.blank(index) && may_be_missing)
      return {};
    if (const auto words = words_of(kind); !words.empty())
      return one_of(words);
    if (kind == L'i' || kind == L'k')
      return {}; // any word counts as the other choice
    if (line.number(index))
      return kind == L'z' && *line.number(index) < 0 ? L"velikost je záporná" : L"";
    return line.blank(index) ? L"chybí číslo" : L"čeká se celé číslo, stojí tu '" + line.field(index) + L"'";
  }

  // Where the control will lie. Its pictures tell the size of one that has some.
  void note_place(const SkinLine& line, const Kind& kind) {
    const auto twips = [&](std::size_t index) { return line.twips(index).value_or(0); };
    if (line.names(L"LTform")) {
      width_ = std::max(twips(1), 480);
      height_ = std::max(twips(2), 480);
      const PictureSize size = check_pictures(kind);
      if (size.width != 0 && (size.width * twips_a_pixel < width_ || size.height * twips_a_pixel < height_))
        say(line_, L"form.gif má " + in_pixels(size.width, size.height) + L", okno " +
                       in_pixels(width_ / twips_a_pixel, height_ / twips_a_pixel) + L": zbytek bude mít barvu systému");
      return;
    }
    if (line.names(L"LTNeedle"))
      return;
    if (!kind.pictures.empty()) {
      const PictureSize size = check_pictures(kind);
      expect_inside(kind, twips(3), twips(2), size.width * twips_a_pixel, size.height * twips_a_pixel);
    } else if (line.names(L"Control_List")) {
      expect_inside(kind, twips(3), twips(2), twips(5), twips(6));
    } else if (line.names(L"InfoStatus")) {
      expect_inside(kind, twips(4), twips(2), twips(5), twips(6));
      expect_inside(kind, twips(4), twips(3), twips(5), twips(7));
    } else {
      expect_inside(kind, twips(2), twips(1), twips(3), twips(4));
    }
  }

  static std::wstring in_pixels(int width, int height) {
    return std::to_wstring(width) + L" x " + std::to_wstring(height) + L" bodů";
  }

  void expect_inside(const Kind& kind, int left, int top, int width, int height) {
    if (width_ == 0)
      say(line_, std::wstring(kind.name) + L" stojí před řádkem LTform, takže nelze říci, zda leží v okně");
    else if (left < 0 || top < 0 || left + width > width_ || top + height > height_)
      say(line_, std::wstring(kind.name) + L" přesahuje okno");
  }

  // The size of the first one; of none when it cannot be shown.
  PictureSize check_pictures(const Kind& kind) {
    std::optional<PictureSize> first;
    for (const wchar_t* name : kind.pictures) {
      const auto size = check_picture(name, L".gif", true);
      if (!size)
        continue;
      if (first && (first->width != size->width || first->height != size->height))
        say_of_picture(name, L".gif", L"má jinou velikost než " + std::wstring(kind.pictures.front()) + L".gif");
      if (!first)
        first = size;
      const auto twice = check_picture(name, L"@2x.gif", false);
      if (twice && (twice->width != 2 * size->width || twice->height != 2 * size->height))
        say_of_picture(name, L"@2x.gif", L"nemá dvojnásobnou velikost, nepoužije se");
    }
    return first.value_or(PictureSize{});
  }

  std::optional<PictureSize> check_picture(const wchar_t* name, const wchar_t* ending, bool needed) {
    const std::wstring path = folder_ + L"\\" + name_ + L"\\" + name + ending;
    if (!files_.exists(path)) {
      if (needed)
        say_of_picture(name, ending, L"obrázek chybí");
      return std::nullopt;
    }
    std::string bytes;
    const bool read = files_.read_at_most(path, bytes, static_cast<std::uint64_t>(platform::PictureBox::max_bytes));
    const auto size = read ? read_picture_(bytes) : std::nullopt;
    if (!size)
      say_of_picture(name, ending, L"není GIF, který lze zobrazit (nejvýše 8,5 megapixelu, strana 4096, soubor 8 MiB)");
    else
      together_ += std::int64_t{size->width} * size->height;
    return size;
  }

  const platform::Files& files_;
  std::wstring folder_;
  std::wstring name_;
  const PictureReader& read_picture_;
  std::vector<Finding> found_;
  std::map<std::wstring, std::size_t> lines_of_; // by control, where it stands first
  std::size_t line_ = 0;
  int width_ = 0; // of the window, twips; 0 before it is known
  int height_ = 0;
  std::int64_t together_ = 0; // pixels
};

} // namespace

std::vector<Finding> check_skin(const platform::Files& files, const platform::AnsiCodec& codec,
                                const std::wstring& folder, const std::wstring& name,
                                const PictureReader& read_picture) {
  if (name.empty() || name.find_first_of(L"\\/:*?\"<>|") != std::wstring::npos)
    return {{name, 0, L"čeká se jméno skinu bez cesty a přípony"}};
  return Check(files, folder, name, read_picture).run(codec);
}

std::wstring said(const Finding& finding) {
  const std::wstring place = finding.line == 0 ? L"" : L":" + std::to_wstring(finding.line);
  return finding.file + place + L": " + finding.reason;
}

} // namespace lumotune::skin
