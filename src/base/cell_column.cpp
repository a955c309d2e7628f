#include "base/cell_column.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "base/letters.h"
#include "base/program_error.h"
#include "base/text_cell.h"
#include "base/utf8.h"

namespace dtb {
namespace {

// What a text is compared by in a sort.
struct SortKey {
  enum class Kind { Empty, Number, Name } kind = Kind::Empty;
  double number = 0;
  std::string_view name;
};

SortKey SortKeyOf(std::string_view text) {
  if (text.empty()) return {};
  if (const auto number = WholeNumberOf(text)) return {SortKey::Kind::Number, *number, {}};
  return {SortKey::Kind::Name, 0, text};
}

int Compare(const SortKey& a, const SortKey& b) {
  if (a.kind != b.kind) return a.kind < b.kind ? -1 : 1;
  if (a.kind == SortKey::Kind::Name) return CompareNames(a.name, b.name);
  return static_cast<int>(a.number > b.number) - static_cast<int>(a.number < b.number);
}

}  // namespace

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char byte) { return !ContinuesCharacter(byte); }));
}

template <class Id>
void IdList::WidenTo() {
  std::vector<Id> wider;
  wider.reserve(size() + 1);
  ForEach([&wider](std::uint32_t id) { wider.push_back(static_cast<Id>(id)); });
  ids_ = std::move(wider);
}

void IdList::MakeRoomFor(std::uint32_t id) {
  const std::size_t width = id == 0 ? 0 : id < 0x100 ? 1 : id < 0x10000 ? 2 : 3;
  if (width <= ids_.index()) return;
  if (width == 1) WidenTo<std::uint8_t>();
  if (width == 2) WidenTo<std::uint16_t>();
  if (width == 3) WidenTo<std::uint32_t>();
}

std::size_t IdList::size() const {
  return std::visit([](const auto& ids) { return ids.size(); }, ids_);
}

void IdList::Set(std::size_t place, std::uint32_t id) {
  MakeRoomFor(id);
  if (auto* bytes = std::get_if<1>(&ids_)) (*bytes)[place] = static_cast<std::uint8_t>(id);
  if (auto* pairs = std::get_if<2>(&ids_)) (*pairs)[place] = static_cast<std::uint16_t>(id);
  if (auto* words = std::get_if<3>(&ids_)) (*words)[place] = id;
}

void IdList::Append(std::uint32_t id) {
  MakeRoomFor(id);
  switch (ids_.index()) {
    case 0:
      return static_cast<void>(++std::get<0>(ids_).count);
    case 1:
      return std::get<1>(ids_).push_back(static_cast<std::uint8_t>(id));
    case 2:
      return std::get<2>(ids_).push_back(static_cast<std::uint16_t>(id));
    default:
      return std::get<3>(ids_).push_back(id);
  }
}

void IdList::Arrange(const std::vector<std::uint32_t>& order) {
  std::visit(
      [&order](auto& ids) {
        if constexpr (!std::is_same_v<std::remove_reference_t<decltype(ids)>, Zeros>) {
          const auto before = ids;
          for (std::size_t place = 0; place < order.size(); ++place) {
            ids[place] = before[order[place]];
          }
        }
      },
      ids_);
}

void IdList::Fit() {
  if (auto* bytes = std::get_if<1>(&ids_)) bytes->shrink_to_fit();
  if (auto* pairs = std::get_if<2>(&ids_)) pairs->shrink_to_fit();
  if (auto* words = std::get_if<3>(&ids_)) words->shrink_to_fit();
}

std::size_t IdList::BytesTaken() const {
  switch (ids_.index()) {
    case 1:
      return std::get<1>(ids_).capacity();
    case 2:
      return std::get<2>(ids_).capacity() * 2;
    case 3:
      return std::get<3>(ids_).capacity() * 4;
    default:
      return 0;
  }
}

