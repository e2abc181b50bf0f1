#pragma once

#include <algorithm>
#include <compare>
#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "vond/postprocessor/severity.h"

namespace vond::standalone {

/// What an issue tells its reader. `Text` is std::string_view or std::string.
template <typename Text>
struct BasicTexts {
  // Outputs that are alike in everything else stand in the order of these, the first one first.
  Text message;
  Text remedy;
  Text category;

  // The check takes the 0 of the comparison that the compiler writes for a pointer.
  // NOLINTNEXTLINE(modernize-use-nullptr)
  friend auto operator<=>(const BasicTexts&, const BasicTexts&) = default;
};

/// What findings of one issue share: all that a finding tells but where it was found.
///
/// The compiler refuses a new member until members_of() names it; hashes, equality, copies and the
/// walk over texts rest on members_of() alone.
template <typename Text>
struct BasicWording {
  postprocessor::TypeCode type = postprocessor::OBSERVATIONS;
  /// Never empty.
  Text id;
  /// On the severity scale, 0 to 100.
  int severity = 0;
  BasicTexts<Text> texts;
  /// Full names of framework definitions, never empty ones. A set for whoever compares wordings:
  /// see sort_sets().
  std::vector<Text> definitions;
  /// Ids of observations, never empty ones. A set too.
  std::vector<Text> based_on;
};

/// A wording whose texts live elsewhere.
using Wording = BasicWording<std::string_view>;
/// A wording that keeps its texts.
using OwnedWording = BasicWording<std::string>;
using OwnedTexts = BasicTexts<std::string>;

/// Returns references to all members of a wording, its texts one by one: numbers, texts, and lists
/// of texts.
template <typename AnyWording>
constexpr auto members_of(AnyWording& wording) {
  auto& [type, id, severity, texts, definitions, based_on] = wording;
  auto& [message, remedy, category] = texts;
  return std::tie(type, severity, id, message, remedy, category, definitions, based_on);
}

namespace wording_members {

template <typename Member>
inline constexpr bool IS_NUMBER = std::is_arithmetic_v<Member> || std::is_enum_v<Member>;

template <typename Member>
inline constexpr bool IS_LIST = false;
template <typename Text>
inline constexpr bool IS_LIST<std::vector<Text>> = true;

/// Calls `visit` with each member of `wording`.
template <typename AnyWording, typename Visit>
void for_each(AnyWording& wording, const Visit& visit) {
  std::apply([&visit](auto&... members) { (visit(members), ...); }, members_of(wording));
}

template <typename LeftMember, typename RightMember>
bool are_equal(const LeftMember& left, const RightMember& right) {
  if constexpr (IS_LIST<LeftMember>) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end());
  } else {
    return left == right;
  }
}

template <typename FromMember, typename ToMember>
void copy(const FromMember& from, ToMember& to) {
  if constexpr (IS_LIST<FromMember>) {
    to.assign(from.begin(), from.end());
  } else {
    to = from;
  }
}

}  // namespace wording_members

/// Calls `visit` with each text of a wording, those of its lists included.
template <typename AnyWording, typename Visit>
void for_each_text(AnyWording& wording, const Visit& visit) {
  using namespace wording_members;
  for_each(wording, [&visit](auto& member) {
    using Member = std::remove_const_t<std::remove_reference_t<decltype(member)>>;
    if constexpr (IS_LIST<Member>) {
      std::for_each(member.begin(), member.end(), visit);
    } else if constexpr (!IS_NUMBER<Member>) {
      visit(member);
    }
  });
}

/// Compares what members_of() has returned; lists count as equal in the same order.
template <typename... LeftMembers, typename... RightMembers>
bool are_same(const std::tuple<LeftMembers&...>& left, const std::tuple<RightMembers&...>& right) {
  static_assert(sizeof...(LeftMembers) == sizeof...(RightMembers), "one side lacks a member");
  return std::apply(
      [&right](const auto&... of_left) {
        return std::apply(
            [&](const auto&... of_right) {
              return (wording_members::are_equal(of_left, of_right) && ...);
            },
            right);
      },
      left);
}

template <typename LeftText, typename RightText>
bool operator==(const BasicWording<LeftText>& left, const BasicWording<RightText>& right) {
  return are_same(members_of(left), members_of(right));
}

/// Sorts the lists of a wording and removes repetitions, so that equal sets are equal lists.
void sort_sets(Wording& wording);

/// Returns a hash of all members.
std::size_t hash_of(const Wording& wording);

/// Returns a copy that keeps its texts.
OwnedWording owned(const Wording& wording);

}  // namespace vond::standalone
