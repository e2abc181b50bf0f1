#include "standalone/json/parsing_fault.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

namespace {

using vond::standalone::BrokenJson;
using vond::standalone::find_parsing_fault;
using vond::standalone::ValueFault;

/// Returns "OFFSET: MESSAGE" or "".
template <typename Parse>
std::string fault_of(std::string_view text, const Parse& parse) {
  const auto fault = find_parsing_fault(text, "line", parse);
  return fault ? std::to_string(fault->offset) + ": " + fault->message : "";
}

TEST(ParsingFault, IsNoneWhenTheTextWasRead) {
  EXPECT_EQ(fault_of("{}", [] {}), "");
}

TEST(ParsingFault, StandsWhereTheValueThatCannotBeUsedStands) {
  const std::string_view text = R"({"a": 1})";
  EXPECT_EQ(fault_of(text, [&] { throw ValueFault{text.data() + 6, "a is 1"}; }), "6: a is 1");
}

TEST(ParsingFault, IsFirstOfAllThatTheTextIsNoJson) {
  const std::string_view text = R"({"a": 1, })";
  const std::string expected = "9: found \"}\", expected a key in double quotes";
  EXPECT_EQ(fault_of(text, [&] { throw ValueFault{text.data() + 6, "a is 1"}; }), expected);
  EXPECT_EQ(fault_of(text, [] { throw BrokenJson{}; }), expected);
  EXPECT_EQ(fault_of(text, [] { throw simdjson::simdjson_error(simdjson::TAPE_ERROR); }), expected);
}

TEST(ParsingFault, IsTheParsersWhenNothingElseIsWrong) {
  EXPECT_EQ(fault_of("{}", [] { throw BrokenJson{}; }),
            "0: the line cannot be read (unknown fault), expected a JSON object");
  EXPECT_EQ(fault_of("{}", [] { throw simdjson::simdjson_error(simdjson::CAPACITY); }),
            "0: the line cannot be read (" +
                std::string(simdjson::error_message(simdjson::CAPACITY)) +
                "), expected a JSON object");
}

TEST(ParsingFault, IsNotWhatTheTextCannotHelp) {
  EXPECT_THROW(fault_of("{", [] { throw simdjson::simdjson_error(simdjson::MEMALLOC); }),
               std::bad_alloc);
  EXPECT_THROW(fault_of("{", [] { throw std::runtime_error("other"); }), std::runtime_error);
}

}  // namespace
