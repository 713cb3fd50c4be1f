// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/station_list.h"

#include "base/text.h"
#include "stations/categories.h"

#include <string_view>
#include <unordered_set>

namespace lumotune::directory {
namespace {

constexpr std::size_t listed_at_once = 2000; // lines, well below a millisecond
constexpr std::size_t key_prefix = 4;        // a station's identifier starts at this character of its row's key

} // namespace

StationList::StationList(const Uses& uses) : uses_(uses), table_({uses.station_files, uses.codec}), rows_(uses.codec) {
  uses_.form.ListView1.set_rows(&rows_);
}

StationList::~StationList() {
  uses_.form.ListView1.set_rows(nullptr);
}

void StationList::make_columns() {
  uses_.form.ListView1.add_column(L"Name", L"Název rádia", 2000);
  uses_.form.ListView1.add_column(L"zeme", L"Země", 800);
}

void StationList::NactiKategorie() {
  auto& tree = uses_.form.TreeView1;
  if (tree.count() != 0)
    open_categories_ = open_categories();
  tree.clear();
  const auto nodes = uses_.station_files.categories(); // a file that cannot be read is an empty one
  for (const stations::CategoryNode& node : *nodes)
    (void)tree.add(node.key, node.parent_key, node.name); // a refused node is left out
  expand_categories();
  tree.select(remembered_node_);
}

std::vector<std::wstring> StationList::open_categories() const {
  const auto& tree = uses_.form.TreeView1;
  std::vector<std::wstring> keys;
  for (std::size_t node = 1; node <= tree.count(); ++node) {
    if (tree.expanded(node))
      keys.push_back(tree.key(node));
  }
  return keys;
}

void StationList::expand_categories() {
  auto& tree = uses_.form.TreeView1;
  const std::unordered_set<std::wstring> open(open_categories_.begin(), open_categories_.end());
  for (std::size_t node = 1; !open.empty() && node <= tree.count(); ++node) {
    if (open.contains(tree.key(node)))
      tree.expand(node);
  }
}

void StationList::NactiRadia(bool& OnlyMemory) {
  if (OnlyMemory)
    return table_.load();
  begin_listing();
  rows_.show_all(table_.lines());
  end_listing();
}

void StationList::begin_listing() {
  rows_.clear();
  uses_.form.ListView1.rows_changed();
  table_.load();
  rows_.begin_all(table_.lines());
}

void StationList::index_table() const {
  if (const auto lines = table_.lines())
    lines->index();
}

bool StationList::list_more() {
  return rows_.add_more(listed_at_once);
}

void StationList::set_empty_text() {
  const auto lines = table_.lines();
  const bool none = !lines || lines->bytes().find_first_not_of("\r\n") == std::string_view::npos;
  uses_.form.ListView1.set_empty_text(none ? no_stations_text_
                                      : rows_.filtered()
                                          ? L"Hledání nic neodpovídá. Esc zobrazí zase všechna rádia."
                                          : L"V této kategorii žádná rádia nejsou. Vyberte vlevo jinou.");
}

void StationList::show_rows() {
  set_empty_text();
  uses_.form.ListView1.rows_changed();
  uses_.form.ListView1.select(remembered_row_);
}

void StationList::remember_row() {
  remembered_row_ = uses_.form.ListView1.selected();
  hidden_station_.clear();
}

// The selected station, even while the filter hides its row.
std::wstring StationList::station_in_mind() const {
  return row_selected() ? selected_id() : hidden_station_;
}

// A position among filtered rows means nothing for others: the station counts.
void StationList::select_row_of(const std::wstring& station) {
  set_empty_text();
  uses_.form.ListView1.rows_changed();
  const std::size_t row = rows_.find(station);
  if (row != 0)
    remembered_row_ = row;
  hidden_station_ = row == 0 ? station : std::wstring();
  uses_.form.ListView1.select(row != 0 || rows_.filtered() ? row : remembered_row_);
}

void StationList::filter(const std::wstring& typed) {
  const std::wstring station = station_in_mind();
  rows_.set_filter(typed);
  select_row_of(station);
  show_filter_count();
}

void StationList::show_filter_count() {
  const std::size_t left = rows_.count();
  const std::size_t all = rows_.unfiltered_count();
  uses_.form.FilterCount.set_text(rows_.filtered() ? std::to_wstring(left) + L" z " + std::to_wstring(all) : L"");
}

void StationList::ZobrazKategoriiRadii(std::wstring& Kategorie) {
  const std::wstring station = station_in_mind();
  rows_.ZobrazKategoriiRadii(table_.lines(), Kategorie);
  if (rows_.filtered())
    select_row_of(station);
  else
    show_rows();
  show_filter_count();
  uses_.form.Label1.set_text(L"Zobrazeno " + std::to_wstring(rows_.count()) + L" rádií");
}

void StationList::choose_category() {
  const std::size_t node = uses_.form.TreeView1.selected();
  if (node == 0)
    return;
  remembered_node_ = node;
  std::wstring category = stations::category_of_node(uses_.form.TreeView1.key(node));
  ZobrazKategoriiRadii(category);
}

// Falls back to the first node when the remembered one is gone, and to all stations when the tree is empty.
void StationList::reload() {
  auto& tree = uses_.form.TreeView1;
  const bool selected = row_selected();
  const std::wstring station = selected_id();
  bool OnlyMemory = tree.count() != 0;
  NactiRadia(OnlyMemory);
  NactiKategorie();
  if (remembered_node_ == 0 || remembered_node_ > tree.count())
    remembered_node_ = 1;
  std::wstring category = stations::category_of_node(tree.key(remembered_node_));
  ZobrazKategoriiRadii(category);
  if (!selected)
    return;
  if (rows_.filtered())
    return select_row_of(station);
  remembered_row_ = rows_.find(station);
  uses_.form.ListView1.select(remembered_row_);
}

void StationList::CommandOK() {
  uses_.form.Command1.set_enabled(true);
  uses_.form.Label1.set_text(L"");
  uses_.session.refresh_favourites = L"1";
  uses_.favourites.ZobrazOblibene();
  uses_.session.refresh_favourites.clear();
}

void StationList::select_station(const std::wstring& IDradia) {
  if (const std::size_t row = rows_.find(IDradia); row != 0)
    remembered_row_ = row;
  uses_.form.ListView1.select(remembered_row_);
}

std::wstring StationList::selected_id() const {
  return std::wstring(base::mid(rows_.key(uses_.form.ListView1.selected()), key_prefix));
}

std::optional<stations::StationRecord> StationList::selected_record() const {
  const std::size_t row = uses_.form.ListView1.selected();
  if (row == 0)
    return std::nullopt;
  const std::wstring id = selected_id();
  return id.empty() ? stations::StationRecord(rows_.line(row), uses_.codec) : table_.last_of(id);
}

std::wstring StationList::selected_text() const {
  const std::size_t row = uses_.form.ListView1.selected();
  return row == 0 ? std::wstring() : rows_.text(row, 0);
}

} // namespace lumotune::directory
