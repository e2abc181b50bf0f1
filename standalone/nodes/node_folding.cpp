#include "standalone/nodes/node_folding.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "standalone/nodes/family_folding.h"
#include "standalone/nodes/name_families.h"

namespace vond::standalone {

namespace {

/// A structure and the text that it is sorted by: `%s` for every number.
struct SortedFamily {
  std::string pattern;
  std::string_view structure;
  Family* family;
};

std::vector<SortedFamily> sort_families(std::unordered_map<std::string, Family>& families) {
  std::vector<SortedFamily> sorted;
  sorted.reserve(families.size());
  for (auto& [structure, family] : families) {
    std::string pattern;
    for (const char c : structure) {
      if (c == NUMBER_MARK) {
        pattern += "%s";
      } else {
        pattern += c;
      }
    }
    sorted.push_back({std::move(pattern), structure, &family});
  }
  std::sort(sorted.begin(), sorted.end(), [](const SortedFamily& a, const SortedFamily& b) {
    // A name may hold "%s" itself, so patterns can be equal.
    const int order = a.pattern.compare(b.pattern);
    return order != 0 ? order < 0 : a.structure < b.structure;
  });
  return sorted;
}

/// Appends names in the shell's single quotes, so that whatever they hold does nothing when pasted.
void append_quoted_names(std::vector<std::string_view>& names, std::string& text) {
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  for (const std::string_view name : names) {
    text += '\'';
    for (const char c : name) {
      if (c == '\'') {
        text += "'\\''";
      } else {
        text += c;
      }
    }
    text += "',";
  }
}

}  // namespace

std::string fold_node_names(const std::vector<std::vector<std::string>>& node_lists) {
  // 1. Sort the names into families.
  NameFamilies names;
  for (const auto& list : node_lists) {
    for (const std::string& name : list) {
      names.add(name);
    }
  }
  names.finish();

  // 2. Fold each family; every term is written with a comma behind it.
  std::string text;
  for (const auto& [pattern, structure, family] : sort_families(names.families())) {
    if (family->axes == 0) {
      text.append(structure).append(1, ',');
    } else {
      append_folded_family(structure, *family, names.table(), text);
    }
  }

  // 3. The names that cannot be folded.
  append_quoted_names(names.unfoldable_names(), text);
  if (text.empty()) {
    return "none";
  }
  text.pop_back();
  return text;
}

}  // namespace vond::standalone
