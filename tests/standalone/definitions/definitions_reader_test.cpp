#include "standalone/definitions/definitions_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standalone/input/input_error.h"
#include "tests/standalone/support/test_input.h"

namespace {

using vond::standalone::DefinitionsFile;
using vond::standalone::DefinitionSpec;
using vond::standalone::InputError;
using vond::standalone::MAX_DEFINITION_DEPTH;
using vond::standalone::read_definitions;
using vond::test::TestFile;

/// Returns `a~(b c|d)`: a definition that is skipped with two groups of children.
std::string picture(const DefinitionSpec& definition);

std::string picture(const std::vector<DefinitionSpec>& group) {
  std::string text;
  for (const DefinitionSpec& definition : group) {
    text += (text.empty() ? "" : " ") + picture(definition);
  }
  return text;
}

std::string picture(const DefinitionSpec& definition) {
  std::string text = definition.name + (definition.skipped ? "~" : "");
  std::string separator = "(";
  for (const auto& group : definition.child_groups) {
    text += separator + picture(group);
    separator = "|";
  }
  return text + (definition.child_groups.empty() ? "" : ")");
}

std::string picture_of(std::string_view content) {
  const TestFile file(content);
  return picture(read_definitions(file.path()).roots);
}

std::string error_of(std::string_view content) {
  const TestFile file(content);
  try {
    read_definitions(file.path());
  } catch (const InputError& error) {
    return file.without_path(error.what());
  }
  return "";
}

std::string error_of_path(const std::string& path) {
  try {
    read_definitions(path);
  } catch (const InputError& error) {
    return error.what();
  }
  return "";
}

std::string nested(int depth, const std::string& before_child, const std::string& behind_child) {
  std::string text;
  for (int i = 1; i <= depth; ++i) {
    text += "{\"name\":\"" + std::to_string(i) + "\"" +
            (i < depth ? ",\"children\":" + before_child : "");
  }
  for (int i = 1; i <= depth; ++i) {
    text += "}" + (i < depth ? behind_child : "");
  }
  return "{\"definitions\":[" + text + "]}";
}

struct Case {
  std::string input;
  std::string error;
};

TEST(DefinitionsReader, ReadsATree) {
  EXPECT_EQ(picture_of(R"({"definitions": [
      {"name": "net", "skipped": false, "children": [{"name": "net/link"}, {"name": "net/sw"}]},
      {"children": [[{"name": "x"}], [], [{"name": "y", "skipped": true}, {"name": "z"}]],
       "name": "disk"}]})"),
            "net(net/link net/sw) disk(x||y~ z)");
}

TEST(DefinitionsReader, TakesNoChildrenForNoGroup) {
  EXPECT_EQ(picture_of(R"({"definitions":[{"name":"a","children":[]},{"name":"b"}]})"), "a b");
  EXPECT_EQ(picture_of(R"({"definitions":[{"name":"a","children":[[]]}]})"), "a()");
}

TEST(DefinitionsReader, TakesAnEmptyList) { EXPECT_EQ(picture_of(R"({"definitions":[]})"), ""); }

TEST(DefinitionsReader, AcceptsAByteOrderMarkAndCrlf) {
  EXPECT_EQ(picture_of("\xEF\xBB\xBF\r\n{\r\n\"definitions\":\r\n[{\"name\":\"a\"}]}\r\n"), "a");
}

TEST(DefinitionsReader, MakesNamesHarmless) {
  EXPECT_EQ(picture_of(R"({"definitions":[{"name":"a\u001b\n\t\u202e"}]})"), "a\\x1b\\x0a \\u202e");
}

