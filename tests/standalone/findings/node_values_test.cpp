#include "standalone/findings/node_values.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using vond::standalone::JsonStrings;
using vond::standalone::NodeValues;
using vond::standalone::ValueFault;

/// Returns the names that `json` gives, each with a blank behind it, or "OFFSET: MESSAGE". Offsets
/// count from the start of `json`.
std::string names_of(const std::string& json) {
  const simdjson::padded_string text("{\"nodes\":" + json + "}");
  simdjson::ondemand::parser parser;
  simdjson::ondemand::document document = parser.iterate(text);
  JsonStrings strings;
  strings.begin(text);
  NodeValues values(strings);
  std::vector<std::string_view> nodes;
  try {
    for (simdjson::ondemand::field field : document.get_object()) {
      values.read(field.value(), "nodes", nodes);
    }
  } catch (const ValueFault& fault) {
    return std::to_string(fault.where - text.data() - 9) + ": " + fault.message;
  }
  std::string names;
  for (const std::string_view node : nodes) {
    names.append(node).append(" ");
  }
  return names;
}

TEST(NodeValues, AreANameASetOrAnArrayOfThose) {
  EXPECT_EQ(names_of(R"("n1")"), "n1 ");
  EXPECT_EQ(names_of(R"("n[1-3]")"), "n1 n2 n3 ");
  EXPECT_EQ(names_of(R"(["n1", "n[2-3],m", "n1"])"), "n1 n2 n3 m n1 ");
  EXPECT_EQ(names_of("[]"), "");
}

TEST(NodeValues, AreNothingElse) {
  EXPECT_EQ(names_of("5"),
            "0: nodes is 5, expected the name of a node, a set of nodes or an array of those");
  EXPECT_EQ(names_of("{}"),
            "0: nodes is an object, expected the name of a node, a set of nodes or an array of "
            "those");
  EXPECT_EQ(names_of(R"(["n1", null])"),
            "7: nodes[1] is null, expected the name of a node or a set of nodes");
  EXPECT_EQ(names_of(R"([["n1"]])"),
            "1: nodes[0] is an array, expected the name of a node or a set of nodes");
}

TEST(NodeValues, AreNotEmpty) {
  EXPECT_EQ(names_of(R"("")"), "0: nodes is \"\", expected the name of a node");
  EXPECT_EQ(names_of(R"(["n1", ""])"), "7: nodes[1] is \"\", expected the name of a node");
}

TEST(NodeValues, PlaceFaultsOfSetsInTheTextWhereItIsTheSourcesOwn) {
  const std::string plain = names_of(R"("n[5-x]")");
  const std::string escaped = names_of(R"("\u006e[5-x]")");
  EXPECT_EQ(plain.substr(0, plain.find(':')), "5");
  EXPECT_EQ(escaped.substr(0, escaped.find(':')), "0");
  EXPECT_EQ(plain.substr(plain.find(':')), escaped.substr(escaped.find(':')));
}

TEST(NodeValues, OfOneLineAreLimited) {
  EXPECT_EQ(names_of(R"(["n[1-1048576]", "m[1-2]"])"),
            "17: nodes[1] is \"m[1-2]\", expected no more than 1048576 names in a line");
}

TEST(NodeValues, LiveThroughFurtherSetsOfTheLine) {
  std::string json = "[";
  std::string expected;
  for (int number = 0; number < 200; ++number) {
    json += std::string(number == 0 ? "" : ",") + "\"a[" + std::to_string(number) + "]\"";
    expected += "a" + std::to_string(number) + " ";
  }
  EXPECT_EQ(names_of(json + "]"), expected);
}

}  // namespace
