// The law of collapsed findings: the report on parts that were collapsed by themselves, whatever
// the split, the order and the depth, is the report on all findings at once.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "tests/standalone/cli/command.h"
#include "tests/standalone/cli/random_findings.h"
#include "tests/standalone/cli/temporary_folder.h"

namespace vond::test {
namespace {

class MergingTest : public ::testing::TestWithParam<const char*> {
 protected:
  std::string output_on(const std::string& output, const Lines& files) {
    std::vector<std::string> arguments = {"-e", output, "--collapse",  GetParam(),
                                          "-w", "0",    "--log-level", "info"};
    arguments.insert(arguments.end(), files.begin(), files.end());
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_LE(outcome.status, 1);
    return outcome.output;
  }

  /// The report without the header's inputs.
  std::string report_on(const Lines& files) {
    std::istringstream lines(output_on("text", files));
    std::string report;
    bool is_input = false;
    for (std::string line; std::getline(lines, line);) {
      is_input =
          line.rfind("  Input: ", 0) == 0 || (is_input && line.rfind("            ", 0) == 0);
      report += is_input ? "" : line + "\n";
    }
    return report;
  }

  std::string collapsed(const Lines& files) {
    return folder.write("collapsed" + std::to_string(++collapsed_files),
                        output_on("findings", files));
  }

  TemporaryFolder folder;
  RandomFindings source{1};
  int collapsed_files = 0;
};

TEST_P(MergingTest, TheReportOnPartsIsTheReportOnAllFindings) {
  for (int round = 0; round < 12; ++round) {
    SCOPED_TRACE(round);
    Lines lines = source.draw(120);
    const std::string whole = folder.write("whole", joined(lines));
    const std::string report = report_on({whole});
    const std::string of_whole = read_file(collapsed({whole}));

    // Cut anywhere, in any order.
    source.shuffle(lines);
    Lines parts;
    for (auto at = lines.begin(); at != lines.end();) {
      const auto size = std::min<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(1 + source.below(60)),
                                                 lines.end() - at);
      parts.push_back(folder.write("part" + std::to_string(parts.size()), joined({at, at + size})));
      at += size;
    }
    Lines merged;
    for (const std::string& part : parts) {
      merged.push_back(collapsed({part}));
    }
    EXPECT_EQ(report_on(merged), report);
    // Some of them once more.
    source.shuffle(merged);
    while (merged.size() > 1) {
      const std::string last = merged.back();
      merged.pop_back();
      merged.front() = collapsed({merged.front(), last});
      EXPECT_EQ(report_on(merged), report);
    }
    EXPECT_EQ(read_file(merged.front()), of_whole);
    EXPECT_EQ(read_file(collapsed(merged)), of_whole);
  }
}

TEST_P(MergingTest, WhatANodeSaysOfItselfStaysApartFromWhatOthersSayOfIt) {
  const auto down = [](const std::string& node, const std::string& said_by) {
    return R"({"id": "a", "severity": 80, "message": ")" + node + R"( is down", "nodes": ")" +
           said_by + "\"}\n";
  };
  // In the first part alone both say the same.
  const std::string first = down("cn1", "cn1") + down("cn1", "cn2");
  const std::string second = down("cn3", "cn3");
  const std::string report = report_on({folder.write("whole", first + second)});
  EXPECT_EQ(report_on({collapsed({folder.write("first", first)}),
                       collapsed({folder.write("second", second)})}),
            report);
}

TEST_P(MergingTest, TheOrderOfLinesShowsInNothing) {
  Lines lines = source.draw(200);
  const std::string findings = read_file(collapsed({folder.write("whole", joined(lines))}));
  for (int round = 0; round < 5; ++round) {
    source.shuffle(lines);
    EXPECT_EQ(read_file(collapsed({folder.write("shuffled", joined(lines))})), findings);
  }
}

TEST_P(MergingTest, FilesMayBePutTogetherAndTheirLinesMixed) {
  const Lines lines = source.draw(100);
  const std::string report = report_on({folder.write("whole", joined(lines))});
  Lines together;
  for (const auto& [begin, end] : {std::pair(0, 40), std::pair(40, 100)}) {
    const std::string part =
        collapsed({folder.write("part", joined({lines.begin() + begin, lines.begin() + end}))});
    std::istringstream text(read_file(part));
    for (std::string line; std::getline(text, line);) {
      together.push_back(line);
    }
  }
  source.shuffle(together);
  EXPECT_EQ(report_on({folder.write("together", joined(together))}), report);
}

