#include "standalone/json/json_values.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using vond::standalone::BrokenJson;
using vond::standalone::check_unused;
using vond::standalone::describe_source;
using vond::standalone::JsonStrings;
using vond::standalone::LineEnds;
using vond::standalone::open_array;
using vond::standalone::refuse;
using vond::standalone::refuse_duplicate_key;
using vond::standalone::refuse_missing_key;
using vond::standalone::source_of;
using vond::standalone::ValueFault;
using vond::standalone::ValueName;
using Value = simdjson::ondemand::value;

/// Calls `use` with the value of the only key of `{"key": JSON}` and a JsonStrings of that text.
template <typename Use>
void with_value(const std::string& json, const Use& use) {
  const simdjson::padded_string text("{\"key\": " + json + "}");
  simdjson::ondemand::parser parser;
  simdjson::ondemand::document document = parser.iterate(text);
  JsonStrings strings;
  strings.begin(text);
  for (simdjson::ondemand::field field : document.get_object()) {
    Value value = field.value();
    use(value, strings);
  }
}

/// Returns what the string of JSON text `json` says, or how it was refused.
std::string read(const std::string& json, LineEnds line_ends = LineEnds::SHOWN) {
  std::string text;
  with_value(json, [&](Value& value, JsonStrings& strings) {
    try {
      text = strings.read(value, {"key"}, "a string", line_ends);
    } catch (const ValueFault& fault) {
      text = "refused: " + fault.message;
    } catch (const BrokenJson&) {
      text = "broken";
    }
  });
  return text;
}

std::string source(const std::string& json) {
  std::string text;
  with_value(json, [&](Value& value, JsonStrings&) { text = source_of(value); });
  return text;
}

template <typename Refuse>
std::string message_of(const Refuse& refuse_something) {
  try {
    refuse_something();
  } catch (const ValueFault& fault) {
    return fault.message;
  }
  return "not refused";
}

// ---- Sources and messages ----------------------------------------------------------------------

TEST(SourceOf, EndsBeforeTheWhiteSpaceBehindTheValue) {
  EXPECT_EQ(source("12 \t\r\n "), "12");
  EXPECT_EQ(source("\"a b \" "), "\"a b \"");
  EXPECT_EQ(source("null"), "null");
}

TEST(SourceOf, IsTheBracketOfAnArrayOrObject) {
  EXPECT_EQ(source("[1, 2]"), "[");
  EXPECT_EQ(source("{ \"a\": 1 }"), "{");
}

TEST(SourceOf, TakesNoControlCharacterForWhiteSpace) { EXPECT_EQ(source("12\x01 "), "12\x01"); }

TEST(DescribeSource, ShowsValuesShortAndHarmless) {
  EXPECT_EQ(describe_source("["), "an array");
  EXPECT_EQ(describe_source("{"), "an object");
  EXPECT_EQ(describe_source("\"text\""), "\"text\"");
  EXPECT_EQ(describe_source("\"\""), "\"\"");
  EXPECT_EQ(describe_source("null"), "null");
  EXPECT_EQ(describe_source("-1.5"), "-1.5");
  EXPECT_EQ(describe_source("\"\x1b\""), "\"\\x1b\"");
  EXPECT_LT(describe_source("\"" + std::string(1000, 'x') + "\"").size(), 70U);
}

TEST(ValueName, HasAnIndexInAnArray) {
  EXPECT_EQ(ValueName{"nodes"}.text(), "nodes");
  EXPECT_EQ((ValueName{"nodes", 0}.text()), "nodes[0]");
  EXPECT_EQ((ValueName{"nodes", 12}.text()), "nodes[12]");
}

TEST(Refusals, SayWhatWasFoundAndWhatWasExpected) {
  EXPECT_EQ(message_of([] { refuse("5", {"id"}, "a string"); }), "id is 5, expected a string");
  EXPECT_EQ(message_of([] {
              refuse("5", {"id", 2}, "a string", "; did you mean \"6\"?");
            }),
            "id[2] is 5, expected a string; did you mean \"6\"?");
  EXPECT_EQ(message_of([] { refuse_duplicate_key("a\x1b", ""); }),
            "found the key \"a\\x1b\" a second time, expected each key once in an object");
  EXPECT_EQ(message_of([] { refuse_missing_key("id", "", "in every finding", "; hint"); }),
            "the key \"id\" is missing, expected it in every finding; hint");
}

TEST(Refusals, PointAtWhatIsRefused) {
  const std::string_view text = "5";
  try {
    refuse(text, {"id"}, "a string");
  } catch (const ValueFault& fault) {
    EXPECT_EQ(fault.where, text.data());
  }
}

// ---- Strings -----------------------------------------------------------------------------------

TEST(JsonStrings, AreViewsOfTheSourceWhereItHoldsThemAsTheyAre) {
  for (const char* json : {"\"plain\"", "\"gr\xC3\xBC\xC3\x9F\"", "\"\""}) {
    with_value(json, [&](Value& value, JsonStrings& strings) {
      const std::string_view where = source_of(value);
      EXPECT_EQ(strings.read(value, {"key"}, "").data(), where.data() + 1) << json;
    });
  }
}

