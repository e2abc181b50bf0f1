#include "fuzz/oracle.h"

#include <cstdlib>
#include <iostream>

#include "standalone/text/harmless_text.h"

namespace vond::fuzz {
namespace {

/// Returns `text` so that it can be told apart from any other and does nothing to a terminal.
std::string shown(std::string_view text) {
  return "  " + std::to_string(text.size()) + " bytes:\n" + standalone::harmless(text) +
         "\n  end\n";
}

std::string one_a_line(const Names& names) {
  std::string lines;
  for (const std::string& name : names) {
    lines += standalone::harmless(name) + "\n";
  }
  return lines;
}

}  // namespace

void fail(std::string_view expectation, std::string_view text) {
  std::cerr << "expected: " << expectation << "\n" << shown(text) << std::flush;
  std::abort();
}

void expect_same(std::string_view expectation, std::string_view left, std::string_view right) {
  if (left == right) {
    return;
  }
  std::cerr << "expected: " << expectation << "\n"
            << shown(left) << "is not\n"
            << shown(right) << std::flush;
  std::abort();
}

void expect_same(std::string_view expectation, const Names& left, const Names& right) {
  if (left != right) {
    expect_same(expectation, one_a_line(left), one_a_line(right) + "(as lists of names)");
  }
}

}  // namespace vond::fuzz
