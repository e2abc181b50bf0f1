#pragma once

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace vond::test {

using Lines = std::vector<std::string>;

/// Makes findings that differ in all that keeps issues apart, and say values and names of nodes,
/// their own and others, in short and in full.
class RandomFindings {
 public:
  explicit RandomFindings(unsigned seed) : random_(seed) {}

  Lines draw(std::size_t count) {
    Lines lines;
    while (lines.size() < count) {
      lines.push_back(below(12) == 0 ? R"({"examined": ["cn)" + number(9) + R"(.x", "rack 7"]})"
                                     : finding());
    }
    return lines;
  }

  std::size_t below(std::size_t end) { return random_() % end; }

  template <typename Item>
  void shuffle(std::vector<Item>& items) {
    std::shuffle(items.begin(), items.end(), random_);
  }

 private:
  std::string number(std::size_t end) { return std::to_string(below(end)); }

  const char* one_of(const std::vector<const char*>& words) { return words[below(words.size())]; }

  std::string text() {
    std::string text =
        one_of({"at VC", "fan V of OWN", "OWN-bmc: V of V", "cn1.x is down", "cn2 is down",
                "the disk is full", "V", "seen at 08:0V:00", "a \\\"quoted\\\" word-V", "core.aV"});
    replace(text, "OWN", below(2) == 0 ? own_ + domain_ : own_);
    replace(text, "V", number(below(2) == 0 ? 3 : 40));
    return text;
  }

  static void replace(std::string& text, const std::string& mark, const std::string& by) {
    for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at + by.size())) {
      text.replace(at, mark.size(), by);
    }
  }

  std::string finding() {
    own_ = "cn" + number(6);
    // Two nodes have one name up to its first dot.
    domain_ = one_of({".x", ".x", ".y"});
    const std::string nodes = one_of({"OWN", "OWN", "OWN", "OWN", "MANY", "NONE", "ODD"});
    std::string line = R"({"id": ")" + std::string(one_of({"a", "b", "c#1"})) +
                       R"(", "severity": )" + one_of({"10", "24", "60", "70", "80", "99"}) +
                       R"(, "message": ")" + text() + "\"";
    line += nodes == "OWN"    ? R"(, "nodes": ")" + own_ + domain_ + "\""
            : nodes == "MANY" ? std::string(R"(, "nodes": "cn[1-2].x,cn3.x")")
            : nodes == "ODD"  ? std::string(R"(, "nodes": )") +
                                   one_of({R"(["rack 7", "it's", "a;b"])", R"(["a;b", "rack 7"])"})
                             : std::string();
    line += below(3) == 0 ? R"(, "remedy": ")" + text() + "\"" : std::string();
    line += below(3) == 0 ? R"(, "type": "diagnosis", "based_on": ["b", "z"])" : std::string();
    line += below(2) == 0 ? R"(, "definitions": ["d/e", "d"])" : std::string();
    line += below(3) == 0 ? R"(, "category": "net")" : std::string();
    line += below(2) == 0 ? R"(, "row_ids": [)" + number(50) + "]" : std::string();
    line += below(9) == 0 ? R"(, "count": )" + number(4) : std::string();
    line += below(4) == 0
                ? R"(, "first_seen": "2025-11-0)" + std::to_string(1 + below(9)) + R"(T04:30:00Z")"
                : std::string();
    return line + "}";
  }

  std::mt19937 random_;
  std::string own_;
  std::string domain_;
};

inline std::string joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + "\n";
  }
  return text;
}

}  // namespace vond::test
