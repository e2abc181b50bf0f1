// `run` goes ways of its own: it knows the nodes of an issue and the issues of a definition from
// before. What it writes must be what the named operations write one after the other.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <ostream>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tests/extensions/vond_output_log/fake_host_test.h"
#include "tests/extensions/vond_output_log/report_by_operations.h"
#include "tests/support/recording_buffer.h"
#include "vond/log/error_log.h"
#include "vond/vocabulary/severity_bands.h"
#include "vond_output_log.h"

namespace vond::test {
namespace {

using log::OutputLog;
using postprocessor::Type;
using vocabulary::SEVERITY_BANDS;

using Texts = std::vector<std::string>;

constexpr char UNKNOWN_BAND[] = "catastrophic";

/// The same numbers on every machine.
class Random {
 public:
  explicit Random(std::uint32_t seed) : engine_(seed) {}

  /// Returns a number below `bound`, which is at least 1.
  std::uint32_t below(std::size_t bound) {
    return static_cast<std::uint32_t>(engine_() % static_cast<std::uint32_t>(bound));
  }
  bool once_in(std::size_t bound) { return below(bound) == 0; }
  template <typename Item>
  Item pick(const std::vector<Item>& items) {
    return items[below(items.size())];
  }

 private:
  std::mt19937 engine_;
};

const Texts NAMES = {"a", "a/b", "a/b/c", "d", "d/e", ""};
const Texts TEXTS = {"", "", "text", "two\nlines", "a, b, ", "bad"};
const Texts NODES = {"n1", "n2", "n10", "login", ""};

Texts some(Random& random, const Texts& items) {
  Texts chosen;
  for (std::uint32_t left = random.below(4); left > 0; --left) {
    chosen.push_back(random.pick(items));
  }
  return chosen;
}

Issue random_issue(Random& random, std::size_t number) {
  if (random.once_in(8)) {
    return make_issue_without_outputs();
  }
  const Texts definitions = some(random, NAMES);
  Issue issue = make_issue({.id = random.pick(Texts{"", "id,", "i#" + std::to_string(number)}),
                            .category = random.pick(TEXTS),
                            .message = random.pick(TEXTS),
                            .remedy = random.pick(TEXTS),
                            .nodes = some(random, NODES),
                            .row_ids = std::vector<int>(random.below(3), 7),
                            .definitions = {definitions.begin(), definitions.end()}});
  for (std::uint32_t left = random.below(3); left > 0; --left) {
    add_output(issue, some(random, NODES));
  }
  return issue;
}

/// Relates issues one way only: two that hold each other are never released.
void relate_some(Random& random, const std::vector<Issue>& issues) {
  for (std::size_t later = 1; later < issues.size(); ++later) {
    const Issue& earlier = issues[random.below(later)];
    if (random.once_in(2)) {
      issues[later]->related_issues[random.once_in(2) ? Type::OBSERVATION : Type::DIAGNOSIS].insert(
          earlier);
    }
  }
}

/// Every mask may have a list, of up to twelve entries, some of them empty or twice there.
void fill_index(Random& random, Data& data) {
  std::vector<Issue> issues;
  for (std::size_t number = 0; number < 12; ++number) {
    issues.push_back(random_issue(random, number));
  }
  relate_some(random, issues);
  issues.push_back(nullptr);
  for (unsigned mask = 0; mask < 32; ++mask) {
    if (random.once_in(3)) {
      continue;
    }
    auto& list = (*data.issues_by_mask)[mask];
    for (std::uint32_t left = random.below(random.once_in(5) ? 13 : 3); left > 0; --left) {
      list.push_back(random.pick(issues));
    }
  }
}

void fill_counts(Random& random, Data& data) {
  data.counts_by_mask.clear();
  for (const unsigned mask : {0U, 3U, 16U, 19U}) {
    if (!random.once_in(20)) {
      data.counts_by_mask[mask] = random.once_in(4) ? 0 : 2;
    }
  }
}

Node random_definition(Random& random, int levels) {
  std::map<unsigned, int> counts;
  for (std::uint32_t left = random.below(8); left > 0; --left) {
    counts[random.below(32)] = static_cast<int>(random.below(4)) - 1;
  }
  std::vector<std::vector<Node>> groups(levels == 0 ? 0 : random.below(3));
  for (auto& group : groups) {
    for (std::uint32_t left = random.below(3); left > 0; --left) {
      group.push_back(random_definition(random, levels - 1));
    }
  }
  return make_definition({.name = random.pick(NAMES),
                          .passed = random.once_in(2),
                          .skipped = random.once_in(6),
                          .counts = counts},
                         groups);
}

Data random_record(Random& random) {
  Data data = make_record();
  data.fail_threshold = random.pick(std::vector<int>{-1, 0, 24, 25, 74, 75, 100, 101});
  data.line_width = random.pick(std::vector<int>{-1, 0, 1, 5, 80});
  data.log_level = random.pick(Texts{"warning", "info", "debug"});
  fill_index(random, data);
  fill_counts(random, data);
  for (std::uint32_t left = random.below(4); left > 0; --left) {
    data.fwd_root->roots.push_back(random_definition(random, 3));
  }
  return data;
}

/// Lets the host fail, in every second case.
FakeHost random_host(Random& random) {
  FakeHost host;
  host.summarize_result = random.once_in(30) ? 1 : 0;
  switch (random.below(8)) {
    case 0:
      host.failing_operation =
          random.pick(Texts{"format_header", "print_validation", "Summarize", "PrintEnd",
                            "GetDigits", "get_usable_id", "get_node_string", "get_short_name",
                            "remove_endl", "upper", "get_message_string", "get_remedy_string",
                            "get_fwd_string", "word_wrap", "column_wrap", "space_wrap", "rstrip"});
      break;
    case 1:
    case 2:
      host.unwrappable_text = random.pick(
          Texts{"Message:", "Remedy:", "Nodes:", "Diagnoses:  ", "Based on Observations: usable",
                "bad", "CRITICAL", "short d", "   Diagnoses", "i#3 (appears"});
      break;
    case 3:
      host.text_that_throws_an_int = random.pick(Texts{"Message:", "Remedy:", "i#4", "short a/b"});
      break;
    default:
      break;
  }
  return host;
}

/// All that shows of a report.
struct Outcome {
  /// What was returned or thrown.
  std::string result;
  /// Writes and flushes.
  Texts statements;
  std::string errors;
  /// Calls of the host's operations but get_node_string() and get_usable_id(), which `run` calls
  /// once an issue for what sections and tree show alike.
  Texts calls;
  /// With their arguments.
  Texts wraps;

  bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  out << outcome.result << "\n" << outcome.errors;
  for (const Texts* texts : {&outcome.statements, &outcome.calls, &outcome.wraps}) {
    for (const std::string& text : *texts) {
      out << "[" << text << "]\n";
    }
  }
  return out;
}

template <typename Run>
std::string result_of(Run run) {
  try {
    return std::to_string(run());
  } catch (const std::exception& error) {
    return error.what();
  } catch (int number) {
    return "int " + std::to_string(number);
  }
}

/// Runs a report before that host.
template <typename Run>
Outcome outcome_of(const FakeHost& host, Run run) {
  Outcome outcome;
  fake_host() = host;
  fake_host().on_call = [&outcome](const std::string& operation) {
    if (operation != "get_node_string" && operation != "get_usable_id") {
      outcome.calls.push_back(operation);
    }
  };
  RecordingBuffer buffer;
  std::ostream stream(&buffer);
  OutputLog::singleton_obj->streams = {{&stream, false}};
  const CapturedStandardError standard_error;
  outcome.result = result_of(run);
  outcome.errors = standard_error.text();
  outcome.statements = buffer.events;
  outcome.wraps = fake_host().wraps;
  return outcome;
}

struct BothOutcomes {
  Outcome run;
  Outcome operations;
};

BothOutcomes random_outcomes(std::uint32_t seed, const ReportByOperations::Bands& bands) {
  Random random(seed);
  const FakeHost host = random_host(random);
  Data data = random_record(random);
  const std::size_t calls_one_in = random.pick(std::vector<std::size_t>{3, 10, 1000000});
  return {
      outcome_of(host, [&] { return vond_output_log::VondOutputLog(data).run(); }),
      outcome_of(host, [&] {
        return ReportByOperations(data, bands, [&] { return random.once_in(calls_one_in); }).run();
      })};
}

class SameReportTest : public FakeHostTest {};

TEST_F(SameReportTest, ComesFromRunAndFromTheOperationsOneAfterTheOther) {
  std::map<std::string, int> results;
  std::set<std::string> errors;
  for (std::uint32_t seed = 0; seed < 600; ++seed) {
    const auto [run, operations] =
        random_outcomes(seed, {.sections = SEVERITY_BANDS, .tree = SEVERITY_BANDS});
    ASSERT_EQ(run, operations) << "seed " << seed;
    ++results[run.result];
    errors.insert(run.errors);
  }
  // The records are of all kinds.
  EXPECT_GT(results["0"], 200);
  EXPECT_GT(results["1"], 50);
  EXPECT_GT(results["wrapping failed"], 10);
  EXPECT_GE(results.size(), 12U);
  EXPECT_EQ(errors,
            (std::set<std::string>{"", "wrapping failed\n", "Error getting number of issues.\n"}));
}

/// Looks a band up that there is not, which adds it to a table for the rest of the process, and
/// compares reports. Returns the first that differs, or 0 when none does.
int first_difference_with_unknown_band() {
  const Data data = make_record();
  postprocessor::IssueList issues;
  vond_output_log::FwdOutputFunctions().find_by_severity(data, issues, UNKNOWN_BAND, 0);
  ReportByOperations::Bands bands{.sections = SEVERITY_BANDS, .tree = SEVERITY_BANDS};
  bands.tree[UNKNOWN_BAND] = {0, 0, postprocessor::Severity::INFORMATIONAL};
  for (std::uint32_t seed = 1; seed < 150; ++seed) {
    const auto [run, operations] = random_outcomes(seed, bands);
    if (!(run == operations)) {
      return static_cast<int>(seed);
    }
  }
  return 0;
}

TEST_F(SameReportTest, ComesFromBothWithABandThatOnlyTheTreeKnows) {
  EXPECT_EXIT(std::_Exit(first_difference_with_unknown_band()), ::testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace vond::test
