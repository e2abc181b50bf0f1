#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "standalone/nodes/number_table.h"

namespace vond::standalone {

/// Writes numbers as node sets have them.
class NumberWriter {
 public:
  /// `table` is to outlive it.
  explicit NumberWriter(const NumberTable& table) : table_(table) {}

  void append_number(NumberKey number, std::string& text) const { table_.append(number, text); }

  /// Appends the numbers, which are sorted and each once, as numbers and runs; in brackets when
  /// there are several or `always_brackets`.
  void append_numbers(std::span<const NumberKey> numbers, bool always_brackets,
                      std::string& text) const;

 private:
  /// How the numbers of a run are written. Readers take it from the run's first number.
  struct Padding {
    bool is_padded;
    std::size_t digits;
  };

  Padding padding_of(NumberKey number) const;
  bool has_padding(NumberKey number, const Padding& padding) const;
  void append_runs(std::span<const NumberKey> numbers, std::string& text) const;
  void append_run(std::span<const NumberKey> run, std::string& text) const;

  const NumberTable& table_;
};

}  // namespace vond::standalone
