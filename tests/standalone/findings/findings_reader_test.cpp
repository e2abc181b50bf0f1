#include "standalone/findings/findings_reader.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "standalone/json/json_fault.h"
#include "standalone/text/harmless_text.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::Finding;
using vond::standalone::FindingsReader;
using vond::standalone::FindingsSink;
using vond::standalone::InputError;
using vond::standalone::ReadingOptions;
using vond::test::TestFile;
using Texts = std::vector<std::string>;

std::string joined(const std::vector<std::string_view>& texts) {
  std::string all;
  for (const std::string_view text : texts) {
    all.append(all.empty() ? "" : ",").append(text);
  }
  return all;
}

/// Keeps each finding as one line of text: its fields with `|` between them.
class Recorder : public FindingsSink {
 public:
  void finding(const Finding& finding) override {
    std::string row_ids;
    for (const int row_id : finding.row_ids) {
      row_ids += (row_ids.empty() ? "" : ",") + std::to_string(row_id);
    }
    const auto& [type, id, severity, texts, definitions, based_on] = finding.wording;
    const auto& [message, remedy, category] = texts;
    findings.push_back(
        std::to_string(type) + "|" + std::string(id) + "|" + std::to_string(severity) + "|" +
        std::string(category) + "|" + std::string(message) + "|" + std::string(remedy) + "|" +
        joined(finding.nodes) + "|" + row_ids + "|" + joined(definitions) + "|" + joined(based_on));
  }
  void examined(const std::vector<std::string_view>& nodes) override {
    findings.push_back("examined " + joined(nodes));
  }

  Texts findings;
};

struct Reading {
  Texts findings;
  Texts warnings;
  /// What was thrown, "" when nothing was.
  std::string error;
  std::size_t rejected = 0;
  Texts errors;
};

Reading read(std::string_view content, ReadingOptions options = {.is_strict = true}) {
  const TestFile file(content);
  Recorder recorder;
  FindingsReader reader(recorder, options);
  Reading reading;
  try {
    reader.read(file.path());
  } catch (const InputError& error) {
    reading.error = file.without_path(error.what());
  }
  reading.findings = recorder.findings;
  for (const std::string& warning : reader.warnings()) {
    reading.warnings.push_back(file.without_path(warning));
  }
  reading.rejected = reader.rejected().count;
  for (const InputError& error : reader.rejected().errors) {
    reading.errors.push_back(file.without_path(error.what()));
  }
  return reading;
}

std::string error_of(std::string_view content) { return read(content).error; }

constexpr const char* SEVERITY_EXPECTATION =
    "expected a whole number from 0 to 100 or one of \"informational\", \"warning\", \"critical\"";

const std::string FULL_LINE =
    R"({"id": "link#2", "severity": 80, "type": "diagnosis", "category": "net", )"
    R"("message": "a\nb \u00e4", "remedy": "c", "nodes": ["n1", "n2"], "row_ids": [3, -4], )"
    R"("definitions": ["net/link", "net"], "based_on": ["x", "y"], )"
    R"("x-note": {"a": [1.5, -2e3, true, false, null, {}], "b": "\\"}})";
const std::string FULL_FINDING = "0|link#2|80|net|a b \xC3\xA4|c|n1,n2|3,-4|net/link,net|x,y";

/// All ASCII and without escapes, which the reader takes a short cut for.
const std::string PLAIN_LINE =
    R"({"id":"link","severity":"warning","message":"a","nodes":["n1"],"row_ids":[3],)"
    R"("x-note":[{"a":1.5},true]})";

struct Case {
  std::string input;
  std::string error;
};

// --- What is read ---

TEST(FindingsReader, ReadsEveryKey) {
  const Reading reading = read(FULL_LINE);
  EXPECT_EQ(reading.error, "");
  EXPECT_EQ(reading.findings, Texts{FULL_FINDING});
  EXPECT_EQ(reading.warnings, Texts{});
}

TEST(FindingsReader, HasDefaultsThatTheLineBeforeDoesNotChange) {
  const Reading reading = read(FULL_LINE + "\n{\"severity\":0,\"id\":\"a\"}\n");
  EXPECT_EQ(reading.findings, (Texts{FULL_FINDING, "1|a|0|||||||"}));
}

TEST(FindingsReader, ReadsEveryTypeAndSeverity) {
  EXPECT_EQ(read(R"({"id":"a","severity":100,"type":"observation"})").findings,
            Texts{"1|a|100|||||||"});
  EXPECT_EQ(read(R"({"id":"a","severity":"warning","type":"missing_data"})").findings,
            Texts{"2|a|74|||||||"});
  EXPECT_EQ(read(R"({"id":"a","severity":"informational"})").findings, Texts{"1|a|24|||||||"});
  EXPECT_EQ(read(R"({"id":"a","severity":"critic\u0061l"})").findings, Texts{"1|a|100|||||||"});
}

TEST(FindingsReader, KnowsKeysThatAreWrittenWithEscapes) {
  EXPECT_EQ(read(R"({"\u0069d":"a","severit\u0079":5})").findings, Texts{"1|a|5|||||||"});
}

TEST(FindingsReader, TakesANameOrAnArrayOfNamesForNodes) {
  EXPECT_EQ(read(R"({"id":"a","severity":1,"nodes":"n1"})").findings, Texts{"1|a|1||||n1|||"});
  EXPECT_EQ(read(R"({"id":"a","severity":1,"nodes":[]})").findings, Texts{"1|a|1|||||||"});
}

