#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "standalone/nodes/number_table.h"
#include "standalone/text/ascii.h"

/// Names by their structures. Inline, because folding spends its time here, name by name.
namespace vond::standalone {

/// What a number is in the structure of a name: the one digit that can stand there.
inline constexpr char NUMBER_MARK = '0';

/// The numbers of the names of one structure (the name with NUMBER_MARK for every number): `axes`
/// numbers a name, one name after the other.
struct Family {
  std::size_t axes = 0;
  std::vector<NumberKey> numbers;
};

/// Whether a name can stand in a node set as it is: nothing in it means anything to a shell or to
/// the readers of node sets (to pdsh a `-` at the start excludes).
inline bool is_foldable(std::string_view name) {
  static constexpr auto ALLOWED = [] {
    std::array<bool, 256> allowed = {};
    for (char c = 'a'; c <= 'z'; ++c) {
      allowed[static_cast<unsigned char>(c)] = true;
    }
    for (char c = 'A'; c <= 'Z'; ++c) {
      allowed[static_cast<unsigned char>(c)] = true;
    }
    for (char c = '0'; c <= '9'; ++c) {
      allowed[static_cast<unsigned char>(c)] = true;
    }
    for (const char c : std::string_view("._:+=%-")) {
      allowed[static_cast<unsigned char>(c)] = true;
    }
    return allowed;
  }();
  return !name.empty() && name.front() != '-' && std::all_of(name.begin(), name.end(), [](char c) {
    return ALLOWED[static_cast<unsigned char>(c)];
  });
}

/// Sorts names into families. Holds views of the names.
class NameFamilies {
 public:
  void add(std::string_view name) {
    if (add_to_last_family(name)) {
      return;
    }
    if (!is_foldable(name)) {
      unfoldable_names_.push_back(name);
      return;
    }
    split(name);
    family_ = families_.try_emplace(structure_).first;
    family_->second.axes = numbers_.size();
    auto& numbers = family_->second.numbers;
    numbers.insert(numbers.end(), numbers_.begin(), numbers_.end());
  }

  /// To be called after the last add().
  void finish() {
    if (!table_.has_long_numbers()) {
      return;
    }
    table_.finish();
    for (auto& [structure, family] : families_) {
      for (NumberKey& number : family.numbers) {
        number = table_.final_key(number);
      }
    }
  }

  const NumberTable& table() const { return table_; }
  /// By their structures.
  std::unordered_map<std::string, Family>& families() { return families_; }
  /// Names that cannot be folded.
  std::vector<std::string_view>& unfoldable_names() { return unfoldable_names_; }

 private:
  /// Adds a name of the family of the name before, as most are, without taking it apart first;
  /// false when it is of another one.
  bool add_to_last_family(std::string_view name) {
    if (family_ == families_.end()) {
      return false;
    }
    auto& [structure, family] = *family_;
    const std::size_t numbers_before = family.numbers.size();
    std::size_t at = 0;
    bool matches = true;
    for (auto c = structure.begin(); matches && c != structure.end(); ++c) {
      if (at == name.size()) {
        matches = false;
      } else if (*c == NUMBER_MARK && is_digit(name[at])) {
        family.numbers.push_back(take_number(name, at));
      } else {
        matches = name[at++] == *c && *c != NUMBER_MARK;
      }
    }
    matches = matches && at == name.size();
    if (!matches) {
      family.numbers.resize(numbers_before);
    }
    return matches;
  }

  void split(std::string_view name) {
    structure_.clear();
    numbers_.clear();
    for (std::size_t at = 0; at < name.size();) {
      if (is_digit(name[at])) {
        numbers_.push_back(take_number(name, at));
        structure_ += NUMBER_MARK;
      } else {
        structure_ += name[at++];
      }
    }
  }

  /// Reads the number at `at`, which is moved behind it.
  NumberKey take_number(std::string_view name, std::size_t& at) {
    const std::size_t start = at;
    std::uint64_t value = 0;
    for (; at < name.size() && is_digit(name[at]); ++at) {
      value = 10 * value + static_cast<std::uint64_t>(name[at] - '0');
    }
    return table_.add(name.substr(start, at - start), value);
  }

  NumberTable table_;
  std::unordered_map<std::string, Family> families_;
  std::unordered_map<std::string, Family>::iterator family_ = families_.end();
  std::vector<std::string_view> unfoldable_names_;
  /// Of the last name that was split; members so that their memory is used again.
  std::string structure_;
  std::vector<NumberKey> numbers_;
};

}  // namespace vond::standalone
