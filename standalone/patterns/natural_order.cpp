#include "standalone/patterns/natural_order.h"

#include <algorithm>
#include <cstddef>

#include "standalone/patterns/date_words.h"
#include "standalone/text/ascii.h"

namespace vond::standalone {
namespace {

/// Takes the run of digits off the start of `text` and returns it without leading zeros.
std::string_view take_number(std::string_view& text) {
  const auto* const end = std::find_if_not(text.begin(), text.end(), is_digit);
  std::string_view number = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(number.size());
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  return number;
}

int compare_numbers(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) {
    return left.size() < right.size() ? -1 : 1;
  }
  return left.compare(right);
}

int compare_naturally(std::string_view left, std::string_view right) {
  while (!left.empty() && !right.empty()) {
    if (is_digit(left[0]) && is_digit(right[0])) {
      const int order = compare_numbers(take_number(left), take_number(right));
      if (order != 0) {
        return order;
      }
    } else if (left[0] != right[0]) {
      return left.substr(0, 1).compare(right.substr(0, 1));
    } else {
      left.remove_prefix(1);
      right.remove_prefix(1);
    }
  }
  return left.compare(right);
}

}  // namespace

bool stands_naturally_before(std::string_view left, std::string_view right) {
  const int order = compare_naturally(left, right);
  return order != 0 ? order < 0 : left < right;
}

}  // namespace vond::standalone
