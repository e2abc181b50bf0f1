#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "standalone/cli/options.h"
#include "standalone/report/collapser.h"

/// What the values of options mean, as the words of the command line give them. `option` is the
/// option's name, for messages. All throw UsageError for a word that cannot be understood.
namespace vond::standalone {

int parse_threshold(const std::string& option, const std::string& text);

/// Returns a number of columns, 0 for no wrapping.
int parse_width(const std::string& option, const std::string& text);

/// Returns a number of days.
int parse_days(const std::string& option, const std::string& text);

ColorMode parse_color_mode(const std::string& option, const std::string& text);
FailOn parse_fail_on(const std::string& option, const std::string& text);
CollapseBy parse_collapse_mode(const std::string& option, const std::string& text);

/// Returns `text` when it is a name of the log level table.
std::string parse_log_level(const std::string& option, const std::string& text);

/// Returns the names that node sets stand for.
std::vector<std::string> parse_node_sets(const std::string& option,
                                         const std::vector<std::string>& sets);

/// Takes NAME[:FILE] apart. A library's path ends at its last ":", a name at its first.
ExtensionRequest parse_extension(const std::string& option, const std::string& text);

void refuse_standard_output(const std::vector<std::string>& outputs);

void refuse_empty_paths(const std::string& option, const std::vector<std::string>& paths);

}  // namespace vond::standalone
