#include "standalone/acknowledged/acknowledgements_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standalone/input/input_error.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::Acknowledgement;
using vond::standalone::AcknowledgementsFile;
using vond::standalone::FaultyLines;
using vond::standalone::HIGHEST_SEVERITY;
using vond::standalone::InputError;
using vond::standalone::read_acknowledgements;
using vond::test::TestFile;

using Names = std::vector<std::string>;

/// 2025-11-21 04:30 UTC.
constexpr std::time_t NOW = 1763699400;
/// The last second of 2026-01-31.
constexpr std::time_t END_OF_JANUARY = 1769903999;

constexpr char KNOWN_KEYS[] =
    "one of \"id\", \"nodes\", \"until\", \"reason\", \"by\", \"up_to\", \"with_observations\"";

std::vector<Acknowledgement> read(const std::string& text, int days = 90) {
  const TestFile file(text);
  return read_acknowledgements(file.path(), {.now = NOW, .days = days}).entries;
}

/// Returns the message about a text that is refused.
std::string message_about(const std::string& text, int days = 90) {
  const TestFile file(text);
  try {
    read_acknowledgements(file.path(), {.now = NOW, .days = days});
  } catch (const InputError& error) {
    return file.without_path(error.what());
  }
  return "nothing is wrong";
}

/// Returns a line of which a part is replaced.
std::string line_with(const std::string& part, const std::string& by) {
  std::string line = R"({"id": "a", "nodes": "n1", "until": "2026-01-31", "reason": "r"})";
  line.replace(line.find(part), part.size(), by);
  return line;
}

std::string line_until(const std::string& until) { return line_with("2026-01-31", until); }

Names nodes_of(const std::string& value) { return read(line_with("\"n1\"", value)).at(0).nodes; }

TEST(AcknowledgementsReader, ReadsAllKeys) {
  const Acknowledgement entry{.id = "disk-full#sda1",
                              .nodes = {"cn001", "cn002"},
                              .until = END_OF_JANUARY,
                              .reason = "RMA 4711",
                              .by = "mh",
                              .up_to = 74,
                              .with_observations = true};
  EXPECT_EQ(read(R"({"id": "disk-full#sda1", "nodes": "cn[001-002]", "until": "2026-01-31", )"
                 R"("reason": "RMA 4711", "by": "mh", "up_to": "warning", )"
                 R"("with_observations": true})"),
            std::vector{entry});
}

TEST(AcknowledgementsReader, CoversEverythingWithoutLimits) {
  const Acknowledgement entry = read(line_with("}", R"(, "by": null, "up_to": null})")).at(0);
  EXPECT_EQ(entry.by, "");
  EXPECT_EQ(entry.up_to, HIGHEST_SEVERITY);
  EXPECT_FALSE(entry.with_observations);
  EXPECT_FALSE(entry.is_everywhere);
}

TEST(AcknowledgementsReader, ReadsLinesInTheirOrder) {
  const std::vector<Acknowledgement> entries =
      read("\xEF\xBB\xBF" + line_with("\"a\"", "\"b\"") + "\r\n \n" + line_until("2026-02-01"));
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0].id, "b");
  EXPECT_EQ(entries[1].id, "a");
}

TEST(AcknowledgementsReader, AnEmptyFileIsGood) {
  EXPECT_TRUE(read("").empty());
  EXPECT_TRUE(read("\n \t\r\n").empty());
}

TEST(AcknowledgementsReader, MakesTextsHarmless) {
  const Acknowledgement entry =
      read(R"({"id": " a\u001b ", "nodes": "n\u001b", "until": "2026-01-31", )"
           R"("reason": " two\nlines\u202e", "by": "m\th"})")
          .at(0);
  EXPECT_EQ(entry.id, "a\\x1b");
  EXPECT_EQ(entry.nodes, Names{"n\\x1b"});
  EXPECT_EQ(entry.reason, "two lines\\u202e");
  EXPECT_EQ(entry.by, "m h");
}

// ---- Nodes -------------------------------------------------------------------------------------

TEST(AcknowledgementsReader, NodesAreASetOrSeveral) {
  EXPECT_EQ(nodes_of(R"("n[2-3],n1")"), (Names{"n1", "n2", "n3"}));
  EXPECT_EQ(nodes_of(R"("n2 n1")"), (Names{"n1", "n2"}));
  EXPECT_EQ(nodes_of(R"(["n[1-2]", "n1"])"), (Names{"n1", "n2"}));
  EXPECT_EQ(nodes_of(R"("'odd name'")"), Names{"odd name"});
}

