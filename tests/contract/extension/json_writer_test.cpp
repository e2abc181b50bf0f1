#include "vond/extension/json_writer.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/captured_output_log.h"

namespace {

using vond::extension::JsonWriter;
using vond::extension::StatementWriter;
using vond::test::CapturedOutputLog;

std::string written(const std::function<void(JsonWriter&)>& write) {
  const CapturedOutputLog log;
  StatementWriter output;
  JsonWriter json(output);
  write(json);
  output.finish();
  return log.text();
}

TEST(JsonWriter, WritesEveryKindOfValue) {
  EXPECT_EQ(written([](JsonWriter& json) {
              json.begin_object();
              json.key("text").value("a\"b");
              json.key("string").value(std::string("c"));
              json.key("number").value(-5);
              json.key("size").value(std::size_t{18446744073709551615ULL});
              json.key("true").value(true);
              json.key("null").null();
              json.key("nothing").value(std::optional<int>());
              json.key("something").value(std::optional<int>(3));
              json.end_object();
            }),
            R"({"text": "a\"b", "string": "c", "number": -5, "size": 18446744073709551615, )"
            R"("true": true, "null": null, "nothing": null, "something": 3})");
}

TEST(JsonWriter, PutsCommasBetweenItemsAlone) {
  EXPECT_EQ(written([](JsonWriter& json) {
              json.begin_array();
              json.array(std::vector<int>{});
              json.array(std::vector<int>{1});
              json.array(std::vector<std::string>{"a", "b"});
              json.begin_object();
              json.end_object();
              json.end_array();
            }),
            R"([[], [1], ["a", "b"], {}])");
}

TEST(JsonWriter, BreaksLinesBeforeItemsAndEndsButNotInEmptyLists) {
  EXPECT_EQ(written([](JsonWriter& json) {
              json.begin_array();
              json.break_line();
              json.value(1);
              json.break_line();
              json.value(2);
              json.break_line();
              json.end_array();
            }),
            "[\n1,\n2\n]");
  EXPECT_EQ(written([](JsonWriter& json) {
              json.begin_array();
              json.break_line();
              json.end_array();
            }),
            "[]");
}

TEST(JsonWriter, KeepsNoMoreThanAStatementInMemory) {
  const CapturedOutputLog log;
  StatementWriter output;
  JsonWriter json(output);
  json.begin_array();
  const std::string item(1000, 'x');
  std::size_t items = 0;
  while (log.text().empty()) {
    json.value(item);
    ASSERT_LT(++items, 100U);
  }
  EXPECT_EQ(log.text().front(), '[');
}

TEST(JsonWriter, InAPageThereAreNoBlanksAndNothingThatEndsAnElement) {
  const CapturedOutputLog log;
  StatementWriter output;
  JsonWriter json(output, JsonWriter::Place::PAGE);
  json.begin_object();
  json.key("<a").begin_array();
  json.value("</script><!--");
  json.value(1);
  json.end_array();
  json.key("b").value("<");
  json.end_object();
  output.finish();
  EXPECT_EQ(log.text(), R"({"\u003ca":["\u003c/script>\u003c!--",1],"b":"\u003c"})");
}

TEST(StatementWriter, WritesNothingForNothing) {
  const CapturedOutputLog log;
  StatementWriter output;
  output << "";
  output.finish();
  EXPECT_EQ(log.text(), "");
}

TEST(StatementWriter, WhatIsNotFinishedIsNotWritten) {
  const CapturedOutputLog log;
  {
    StatementWriter output;
    output << "half of a text";
  }
  EXPECT_EQ(log.text(), "");
}

}  // namespace