TEST(JsonStrings, AreUnescaped) {
  EXPECT_EQ(read(R"("a\"\\\/\u0041\ud83d\ude00")"), "a\"\\/A\xF0\x9F\x98\x80");
}

TEST(JsonStrings, AreMadeHarmless) {
  EXPECT_EQ(read(R"("\u001b\n\u001b")"), "\\x1b\\x0a\\x1b");
  EXPECT_EQ(read("\"\xE2\x80\xAE\""), "\\u202e");
  EXPECT_EQ(read("\"\x7F\""), "\\x7f");
}

TEST(JsonStrings, HaveBlanksForLineEndsWhereThatIsAskedFor) {
  EXPECT_EQ(read(R"("a\nb\u001b")", LineEnds::JOINED), "a b\\x1b");
}

TEST(JsonStrings, HaveNoWhiteSpaceAtTheirEnds) {
  EXPECT_EQ(read(R"("  a  b ")"), "a  b");
  EXPECT_EQ(read(R"("\n\t\u00a0a\u2028\r\n")"), "a");
  EXPECT_EQ(read(R"("\nab\n")", LineEnds::JOINED), "ab");
  EXPECT_EQ(read(R"("   ")"), "");
}

TEST(JsonStrings, LiveUntilTheNextTextBegins) {
  std::vector<std::string_view> views;
  const simdjson::padded_string text(std::string_view(R"(["\u001b1","\u001b2","\u001b3"])"));
  simdjson::ondemand::parser parser;
  simdjson::ondemand::document document = parser.iterate(text);
  JsonStrings strings;
  strings.begin(text);
  for (Value value : document.get_array()) {
    views.push_back(strings.read(value, {"key"}, ""));
  }
  EXPECT_EQ(views, (std::vector<std::string_view>{"\\x1b1", "\\x1b2", "\\x1b3"}));
}

TEST(JsonStrings, RefuseWhatIsNoString) {
  EXPECT_EQ(read("5"), "refused: key is 5, expected a string");
  EXPECT_EQ(read("null"), "refused: key is null, expected a string");
  EXPECT_EQ(read("[\"a\"]"), "refused: key is an array, expected a string");
}

TEST(JsonStrings, AreBrokenWithALoneSurrogate) { EXPECT_EQ(read(R"("\ud800")"), "broken"); }

TEST(JsonStrings, MayHaveToSaySomething) {
  with_value("\"\"", [](Value& value, JsonStrings& strings) {
    EXPECT_EQ(message_of([&] { strings.read_not_empty(value, {"key"}); }),
              "key is \"\", expected a string that is not empty");
  });
}

/// Returns the keys of an object as they are handed out.
std::vector<std::string> keys_of(std::string_view json) {
  const simdjson::padded_string text(json);
  simdjson::ondemand::parser parser;
  simdjson::ondemand::document document = parser.iterate(text);
  JsonStrings strings;
  strings.begin(text);
  std::vector<std::string> keys;
  for (simdjson::ondemand::field field : document.get_object()) {
    keys.emplace_back(strings.key(field));
  }
  return keys;
}

TEST(JsonStrings, AreKeysAsTheyStandButUnescaped) {
  EXPECT_EQ(keys_of(R"({"a": 1, "b c" : 2, "": 3})"), (std::vector<std::string>{"a", "b c", ""}));
  EXPECT_EQ(keys_of(R"({"\u0069d": 1, "a\"b": 2, "\u001b": 3})"),
            (std::vector<std::string>{"id", "a\"b", "\x1b"}));
  EXPECT_EQ(keys_of("{\"\xC3\xA4\": 1}"), std::vector<std::string>{"\xC3\xA4"});
  EXPECT_THROW(keys_of(R"({"\ud800": 1})"), BrokenJson);
}

// ---- Arrays and values that nobody asks for ----------------------------------------------------

TEST(OpenArray, RefusesWhatIsNoArray) {
  with_value("[1, 2]", [](Value& value, JsonStrings&) {
    std::size_t count = 0;
    for (auto element : open_array(value, {"key"}, "an array")) {
      count += element.error() == simdjson::SUCCESS ? 1 : 0;
    }
    EXPECT_EQ(count, 2U);
  });
  with_value("{}", [](Value& value, JsonStrings&) {
    EXPECT_EQ(message_of([&] { open_array(value, {"key"}, "an array of strings"); }),
              "key is an object, expected an array of strings");
  });
}

TEST(CheckUnused, TakesAnyJson) {
  for (const char* json : {"1e999", "-0", "true", "null", "\"a\\n\"", "[]", "{\"a\": [1, {}]}"}) {
    with_value(json,
               [&](Value& value, JsonStrings&) { EXPECT_NO_THROW(check_unused(value)) << json; });
  }
}

TEST(CheckUnused, RefusesWhatIsNone) {
  for (const char* json : {"01", "nul", "1\x01", "[1,]", "\"\\ud800\"", "[tru]"}) {
    with_value(json, [&](Value& value, JsonStrings&) {
      EXPECT_THROW(check_unused(value), BrokenJson) << json;
    });
  }
  with_value("{\"a\" 1}", [](Value& value, JsonStrings&) {
    EXPECT_THROW(check_unused(value), simdjson::simdjson_error) << "the parser itself refuses it";
  });
}

}  // namespace
