#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vond::fuzz {

/// What a line is wrapped by.
struct WrapRules {
  int width = 0;
  std::string indent;
  /// Set for labelled lines.
  std::optional<char> label_end;
  /// Whether to wrap at blanks alone, beside the lead.
  bool at_blanks_only = false;
};

/// Judges how one line was wrapped. Knows the rules, not how they are kept.
class WrappingOracle {
 public:
  /// `line` begins with its indent, if it is to have one.
  WrappingOracle(WrapRules rules, std::string_view line);

  /// Returns what is wrong with the rows that the line became, "" when they are right.
  std::string complaint(const std::vector<std::string_view>& rows) const;

 private:
  std::size_t find_lead() const;
  std::string continuation() const;
  void measure();
  std::size_t room_beside(std::string_view lead) const;
  std::size_t columns(std::size_t begin, std::size_t end) const;
  bool is_blank(std::size_t at) const;
  bool is_single_cluster(std::size_t begin, std::size_t end) const;
  std::size_t word_begin(std::size_t at) const;
  std::size_t word_end(std::size_t at) const;
  std::string take_row(std::string_view row, std::size_t room, std::size_t& at) const;
  std::string judge_row(std::size_t begin, std::size_t end, std::size_t room) const;
  std::string judge_break(std::size_t begin, std::size_t next, std::size_t room) const;
  std::string judge_cut(std::size_t begin, std::size_t end, std::size_t room) const;

  WrapRules rules_;
  std::string_view line_;
  std::size_t lead_;
  std::string continuation_;
  /// An entry a byte, and one for the end.
  std::vector<bool> cluster_begins_;
  std::vector<std::size_t> columns_before_;
};

}  // namespace vond::fuzz
