#include "standalone/nodes/number_writer.h"

namespace vond::standalone {

void NumberWriter::append_numbers(std::span<const NumberKey> numbers, bool always_brackets,
                                  std::string& text) const {
  const bool brackets = always_brackets || numbers.size() > 1;
  if (brackets) {
    text += '[';
  }
  append_runs(numbers, text);
  if (brackets) {
    text += ']';
  }
}

NumberWriter::Padding NumberWriter::padding_of(NumberKey number) const {
  return {table_.is_padded(number), table_.digit_count(number)};
}

bool NumberWriter::has_padding(NumberKey number, const Padding& padding) const {
  return padding.is_padded ? table_.digit_count(number) == padding.digits
                           : !table_.is_padded(number);
}

void NumberWriter::append_runs(std::span<const NumberKey> numbers, std::string& text) const {
  std::size_t first = 0;
  Padding padding = padding_of(numbers[0]);
  for (std::size_t i = 1; i < numbers.size(); ++i) {
    const bool same_padding = has_padding(numbers[i], padding);
    if (same_padding && table_.follows(numbers[i - 1], numbers[i])) {
      continue;
    }
    append_run(numbers.subspan(first, i - first), text);
    text += ',';
    // After a single number its padding stays in force: 08,99,100 rather than 08,99-100, because
    // 99 can be one of the padded numbers as well.
    if (!same_padding || i - first > 1) {
      padding = padding_of(numbers[i]);
    }
    first = i;
  }
  append_run(numbers.subspan(first), text);
}

void NumberWriter::append_run(std::span<const NumberKey> run, std::string& text) const {
  table_.append(run.front(), text);
  if (run.size() == 1) {
    return;
  }
  text += '-';
  table_.append(run.back(), text);
}

}  // namespace vond::standalone
