#include "standalone/findings/line_keys.h"

#include "standalone/json/json_values.h"
#include "standalone/text/harmless_text.h"
#include "standalone/text/messages.h"
#include "standalone/text/suggestion.h"

namespace vond::standalone {

void LineKeys::clear() {
  keys_.reset();
  nulls_.reset();
  unknown_.clear();
  if (!unknown_names_.empty()) {
    // Not cleared: its table would stay as large as the line with the most keys made it.
    unknown_names_ = {};
  }
}

void LineKeys::add(FindingKey key, const char* where) {
  const bool may_stand_beside_others = !alone() && (!stands_alone(key) || keys_.none());
  if (has(key) || is_null(key) || !may_stand_beside_others) {
    refuse(key, where);
  }
  keys_.set(static_cast<std::size_t>(key));
}

std::optional<FindingKey> LineKeys::alone() const {
  for (const FindingKey key : {FindingKey::BEGIN, FindingKey::END, FindingKey::EXAMINED}) {
    if (has(key)) {
      return key;
    }
  }
  return std::nullopt;
}

void LineKeys::add_null(FindingKey key, const char* where) {
  if (has(key) || is_null(key)) {
    refuse(key, where);
  }
  nulls_.set(static_cast<std::size_t>(key));
}

void LineKeys::refuse(FindingKey key, const char* where) const {
  if (has(key) || is_null(key)) {
    refuse_duplicate_key(name_of(key), where);
  }
  throw ValueFault{where, "found the key " + in_quotes(name_of(key)) +
                              " in one object with others, expected a line of its own for " +
                              in_quotes(name_of(alone().value_or(key)))};
}

void LineKeys::add_unknown(std::string_view name, const char* where) {
  if (!unknown_names_.insert(name).second) {
    refuse_duplicate_key(name, where);
  }
  if (!is_private_key(name)) {
    unknown_.push_back({name, where});
  }
}

void LineKeys::require_those_of_a_finding(const char* object) const {
  for (const FindingKey key : {FindingKey::ID, FindingKey::SEVERITY}) {
    if (!has(key)) {
      refuse_missing_key(name_of(key), object, "in every finding", suggestion_for_missing(key));
    }
  }
}

/// Names the unknown key that was most likely meant to be `key`.
std::string LineKeys::suggestion_for_missing(FindingKey key) const {
  for (const UnknownKey& unknown : unknown_) {
    if (nearest_candidate(unknown.key, finding_key_names()) == name_of(key)) {
      return "; did you mean it by " + in_quotes(excerpt(unknown.key)) + "?";
    }
  }
  return "";
}

}  // namespace vond::standalone
