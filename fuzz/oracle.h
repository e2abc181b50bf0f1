#pragma once

#include <string>
#include <string_view>
#include <vector>

/// How fuzz targets judge: whatever is not as expected ends the process after telling why.
namespace vond::fuzz {

using Names = std::vector<std::string>;

/// Prints what was expected and the text that it was expected of, and aborts.
[[noreturn]] void fail(std::string_view expectation, std::string_view text);

inline void expect(bool condition, std::string_view expectation, std::string_view text) {
  if (!condition) {
    fail(expectation, text);
  }
}

/// Aborts when both texts differ, after printing both. `expectation` says why they should not.
void expect_same(std::string_view expectation, std::string_view left, std::string_view right);

void expect_same(std::string_view expectation, const Names& left, const Names& right);

}  // namespace vond::fuzz