TEST_P(MergingTest, PartsAreNamedAndStayOldAndIncomplete) {
  const std::string old = folder.write(
      "old", R"({"begin": {"format": 1, "written": "2025-11-20T00:00:00Z", "parts": ["r2"]}})"
             "\n"
             R"({"end": {"findings": 1, "examined": null, "lines_rejected": 4, "complete": true}})"
             "\n");
  const std::string merged =
      run({"-e", "findings", "--part", "r1", "--collapse", GetParam(), old}).output;
  EXPECT_EQ(merged,
            R"({"begin": {"format": 1, "written": "2025-11-20T00:00:00Z", "parts": ["r1", "r2"]}})"
            "\n"
            R"({"end": {"findings": 0, "examined": null, "lines_rejected": 4, "complete": false}})"
            "\n");
}

TEST_P(MergingTest, WhatWasNotKeptDoesNotPassForNothing) {
  std::istringstream extensions(run({"--list-extensions"}).output);
  std::string library;
  for (std::string line; std::getline(extensions, line);) {
    if (line.rfind("findings\t", 0) == 0) {
      library = line.substr(line.find('\t') + 1);
    }
  }
  const std::string findings = folder.write("findings", R"({"id": "a", "severity": 80})");
  const Outcome outcome = run({"-e", library + ":" + folder / "out", findings});
  EXPECT_EQ(outcome.errors, "vond-report: error: " + library +
                                ": the extension's run failed: findings are kept for the output "
                                "\"findings\" alone\n");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(folder.names(), Lines{"findings"});
}

TEST_P(MergingTest, TheEarliestTimeStaysThatSomethingWasSeenOnEachNode) {
  const auto seen = [](const std::string& node, const std::string& day, const std::string& text) {
    return R"({"id": "a", "severity": 80, "nodes": ")" + node + R"(", "message": ")" + text +
           R"(", "first_seen": "2025-11-)" + day + "T04:30:00Z\"}\n";
  };
  const std::string findings = seen("cn1", "12", "down") + seen("cn2", "10", "down") +
                               seen("cn3", "10", "down") + seen("cn1", "11", "down") +
                               R"({"id": "a", "severity": 80, "nodes": "cn4", "message": "down"})"
                               "\n" +
                               // What a node says of itself, no other node says.
                               seen("cn1", "13", "cn1 down") + seen("cn2", "09", "cn2 down");
  std::istringstream lines(read_file(collapsed({folder.write("whole", findings)})));
  Lines times;
  for (std::string line; std::getline(lines, line);) {
    if (const auto at = line.find("\"nodes\""); at != std::string::npos) {
      times.push_back(line.substr(line.find("down\"") + 7));
    }
  }
  EXPECT_EQ(times,
            (Lines{R"("nodes": "cn4", "count": 1})",
                   R"("first_seen": "2025-11-10T04:30:00Z", "nodes": "cn[2-3]", "count": 2})",
                   R"("first_seen": "2025-11-11T04:30:00Z", "nodes": "cn1", "count": 2})",
                   R"("first_seen": "2025-11-13T04:30:00Z", "nodes": "cn1", "count": 1})",
                   R"("first_seen": "2025-11-09T04:30:00Z", "nodes": "cn2", "count": 1})"}));
}

TEST_P(MergingTest, ALineIsSplitBeforeItIsTooLong) {
  const std::string whole = folder.write(
      "whole",
      R"({"id": "a", "severity": 80, "nodes": "n[1-100001]", "message": "n99999 is down"})");
  const std::string part = collapsed({whole});
  const std::string text = read_file(part);
  EXPECT_NE(text.find(R"("nodes": "n[1-99997,100000-100001]", "count": 1})"), std::string::npos)
      << text;
  EXPECT_NE(text.find(R"("nodes": "n[99998-99999]", "count": 0})"), std::string::npos) << text;
  EXPECT_EQ(report_on({part}), report_on({whole}));
}

INSTANTIATE_TEST_SUITE_P(CollapsedBy, MergingTest, ::testing::Values("pattern", "text", "id"),
                         [](const auto& mode) { return std::string(mode.param); });

}  // namespace
}  // namespace vond::test