TEST(FindingsReader, ExpandsNodeSets) {
  EXPECT_EQ(read(R"({"id":"a","severity":1,"nodes":"n[1-3,07],x"})").findings,
            Texts{"1|a|1||||n1,n2,n3,n07,x|||"});
  EXPECT_EQ(read(R"({"id":"a","severity":1,"nodes":["m","a[1-2]b[1-2]","z"]})").findings,
            Texts{"1|a|1||||m,a1b1,a1b2,a2b1,a2b2,z|||"});
}

TEST(FindingsReader, ReadsTheLimitsOfRowIds) {
  EXPECT_EQ(read(R"({"id":"a","severity":1,"row_ids":[-2147483648,2147483647,-0]})").findings,
            Texts{"1|a|1|||||-2147483648,2147483647,0||"});
}

TEST(FindingsReader, ReadsLinesOfExaminedNodes) {
  const Reading reading = read(
      "{\"examined\":\"n[1-2]\"}\n{\"id\":\"a\",\"severity\":1}\n"
      "{\"examined\":[\"a\",\"b\"],\"x-by\":\"me\"}\n{\"examined\":[]}\n");
  EXPECT_EQ(reading.error, "");
  EXPECT_EQ(reading.findings,
            (Texts{"examined n1,n2", "1|a|1|||||||", "examined a,b", "examined "}));
}

TEST(FindingsReader, AcceptsByteOrderMarkCrlfBlankLinesAndAMissingLineEnd) {
  const std::string line = R"({"id":"a","severity":1})";
  const Reading reading =
      read("\xEF\xBB\xBF" + line + "\r\n\r\n \t\r\n\n " + line + "\t\r\n" + line);
  EXPECT_EQ(reading.error, "");
  EXPECT_EQ(reading.findings.size(), 3U);
}

TEST(FindingsReader, KnowsNothingOfOtherReaders) {
  // What one reader has learned, counted and rejected stays its own, even when it is gone.
  const TestFile file(FULL_LINE + "\n{\"id\":\"a\",\"severity\":1,\"other\":2}\n{\n");
  Recorder first_findings;
  Recorder second_findings;
  FindingsReader second(second_findings, {});
  {
    FindingsReader first(first_findings, {});
    first.read(file.path());
    second.read(file.path());
    first.read(file.path());
    EXPECT_EQ(first.rejected().count, 2U);
    EXPECT_NE(first.warnings()[0].find("(2 times)"), std::string::npos);
  }
  EXPECT_EQ(second.rejected().count, 1U);
  EXPECT_EQ(file.without_path(second.warnings()[0]),
            "FILE:2:24: unknown key \"other\" is ignored (once)");
  EXPECT_EQ(second_findings.findings, (Texts{FULL_FINDING, "1|a|1|||||||"}));
  EXPECT_EQ(first_findings.findings.size(), 4U);
}

TEST(FindingsReader, ReadsAFileWithoutFindings) {
  EXPECT_EQ(read("").findings, Texts{});
  EXPECT_EQ(read("\n\n").error, "");
}

TEST(FindingsReader, ReadsFilesOneAfterTheOther) {
  const TestFile first("\n{\"id\":\"a\",\"severity\":1,\"k\":1}");
  const TestFile second("{\"id\":\"b\",\"severity\":2,\"k\":1}\n{");
  Recorder recorder;
  FindingsReader reader(recorder, {.is_strict = true});
  reader.read(first.path());
  EXPECT_THROW(
      {
        try {
          reader.read(second.path());
        } catch (const InputError& error) {
          EXPECT_EQ(second.without_path(error.what()),
                    "FILE:2:2: found the end of the line, expected a key in double quotes or "
                    "\"}\"");
          throw;
        }
      },
      InputError);
  EXPECT_EQ(recorder.findings, (Texts{"1|a|1|||||||", "1|b|2|||||||"}));
  EXPECT_EQ(reader.warnings().size(), 1U);
  EXPECT_EQ(first.without_path(reader.warnings().front()),
            "FILE:2:24: unknown key \"k\" is ignored (2 times)");
  EXPECT_EQ(reader.bytes_read(), 30U + 31U);
}

// --- What is refused ---