std::uint32_t CellColumn::IdOf(std::string_view text) {
  if (text.empty()) return 0;
  if (known_.empty()) {  // new, or fitted
    for (std::uint32_t id = 1; id < distinct(); ++id) known_.emplace(TextOf(id), id);
  }
  if (const auto known = known_.find(text); known != known_.end()) return known->second;
  if (texts_.size() + text.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw ProgramError(error_number::kOutOfMemory, "A column of the table is too large");
  }
  const auto id = static_cast<std::uint32_t>(distinct());
  texts_.append(text);
  starts_.push_back(static_cast<std::uint32_t>(texts_.size()));
  known_.emplace(text, id);
  return id;
}

void CellColumn::AppendNumber(std::int64_t number) {
  if (number < 0 || number >= static_cast<std::int64_t>(kSmallCounts)) {
    return Append(std::to_string(number));
  }
  if (smallCounts_.empty()) smallCounts_.assign(kSmallCounts, 0);
  std::uint32_t& id = smallCounts_[static_cast<std::size_t>(number)];
  if (id == 0) id = IdOf(std::to_string(number));
  ids_.Append(id);
}

void CellColumn::Fit() {
  ids_.Fit();
  texts_.shrink_to_fit();
  starts_.shrink_to_fit();
  known_ = {};
  smallCounts_ = {};
}

std::optional<std::size_t> CellColumn::Find(std::string_view text) const {
  std::uint32_t id = 0;
  while (id < distinct() && TextOf(id) != text) ++id;
  if (id == distinct()) return std::nullopt;
  for (std::size_t cell = 0; cell < size(); ++cell) {
    if (ids_[cell] == id) return cell;
  }
  return std::nullopt;
}

void CellColumn::Rewrite(const std::function<std::string(std::string_view)>& rewrite) {
  CellColumn rewritten;
  std::vector<std::optional<std::uint32_t>> newIds(distinct());
  ids_.ForEach([&](std::uint32_t id) {
    auto& newId = newIds[id];
    if (!newId) newId = rewritten.IdOf(rewrite(TextOf(id)));
    rewritten.ids_.Append(*newId);
  });
  rewritten.Fit();
  *this = std::move(rewritten);
}

std::vector<std::uint32_t> CellColumn::Sorted(SortOrder order) const {
  std::vector<SortKey> keys;
  keys.reserve(distinct());
  for (std::uint32_t id = 0; id < distinct(); ++id) keys.push_back(SortKeyOf(TextOf(id)));
  std::vector<std::uint32_t> byKey(distinct());
  std::iota(byKey.begin(), byKey.end(), 0U);
  std::ranges::sort(byKey, [&](std::uint32_t a, std::uint32_t b) {
    const int compared = Compare(keys[a], keys[b]);
    return order == SortOrder::Ascending ? compared < 0 : compared > 0;
  });

  // Texts that compare equal share a rank, so that their cells keep their order.
  std::vector<std::uint32_t> rankOf(distinct());
  std::uint32_t ranks = 0;
  for (std::size_t i = 0; i < byKey.size(); ++i) {
    if (i > 0 && Compare(keys[byKey[i - 1]], keys[byKey[i]]) != 0) ++ranks;
    rankOf[byKey[i]] = ranks;
  }
  std::vector<std::uint32_t> firstPlace(ranks + 2, 0);
  ids_.ForEach([&](std::uint32_t id) { ++firstPlace[rankOf[id] + 1]; });
  std::partial_sum(firstPlace.begin(), firstPlace.end(), firstPlace.begin());
  std::vector<std::uint32_t> sorted(size());
  std::uint32_t cell = 0;
  ids_.ForEach([&](std::uint32_t id) { sorted[firstPlace[rankOf[id]]++] = cell++; });
  return sorted;
}

void CellColumn::Arrange(const std::vector<std::uint32_t>& order) { ids_.Arrange(order); }

std::size_t CellColumn::LongestText() const {
  std::size_t longest = 0;
  for (std::uint32_t id = 1; id < distinct(); ++id) {
    longest = std::max(longest, CharacterCount(TextOf(id)));
  }
  return longest;
}

std::size_t CellColumn::BytesTaken() const {
  return sizeof *this + texts_.capacity() + ids_.BytesTaken() +
         4 * (starts_.capacity() + smallCounts_.capacity());
}

}  // namespace dtb
