#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "random_numbers.h"

namespace vond::bench {

/// What the made-up texts consist of: lower-case ASCII words without anything that JSON escapes.
inline const std::vector<std::string> WORDS = {
    "adapter", "after",  "bandwidth", "before",  "below",     "cable",  "cache",    "clock",
    "count",   "daemon", "disk",      "errors",  "expected",  "fabric", "fan",      "firmware",
    "found",   "free",   "health",    "kernel",  "latency",   "limit",  "link",     "lost",
    "memory",  "mount",  "of",        "on",      "packets",   "port",   "power",    "processor",
    "queue",   "rate",   "replace",   "restart", "retries",   "sensor", "speed",    "storage",
    "switch",  "system", "the",       "threads", "threshold", "time",   "transfer", "unit",
    "update",  "usage",  "version",   "voltage"};

inline const std::vector<std::string> CATEGORIES = {"fabric",      "hardware", "memory",
                                                    "performance", "software", "storage"};

/// Returns a sentence of exactly `length` characters, at least 2.
inline std::string make_sentence(RandomNumbers& random, std::size_t length) {
  std::string text = random.pick(WORDS);
  while (text.size() < length) {
    text.append(" ").append(random.pick(WORDS));
  }
  text.resize(length - 1);
  if (text.back() == ' ') {
    text.back() = 's';
  }
  return text + ".";
}

/// Returns `number` with zeros in front up to `width` digits.
inline std::string padded(std::size_t number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return std::string(digits.size() < width ? width - digits.size() : 0, '0') + digits;
}

/// Returns a name that `number` makes unique: word-word-00042.
inline std::string make_name(RandomNumbers& random, std::size_t number, std::size_t width) {
  return random.pick(WORDS) + "-" + random.pick(WORDS) + "-" + padded(number, width);
}

}  // namespace vond::bench
