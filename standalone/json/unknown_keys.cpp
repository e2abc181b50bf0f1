#include "standalone/json/unknown_keys.h"

#include <utility>

#include "standalone/text/harmless_text.h"
#include "standalone/text/messages.h"
#include "standalone/text/suggestion.h"

namespace vond::standalone {

namespace {

// Memory must not grow with the input, whatever keys it makes up.
constexpr std::size_t MOST_KEYS = 100;
constexpr std::size_t MOST_KEY_BYTES = 256;

std::string times_text(std::size_t times) {
  return times == 1 ? "once" : std::to_string(times) + " times";
}

}  // namespace

UnknownKeys::UnknownKeys(std::vector<std::string_view> known) : known_(std::move(known)) {}

void UnknownKeys::add(std::string_view key, const std::string& file, std::size_t line,
                      std::size_t column) {
  const std::string beginning(key.substr(0, MOST_KEY_BYTES));
  const auto known_position = positions_.find(beginning);
  if (known_position != positions_.end()) {
    ++entries_[known_position->second].times;
  } else if (entries_.size() == MOST_KEYS) {
    ++not_listed_;
  } else {
    positions_.emplace(beginning, entries_.size());
    entries_.push_back(
        {file + ":" + std::to_string(line) + ":" + std::to_string(column), beginning, 1});
  }
}

std::vector<std::string> UnknownKeys::warnings() const {
  std::vector<std::string> messages;
  for (const Entry& entry : entries_) {
    messages.push_back(entry.place + ": unknown key " + in_quotes(excerpt(entry.key)) +
                       " is ignored (" + times_text(entry.times) + ")" +
                       suggestion_for(entry.key, known_));
  }
  if (not_listed_ > 0) {
    messages.push_back("further unknown keys are ignored (" + times_text(not_listed_) + ")");
  }
  return messages;
}

}  // namespace vond::standalone
