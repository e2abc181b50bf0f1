// Bytes read as a file of definitions: either an error at a place in the file, or definitions that
// keep their promises and read the same when they are written down again.

#include "standalone/definitions/definitions_reader.h"

#include <optional>
#include <set>

#include "fuzz/json_text.h"
#include "fuzz/memory_file.h"
#include "fuzz/oracle.h"
#include "fuzz/target.h"
#include "fuzz/text.h"
#include "standalone/input/byte_order_mark.h"
#include "standalone/input/input_error.h"
#include "standalone/json/json_fault.h"
#include "standalone/text/harmless_text.h"

namespace {

using namespace vond::fuzz;
using namespace vond::standalone;

using Group = std::vector<DefinitionSpec>;

std::optional<DefinitionsFile> read(std::string_view input) {
  static MemoryFile file;
  const std::string& path = file.holding(input);
  try {
    return read_definitions(path);
  } catch (const InputError& error) {
    expect_place(error.what(), path, input);
    return std::nullopt;
  }
}

void check_definitions(const Group& group, int depth, std::set<std::string>& names) {
  for (const DefinitionSpec& definition : group) {
    const std::string& name = definition.name;
    expect(depth <= MAX_DEFINITION_DEPTH, "definitions that are not too deep", name);
    expect(!name.empty(), "a name that is not empty", name);
    expect(is_utf8(name) && is_harmless(name), "a harmless name", name);
    expect(names.insert(name).second, "each name once", name);
    for (const Group& children : definition.child_groups) {
      check_definitions(children, depth + 1, names);
    }
  }
}

std::string json_of(const Group& group);

std::string json_of(const DefinitionSpec& definition) {
  std::vector<std::string> groups;
  for (const Group& group : definition.child_groups) {
    groups.push_back(json_of(group));
  }
  return "{\"name\":" + json_string(definition.name) +
         ",\"skipped\":" + (definition.skipped ? "true" : "false") +
         ",\"children\":" + json_array(groups) + "}";
}

std::string json_of(const Group& group) {
  std::vector<std::string> definitions;
  for (const DefinitionSpec& definition : group) {
    definitions.push_back(json_of(definition));
  }
  return json_array(definitions);
}

std::string json_of(const DefinitionsFile& file) {
  return "{\"definitions\":" + json_of(file.roots) + "}";
}

void check_second_reading(const DefinitionsFile& first) {
  const std::string text = json_of(first);
  const std::optional<DefinitionsFile> second = read(text);
  if (!second) {
    fail("what was written to be read again", text);
  }
  expect(second->warnings.empty(), "no warnings about what was written", text);
  expect_same("what was read to be what is read again", json_of(*second), text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = text_of(data, size);
  const std::optional<DefinitionsFile> file = read(input);
  if (!file) {
    return 0;
  }
  expect(!find_json_fault(without_byte_order_mark(input), "file"), "only JSON to be read", input);
  for (const std::string& warning : file->warnings) {
    expect(is_utf8(warning) && is_harmless(warning), "harmless warnings", warning);
  }
  std::set<std::string> names;
  check_definitions(file->roots, 1, names);
  check_second_reading(*file);
  return 0;
}