TEST(AcknowledgementsReader, AStarIsEveryNode) {
  const Acknowledgement entry = read(line_with("n1", "*")).at(0);
  EXPECT_TRUE(entry.is_everywhere);
  EXPECT_EQ(entry.nodes, Names());
}

TEST(AcknowledgementsReader, EveryNodeHasToBeWrittenOut) {
  const std::string expected = ", expected at least one node, or \"*\" for every node";
  EXPECT_EQ(message_about(line_with("n1", "")), "FILE:1:22: nodes is \"\"" + expected);
  EXPECT_EQ(message_about(line_with("\"n1\"", "[]")), "FILE:1:22: nodes is an array" + expected);
  EXPECT_EQ(message_about(line_with("\"n1\"", "[\" \"]")),
            "FILE:1:23: nodes[0] is \" \"" + expected);
  EXPECT_EQ(message_about(line_with("\"n1\"", "null")),
            "FILE:1:22: nodes is null, expected a set of nodes, an array of these, or \"*\" for "
            "every node");
}

TEST(AcknowledgementsReader, PatternsOfNamesAreNone) {
  const std::string expected = ", expected names in full; \"*\" alone stands for every node";
  EXPECT_EQ(message_about(line_with("n1", "n*")), "FILE:1:22: nodes is \"n*\"" + expected);
  EXPECT_EQ(message_about(line_with("\"n1\"", R"(["n1", "*"])")),
            "FILE:1:29: nodes[1] is \"*\"" + expected);
}

TEST(AcknowledgementsReader, NamesThePlaceInANodeSet) {
  EXPECT_EQ(message_about(line_with("n1", "n[1-")),
            "FILE:1:27: nodes: found the end of the node set, expected a number");
  EXPECT_EQ(message_about(line_with("n1", "@rack")),
            "FILE:1:23: nodes: found \"@\", expected a name without it, or one in single quotes; "
            "the nodes of a group: $(nodeset -f @rack)");
}

// ---- Until -------------------------------------------------------------------------------------

TEST(AcknowledgementsReader, ADayIsInclusive) {
  EXPECT_EQ(read(line_until("2026-01-31")).at(0).until, END_OF_JANUARY);
  EXPECT_TRUE(read(line_until("2025-11-21")).at(0).holds_at(NOW));
  EXPECT_FALSE(read(line_until("2025-11-20")).at(0).holds_at(NOW));
}

TEST(AcknowledgementsReader, ATimeIsInclusive) {
  EXPECT_EQ(read(line_until("2025-11-21T05:30:00+01:00")).at(0).until, NOW);
  EXPECT_TRUE(read(line_until("2025-11-21T04:30:00.25Z")).at(0).holds_at(NOW));
  EXPECT_FALSE(read(line_until("2025-11-21T04:29:59.9Z")).at(0).holds_at(NOW));
}

TEST(AcknowledgementsReader, OtherTimesAreErrors) {
  for (const char* until :
       {"", "tomorrow", "2026-02-30", "31.01.2026", "2026-1-31", "2026-01-31T12:00:00",
        "2026-01-31 12:00:00Z", "1769903999", "0026-01-31"}) {
    EXPECT_EQ(message_about(line_until(until)),
              "FILE:1:37: until is \"" + std::string(until) +
                  "\", expected a day such as \"2026-01-31\" or a time such as "
                  "\"2026-01-31T12:00:00Z\"");
  }
  EXPECT_EQ(message_about(line_with("\"2026-01-31\"", "1769903999")),
            "FILE:1:37: until is 1769903999, expected a day such as \"2026-01-31\" or a time such "
            "as \"2026-01-31T12:00:00Z\"");
}

TEST(AcknowledgementsReader, MayReachSoManyDaysAhead) {
  const std::string expected = ", expected at most 90 days ahead of the report's time";
  EXPECT_EQ(read(line_until("2026-02-19")).size(), 1U);
  EXPECT_EQ(message_about(line_until("2026-02-20")),
            "FILE:1:37: until is \"2026-02-20\"" + expected);
  EXPECT_EQ(read(line_until("2026-02-19T04:30:00Z")).size(), 1U);
  EXPECT_EQ(message_about(line_until("2026-02-19T04:30:01Z")),
            "FILE:1:37: until is \"2026-02-19T04:30:01Z\"" + expected);
}

TEST(AcknowledgementsReader, NoDaysAheadIsToday) {
  EXPECT_EQ(read(line_until("2025-11-21"), 0).size(), 1U);
  EXPECT_EQ(message_about(line_until("2025-11-22"), 0),
            "FILE:1:37: until is \"2025-11-22\", expected at most 0 days ahead of the report's "
            "time");
}

