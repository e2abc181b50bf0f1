#include "standalone/report/racks_file.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "standalone/input/input_error.h"
#include "standalone/report/node_set_lines.h"
#include "standalone/text/harmless_text.h"

namespace vond::standalone {
namespace {

constexpr const char* EXPECTATION = "a file of racks, \"RACK NODESET\" a line";

/// Puts the lines of a file together.
class RackReader {
 public:
  explicit RackReader(const std::string& path) : file_(path, EXPECTATION) {}

  std::vector<ReportFacts::Rack> read() {
    for_each_node_set_line(file_, [this](const LinePart& line) { add(line); });
    if (racks_.empty()) {
      throw InputError(file_.name() + ": has no rack, expected " + EXPECTATION);
    }
    for (ReportFacts::Rack& rack : racks_) {
      std::sort(rack.nodes.begin(), rack.nodes.end());
    }
    return std::move(racks_);
  }

 private:
  void add(const LinePart& line) {
    const std::size_t end = std::min(line.text.find_first_of(" \t"), line.text.size());
    const std::string name = harmless(line.text.substr(0, end));
    const LinePart set = without_blanks(line.behind(end));
    if (set.text.empty()) {
      throw InputError(file_.name(), line.line, line.column + end,
                       "found the end of the line, expected the nodes of rack \"" + name + "\"");
    }
    const auto [found, is_new] = places_.try_emplace(name, racks_.size());
    if (is_new) {
      racks_.push_back({name, {}});
    }
    for (const std::string& node : names_of_set(file_, set)) {
      add(node, found->second, set);
    }
  }

  void add(const std::string& node, std::size_t rack, const LinePart& where) {
    const auto [found, is_new] = rack_of_.try_emplace(node, rack);
    if (is_new) {
      racks_[rack].nodes.push_back(node);
    } else if (found->second != rack) {
      throw InputError(file_.name(), where.line, where.column,
                       "node \"" + node + "\" is in rack \"" + racks_[found->second].name +
                           "\" already, expected each node in one rack");
    }
  }

  InputFile file_;
  std::vector<ReportFacts::Rack> racks_;
  /// Where the rack of a name is.
  std::unordered_map<std::string, std::size_t> places_;
  /// In which rack a node is.
  std::unordered_map<std::string, std::size_t> rack_of_;
};

}  // namespace

std::vector<ReportFacts::Rack> read_racks(const std::string& path) {
  return RackReader(path).read();
}

}  // namespace vond::standalone
