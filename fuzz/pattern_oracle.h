#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// The rule of patterns a second time, slowly and in another way: what it says about findings.
namespace vond::fuzz {

struct PatternFinding {
  std::vector<std::string> nodes;
  std::vector<std::string> texts;
  int row_id = 0;
};

/// One value of a place: how many findings have it, and the nodes that they name.
struct ValueUse {
  std::size_t findings = 0;
  std::set<std::string> nodes;
};
/// By the values as people see them.
using PlaceUse = std::map<std::string, ValueUse>;

/// Writes an issue down so that two of them can be compared: text with all that could be mistaken
/// in hexadecimal digits.
class IssueWriter {
 public:
  void literal(std::string_view bytes);
  void node();
  void place(const PlaceUse& values);
  void end_of_text();
  const std::string& written() const { return written_; }

 private:
  std::string written_;
};

/// Returns the issues that the findings are, as an IssueWriter writes them, sorted.
std::vector<std::string> expected_issues(const std::vector<PatternFinding>& findings);

/// What findings gave as a text: the nodes and the row ids that it came with.
struct TextSource {
  std::set<std::string> nodes;
  std::set<int> row_ids;

  bool operator==(const TextSource&) const = default;
};
using TextSources = std::map<std::vector<std::string>, TextSource>;

TextSources expected_sources(const std::vector<PatternFinding>& findings);

}  // namespace vond::fuzz
