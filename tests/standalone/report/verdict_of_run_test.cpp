// A report never passes when anything puts that in doubt, whatever the run.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "standalone/facts/verdict.h"
#include "standalone/report/facts_of_run.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::CheckRun;
using vond::standalone::facts_of_run;
using vond::standalone::ReadingProgress;
using vond::standalone::RecordOptions;
using vond::standalone::ReportFacts;
using vond::standalone::ReportRecord;
using vond::standalone::RunSources;
using vond::standalone::Verdict;
using vond::standalone::verdict_doubts;
using vond::standalone::verdict_of;
using vond::test::TestFile;

constexpr int FAIL_THRESHOLD = 75;

class NoProgress : public ReadingProgress {
 public:
  void advance(std::size_t /*bytes_read*/, std::size_t /*findings*/) override {}
};

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
    lines_rejected_ = chance() ? 0 : below(3);
    is_second_input_useless_ = below(4) == 0;
  }

  ReportFacts facts() const {
    const TestFile file(lines_);
    const TestFile second("");
    NoProgress progress;
    RunSources sources;
    sources.findings = {file.path(), second.path()};
    sources.expected.assign(expected_.begin(), expected_.end());
    CheckRun run(sources, progress);
    RecordOptions options;
    options.fail_threshold = FAIL_THRESHOLD;
    const ReportRecord record(run.collapser(), options);
    ReportFacts facts = facts_of_run(run, record, 0);
    facts.lines_rejected = lines_rejected_;
    facts.inputs.at(1).is_useless = is_second_input_useless_;
    return facts;
  }

  bool fails() const { return fails_; }

  bool is_in_doubt() const {
    const std::set<std::string>& seen = examined_is_known_ ? examined_ : nodes_with_findings_;
    return lines_rejected_ != 0 || is_second_input_useless_ ||
           (!has_findings_ && examined_.empty()) ||
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
      has_findings_ = true;
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

  std::minstd_rand random_;
  std::string lines_;
  bool has_findings_ = false;
  bool fails_ = false;
  std::set<std::string> nodes_with_findings_;
  bool examined_is_known_ = false;
  std::set<std::string> examined_;
  std::set<std::string> expected_;
  std::size_t lines_rejected_ = 0;
  bool is_second_input_useless_ = false;
};

TEST(VerdictOfRun, IsPassIfNothingFailsAndNothingIsInDoubtAndOnlyThen) {
  std::set<Verdict> met;
  for (unsigned seed = 1; seed <= 500; ++seed) {
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
