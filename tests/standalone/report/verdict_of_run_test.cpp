// A report never passes when anything puts that in doubt, whatever the run.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "standalone/facts/verdict.h"
#include "tests/standalone/support/read_facts.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::RecordOptions;
using vond::standalone::ReportFacts;
using vond::standalone::RunSources;
using vond::standalone::Verdict;
using vond::standalone::verdict_doubts;
using vond::standalone::verdict_of;
using vond::test::read_facts;
using vond::test::TestFile;

constexpr int FAIL_THRESHOLD = 75;

/// A run of the checks that chance has made, and what is true of it.
class RandomRun {
 public:
  explicit RandomRun(unsigned seed) : random_(seed) {
    make_findings();
    if (chance()) {
      make_examined();
    }
    if (chance()) {
      expected_ = some_nodes();
    }
    if (chance()) {
      make_parts();
    }
    lines_rejected_ = chance() ? 0 : below(3);
    is_second_input_useless_ = below(4) == 0;
  }

  ReportFacts facts() const {
    const TestFile file(lines_);
    const TestFile second("");
    RunSources sources;
    sources.findings = {file.path(), second.path()};
    sources.expected.assign(expected_.begin(), expected_.end());
    sources.expected_parts = expected_parts_;
    RecordOptions options;
    options.fail_threshold = FAIL_THRESHOLD;
    ReportFacts facts = read_facts(sources, options);
    facts.lines_rejected += lines_rejected_;
    facts.inputs.at(1).is_useless = is_second_input_useless_;
    return facts;
  }

  bool fails() const { return fails_; }

  bool is_in_doubt() const {
    const std::set<std::string>& seen = examined_is_known_ ? examined_ : nodes_with_findings_;
    return lines_rejected_ + rejected_before_ != 0 || is_cut_off_ || has_part_twice_ ||
           lacks_part_ || is_second_input_useless_ || (findings_ == 0 && examined_.empty()) ||
           !std::includes(seen.begin(), seen.end(), expected_.begin(), expected_.end());
  }

 private:
  unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
  bool chance() { return below(2) == 0; }

  std::set<std::string> some_nodes() {
    std::set<std::string> nodes;
    for (unsigned count = below(4); count != 0; --count) {
      nodes.insert("n" + std::to_string(below(4)));
    }
    return nodes;
  }

  void make_findings() {
    for (unsigned count = below(4); count != 0; --count) {
      const unsigned severity = chance() ? below(75) : below(101);
      const std::string node = "n" + std::to_string(below(4));
      lines_ += R"({"id": "a", "severity": )" + std::to_string(severity) + R"(, "nodes": ")" +
                node + "\"}\n";
      ++findings_;
      fails_ = fails_ || severity >= FAIL_THRESHOLD;
      nodes_with_findings_.insert(node);
    }
  }

  void make_examined() {
    examined_is_known_ = true;
    examined_ = some_nodes();
    lines_ += "{\"examined\": []}\n";
    for (const std::string& node : examined_) {
      lines_ += R"({"examined": ")" + node + "\"}\n";
    }
  }

  /// Makes parts of the findings that were collapsed before; whole ones most of the time.
  void make_parts() {
    const std::size_t parts = 1 + below(2);
    for (std::size_t part = 0; part < parts; ++part) {
      has_part_twice_ = part == 1 && below(6) == 0;
      lines_ += R"({"begin": {"format": 1, "written": "2025-11-21T04:30:00Z", "parts": ["r)" +
                std::to_string(has_part_twice_ ? 0 : part) + "\"]}}\n";
      const std::size_t missing = below(8) == 0 ? 1 : 0;
      const bool is_complete = below(8) != 0;
      const std::size_t rejected = below(8) == 0 ? 2 : 0;
      is_cut_off_ = is_cut_off_ || missing != 0 || !is_complete;
      rejected_before_ += rejected;
      lines_ += R"({"end": {"findings": )" + std::to_string((part == 0 ? findings_ : 0) + missing) +
                R"(, "lines_rejected": )" + std::to_string(rejected) + R"(, "complete": )" +
                (is_complete ? "true" : "false") + "}}\n";
    }
    if (chance()) {
      lacks_part_ = below(4) == 0;
      expected_parts_ = {"r0", lacks_part_ ? "r9" : "r0"};
    }
  }

  std::minstd_rand random_;
  std::string lines_;
  std::size_t findings_ = 0;
  bool fails_ = false;
  std::set<std::string> nodes_with_findings_;
  bool examined_is_known_ = false;
  std::set<std::string> examined_;
  std::set<std::string> expected_;
  std::size_t lines_rejected_ = 0;
  /// When parts were collapsed.
  std::size_t rejected_before_ = 0;
  bool is_second_input_useless_ = false;
  bool is_cut_off_ = false;
  bool has_part_twice_ = false;
  bool lacks_part_ = false;
  std::vector<std::string> expected_parts_;
};

TEST(VerdictOfRun, IsPassIfNothingFailsAndNothingIsInDoubtAndOnlyThen) {
  std::set<Verdict> met;
  for (unsigned seed = 1; seed <= 2000; ++seed) {
    const RandomRun run(seed);
    const Verdict unfailed = run.is_in_doubt() ? Verdict::UNKNOWN : Verdict::PASS;
    const ReportFacts facts = run.facts();
    EXPECT_EQ(verdict_of(facts), run.fails() ? Verdict::FAIL : unfailed) << "seed " << seed;
    EXPECT_EQ(verdict_doubts(facts).empty(), !run.is_in_doubt()) << "seed " << seed;
    met.insert(verdict_of(facts));
  }
  EXPECT_EQ(met.size(), 3U);
}

}  // namespace
