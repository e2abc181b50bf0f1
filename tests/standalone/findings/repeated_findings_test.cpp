// A reader recognises lines that repeat earlier ones. What it tells must be what a reader tells
// that sees the line for the first time.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "standalone/findings/findings_reader.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::Finding;
using vond::standalone::FindingsReader;
using vond::standalone::FindingsSink;
using vond::standalone::InputError;
using vond::test::TestFile;
using Texts = std::vector<std::string>;

std::string text_of(const Finding& finding) {
  const auto& [type, id, severity, texts, definitions, based_on] = finding.wording;
  const auto& [message, remedy, category] = texts;
  std::string text = std::to_string(type) + "|" + std::to_string(severity);
  for (const auto part : {id, category, message, remedy}) {
    text.append("|").append(part);
  }
  for (const auto* parts : {&finding.nodes, &definitions, &based_on}) {
    text += "|";
    for (const auto part : *parts) {
      text.append(part).append(";");
    }
  }
  for (const int row_id : finding.row_ids) {
    text.append("|").append(std::to_string(row_id));
  }
  return text;
}

class Recorder : public FindingsSink {
 public:
  void finding(const Finding& finding) override {
    texts.push_back(text_of(finding));
    wordings.push_back(finding.wording_number);
    patterns.push_back(finding.pattern_number);
  }
  void examined(const std::vector<std::string_view>& nodes) override {
    texts.push_back("examined " + std::to_string(nodes.size()));
  }

  Texts texts;
  std::vector<std::uint64_t> wordings;
  std::vector<std::uint64_t> patterns;
};

/// What a reader makes of lines: findings, then errors, then warnings.
struct Reading {
  Texts findings;
  Texts errors;
  Texts warnings;
  std::vector<std::uint64_t> wordings;
  std::vector<std::uint64_t> patterns;

  /// Whether a line was not parsed.
  bool is_recognised(std::size_t line) const {
    return wordings[line] != Finding::UNKNOWN_WORDING || patterns[line] != Finding::UNKNOWN_PATTERN;
  }

  /// How many lines were not parsed.
  std::size_t recognised() const {
    std::size_t count = 0;
    for (std::size_t line = 0; line < wordings.size(); ++line) {
      count += is_recognised(line) ? 1 : 0;
    }
    return count;
  }
};

Reading read(const std::string& content) {
  const TestFile file(content);
  Recorder recorder;
  FindingsReader reader(recorder);
  reader.read(file.path());
  Reading reading{recorder.texts, {}, {}, recorder.wordings, recorder.patterns};
  for (const InputError& error : reader.rejected().errors) {
    reading.errors.push_back(file.without_path(error.what()));
  }
  for (const std::string& warning : reader.warnings()) {
    reading.warnings.push_back(file.without_path(warning));
  }
  return reading;
}

std::string joined(const Texts& lines) {
  std::string content;
  for (const std::string& line : lines) {
    content += line + "\n";
  }
  return content;
}

/// Reads every line with a reader of its own, which has seen nothing that it could repeat.
Reading read_one_by_one(const Texts& lines) {
  Reading all;
  std::string lines_before;
  for (const std::string& line : lines) {
    const Reading reading = read(lines_before + line + "\n");
    all.findings.insert(all.findings.end(), reading.findings.begin(), reading.findings.end());
    all.errors.insert(all.errors.end(), reading.errors.begin(), reading.errors.end());
    lines_before += "\n";
  }
  return all;
}

/// A line with `%` for the node and `#` for the row id.
std::string filled(std::string line, const std::string& node, const std::string& row_id) {
  if (const auto at = line.find('%'); at != std::string::npos) {
    line.replace(at, 1, node);
  }
  if (const auto at = line.find('#'); at != std::string::npos) {
    line.replace(at, 1, row_id);
  }
  return line;
}

const std::string USUAL =
    R"({"id": "disk-full", "severity": 90, "category": "storage", "message": "Full", )"
    R"("nodes": ["%"], "row_ids": [#], "definitions": ["storage/disk"]})";

