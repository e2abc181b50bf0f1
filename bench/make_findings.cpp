// Writes the workloads of the benchmarks: the same bytes for the same arguments on every machine.
#include <CLI/CLI.hpp>
#include <cstdint>
#include <exception>
#include <iostream>
#include <string>

#include "numbers_workload.h"
#include "workloads.h"

namespace vond::bench {
namespace {

struct Options {
  std::uint64_t seed = 1;
  std::string output = "-";
  std::string definitions;
  WideSizes wide;
  Format format = Format::JSON;
  NumbersSizes numbers;
  IssueSizes many = MANY_SIZES;
  IssueSizes deep = DEEP_SIZES;
  std::size_t names = 100'000;
  NameShape shape = NameShape::ONE_AXIS;
};

void write_issue_workload(OutputFile& file, const Options& options, const IssueSizes& sizes,
                          decltype(write_many)& write) {
  OutputFile definitions(options.definitions);
  write(file, definitions, sizes, options.seed);
  definitions.finish();
}

template <typename Sizes>
void add_node_options(CLI::App& workload, Sizes& sizes) {
  workload.add_option("--nodes", sizes.nodes)->capture_default_str();
  workload.add_option("--checks", sizes.checks)->capture_default_str();
  workload.add_option("--rounds", sizes.rounds, "How often every node reports every check")
      ->capture_default_str();
  workload.add_flag_callback("--no-row-ids", [&sizes] { sizes.have_row_ids = false; });
}

void add_issue_options(CLI::App& workload, Options& options, IssueSizes& sizes) {
  workload.add_option("--definitions", options.definitions, "The definitions file to write")
      ->required();
  workload.add_option("--issues", sizes.issues)->capture_default_str();
  workload.add_option("--definition-count", sizes.definitions)
      ->capture_default_str()
      // Every issue names two definitions.
      ->check(CLI::Range(2, 100'000'000));
}

int run(int argc, char** argv) {
  Options options;
  CLI::App app("Writes findings, or names, of the size that is asked for");
  app.fallthrough();
  app.require_subcommand(1);
  app.add_option("--seed", options.seed)->capture_default_str();
  app.add_option("-o,--output", options.output, "Where to write")->capture_default_str();

  CLI::App& wide = *app.add_subcommand("wide", "Every node reports every check");
  add_node_options(wide, options.wide);
  wide.add_flag_callback(
      "--node-lines", [&options] { options.format = Format::NODE_LINES; },
      "Write `node: text` lines instead of JSON");
  CLI::App& numbers = *app.add_subcommand("numbers", "Messages that hold what was measured");
  add_node_options(numbers, options.numbers);
  numbers.add_flag_callback(
      "--no-names", [&options] { options.numbers.have_names = false; },
      "Write localhost in place of the node in messages");
  CLI::App& many = *app.add_subcommand("many", "Distinct issues, few definitions");
  add_issue_options(many, options, options.many);
  CLI::App& deep = *app.add_subcommand("deep", "As many definitions as issues, in deep trees");
  add_issue_options(deep, options, options.deep);
  CLI::App& names = *app.add_subcommand("names", "Node names, a line each");
  names.add_option("--count", options.names)->capture_default_str();
  names.add_flag_callback(
      "--two-axes", [&options] { options.shape = NameShape::TWO_AXES; },
      "Names like c17n213 instead of node000042");
  CLI11_PARSE(app, argc, argv);

  OutputFile file(options.output);
  if (wide.parsed()) {
    write_wide(file, options.wide, options.format, options.seed);
  }
  if (numbers.parsed()) {
    write_numbers(file, options.numbers, options.seed);
  }
  if (many.parsed()) {
    write_issue_workload(file, options, options.many, write_many);
  }
  if (deep.parsed()) {
    write_issue_workload(file, options, options.deep, write_deep);
  }
  if (names.parsed()) {
    write_names(file, options.shape, options.names, options.seed);
  }
  file.finish();
  return 0;
}

}  // namespace
}  // namespace vond::bench

int main(int argc, char** argv) {
  try {
    return vond::bench::run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << std::string("make_findings: error: ") + error.what() + "\n";
    return 1;
  }
}
