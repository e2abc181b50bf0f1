#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// What every fuzz target defines: runs one input and returns 0; aborts when something is wrong.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vond::fuzz {

inline std::string_view text_of(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

}  // namespace vond::fuzz
