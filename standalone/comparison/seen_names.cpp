#include "standalone/comparison/seen_names.h"

namespace vond::standalone {

SeenNames::Number SeenNames::condition(postprocessor::TypeCode type, const std::string& id) {
  const auto [entry, is_new] =
      numbers_.try_emplace({type, id}, static_cast<Number>(conditions_.size()));
  if (is_new) {
    conditions_.push_back(&entry->first);
  }
  return entry->second;
}

std::optional<SeenNames::Number> SeenNames::find(postprocessor::TypeCode type,
                                                 const std::string& id) const {
  const auto entry = numbers_.find({type, id});
  return entry == numbers_.end() ? std::nullopt : std::optional(entry->second);
}

Condition SeenNames::condition(Number number) const {
  const auto& [type, id] = *conditions_[number];
  return {type, id};
}

}  // namespace vond::standalone
