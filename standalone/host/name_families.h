#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "standalone/host/number_table.h"

namespace vond::standalone {

/// What a number is in the structure of a name: the one digit that can stand there.
inline constexpr char NUMBER_MARK = '0';

/// The numbers of the names of one structure (the name with NUMBER_MARK for every number): `axes`
/// numbers a name, one name after the other.
struct Family {
  std::size_t axes = 0;
  std::vector<NumberKey> numbers;
};

/// Sorts names into families. Holds views of the names.
class NameSorter {
 public:
  void add(std::string_view name);

  /// To be called after the last add().
  void settle();

  const NumberTable& table() const { return table_; }
  /// By their structures.
  std::unordered_map<std::string, Family>& families() { return families_; }
  /// Names that cannot be folded.
  std::vector<std::string_view>& odd_names() { return odd_names_; }

 private:
  bool add_to_last_family(std::string_view name);
  void split(std::string_view name);
  NumberKey take_number(std::string_view name, std::size_t& at);

  NumberTable table_;
  std::unordered_map<std::string, Family> families_;
  std::unordered_map<std::string, Family>::iterator family_ = families_.end();
  std::vector<std::string_view> odd_names_;
  /// Of the last name that was split; members so that their memory is used again.
  std::string structure_;
  std::vector<NumberKey> numbers_;
};

}  // namespace vond::standalone