TEST(DefinitionsReader, ReadsTheGreatestDepth) {
  for (const bool is_grouped : {false, true}) {
    const std::string open = is_grouped ? "[[" : "[";
    const std::string close = is_grouped ? "]]" : "]";
    EXPECT_EQ(error_of(nested(MAX_DEFINITION_DEPTH, open, close)), "");
    EXPECT_NE(error_of(nested(MAX_DEFINITION_DEPTH + 1, open, close))
                  .find("found a definition at depth 257, expected at most 256"),
              std::string::npos);
  }
  EXPECT_NE(error_of(nested(100'000, "[", "]")), "");
}

TEST(DefinitionsReader, WarnsOfUnknownKeys) {
  const TestFile file(
      "{\"x-version\":1,\"version\":2,\n\"definitions\":[{\"name\":\"a\",\"child\":[]},\n"
      "  {\"name\":\"b\",\"child\":{},\"x-owner\":[1]}]}");
  const DefinitionsFile definitions = read_definitions(file.path());
  EXPECT_EQ(picture(definitions.roots), "a b");
  std::vector<std::string> warnings;
  for (const std::string& warning : definitions.warnings) {
    warnings.push_back(file.without_path(warning));
  }
  EXPECT_EQ(warnings, (std::vector<std::string>{
                          "FILE:1:16: unknown key \"version\" is ignored (once)",
                          "FILE:2:28: unknown key \"child\" is ignored (2 times); did you mean "
                          "\"children\"?"}));
}

TEST(DefinitionsReader, TellsWhereTheFileIsNoJson) {
  const Case cases[] = {
      {"{\"definitions\":[\n  {\"name\":\"a\"}\n  {\"name\":\"b\"}]}",
       "FILE:3:3: found \"{\", expected \",\" or \"]\""},
      {"{\"definitions\":[]}\n\nx",
       "FILE:3:1: found \"x\" after the value, expected the end of the file"},
      {"{\"definitions\":[\n", "FILE:2:1: found the end of the file, expected a JSON value"},
      {"{\"definitions\":[{\"name\":\"a\",\n\"x-b\":nope}]}",
       "FILE:2:7: found \"nope\", expected a JSON value"},
      {"{\"definitions\":[{\"name\":\"a\nb\"}]}",
       "FILE:1:27: found the control character \\x0a in a string, expected it written as \\u000a"},
      {"{\n\"definitions\": \"\xFF\"}", "FILE:2:17: found the byte 0xff, expected text in UTF-8"},
      {std::string("{\n\0}", 4), "FILE:2:1: found a NUL byte, expected text in UTF-8"},
      {"{\"definitions\":[{\"name\":\"\\ud800\"}]}",
       "FILE:1:26: found the lone surrogate \\ud800, expected a pair such as \\ud83d\\ude00"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(error_of(each.input), each.error) << each.input;
  }
}

TEST(DefinitionsReader, RefusesAnEmptyFile) {
  const std::string expected =
      ": the file is empty, expected an object with the key "
      "\"definitions\"";
  EXPECT_EQ(error_of(""), "FILE:1:1" + expected);
  EXPECT_EQ(error_of("\n \n"), "FILE:1:1" + expected);
  EXPECT_EQ(error_of("\xEF\xBB\xBF"), "FILE:1:4" + expected);
}

TEST(DefinitionsReader, WantsAnObjectWithDefinitions) {
  EXPECT_EQ(error_of("\n [1]\n"),
            "FILE:2:2: the file is an array, expected an object with the key \"definitions\"");
  EXPECT_EQ(error_of("7"),
            "FILE:1:1: the file is 7, expected an object with the key "
            "\"definitions\"");
  EXPECT_EQ(error_of("{}"),
            "FILE:1:1: the key \"definitions\" is missing, expected it in a file of definitions");
  EXPECT_EQ(error_of("{\"definitions\":{}}"),
            "FILE:1:16: definitions is an object, expected an array of definitions");
  EXPECT_EQ(error_of("{\"definitions\":null}"),
            "FILE:1:16: definitions is null, expected an array of definitions");
}

TEST(DefinitionsReader, RefusesFaultyDefinitions) {
  const std::string definition = "expected a definition, which is an object";
  const Case cases[] = {
      {"[\n5]", "FILE:2:1: definitions[0] is 5, " + definition},
      {"[{\"name\":\"a\"},\n[]]", "FILE:2:1: definitions[1] is an array, " + definition},
      {"[{}]", "FILE:1:17: the key \"name\" is missing, expected it in every definition"},
      {"[{\"name\":5}]", "FILE:1:25: name is 5, expected a string"},
      {"[{\"name\":null}]", "FILE:1:25: name is null, expected a string"},
      {"[{\"name\":\"\"}]", "FILE:1:25: name is \"\", expected a string that is not empty"},
      {"[{\"name\":\"a\",\"skipped\":0}]", "FILE:1:39: skipped is 0, expected true or false"},
      {"[{\"name\":\"a\",\"skipped\":\"true\"}]",
       "FILE:1:39: skipped is \"true\", expected true or false"},
      {"[{\"name\":\"a\",\"children\":{}}]",
       "FILE:1:40: children is an object, expected an array of definitions or an array of such "
       "arrays"},
      {"[{\"name\":\"a\",\"children\":[1]}]",
       "FILE:1:41: children[0] is 1, expected a definition or an array of definitions"},
      {"[{\"name\":\"a\",\"children\":[[], {}]}]",
       "FILE:1:45: children[1] is an object, expected an array like those before it"},
      {"[{\"name\":\"a\",\"children\":[{\"name\":\"b\"}, []]}]",
       "FILE:1:55: children[1] is an array, expected an object like those before it"},
      {"[{\"name\":\"a\",\"children\":[[], [[]]]}]",
       "FILE:1:46: children[1][0] is an array, " + definition},
      {"[{\"name\":\"a\",\"name\":\"b\"}]",
       "FILE:1:29: found the key \"name\" a second time, expected each key once in an object"},
      {"[{\"name\":\"a\",\n\"x\":1,\"x\":1}]",
       "FILE:2:7: found the key \"x\" a second time, expected each key once in an object"},
      {"[{\"name\":\"a\",\n\"children\":[{\"name\":\"b\"},\n{\"name\":\"a\"}]}]",
       "FILE:3:9: name is \"a\", expected another name than the definition in line 1, column 25 "
       "has"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(error_of("{\"definitions\":" + each.input + "}"), each.error) << each.input;
  }
}

TEST(DefinitionsReader, TakesNullForAnOptionalKeyAsIfTheKeyWereNotThere) {
  EXPECT_EQ(picture_of(R"({"definitions":[{"name":" a\n","skipped":null,"children":null}]})"), "a");
  EXPECT_EQ(error_of(R"({"definitions":[{"name":"a","children":[null]}]})"),
            "FILE:1:41: children[0] is null, expected a definition or an array of definitions");
}

TEST(DefinitionsReader, RefusesEveryBeginningOfAFile) {
  const std::string content =
      "{\"definitions\":[\n{\"name\":\"a\\n\",\"skipped\":true,\"children\":[[{\"name\":\"b\"}]],"
      "\"x-n\":[1.5,null]}]}";
  for (std::size_t length = 0; length < content.size(); ++length) {
    EXPECT_NE(error_of(content.substr(0, length)), "") << length;
  }
  EXPECT_EQ(error_of(content), "");
}

TEST(DefinitionsReader, RefusesFilesThatCannotBeRead) {
  EXPECT_EQ(error_of_path("/no/such.json"),
            "/no/such.json: cannot be opened (No such file or directory), expected a file of "
            "definitions");
  EXPECT_EQ(error_of_path("/"), "/: is a folder, expected a file of definitions");
  EXPECT_EQ(error_of_path("/dev/zero"),
            "/dev/zero: is larger than 256 MiB, expected a file of definitions");
}

}  // namespace