// ---- What is wrong -----------------------------------------------------------------------------

TEST(AcknowledgementsReader, AnUnknownKeyIsAnErrorForItMightBeALimit) {
  EXPECT_EQ(message_about(line_with("}", R"(, "upto": "warning"})")),
            "FILE:1:66: unknown key \"upto\", expected " + std::string(KNOWN_KEYS) +
                "; did you mean \"up_to\"?");
  EXPECT_EQ(read(line_with("}", R"(, "x-ticket": [4711]})")).size(), 1U);
}

TEST(AcknowledgementsReader, RefusesLinesThatLackAKey) {
  EXPECT_EQ(message_about("{}"),
            "FILE:1:1: the key \"id\" is missing, expected it in every acknowledgement");
  EXPECT_EQ(message_about("\n  " + line_with(R"(, "reason": "r")", "")),
            "FILE:2:3: the key \"reason\" is missing, expected it in every acknowledgement");
}

TEST(AcknowledgementsReader, RefusesValuesThatAreNone) {
  EXPECT_EQ(message_about(line_with("\"r\"", "\" \"")),
            "FILE:1:61: reason is \" \", expected a string that is not empty");
  EXPECT_EQ(message_about(line_with("\"r\"", "null")),
            "FILE:1:61: reason is null, expected a string that is not empty");
  EXPECT_EQ(message_about(line_with("\"a\"", "\"\"")),
            "FILE:1:8: id is \"\", expected a string that is not empty");
  EXPECT_EQ(message_about(line_with("}", R"(, "by": ""})")),
            "FILE:1:72: by is \"\", expected a string that is not empty");
  EXPECT_EQ(message_about(line_with("}", R"(, "up_to": "warnin"})")),
            "FILE:1:75: up_to is \"warnin\", expected one of \"informational\", \"warning\", "
            "\"critical\"; did you mean \"warning\"?");
  EXPECT_EQ(message_about(line_with("}", R"(, "up_to": 74})")),
            "FILE:1:75: up_to is 74, expected one of \"informational\", \"warning\", \"critical\"");
  EXPECT_EQ(message_about(line_with("}", R"(, "with_observations": 1})")),
            "FILE:1:87: with_observations is 1, expected true or false");
}

TEST(AcknowledgementsReader, RefusesAKeyThatStandsTwice) {
  EXPECT_EQ(message_about(line_with("}", R"(, "id": "a"})")),
            "FILE:1:66: found the key \"id\" a second time, expected each key once in an object");
  EXPECT_EQ(message_about(line_with("}", R"(, "x-a": 1, "x-a": 1})")),
            "FILE:1:76: found the key \"x-a\" a second time, expected each key once in an object");
}

TEST(AcknowledgementsReader, RefusesWhatIsNoObjectOfJson) {
  EXPECT_EQ(message_about("[]"),
            "FILE:1:1: the line is an array, expected an object with the keys of an "
            "acknowledgement");
  EXPECT_EQ(message_about(line_with("}", "}}")).substr(0, 10), "FILE:1:65:");
  EXPECT_EQ(message_about(line_with("}", R"(, "x-a": 01})")).substr(0, 10), "FILE:1:73:");
  EXPECT_EQ(message_about(line_with("\"r\"", "\"\xE9\"")).substr(0, 10), "FILE:1:62:");
}

TEST(AcknowledgementsReader, AFileThatCannotBeReadIsAnErrorInAnyCase) {
  for (const FaultyLines faulty : {FaultyLines::REFUSED, FaultyLines::LEFT_OUT}) {
    EXPECT_THROW(read_acknowledgements("/gone", {.now = NOW}, faulty), InputError);
  }
}

TEST(AcknowledgementsReader, MayLeaveFaultyLinesOutAndTellTheFirstOfThem) {
  std::string text = line_until("2026-01-31") + "\n";
  for (int line = 2; line <= 13; ++line) {
    text += "{}\n";
  }
  const TestFile file(text + line_until("2026-01-30"));
  const AcknowledgementsFile read =
      read_acknowledgements(file.path(), {.now = NOW}, FaultyLines::LEFT_OUT);
  EXPECT_EQ(read.entries.size(), 2U);
  ASSERT_EQ(read.faults.size(), 11U);
  EXPECT_EQ(file.without_path(read.faults[0]),
            "FILE:2:1: the key \"id\" is missing, expected it in every acknowledgement");
  EXPECT_EQ(file.without_path(read.faults[10]), "FILE: 2 more lines cannot be used");
}

}  // namespace
