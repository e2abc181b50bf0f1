#pragma once

namespace vond::provider {

/// How a provider encodes its output.
enum class encoding : int { none = 0, base64 = 1, raw = 2 };

}  // namespace vond::provider
