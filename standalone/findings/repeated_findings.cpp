#include "standalone/findings/repeated_findings.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "standalone/text/text_hash.h"

namespace vond::standalone {

namespace {

// A power of two, many times the number of checks of a cluster.
constexpr std::size_t SLOTS = 8192;
/// Long enough to hold the id, short enough to end before the node where that does not come early.
constexpr std::size_t BEGINNING = 48;
constexpr unsigned MOST_PATIENCE = 256;

/// What a line begins with, but for the name of a node.
struct Beginning {
  /// Up to the name; empty when no name stands early in the line.
  std::string_view before_node;
  /// From behind the name, or from the start of the line.
  std::string_view rest;
};

/// Leaves a name out only where enough stands behind it; `line` may be short.
Beginning without_early_node(std::string_view line) {
  constexpr std::string_view KEY = R"("nodes")";
  const std::string_view start = line.substr(0, BEGINNING);
  const std::size_t key = start.find(KEY);
  const std::size_t name = key == std::string_view::npos ? key : start.find('"', key + KEY.size());
  const std::size_t end = name == std::string_view::npos ? name : line.find('"', name + 1);
  if (end == std::string_view::npos || line.size() - end < BEGINNING) {
    return {{}, line};
  }
  return {line.substr(0, name), line.substr(end)};
}

/// Returns a hash of the first bytes of `text`, which has at least BEGINNING.
std::uint64_t hash_of_first(std::string_view text) {
  constexpr std::uint64_t GOLDEN_RATIO = 0x9e3779b97f4a7c15;
  std::uint64_t hash = 0;
  std::uint64_t factor = GOLDEN_RATIO;
  for (std::size_t at = 0; at < BEGINNING; at += sizeof hash) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + at, sizeof word);
    hash += (word ^ word >> 32U) * factor;
    factor *= GOLDEN_RATIO;
  }
  return hash ^ hash >> 32U;
}

}  // namespace

RepeatedFindings::RepeatedFindings() : slots_(SLOTS) {}

const Finding* RepeatedFindings::find(std::string_view line) {
  const std::optional<std::uint64_t> beginning = hash_of_beginning(line);
  if (!beginning) {
    return nullptr;
  }
  Slot& slot = slot_of(*beginning);
  const Finding* const finding = slot.remembered ? slot.remembered->read(line) : nullptr;
  if (finding != nullptr) {
    slot.misses = 0;
  }
  return finding;
}

void RepeatedFindings::learn(std::string_view line, const FindingParser& parser) {
  nodes_come_early_ = nodes_come_early_ || !without_early_node(line).before_node.empty();
  const std::optional<std::uint64_t> beginning = hash_of_beginning(line);
  if (!beginning) {
    return;
  }
  Slot& slot = slot_of(*beginning);
  // Most lines of an input without repetition are not worth a copy.
  const bool is_seen_again = std::exchange(slot.beginning, *beginning) == *beginning;
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

/// Returns what lines of one check have in common; nothing for a line that is too short.
std::optional<std::uint64_t> RepeatedFindings::hash_of_beginning(std::string_view line) const {
  if (line.size() < BEGINNING) {
    return std::nullopt;
  }
  if (!nodes_come_early_) {
    return hash_of_first(line);
  }
  const auto [before_node, rest] = without_early_node(line);
  const std::uint64_t hash = hash_of_first(rest);
  return before_node.empty() ? hash : mixed(hash, hash_of_text(before_node));
}

RepeatedFindings::Slot& RepeatedFindings::slot_of(std::uint64_t beginning) {
  return slots_[beginning % SLOTS];
}

}  // namespace vond::standalone
