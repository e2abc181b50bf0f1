#include "numbers_workload.h"

#include <string>
#include <vector>

#include "finding_text.h"
#include "random_numbers.h"
#include "vocabulary.h"

namespace vond::bench {

namespace {

/// One check, with the one node on which it measured what no other has.
struct Check {
  std::size_t number;
  std::string id;
  std::size_t worst_node;
};

std::string temperature(const std::string& node, bool stands_out, RandomNumbers& random) {
  const std::uint32_t gpu = random.below(8);
  const std::uint32_t degrees = stands_out ? 103 : random.between(82, 88);
  return "GPU " + std::to_string(gpu) + " of " + node + " is at " + std::to_string(degrees) +
         " C, its limit is 80 C; the clock is lowered.";
}

std::string disk(const std::string& node, bool stands_out, RandomNumbers& random) {
  const std::uint32_t tenths = stands_out ? 999 : random.between(900, 949);
  return node + ":/scratch is " + std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) +
         " % full, " + std::to_string(1000 - tenths) + "." + std::to_string(random.below(10)) +
         " GB are free.";
}

std::string finding(const Check& check, std::size_t node_number, std::size_t row_id,
                    const NumbersSizes& sizes, RandomNumbers& random) {
  const std::string name = "node" + padded(node_number, 5);
  const std::string node = sizes.have_names ? name : "localhost";
  const bool is_temperature = check.number % 2 == 0;
  const bool stands_out = node_number == check.worst_node;
  FindingText text;
  text.add("id", check.id)
      .add("severity", is_temperature ? 80U : 50U)
      .add("category", is_temperature ? "gpu" : "storage")
      .add("message",
           is_temperature ? temperature(node, stands_out, random) : disk(node, stands_out, random))
      .add("remedy", is_temperature ? "Look at the fans of " + node + " and at its air filters."
                                    : "Remove what nobody needs from /scratch of " + node + ".")
      .add("nodes", std::vector<std::string>{name})
      .add("definitions", std::vector<std::string>{"area/" + check.id});
  if (sizes.have_row_ids) {
    text.add("row_ids", std::vector<std::size_t>{row_id});
  }
  return text.line();
}

std::vector<Check> make_checks(const NumbersSizes& sizes, RandomNumbers& random) {
  std::vector<Check> checks;
  checks.reserve(sizes.checks);
  for (std::size_t number = 0; number < sizes.checks; ++number) {
    checks.push_back({number, make_name(random, number, 3), 1 + random.below(sizes.nodes)});
  }
  return checks;
}

/// Every node reports every check; `row_id` is that of the last finding.
void write_round(OutputFile& findings, const std::vector<Check>& checks, const NumbersSizes& sizes,
                 std::size_t& row_id, RandomNumbers& random) {
  std::vector<std::string> lines;
  lines.reserve(sizes.nodes * checks.size());
  for (const Check& check : checks) {
    for (std::size_t node = 1; node <= sizes.nodes; ++node) {
      lines.push_back(finding(check, node, ++row_id, sizes, random));
    }
  }
  random.shuffle(lines);
  for (const std::string& line : lines) {
    findings << line;
  }
}

}  // namespace

void write_numbers(OutputFile& findings, const NumbersSizes& sizes, std::uint64_t seed) {
  RandomNumbers random(seed);
  const std::vector<Check> checks = make_checks(sizes, random);
  std::size_t row_id = 0;
  for (std::size_t round = 0; round < sizes.rounds; ++round) {
    write_round(findings, checks, sizes, row_id, random);
  }
}

}  // namespace vond::bench