/// Three lines of one form are enough to have learned it.
Texts three_of(const std::string& form) {
  return {filled(form, "n1", "1"), filled(form, "n2", "22"), filled(form, "n3", "0")};
}

TEST(RepeatedFindings, AreRecognisedFromTheThirdOn) {
  Texts lines = three_of(USUAL);
  lines.push_back(filled(USUAL, "another-name:4", "123456789"));
  const Reading reading = read(joined(lines));
  EXPECT_EQ(reading.recognised(), 2U);
  EXPECT_EQ(reading.findings, read_one_by_one(lines).findings);
  EXPECT_EQ(reading.findings[3],
            "1|90|disk-full|storage|Full||another-name:4;|storage/disk;||123456789");
}

TEST(RepeatedFindings, MayHaveAnyForm) {
  const Texts forms = {
      R"({"id":"no-row-ids","severity":"warning","message":"a","nodes":"%","remedy":"b"})",
      R"({"id":"row-ids-first","severity":1,"message":"abc","row_ids":[#],"nodes":["%"]})",
      R"({"id":"node-in-the-middle","severity":1,"nodes" : [ "%" ],"row_ids" :[ # ],"message":""})",
      R"({"id":"escapes","severity":1,"message":"a\n\"b\" \u00e4 \u001b","nodes":["%"]})",
      R"({"id":"letters","severity":1,"message":"größer","nodes":["%"],"remedy":"ß"})",
      R"({"id":"notes","severity":1,"x-nodes":["n9"],"x":"","nodes":["%"],"x-row_ids":[9]})",
      R"({"id":"diagnosis","type":"diagnosis","severity":1,"based_on":["a","b"],"nodes":["%"]})",
      R"({"id":"the-same-word-n1","severity":1,"message":"n1","remedy":"1","nodes":["%"]})",
      "  {\"id\":\"white-space\",\"severity\":1,\t\"message\":\"a\",\"nodes\":[\"%\"]} \r",
  };
  for (const std::string& form : forms) {
    const Texts lines = three_of(form);
    const Reading reading = read(joined(lines));
    EXPECT_EQ(reading.findings, read_one_by_one(lines).findings) << form;
    EXPECT_EQ(reading.recognised(), form.find("\"x\"") == std::string::npos ? 1U : 0U) << form;
  }
}

TEST(RepeatedFindings, AreRecognisedWhereTheirNodeComesFirst) {
  const std::string rest = R"("severity":1,"message":"The same of every node."})";
  const Texts forms = {
      R"({"nodes":["%"],"id":"fan",)" + rest,
      R"({"nodes": "%", "id":"fan",)" + rest,
      R"({ "nodes" : [ "%" ] , "row_ids":[1],"id":"fan",)" + rest,
      R"({"id":"fan","nodes":["%"],)" + rest,
      R"({"x-nodes":"%","nodes":["%"],"id":"fan",)" + rest,
  };
  for (const std::string& form : forms) {
    Texts lines;
    for (const char* node : {"n1", "cn0002", "n3.example", "n4"}) {
      lines.push_back(filled(form, node, ""));
    }
    const Reading reading = read(joined(lines));
    EXPECT_EQ(reading.findings, read_one_by_one(lines).findings) << form;
    EXPECT_EQ(reading.recognised(), form.find('x') == std::string::npos ? 2U : 0U) << form;
  }
}

TEST(RepeatedFindings, AreToldApartBehindTheirNode) {
  Texts lines;
  for (const char* node : {"n1", "n22", "n333"}) {
    for (const char* id : {"fan", "psu", "dimm"}) {
      lines.push_back(std::string(R"({"nodes":[")") + node + R"("],"id":")" + id +
                      R"(","severity":1,"message":"The same of every check."})");
      lines.push_back(std::string(R"({"id":")") + id + R"(","nodes":[")" + node +
                      R"("],"severity":2,"message":"The same of every check."})");
    }
  }
  const Reading reading = read(joined(lines));
  EXPECT_EQ(reading.findings, read_one_by_one(lines).findings);
  // Twice each but for the first of all, which was read when nobody looked for nodes.
  EXPECT_EQ(reading.recognised(), 6U);
}

