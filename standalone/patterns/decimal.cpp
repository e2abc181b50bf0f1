#include "standalone/patterns/decimal.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>
#include <tuple>

#include "standalone/patterns/date_words.h"
#include "standalone/text/ascii.h"

namespace vond::standalone {
namespace {

using date_words::begins_like;

constexpr std::size_t LONGEST_EXPONENT = 15;

bool is_exponent_sign(char c) { return c == '+' || c == '-'; }

std::size_t skip_sign(std::string_view text) {
  const auto* const sign = std::find_if(
      SIGNS.begin(), SIGNS.end(), [text](std::string_view each) { return text.starts_with(each); });
  return sign == SIGNS.end() ? 0 : sign->size();
}

std::size_t skip_digits(std::string_view text, std::size_t at) {
  while (at < text.size() && is_digit(text[at])) {
    ++at;
  }
  return at;
}

/// Returns where the digits before the fraction end: those of `1,200` include the comma.
std::size_t skip_whole_part(std::string_view text, std::size_t begin) {
  std::size_t end = skip_digits(text, begin);
  if (end - begin > 3) {
    return end;
  }
  while (begins_like(text.substr(end), ",000") && skip_digits(text, end + 4) == end + 4) {
    end += 4;
  }
  return end;
}

std::size_t skip_fraction(std::string_view text, std::size_t at) {
  return begins_like(text.substr(at), ".0") ? skip_digits(text, at + 1) : at;
}

std::size_t skip_exponent(std::string_view text, std::size_t at) {
  if (at == text.size() || (text[at] != 'e' && text[at] != 'E')) {
    return at;
  }
  const std::size_t digits =
      at + 1 < text.size() && is_exponent_sign(text[at + 1]) ? at + 2 : at + 1;
  const std::size_t end = skip_digits(text, digits);
  return end == digits ? at : end;
}

/// Returns the number behind the `e` of an exponent, 0 without one; nothing when it is too long.
std::optional<std::int64_t> read_exponent(std::string_view text) {
  if (text.empty()) {
    return 0;
  }
  text.remove_prefix(text.size() > 1 && text[1] == '+' ? 2 : 1);
  std::int64_t exponent = 0;
  if (text.size() > LONGEST_EXPONENT) {
    return std::nullopt;
  }
  std::from_chars(text.data(), text.data() + text.size(), exponent);
  return exponent;
}

}  // namespace

std::optional<Decimal> Decimal::read(std::string_view text, std::size_t& length) {
  const std::size_t begin = skip_sign(text);
  const std::size_t whole_end = skip_whole_part(text, begin);
  const bool has_leading_zero = begin < text.size() && text[begin] == '0' && whole_end > begin + 1;
  const std::size_t fraction_end = skip_fraction(text, whole_end);
  if (fraction_end == begin || has_leading_zero) {
    return std::nullopt;
  }
  length = skip_exponent(text, fraction_end);
  const auto exponent = read_exponent(text.substr(fraction_end, length - fraction_end));
  if (!exponent) {
    return std::nullopt;
  }
  Decimal number;
  std::copy_if(text.begin() + begin, text.begin() + fraction_end,
               std::back_inserter(number.digits_), is_digit);
  const auto commas = std::count(text.begin() + begin, text.begin() + whole_end, ',');
  const std::size_t leading =
      std::min(number.digits_.find_first_not_of('0'), number.digits_.size());
  number.first_power_ = *exponent + static_cast<std::int64_t>(whole_end - begin) - commas - 1 -
                        static_cast<std::int64_t>(leading);
  number.digits_.erase(0, leading);
  number.digits_.erase(number.digits_.find_last_not_of('0') + 1);
  number.is_negative_ = begin != 0 && text[0] != '+' && !number.digits_.empty();
  number.first_power_ = number.digits_.empty() ? 0 : number.first_power_;
  return number;
}

std::strong_ordering Decimal::operator<=>(const Decimal& other) const {
  if (sign() != other.sign()) {
    return sign() <=> other.sign();
  }
  return is_negative_ ? other.compare_sizes(*this) : compare_sizes(other);
}

int Decimal::sign() const { return is_zero() ? 0 : is_negative_ ? -1 : 1; }

std::strong_ordering Decimal::compare_sizes(const Decimal& other) const {
  return std::tie(first_power_, digits_) <=> std::tie(other.first_power_, other.digits_);
}

std::int64_t Decimal::in_units_of(std::int64_t power) const {
  if (is_zero()) {
    return 0;
  }
  std::int64_t number = 0;
  for (const char digit : digits_) {
    number = 10 * number + (digit - '0');
  }
  for (std::int64_t zeros = last_power() - power; zeros > 0; --zeros) {
    number *= 10;
  }
  return is_negative_ ? -number : number;
}

double Decimal::nearest_double() const {
  if (is_zero()) {
    return 0;
  }
  const std::string text = digits_ + "e" + std::to_string(last_power());
  double number = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc()) {
    number = first_power_ > 0 ? std::numeric_limits<double>::infinity() : 0;
  }
  return is_negative_ ? -number : number;
}

}  // namespace vond::standalone