TEST(FindingsReader, TellsWhereTheLineIsNoJson) {
  const Case cases[] = {
      {"{\"id\":\"a\",\"severity\":1",
       "FILE:1:23: found the end of the line, expected \",\" or \"}\""},
      {"\n{\"id\":\"a\" \"severity\":1}", "FILE:2:11: found a string, expected \",\" or \"}\""},
      {"{\"id\":\"a\":2,\"severity\":1}", "FILE:1:10: found \":\", expected \",\" or \"}\""},
      {"{\"severity\":1,\"id\":\"a\":2}", "FILE:1:23: found \":\", expected \",\" or \"}\""},
      {"{\"id\":\"a\",\"severity\":1}}",
       "FILE:1:24: found \"}\" after the value, expected the end of the line"},
      {"{\"id\":\"a\",\"severity\":1} {\"id\":\"b\",\"severity\":1}",
       "FILE:1:25: found \"{\" after the value, expected the end of the line"},
      {"{\"id\":\"a\",\"severity\":01}",
       "FILE:1:22: found \"01\", expected a number such as 7, -1, 0.5 or 1e6"},
      {"{\"id\":\"a\",\"severity\":high}", "FILE:1:22: found \"high\", expected a JSON value"},
      {"{id:\"a\"}", "FILE:1:2: found \"id\", expected a key in double quotes or \"}\""},
      {"{\"id\":\"a}",
       "FILE:1:7: found a string without end, expected a closing quote before the "
       "end of the line"},
      {"{\"id\":\"a\",\"severity\":1,\"row_ids\":[1,]}",
       "FILE:1:37: found \"]\", expected a JSON value"},
      {"{\"id\":\"a\",\"severity\":1,}", "FILE:1:24: found \"}\", expected a key in double quotes"},
      {"{\"id\":\"\\x\",\"severity\":1}",
       "FILE:1:8: found \\x in a string, expected a backslash "
       "before one of \" \\ / b f n r t u"},
      {"{\"id\":\"a\tb\",\"severity\":1}",
       "FILE:1:9: found the control character \\x09 in a "
       "string, expected it written as \\u0009"},
      {"{\"severity\":1,\"x-y\":[1,{\"a\":tru}]}",
       "FILE:1:29: found \"tru\", expected a JSON value; did you mean \"true\"?"},
      {"{\"severity\":1,\"x-y\":\"a\":1}", "FILE:1:24: found \":\", expected \",\" or \"}\""},
      {"{\"x-y\":\"\\ud800\"}",
       "FILE:1:9: found the lone surrogate \\ud800, expected a pair such "
       "as \\ud83d\\ude00"},
      {"{\"\\udc00\":1}",
       "FILE:1:3: found the lone surrogate \\udc00, expected a pair such as "
       "\\ud83d\\ude00"},
      {"{\"id\":\"x\\udc00\"}",
       "FILE:1:9: found the lone surrogate \\udc00, expected a pair such "
       "as \\ud83d\\ude00"},
      {"\xEF\xBB\xBF{]", "FILE:1:5: found \"]\", expected a key in double quotes or \"}\""},
      {"{}\n\xEF\xBB\xBF{}", "FILE:1:1: the key \"id\" is missing, expected it in every finding"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(error_of(each.input), each.error) << each.input;
  }
}

TEST(FindingsReader, TellsWhereTheFileIsNoText) {
  EXPECT_EQ(error_of(std::string("{\"id\":\"a\0\"}", 11)),
            "FILE:1:9: found a NUL byte, expected text in UTF-8");
  EXPECT_EQ(error_of(std::string("\x7f"
                                 "ELF\x02\x01\x01\0\0",
                                 9)),
            "FILE:1:8: found a NUL byte, expected text in UTF-8");
  EXPECT_EQ(error_of("\x1f\x8b\x08"), "FILE:1:1: found \"\\x1f\", expected a JSON value");
  EXPECT_EQ(error_of("just words\n"), "FILE:1:1: found \"just\", expected a JSON value");
}

TEST(FindingsReader, RefusesControlCharactersBehindValuesThatNobodyReads) {
  using namespace std::string_literals;
  EXPECT_EQ(error_of("{\"id\":\"x\",\"severity\":1,\"z\":3\0}"s),
            "FILE:1:29: found a NUL byte, expected text in UTF-8");
  EXPECT_EQ(error_of("{\"id\":\"x\",\"severity\":1,\"x-z\":true\x01}"),
            "FILE:1:34: found \"\\x01\", expected \",\" or \"}\"");
}

TEST(FindingsReader, RefusesEmptyNamesInNodeSets) {
  EXPECT_EQ(error_of(R"({"id":"x","severity":1,"nodes":"'',a"})"),
            "FILE:1:32: nodes is \"'',a\", expected names of nodes that are not empty");
}

TEST(FindingsReader, WantsAnObject) {
  const std::string expected = ", expected an object with the keys of a finding";
  EXPECT_EQ(error_of(" [1]"), "FILE:1:2: the line is an array" + expected);
  EXPECT_EQ(error_of("\"abc\" "), "FILE:1:1: the line is \"abc\"" + expected);
  EXPECT_EQ(error_of("7"), "FILE:1:1: the line is 7" + expected);
  EXPECT_EQ(error_of("null"), "FILE:1:1: the line is null" + expected);
}

TEST(FindingsReader, WantsIdAndSeverity) {
  EXPECT_EQ(error_of("\n {\"severity\":1}"),
            "FILE:2:2: the key \"id\" is missing, expected it in every finding");
  EXPECT_EQ(error_of("{\"id\":\"a\"}"),
            "FILE:1:1: the key \"severity\" is missing, expected it in every finding");
  EXPECT_EQ(error_of("{\"id\":\"a\",\"message\":\"b\",\"Sevrity\":1}"),
            "FILE:1:1: the key \"severity\" is missing, expected it in every finding; did you mean "
            "it by \"Sevrity\"?");
}

TEST(FindingsReader, RefusesASecondKeyOfOneName) {
  EXPECT_EQ(error_of(R"({"id":"a","severity":1,"id":"a"})"),
            "FILE:1:24: found the key \"id\" a second time, expected each key once in an object");
  EXPECT_EQ(error_of(R"({"id":"a","severity":1,"\u0069d":"a"})"),
            "FILE:1:24: found the key \"id\" a second time, expected each key once in an object");
  EXPECT_EQ(error_of(R"({"x-a":1,"x-a":2})"),
            "FILE:1:10: found the key \"x-a\" a second time, expected each key once in an object");
}

TEST(FindingsReader, RefusesOtherKeysBesideExamined) {
  EXPECT_EQ(error_of(R"({"examined":"a","id":"b"})"),
            "FILE:1:17: found the key \"id\" in one object with others, expected a line of its own "
            "for \"examined\"");
  EXPECT_EQ(error_of(R"({"id":"b","examined":"a"})"),
            "FILE:1:11: found the key \"examined\" in one object with others, expected a line of "
            "its own for \"examined\"");
}

TEST(FindingsReader, RefusesSeveritiesOffTheScale) {
  const std::map<std::string, std::string> found = {
      {"101", "101"},     {"-1", "-1"},
      {"75.0", "75.0"},   {"0.5", "0.5"},
      {"1e1", "1e1"},     {"99999999999999999999", "99999999999999999999"},
      {"1e999", "1e999"}, {"\"75\"", "\"75\""},
      {"\"\"", "\"\""},   {"\"high\"", "\"high\""},
  };
  for (const auto& [value, shown] : found) {
    EXPECT_EQ(error_of("{\"id\":\"a\",\"severity\":" + value + "}"),
              "FILE:1:22: severity is " + shown + ", " + SEVERITY_EXPECTATION);
  }
  EXPECT_EQ(error_of(R"({"id":"a","severity": "critcal"})"),
            std::string("FILE:1:23: severity is \"critcal\", ") + SEVERITY_EXPECTATION +
                "; did you mean \"critical\"?");
}

TEST(FindingsReader, RefusesUnknownTypes) {
  const std::string expected = ", expected one of \"diagnosis\", \"observation\", \"missing_data\"";
  EXPECT_EQ(error_of(R"({"type":"diagnose"})"),
            "FILE:1:9: type is \"diagnose\"" + expected + "; did you mean \"diagnosis\"?");
  EXPECT_EQ(error_of(R"({"type":"error"})"), "FILE:1:9: type is \"error\"" + expected);
  EXPECT_EQ(error_of(R"({"type":""})"), "FILE:1:9: type is \"\"" + expected);
}

TEST(FindingsReader, RefusesEmptyNames) {
  const std::string expected = "\"\", expected a string that is not empty";
  EXPECT_EQ(error_of(R"({"id":""})"), "FILE:1:7: id is " + expected);
  EXPECT_EQ(error_of(R"({"definitions":["a", ""]})"), "FILE:1:22: definitions[1] is " + expected);
  EXPECT_EQ(error_of(R"({"based_on":[""]})"), "FILE:1:14: based_on[0] is " + expected);
  EXPECT_EQ(error_of(R"({"nodes":""})"), "FILE:1:10: nodes is \"\", expected the name of a node");
  EXPECT_EQ(error_of(R"({"nodes":["a",""]})"),
            "FILE:1:15: nodes[1] is \"\", expected the name of a node");
  EXPECT_EQ(error_of(R"({"examined":[""]})"),
            "FILE:1:14: examined[0] is \"\", expected the name of a node");
}

TEST(FindingsReader, RefusesRowIdsThatAreNoInt) {
  const std::string expected = ", expected a whole number from -2147483648 to 2147483647";
  for (const char* value : {"2147483648", "-2147483649", "1.0", "1e2", "99999999999999999999",
                            "\"1\"", "null", "true"}) {
    EXPECT_EQ(error_of("{\"row_ids\":[7," + std::string(value) + "]}"),
              "FILE:1:15: row_ids[1] is " + std::string(value) + expected);
  }
}

/// Checks that `value` is refused as the value of `key`, which `name` begins with, because of the
/// part of it that starts at `offset` and that messages show as `found`.
void expect_refused(const std::string& key, const std::string& value, std::size_t offset,
                    const std::string& name, const std::string& found,
                    const std::string& expectation) {
  const std::string line = "{\"" + key + "\":" + value + "}";
  const std::size_t column = key.size() + 5 + offset;
  EXPECT_EQ(error_of(line), "FILE:1:" + std::to_string(column) + ": " + name + " is " + found +
                                ", expected " + expectation)
      << line;
}

TEST(FindingsReader, RefusesEveryWrongTypeOfEveryKey) {
  const std::string string = "a string";
  const std::string strings = "an array of strings";
  const std::string numbers = "an array of whole numbers";
  const std::string nodes = "the name of a node, a set of nodes or an array of those";
  const std::string type = "one of \"diagnosis\", \"observation\", \"missing_data\"";
  const std::string severity = std::string(SEVERITY_EXPECTATION).substr(9);
  const std::map<std::string, std::string> expected = {
      {"id", string},           {"severity", severity}, {"type", type},      {"category", string},
      {"message", string},      {"remedy", string},     {"nodes", nodes},    {"row_ids", numbers},
      {"definitions", strings}, {"based_on", strings},  {"examined", nodes},
  };
  const std::map<std::string, std::string> shown = {
      {"null", "null"}, {"true", "true"},    {"false", "false"},  {"-5", "-5"},
      {"0.5", "0.5"},   {"{}", "an object"}, {"[1]", "an array"}, {"\"text\"", "\"text\""},
  };
  for (const auto& [key, expectation] : expected) {
    const bool takes_arrays = expectation.find("array") != std::string::npos;
    const bool takes_strings = expectation == string || expectation == nodes;
    for (const auto& [value, found] : shown) {
      const bool is_optional = key != "id" && key != "severity";
      const bool is_right = (takes_arrays && value == "[1]") ||
                            (takes_strings && value == "\"text\"") ||
                            (is_optional && value == "null");
      if (!is_right) {
        expect_refused(key, value, 0, key, found, expectation);
      }
    }
  }
}

TEST(FindingsReader, RefusesEveryWrongTypeInArrays) {
  const std::map<std::string, std::string> expected = {
      {"nodes", "the name of a node or a set of nodes"},
      {"examined", "the name of a node or a set of nodes"},
      {"definitions", "a string"},
      {"based_on", "a string"},
  };
  const std::map<std::string, std::string> shown = {
      {"null", "null"}, {"true", "true"}, {"5", "5"}, {"{}", "an object"}, {"[]", "an array"}};
  for (const auto& [key, expectation] : expected) {
    for (const auto& [value, found] : shown) {
      expect_refused(key, "[" + value + "]", 1, key + "[0]", found, expectation);
    }
  }
}

TEST(FindingsReader, TakesNullForAnOptionalKeyAsIfTheKeyWereNotThere) {
  EXPECT_EQ(read(R"({"id":"a","severity":1,"type":null,"category":null,"message":null,)"
                 R"("remedy":null,"nodes":null,"row_ids":null,"definitions":null,)"
                 R"("based_on":null,"examined": null })")
                .findings,
            Texts{"1|a|1|||||||"});
  EXPECT_EQ(
      error_of(R"({"id":"a","severity":1,"nodes":null,"nodes":"n1"})"),
      "FILE:1:37: found the key \"nodes\" a second time, expected each key once in an object");
  EXPECT_EQ(
      error_of(R"({"id":"a","severity":1,"nodes":"n1","nodes":null})"),
      "FILE:1:37: found the key \"nodes\" a second time, expected each key once in an object");
  EXPECT_EQ(error_of(R"({"id":"a","severity":1,"nodes":nul})"),
            "FILE:1:32: found \"nul\", expected a JSON value; did you mean \"null\"?");
  EXPECT_EQ(error_of(R"({"id":"a","severity":1,"nodes":null null})"),
            "FILE:1:37: found \"null\", expected \",\" or \"}\"");
  EXPECT_EQ(error_of(R"({"examined":null})"),
            "FILE:1:1: the key \"id\" is missing, expected it in every finding");
}

TEST(FindingsReader, CutsWhiteSpaceAtTheEndsOfTexts) {
  EXPECT_EQ(read(R"({"id":" a ","severity":"critical ","category":" c","message":"\n m\nn\r\n ",)"
                 R"("remedy":"\tr","nodes":[" n1 "," n 2\n"],"definitions":[" d/e "],)"
                 R"("based_on":["\u00a0b"],"type":" diagnosis"})")
                .findings,
            Texts{"0|a|100|c|m n|r|n1,n 2||d/e|b"});
  EXPECT_EQ(error_of(R"({"id":" ","severity":1})"),
            "FILE:1:7: id is \" \", expected a string that is not empty");
  EXPECT_EQ(error_of(R"({"id":"a","severity":1,"nodes":"\n"})"),
            "FILE:1:32: nodes is \"\\n\", expected the name of a node");
}

TEST(FindingsReader, HasOneBlankForTheLineEndsInsideOfMessageAndRemedyAlone) {
  EXPECT_EQ(
      read(R"({"id":"a\nb","severity":1,"category":"c\nd","message":"m\r\n\nn","remedy":"r\ns"})")
          .findings,
      Texts{"1|a\\x0ab|1|c\\x0ad|m n|r s||||"});
}

TEST(FindingsReader, BlanksInATextOfNodesSeparateNames) {
  const auto nodes = [](const std::string& json) {
    return read(R"({"examined":)" + json + "}").findings;
  };
  EXPECT_EQ(nodes(R"("n1 n2  n[3-4],\tn5\nn6 , n7 ")"), Texts{"examined n1,n2,n3,n4,n5,n6,n7"});
  EXPECT_EQ(nodes(R"("'odd name' n1")"), Texts{"examined odd name,n1"});
  EXPECT_EQ(nodes(R"("'odd name'")"), Texts{"examined odd name"});
  EXPECT_EQ(nodes(R"("' n1 ',n2")"), Texts{"examined n1,n2"});
  EXPECT_EQ(nodes(R"(["odd name"])"), Texts{"examined odd name"});
  EXPECT_EQ(
      error_of(R"({"examined":" n1 !n2"})"),
      "FILE:1:18: examined: found \"!\", expected a name without it, or one in single quotes");
}

TEST(FindingsReader, TakesTheLabelOffALine) {
  EXPECT_EQ(read("n1: {\"id\":\"a\",\"severity\":1}\nn2: {\"id\":\"a\",\"severity\":1}\n"
                 "n[1-2]: {\"examined\":true}\n")
                .findings,
            (Texts{"1|a|1||||n1|||", "1|a|1||||n2|||", "examined n1,n2"}));
  EXPECT_EQ(error_of("n1: {\"id\":\"a\"}"),
            "FILE:1:5: n1: the key \"severity\" is missing, expected it in every finding");
  EXPECT_EQ(error_of("n1: no object"), "FILE:1:1: found \"n1\", expected a JSON value");
}

TEST(FindingsReader, WarnsOnceAFileOfBytesThatAreNotUtf8) {
  const Reading reading = read(
      "{\"id\":\"caf\xE9\",\"severity\":1}\n{\"id\":\"b\",\"severity\":1}\n"
      "{\"id\":\"\xED\xA0\x80\",\"severity\":1,\"zz\":1}\n");
  EXPECT_EQ(reading.findings,
            (Texts{"1|caf\\xe9|1|||||||", "1|b|1|||||||", "1|\\xed\\xa0\\x80|1|||||||"}));
  EXPECT_EQ(
      reading.warnings,
      (Texts{"FILE:3:26: unknown key \"zz\" is ignored (once)",
             "FILE:1:11: found bytes that are not UTF-8, which are shown as \\xe9 (2 lines)"}));
}

TEST(FindingsReader, PlacesFaultsInNodeSets) {
  EXPECT_EQ(error_of(R"({"nodes":"a[1-x]"})"), "FILE:1:15: nodes: found \"x\", expected a number");
  EXPECT_EQ(error_of(R"({"nodes":["b","\u0061[1-x]"]})"),
            "FILE:1:15: nodes[1]: found \"x\", expected a number");
  EXPECT_EQ(error_of(R"({"nodes":["a[1-2000000]"]})").substr(0, 27), "FILE:1:12: nodes[0]: found ");
}

TEST(FindingsReader, LimitsTheNamesOfALine) {
  EXPECT_EQ(error_of(R"({"nodes":["a","b[1-1048576]"]})"),
            "FILE:1:15: nodes[1] is \"b[1-1048576]\", expected no more than 1048576 names in a "
            "line");
  EXPECT_EQ(read(R"({"id":"a","severity":1,"nodes":["b[1-1048576]"]})").error, "");
}

TEST(FindingsReader, LimitsTheDepthOfPaths) {
  const auto line = [](int parts, const std::string& separator) {
    std::string path;
    for (int i = 0; i < parts; ++i) {
      path += separator + "ab";
    }
    return "{\"id\":\"a\",\"severity\":1,\"definitions\":[\"" + path + "/\"]}";
  };
  const ReadingOptions paths{.is_strict = true, .definitions_are_paths = true};
  EXPECT_EQ(read(line(256, "//"), paths).error, "");
  EXPECT_EQ(read(line(257, "/"), paths).error,
            "FILE:1:39: definitions[0] is \"/ab/ab/ab/ab/ab/ab/ab/ab/ab/ab/ab/ab/ab/ab/ab/ab/ab/ab/"
            "ab...\", expected a path of at most 256 parts");
  EXPECT_EQ(read(line(257, "/")).error, "");
}

TEST(FindingsReader, ShowsLongValuesCutAndHarmless) {
  EXPECT_EQ(error_of("{\"severity\":\"" + std::string(80, 'x') + "\"}"),
            "FILE:1:13: severity is \"" + std::string(57, 'x') + "...\", " + SEVERITY_EXPECTATION);
  EXPECT_EQ(error_of("{\"severity\":\"\xE2\x80\xAE\xC2\x9B\"}"),
            std::string("FILE:1:13: severity is \"\\u202e\\x9b\", ") + SEVERITY_EXPECTATION);
}

TEST(FindingsReader, RefusesEveryBeginningOfALine) {
  for (const std::string& line : {FULL_LINE, PLAIN_LINE}) {
    for (std::size_t length = 1; length < line.size(); ++length) {
      const std::string error = error_of(line.substr(0, length));
      ASSERT_EQ(error.substr(0, 7), "FILE:1:") << length;
      const std::size_t column = std::stoul(error.substr(7));
      EXPECT_GE(column, 1U);
      EXPECT_LE(column, length + 1) << error;
    }
  }
}

/// Checks that the reader finds the fault of `line`, if that is no JSON, where a plain check of all
/// of it finds it.
void expect_agreement_on(const std::string& line) {
  const auto fault = vond::standalone::find_json_fault(line, "line");
  const std::string error = error_of(line);
  // Bytes that are not UTF-8 need not be a fault.
  if (fault && fault->message.find("found the byte") == std::string::npos) {
    ASSERT_EQ(error, "FILE:1:" + std::to_string(fault->offset + 1) + ": " + fault->message) << line;
  } else {
    ASSERT_EQ(error.find("cannot be read"), std::string::npos) << line;
  }
}

TEST(FindingsReader, TakesNoLineThatIsNoJson) {
  const std::string bytes = std::string("\"\\{}[]:,019.-+eEtfnu \t'/x\x01\x7f") +
                            std::string(1, '\0') + "\x80\xC3\xED\xFF";
  for (const std::string& line : {FULL_LINE, PLAIN_LINE}) {
    for (std::size_t at = 0; at < line.size(); ++at) {
      for (const char byte : bytes) {
        std::string changed = line;
        changed[at] = byte;
        expect_agreement_on(changed);
        expect_agreement_on(std::string(line).insert(at, 1, byte));
      }
      expect_agreement_on(std::string(line).erase(at, 1));
    }
  }
}

TEST(FindingsReader, TakesNumbersThatNobodyAsksForInAnySize) {
  const Reading reading =
      read(R"({"id":"a","severity":1,"x-big":123456789012345678901234567890,"x-more":[1e999]})");
  EXPECT_EQ(reading.error, "");
  EXPECT_EQ(reading.findings.size(), 1U);
}

TEST(FindingsReader, LimitsTheDepthOfValuesThatNobodyAsksFor) {
  const auto line = [](std::size_t depth) {
    return "{\"id\":\"a\",\"severity\":1,\"x-a\":" + std::string(depth, '[') +
           std::string(depth, ']') + "}";
  };
  EXPECT_EQ(error_of(line(1023)), "");
  EXPECT_EQ(error_of(line(1024)),
            "FILE:1:1053: found arrays and objects within each other, expected at most 1024 levels "
            "of them");
  EXPECT_NE(error_of(line(1'000'000)), "");
}

// --- Unknown keys ---

TEST(FindingsReader, WarnsOncePerUnknownKey) {
  const Reading reading = read(
      "{\"id\":\"a\",\"severity\":1,\"nod\":1,\"host\":\"h\"}\n"
      "{\"nod\":[{}],\"id\":\"a\",\"severity\":1,\"x-nod\":1,\"\":1}\n");
  EXPECT_EQ(reading.error, "");
  EXPECT_EQ(reading.warnings,
            (Texts{"FILE:1:24: unknown key \"nod\" is ignored (2 times); did you mean \"nodes\"?",
                   "FILE:1:32: unknown key \"host\" is ignored (once)",
                   "FILE:2:45: unknown key \"\" is ignored (once)"}));
}

TEST(FindingsReader, DoesNotCountUnknownKeysWithoutEnd) {
  std::string content;
  for (int i = 0; i < 150; ++i) {
    content += "{\"id\":\"a\",\"severity\":1,\"q" + std::to_string(i) + "\":1,\"q0-" +
               std::string(1000, 'x') + "\":1}\n";
  }
  const Reading reading = read(content);
  ASSERT_EQ(reading.warnings.size(), 101U);
  EXPECT_EQ(reading.warnings[1],
            "FILE:1:31: unknown key \"q0-" + std::string(54, 'x') + "...\" is ignored (150 times)");
  EXPECT_EQ(reading.warnings[100], "further unknown keys are ignored (51 times)");
}

// --- Hostile text ---

std::string utf8(unsigned code_point) {
  std::string text;
  if (code_point < 0x80) {
    text += static_cast<char>(code_point);
  } else if (code_point < 0x800) {
    text += static_cast<char>(0xC0 | (code_point >> 6));
    text += static_cast<char>(0x80 | (code_point & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | (code_point >> 12));
    text += static_cast<char>(0x80 | ((code_point >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (code_point & 0x3F));
  }
  return text;
}

std::vector<unsigned> steering_code_points() {
  std::vector<unsigned> code_points;
  for (unsigned code_point = 0; code_point < 0x20; ++code_point) {
    code_points.push_back(code_point);
  }
  for (unsigned code_point = 0x7F; code_point < 0xA0; ++code_point) {
    code_points.push_back(code_point);
  }
  for (const unsigned code_point :
       {0xADU,   0x61CU,  0x200BU, 0x200CU, 0x200DU, 0x200EU, 0x200FU, 0x2028U, 0x2029U, 0x202AU,
        0x202BU, 0x202CU, 0x202DU, 0x202EU, 0x2060U, 0x2066U, 0x2067U, 0x2068U, 0x2069U, 0xFEFFU}) {
    code_points.push_back(code_point);
  }
  return code_points;
}

std::string escaped(unsigned code_point) {
  char text[8];
  std::snprintf(text, sizeof text, "\\u%04x", code_point);
  return text;
}

/// Returns a finding with `text` in every place that takes any text.
std::string line_with(const std::string& text) {
  const std::string value = "\"a" + text + "z\"";
  return "{\"id\":" + value + ",\"severity\":1,\"category\":" + value + ",\"message\":" + value +
         ",\"remedy\":" + value + ",\"nodes\":[" + value + "],\"definitions\":[" + value +
         "],\"based_on\":[" + value + "],\"k" + text + "\":1}\n";
}

TEST(FindingsReader, LetsNoControlCharacterThroughAnyKey) {
  for (const unsigned code_point : steering_code_points()) {
    const std::string character = utf8(code_point);
    std::string content = line_with(escaped(code_point));
    content += "{\"examined\":\"a" + escaped(code_point) + "z\"}\n";
    if (code_point >= 0x7F) {
      content += line_with(character);
    }
    const Reading reading = read(content);
    ASSERT_EQ(reading.error, "") << escaped(code_point);
    for (const std::string& finding : reading.findings) {
      EXPECT_EQ(finding.find(character), std::string::npos) << escaped(code_point);
      EXPECT_TRUE(vond::standalone::is_harmless(finding)) << escaped(code_point);
    }
    for (const std::string& warning : reading.warnings) {
      EXPECT_TRUE(vond::standalone::is_harmless(warning)) << escaped(code_point);
    }
  }
}

TEST(FindingsReader, ShowsControlCharactersInFileNames) {
  Recorder recorder;
  FindingsReader reader(recorder);
  try {
    reader.read("no\x1b[2J\nsuch\t\xFF.jsonl");
    FAIL();
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(),
                 "no\\x1b[2J\\x0asuch \\xff.jsonl: cannot be opened (No such file or directory), "
                 "expected a file of findings");
  }
}

// --- Lines that are left out ---

TEST(FindingsReader, LeavesOutLinesThatCannotBeUsed) {
  const Reading reading = read(
      "{\"id\":\"a\",\"severity\":1}\n{\n{\"id\":\"b\",\"severity\":2,\"zz\":1}\n"
      "{\"id\":\"c\",\"severity\":200,\"yy\":1}\n{\"id\":\"d\",\"severity\":4}\n",
      {});
  EXPECT_EQ(reading.error, "");
  EXPECT_EQ(reading.findings, (Texts{"1|a|1|||||||", "1|b|2|||||||", "1|d|4|||||||"}));
  EXPECT_EQ(reading.rejected, 2U);
  EXPECT_EQ(reading.errors,
            (Texts{"FILE:2:2: found the end of the line, expected a key in double quotes or \"}\"",
                   std::string("FILE:4:22: severity is 200, ") + SEVERITY_EXPECTATION}));
  EXPECT_EQ(reading.warnings, Texts{"FILE:3:24: unknown key \"zz\" is ignored (once)"});
}

TEST(FindingsReader, KeepsTheFirstTenErrors) {
  std::string content;
  for (int i = 0; i < 50; ++i) {
    content += "{\n";
  }
  const Reading reading = read(content, {});
  EXPECT_EQ(reading.rejected, 50U);
  ASSERT_EQ(reading.errors.size(), 10U);
  EXPECT_EQ(reading.errors.back().substr(0, 10), "FILE:10:2:");
}

TEST(FindingsReader, CountsNoLinesWhenStrict) { EXPECT_EQ(read("{\n{\n").rejected, 0U); }

// --- Long lines ---

TEST(FindingsReader, RefusesALineThatIsTooLong) {
  const std::string line = R"({"id":"a","severity":1})";
  const Reading reading = read(line + "\n " + line + "\n" + line, {.longest_line = line.size()});
  EXPECT_EQ(reading.findings.size(), 2U);
  EXPECT_EQ(reading.errors,
            Texts{"FILE:2:1: the line is longer than 23 bytes, expected one finding "
                  "a line"});
}

TEST(FindingsReader, ReadsLinesOf64Mebibytes) {
  const std::string start = R"({"id":"a","severity":1,"message":")";
  const std::string end = "\"}";
  std::string line = start + std::string(vond::standalone::LONGEST_LINE - start.size() - 2, 'x');
  line += end;
  ASSERT_EQ(line.size(), 64U * 1024 * 1024);
  EXPECT_EQ(read(line).findings.size(), 1U);
  line.insert(start.size(), "x");
  EXPECT_EQ(error_of(line),
            "FILE:1:1: the line is longer than 64 MiB, expected one finding a line");
}

// --- Files ---

/// Reads what `path` names and returns what is thrown.
std::string error_of_path(const std::string& path, bool is_strict = true) {
  Recorder recorder;
  FindingsReader reader(recorder, {.is_strict = is_strict});
  try {
    reader.read(path);
  } catch (const InputError& error) {
    return error.what();
  }
  return "";
}

TEST(FindingsReader, RefusesFilesThatAreNotThereStrictOrNot) {
  const std::string message =
      "/no/such.jsonl: cannot be opened (No such file or directory), expected a file of findings";
  EXPECT_EQ(error_of_path("/no/such.jsonl"), message);
  EXPECT_EQ(error_of_path("/no/such.jsonl", false), message);
}

TEST(FindingsReader, RefusesFolders) {
  EXPECT_EQ(error_of_path("/"), "/: is a folder, expected a file of findings");
}

TEST(FindingsReader, RefusesFilesThatMustNotBeRead) {
  const TestFile file("");
  ASSERT_EQ(::chmod(file.path().c_str(), 0), 0);
  // The superuser may read everything, so be somebody else for a moment.
  const bool is_superuser = ::geteuid() == 0;
  ASSERT_TRUE(!is_superuser || ::seteuid(65534) == 0);
  const std::string error = error_of_path(file.path());
  ASSERT_TRUE(!is_superuser || ::seteuid(0) == 0);
  EXPECT_EQ(file.without_path(error),
            "FILE: cannot be opened (Permission denied), expected a file of findings");
}

TEST(FindingsReader, TellsThatReadingFailed) {
  // Nothing is mapped at the start of a process's memory.
  EXPECT_EQ(error_of_path("/proc/self/mem"),
            "/proc/self/mem: cannot be read (Input/output error), expected a file of findings");
}

// --- Pipes ---

/// Writes `content` to a pipe in pieces of `size` bytes while `use` reads from the other end, whose
/// descriptor it is given.
template <typename Use>
void with_pipe(const std::string& content, std::size_t size, const Use& use) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  std::thread writer([&] {
    for (std::size_t at = 0; at < content.size(); at += size) {
      const std::string piece = content.substr(at, size);
      EXPECT_EQ(::write(ends[1], piece.data(), piece.size()), static_cast<ssize_t>(piece.size()));
    }
    ::close(ends[1]);
  });
  use(ends[0]);
  writer.join();
  ::close(ends[0]);
}

TEST(FindingsReader, ReadsTheSameFromAPipeInPiecesOfAnySize) {
  const std::string content = "\xEF\xBB\xBF" + FULL_LINE + "\r\n\r\n" + FULL_LINE + "\n" +
                              R"({"id":"a","severity":"critical","nodes":"n[1-9]"})";
  const Texts expected = read(content).findings;
  ASSERT_EQ(expected.size(), 3U);
  for (std::size_t size = 1; size <= content.size(); size += size < 20 ? 1 : 37) {
    with_pipe(content, size, [&](int descriptor) {
      Recorder recorder;
      FindingsReader(recorder).read("/dev/fd/" + std::to_string(descriptor));
      EXPECT_EQ(recorder.findings, expected) << size;
    });
  }
}

TEST(FindingsReader, ReadsStandardInputForADash) {
  with_pipe("{\"id\":\"a\",\"severity\":1}\n{]", 100, [](int descriptor) {
    const int standard_input = ::dup(STDIN_FILENO);
    ::dup2(descriptor, STDIN_FILENO);
    EXPECT_EQ(error_of_path("-"),
              "<stdin>:2:2: found \"]\", expected a key in double quotes or \"}\"");
    ::dup2(standard_input, STDIN_FILENO);
    ::close(standard_input);
  });
}

}  // namespace
