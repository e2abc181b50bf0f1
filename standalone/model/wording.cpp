#include "standalone/model/wording.h"

#include <cstdint>

#include "standalone/text/text_hash.h"

namespace vond::standalone {
namespace {

using wording_members::IS_LIST;
using wording_members::IS_NUMBER;

void mix_into(std::size_t& hash, std::size_t value) { hash = mixed(hash, value); }

void mix_into(std::size_t& hash, std::string_view text) { mix_into(hash, hash_of_text(text)); }

void mix_into(std::size_t& hash, const std::vector<std::string_view>& texts) {
  mix_into(hash, texts.size());
  for (const std::string_view text : texts) {
    mix_into(hash, text);
  }
}

}  // namespace

void sort_sets(Wording& wording) {
  wording_members::for_each(wording, [](auto& member) {
    if constexpr (IS_LIST<std::remove_reference_t<decltype(member)>>) {
      std::sort(member.begin(), member.end());
      member.erase(std::unique(member.begin(), member.end()), member.end());
    }
  });
}

std::size_t hash_of(const Wording& wording) {
  std::size_t hash = 0;
  wording_members::for_each(wording, [&hash](const auto& member) {
    if constexpr (IS_NUMBER<std::remove_cvref_t<decltype(member)>>) {
      mix_into(hash, static_cast<std::size_t>(member));
    } else {
      mix_into(hash, member);
    }
  });
  return hash;
}

OwnedWording owned(const Wording& wording) {
  OwnedWording copy;
  std::apply(
      [&copy](const auto&... from) {
        std::apply([&](auto&... to) { (wording_members::copy(from, to), ...); }, members_of(copy));
      },
      members_of(wording));
  return copy;
}

}  // namespace vond::standalone
