// The cells of one column, in which every distinct text stands once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

namespace dtb {

// Characters of a UTF-8 text.
[[nodiscard]] std::size_t CharacterCount(std::string_view text);

enum class SortOrder { Ascending, Descending };

// Whole numbers of one, two or four bytes each, as the largest of them needs; zeros alone take no
// store at all.
class IdList {
 public:
  explicit IdList(std::size_t size) : ids_(Zeros{size}) {}

  [[nodiscard]] std::size_t size() const;
  [[nodiscard]] std::uint32_t operator[](std::size_t place) const {
    return std::visit([place](const auto& ids) -> std::uint32_t { return ids[place]; }, ids_);
  }
  void Set(std::size_t place, std::uint32_t id);
  void Append(std::uint32_t id);
  // Puts the id at place order[i] in place i, for all i.
  void Arrange(const std::vector<std::uint32_t>& order);
  // Gives back the store that growing left over.
  void Fit();
  [[nodiscard]] std::size_t BytesTaken() const;

  // Calls the function with each id in order.
  template <class Function>
  void ForEach(Function&& function) const {
    std::visit(
        [&](const auto& ids) {
          for (std::size_t place = 0; place < ids.size(); ++place) function(ids[place]);
        },
        ids_);
  }

 private:
  struct Zeros {
    std::size_t count = 0;
    [[nodiscard]] std::size_t size() const { return count; }
    std::uint32_t operator[](std::size_t /*place*/) const { return 0; }
  };
  template <class Id>
  void WidenTo();
  void MakeRoomFor(std::uint32_t id);

  std::variant<Zeros, std::vector<std::uint8_t>, std::vector<std::uint16_t>,
               std::vector<std::uint32_t>>
      ids_;
};

// Cells count from 0. Built for columns of some hundred thousand cells and few distinct texts, as
// records of games are: sorting and rewriting work on the distinct texts.
class CellColumn {
 public:
  explicit CellColumn(std::size_t cells = 0) : ids_(cells) {}

  [[nodiscard]] std::size_t size() const { return ids_.size(); }
  // The view is good until the next write to the column.
  [[nodiscard]] std::string_view Text(std::size_t cell) const { return TextOf(ids_[cell]); }
  void Set(std::size_t cell, std::string_view text) { ids_.Set(cell, IdOf(text)); }
  void Append(std::string_view text) { ids_.Append(TextOf(last_) == text ? last_ : IdOf(text)); }
  // The same as Append of the number's decimal text, and quicker for small counts.
  void AppendNumber(std::int64_t number);
  // Gives back the store that only appending needs.
  void Fit();

  // The first cell with exactly this text.
  [[nodiscard]] std::optional<std::size_t> Find(std::string_view text) const;

  // Puts the result of the function in the place of each text, in all cells that have it.
  void Rewrite(const std::function<std::string(std::string_view)>& rewrite);

  // The cells in the order of their texts: empty ones, then numbers by value, then the rest in the
  // order of CompareNames. Cells that compare equal stay in their order, in both directions.
  [[nodiscard]] std::vector<std::uint32_t> Sorted(SortOrder order) const;
  // Puts cell order[i] in place i, for all i.
  void Arrange(const std::vector<std::uint32_t>& order);

  // The number of characters of the longest text.
  [[nodiscard]] std::size_t LongestText() const;
  // Bytes of store taken once the column is fitted, the object itself included.
  [[nodiscard]] std::size_t BytesTaken() const;

 private:
  static constexpr std::size_t kSmallCounts = 100;

  // Lets a view of characters find a text.
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>{}(text);
    }
  };

  [[nodiscard]] std::size_t distinct() const { return starts_.size() - 1; }
  [[nodiscard]] std::string_view TextOf(std::uint32_t id) const {
    return std::string_view(texts_).substr(starts_[id], starts_[id + 1] - starts_[id]);
  }
  // Adds the text unless it stands already.
  std::uint32_t IdOf(std::string_view text);

  std::string texts_;                        // all distinct texts, one behind the other
  std::vector<std::uint32_t> starts_{0, 0};  // text i: from starts_[i] to starts_[i + 1]; 0 is ""
  std::unordered_map<std::string, std::uint32_t, TextHash, std::equal_to<>> known_;
  std::vector<std::uint32_t> smallCounts_;  // ids of "0" to "99" while appending; 0: not known
  IdList ids_;
  std::uint32_t last_ = 0;  // appended last
};

}  // namespace dtb
