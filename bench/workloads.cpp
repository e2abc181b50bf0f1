#include "workloads.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>
#include <vector>

#include "definition_forest.h"
#include "finding_text.h"
#include "random_numbers.h"
#include "vocabulary.h"

namespace vond::bench {

namespace {

constexpr std::size_t MAX_SEVERITY = 100;

std::vector<std::size_t> numbers_from_1(std::size_t count) {
  std::vector<std::size_t> numbers(count);
  std::iota(numbers.begin(), numbers.end(), 1U);
  return numbers;
}

std::vector<std::size_t> shuffled_numbers(std::size_t count, RandomNumbers& random) {
  std::vector<std::size_t> numbers = numbers_from_1(count);
  random.shuffle(numbers);
  return numbers;
}

std::string digits_of(std::size_t number) { return std::to_string(number); }

// Wide.

/// A finding of one check, which differs from node to node in the node and the row id alone.
struct CheckText {
  std::string before_node;
  std::string before_row_id;
  std::string end;
};

CheckText make_check(std::size_t number, const WideSizes& sizes, Format format,
                     RandomNumbers& random) {
  constexpr std::size_t CHECKS_PER_AREA = 10;
  constexpr std::size_t MESSAGE_LENGTH = 80;
  constexpr std::size_t REMEDY_LENGTH = 85;
  const std::string id = make_name(random, number, 3);
  const std::size_t severity = random.below(MAX_SEVERITY + 1);
  const std::string category = random.pick(CATEGORIES);
  const std::string message = make_sentence(random, MESSAGE_LENGTH);
  const std::string remedy = make_sentence(random, REMEDY_LENGTH);
  if (format == Format::NODE_LINES) {
    return {"",
            ": " + id + " " + digits_of(severity) + " " + category + " " + message + " " + remedy,
            "\n"};
  }
  std::string head = FindingText()
                         .add("id", id)
                         .add("severity", severity)
                         .add("category", category)
                         .add("message", message)
                         .add("remedy", remedy)
                         .line();
  head.resize(head.size() - 2);
  const std::string definition = "area-" + padded(number / CHECKS_PER_AREA, 2) + "/" + id;
  const std::string end = ", \"definitions\": [\"" + definition + "\"]}\n";
  head += R"(, "nodes": [")";
  if (!sizes.have_row_ids) {
    return {head, "\"]", end};
  }
  return {head, R"("], "row_ids": [)", "]" + end};
}

void write_finding(OutputFile& file, const CheckText& check, const std::string& node,
                   const std::string& row_id) {
  file << check.before_node << node << check.before_row_id << row_id << check.end;
}

// Many and deep.

/// Nodes of a machine of 80 racks.
class Machine {
 public:
  /// Adds `count` distinct nodes: neighbours in one rack, or scattered ones.
  static std::vector<std::string> some_nodes(std::size_t count, RandomNumbers& random) {
    const bool neighbours = random.below(2) == 0;
    const std::size_t first = random.below(NODES);
    std::vector<std::size_t> numbers;
    while (numbers.size() < count) {
      const std::size_t number =
          neighbours ? (first + numbers.size()) % NODES : random.below(NODES);
      if (std::find(numbers.begin(), numbers.end(), number) == numbers.end()) {
        numbers.push_back(number);
      }
    }
    std::vector<std::string> names;
    names.reserve(count);
    for (const std::size_t number : numbers) {
      names.push_back(name(number));
    }
    return names;
  }

 private:
  static constexpr std::size_t RACKS = 80;
  static constexpr std::size_t NODES_PER_RACK = 125;
  static constexpr std::size_t NODES = RACKS * NODES_PER_RACK;

  static std::string name(std::size_t number) {
    // Appended to, because GCC 12 warns of "r" + string for no reason.
    std::string name = "r";
    name.append(padded(number / NODES_PER_RACK + 1, 2)).append("n");
    return name.append(padded(number % NODES_PER_RACK + 1, 3));
  }
};

std::vector<std::string> make_ids(std::size_t count, RandomNumbers& random) {
  constexpr std::size_t NUMBER_WIDTH = 6;
  std::vector<std::string> ids;
  ids.reserve(count);
  for (std::size_t number = 0; number < count; ++number) {
    ids.push_back(make_name(random, number, NUMBER_WIDTH));
  }
  return ids;
}

/// Distinct names of definitions.
std::vector<std::string> some_definitions(const DefinitionForest& forest, std::size_t count,
                                          RandomNumbers& random) {
  std::vector<std::string> names;
  while (names.size() < count) {
    const std::string& name = forest.random_name(random);
    if (std::find(names.begin(), names.end(), name) == names.end()) {
      names.push_back(name);
    }
  }
  return names;
}