TEST(RepeatedFindings, MayEndRightBehindTheirNode) {
  const Texts lines = {
      R"({"id":"a-check-with-a-name","severity":1,"nodes":"n1)",
      R"({"id":"a-check-with-a-name","severity":1,"nodes":)",
      R"({"id":"a-check-with-a-name","severity":1,"nodes")",
      R"({"nodes":["n1"],"id":"a","severity":1,"message":"The same of every check."})",
      R"({"nodes":["n1"],"id":"a","severity":1})",
      R"({"nodes":["n1"],"id":"a","severity":1,"message":"The same of every check."})",
      R"({"nodes":[],"id":"a","severity":1,"message":"The same of every check, mostly."})",
      R"({"id":"a-check-with-a-name","severity":1,"nodes":"n1)",
      R"({"id":"a-check-with-a-name","severity":1,"nodes":"n1"})",
  };
  const Reading reading = read(joined(lines));
  EXPECT_EQ(reading.findings, read_one_by_one(lines).findings);
  EXPECT_EQ(reading.errors, read_one_by_one(lines).errors);
}

TEST(RepeatedFindings, AreOnlyThoseThatDifferInOneNodeAndOneRowId) {
  const Texts others = {
      R"({"id":"two-nodes","severity":1,"message":"aaaaaaaaaaaaaa","nodes":["%","n9"]})",
      R"({"id":"two-row-ids","severity":1,"message":"aaaa","nodes":["%"],"row_ids":[#,7]})",
      R"({"id":"two-row-ids","severity":1,"message":"aaaa","nodes":["%"],"row_ids":[7,#]})",
      R"({"id":"a-set","severity":1,"message":"aaaaaaaaaaaaaaaaaa","nodes":["x[1-2]%"]})",
      R"({"id":"an-escape","severity":1,"message":"aaaaaaaaaaaaaaaaaa","nodes":["\u0041%"]})",
      R"({"id":"no-nodes","severity":1,"message":"aaaaaaaaaaaaaaaaaaaaaaaaaaaaa","nodes":[]})",
      R"({"id":"short","severity":1,"nodes":["%"]})",
      R"({"examined":["%","aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"]})",
  };
  for (const std::string& form : others) {
    const Texts lines = three_of(form);
    const Reading reading = read(joined(lines));
    EXPECT_EQ(reading.findings, read_one_by_one(lines).findings) << form;
    EXPECT_EQ(reading.recognised(), 0U) << form;
  }
}

TEST(RepeatedFindings, AreParsedWhenTheirNodeOrRowIdIsNotPlain) {
  const std::vector<std::pair<std::string, std::string>> values = {
      {"n[1-3]", "1"},
      {"n[", "1"},
      {"n]", "1"},
      {"a,b", "1"},
      {"\\u0041", "1"},
      {"", "1"},
      {"gr\xC3\xBCn", "1"},
      {"a b", "1"},
      {" a", "1"},
      {"a ", "1"},
      {" ", "1"},
      {"\xFF", "1"},
      {"a\tb", "1"},
      {"a\x7F", "1"},
      {"\\", "1"},
      {"a\"", "1"},
      {"a\", \"b", "1"},
      {"n1", "-5"},
      {"n1", "-0"},
      {"n1", "007"},
      {"n1", "00"},
      {"n1", "1.5"},
      {"n1", "1e2"},
      {"n1", "+1"},
      {"n1", ""},
      {"n1", " 8 "},
      {"n1", "2147483647"},
      {"n1", "2147483648"},
      {"n1", "99999999999999999999"},
      {"n1", "1, 2"},
      {"n1", "null"},
      {"n1", "\"1\""},
      {"n1", "1] "},
  };
  for (const auto& [node, row_id] : values) {
    Texts lines = three_of(USUAL);
    lines.push_back(filled(USUAL, node, row_id));
    lines.push_back(filled(USUAL, "n5", "5"));
    const Reading reading = read(joined(lines));
    const Reading expected = read_one_by_one(lines);
    EXPECT_EQ(reading.findings, expected.findings) << node << " " << row_id;
    EXPECT_EQ(reading.errors, expected.errors) << node << " " << row_id;
    if (expected.errors.empty()) {
      EXPECT_FALSE(reading.is_recognised(3)) << node << " " << row_id;
    }
  }
}

