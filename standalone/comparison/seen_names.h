#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "standalone/model/string_interner.h"
#include "vond/postprocessor/severity.h"

namespace vond::standalone {

/// What may be wrong with a node, whatever it is called: a type and an id. Runs are compared by
/// these, since severities, wordings and numbers change from run to run.
struct Condition {
  postprocessor::TypeCode type;
  std::string_view id;
};

/// Numbers what several runs name, so that they can be compared by numbers. Each numbering begins
/// at 0.
class SeenNames {
 public:
  using Number = std::uint32_t;

  /// What is seen without a node is seen here.
  static constexpr Number NO_NODE = 0;

  SeenNames() { nodes_.id_of(""); }
  SeenNames(const SeenNames&) = delete;
  SeenNames& operator=(const SeenNames&) = delete;

  Number node(std::string_view name) { return nodes_.id_of(name); }
  /// Returns the node's number, nothing for one that no run has named.
  std::optional<Number> find_node(std::string_view name) const { return nodes_.find(name); }
  const std::string& node_name(Number node) const { return nodes_[node]; }
  /// NO_NODE included.
  std::size_t nodes() const { return nodes_.size(); }

  /// `pattern` is that of message and remedy, as TextPattern has it.
  Number pattern(std::string_view pattern) { return patterns_.id_of(pattern); }

  Number condition(postprocessor::TypeCode type, const std::string& id);
  /// Returns the condition's number, nothing for one that no run has named.
  std::optional<Number> find(postprocessor::TypeCode type, const std::string& id) const;
  /// The id lives as long as this object.
  Condition condition(Number number) const;
  std::size_t conditions() const { return conditions_.size(); }

 private:
  using Key = std::pair<postprocessor::TypeCode, std::string>;

  StringInterner nodes_;
  StringInterner patterns_;
  std::map<Key, Number> numbers_;
  /// By their numbers.
  std::deque<const Key*> conditions_;
};

}  // namespace vond::standalone