/// How the issues of a workload look.
struct IssueShape {
  std::uint32_t max_nodes;
  std::size_t definitions;
};

bool is_diagnosis(std::size_t number) { return number % 2 == 1; }

/// Ids of one or two observations, maybe the same one twice.
std::vector<std::string> some_observations(const std::vector<std::string>& ids,
                                           RandomNumbers& random) {
  std::vector<std::string> observations;
  for (std::size_t left = random.between(1, 2); left > 0; --left) {
    const std::size_t place = random.below((ids.size() + 1) / 2);
    observations.push_back(ids[2 * place]);
  }
  return observations;
}

std::string make_finding(std::size_t number, const std::vector<std::string>& ids,
                         const DefinitionForest& forest, const IssueShape& shape,
                         RandomNumbers& random) {
  FindingText finding;
  finding.add("type", is_diagnosis(number) ? "diagnosis" : "observation")
      .add("id", ids[number])
      .add("severity", random.below(MAX_SEVERITY + 1))
      .add("category", random.pick(CATEGORIES))
      .add("message", make_sentence(random, random.between(40, 160)))
      .add("remedy", make_sentence(random, random.between(40, 120)))
      .add("nodes", Machine::some_nodes(random.between(1, shape.max_nodes), random))
      .add("row_ids", std::vector<std::size_t>{number + 1})
      .add("definitions", some_definitions(forest, shape.definitions, random));
  if (is_diagnosis(number)) {
    finding.add("based_on", some_observations(ids, random));
  }
  return finding.line();
}

void write_issues(OutputFile& findings, OutputFile& definitions, std::size_t issues,
                  const DefinitionForest& forest, const IssueShape& shape, RandomNumbers& random) {
  forest.write(definitions);
  const std::vector<std::string> ids = make_ids(issues, random);
  for (std::size_t number = 0; number < issues; ++number) {
    findings << make_finding(number, ids, forest, shape, random);
  }
}

// Names.

constexpr std::size_t NODES_PER_CHASSIS = 400;
constexpr std::size_t CHASSIS = 60;

std::string two_axes_name(std::size_t number) {
  std::string name = "c";
  name.append(digits_of((number - 1) / NODES_PER_CHASSIS + 1)).append("n");
  return name.append(digits_of((number - 1) % NODES_PER_CHASSIS + 1));
}

}  // namespace

void write_wide(OutputFile& findings, const WideSizes& sizes, Format format, std::uint64_t seed) {
  RandomNumbers random(seed);
  std::vector<CheckText> checks;
  for (std::size_t number = 0; number < sizes.checks; ++number) {
    checks.push_back(make_check(number, sizes, format, random));
  }
  const std::size_t width = digits_of(sizes.nodes).size();
  const bool has_row_ids = format == Format::JSON && sizes.have_row_ids;
  std::size_t row_id = 0;
  for (std::size_t round = 0; round < sizes.rounds; ++round) {
    for (const std::size_t node : shuffled_numbers(sizes.nodes, random)) {
      const std::string name = "node" + padded(node, width);
      for (const CheckText& check : checks) {
        write_finding(findings, check, name, has_row_ids ? digits_of(++row_id) : "");
      }
    }
  }
}

void write_many(OutputFile& findings, OutputFile& definitions, const IssueSizes& sizes,
                std::uint64_t seed) {
  RandomNumbers random(seed);
  const DefinitionForest forest({sizes.definitions, 100, 4}, random);
  write_issues(findings, definitions, sizes.issues, forest, {40, 2}, random);
}

void write_deep(OutputFile& findings, OutputFile& definitions, const IssueSizes& sizes,
                std::uint64_t seed) {
  RandomNumbers random(seed);
  const DefinitionForest forest({sizes.definitions, 200, 8}, random);
  write_issues(findings, definitions, sizes.issues, forest, {4, 1}, random);
}

void write_names(OutputFile& file, NameShape shape, std::size_t count, std::uint64_t seed) {
  RandomNumbers random(seed);
  const bool one_axis = shape == NameShape::ONE_AXIS;
  const std::size_t possible = one_axis ? count : CHASSIS * NODES_PER_CHASSIS;
  if (count > possible) {
    throw std::invalid_argument("names of two axes are at most " + digits_of(possible));
  }
  std::vector<std::size_t> numbers = shuffled_numbers(possible, random);
  numbers.resize(count);
  const std::size_t width = digits_of(count).size();
  for (const std::size_t number : numbers) {
    file << (one_axis ? "node" + padded(number, width) : two_axes_name(number)) << "\n";
  }
}

}  // namespace vond::bench