TEST(RepeatedFindings, AreParsedWhenAnythingElseDiffers) {
  const std::string line = filled(USUAL, "n4", "4");
  for (std::size_t at = 0; at < line.size(); ++at) {
    for (const char other : {'"', '}', ' ', '7', 'x', '\\', '\x01'}) {
      Texts lines = three_of(USUAL);
      lines.push_back(line);
      lines.back()[at] = other;
      const Reading reading = read(joined(lines));
      const Reading expected = read_one_by_one(lines);
      EXPECT_EQ(reading.findings, expected.findings) << lines.back();
      EXPECT_EQ(reading.errors, expected.errors) << lines.back();
    }
  }
}

TEST(RepeatedFindings, MayBeCutOrGoOn) {
  const std::string line = filled(USUAL, "n4", "4");
  for (std::size_t size = 0; size < line.size(); ++size) {
    Texts lines = three_of(USUAL);
    lines.push_back(line.substr(0, size));
    lines.push_back(line + line.substr(0, size));
    const Reading reading = read(joined(lines));
    const Reading expected = read_one_by_one(lines);
    EXPECT_EQ(reading.findings, expected.findings) << size;
    EXPECT_EQ(reading.errors, expected.errors) << size;
  }
}

TEST(RepeatedFindings, WithUnknownKeysAreCountedEveryTime) {
  const std::string form =
      R"({"id":"a-check-of-some-kind","severity":1,"mesage":"a","nodes":["%"]})";
  const Reading reading = read(joined(three_of(form)));
  EXPECT_EQ(reading.warnings,
            Texts{"FILE:1:43: unknown key \"mesage\" is ignored (3 times); did you mean "
                  "\"message\"?"});
}

TEST(RepeatedFindings, GiveWayToNewOnes) {
  Texts lines;
  for (int number = 0; number < 20000; ++number) {
    // The same beginning and another wording every third time.
    const std::string form =
        R"({"id": "a-check-with-a-rather-long-name-of-its-own", "severity": 3, "message": "text )" +
        std::to_string(number / 3) + R"(", "nodes": ["%"], "row_ids": [#]})";
    lines.push_back(filled(form, "n" + std::to_string(number), std::to_string(number)));
  }
  const Reading reading = read(joined(lines));
  ASSERT_EQ(reading.findings.size(), lines.size());
  for (std::size_t number = 0; number < lines.size(); ++number) {
    ASSERT_EQ(reading.findings[number],
              "1|3|a-check-with-a-rather-long-name-of-its-own||text " + std::to_string(number / 3) +
                  "||n" + std::to_string(number) + ";|||" + std::to_string(number));
  }
  EXPECT_GT(reading.recognised(), lines.size() / 4);
}

TEST(RepeatedFindings, OfOneWordingHaveOneNumber) {
  const std::string other = R"({"id": "disk-slow")" + USUAL.substr(18);
  Texts lines;
  for (const char* node : {"a", "b", "c", "d"}) {
    lines.push_back(filled(USUAL, node, "1"));
    lines.push_back(filled(other, node, "1"));
  }
  const std::vector<std::uint64_t> wordings = read(joined(lines)).wordings;
  ASSERT_EQ(wordings.size(), 8U);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(wordings[i], Finding::UNKNOWN_WORDING);
  }
  EXPECT_NE(wordings[4], Finding::UNKNOWN_WORDING);
  EXPECT_NE(wordings[5], Finding::UNKNOWN_WORDING);
  EXPECT_NE(wordings[4], wordings[5]);
  EXPECT_EQ(wordings[6], wordings[4]);
  EXPECT_EQ(wordings[7], wordings[5]);
}

}  // namespace
