#include "standalone/findings/repeated_findings.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vond::standalone {

namespace {

// A power of two, many times the number of checks of a cluster.
constexpr std::size_t SLOTS = 8192;
/// Long enough to hold the id, short enough to end before the node.
constexpr std::size_t BEGINNING = 48;
constexpr unsigned MOST_PATIENCE = 256;

/// Returns a hash of how `line`, at least BEGINNING bytes, begins.
std::uint64_t hash_of_beginning(std::string_view line) {
  constexpr std::uint64_t GOLDEN_RATIO = 0x9e3779b97f4a7c15;
  std::uint64_t hash = 0;
  std::uint64_t factor = GOLDEN_RATIO;
  for (std::size_t at = 0; at < BEGINNING; at += sizeof hash) {
    std::uint64_t word = 0;
    std::memcpy(&word, line.data() + at, sizeof word);
    hash += (word ^ word >> 32U) * factor;
    factor *= GOLDEN_RATIO;
  }
  return hash ^ hash >> 32U;
}

}  // namespace

RepeatedFindings::RepeatedFindings() : slots_(SLOTS) {}

const Finding* RepeatedFindings::find(std::string_view line) {
  if (line.size() < BEGINNING) {
    return nullptr;
  }
  Slot& slot = slot_of(hash_of_beginning(line));
  const Finding* const finding = slot.remembered ? slot.remembered->read(line) : nullptr;
  if (finding != nullptr) {
    slot.misses = 0;
  }
  return finding;
}

void RepeatedFindings::learn(std::string_view line, const FindingParser& parser) {
  if (line.size() < BEGINNING) {
    return;
  }
  const std::uint64_t beginning = hash_of_beginning(line);
  Slot& slot = slot_of(beginning);
  // Most lines of an input without repetition are not worth a copy.
  const bool is_seen_again = std::exchange(slot.beginning, beginning) == beginning;
  if (!is_seen_again || !RememberedLine::can_remember(line, parser)) {
    return;
  }
  if (!slot.remembered) {
    slot.remembered = std::make_unique<RememberedLine>();
  } else if (++slot.misses < slot.patience) {
    return;
  } else {
    slot.misses = 0;
    slot.patience = std::min(2 * slot.patience, MOST_PATIENCE);
  }
  slot.remembered->remember(line, parser, ++last_number_);
}

RepeatedFindings::Slot& RepeatedFindings::slot_of(std::uint64_t beginning) {
  return slots_[beginning % SLOTS];
}

}  // namespace vond::standalone
