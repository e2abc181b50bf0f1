#include "standalone/model/wording.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using vond::postprocessor::DIAGNOSES;
using vond::standalone::BasicTexts;
using vond::standalone::for_each_text;
using vond::standalone::hash_of;
using vond::standalone::members_of;
using vond::standalone::owned;
using vond::standalone::OwnedWording;
using vond::standalone::sort_sets;
using vond::standalone::Wording;

/// Takes the place of any member.
struct AnyMember {
  template <typename Member>
  operator Member() const;
};

/// Returns how many members a plain struct has: the most that can be initialised.
template <typename Struct, typename... Members>
constexpr std::size_t count_members() {
  if constexpr (requires { Struct{Members{}..., AnyMember{}}; }) {
    return count_members<Struct, Members..., AnyMember>();
  } else {
    return sizeof...(Members);
  }
}

// A new member needs a place in full_wording(), in TEXTS when it is a text, and in different().
constexpr std::size_t MEMBERS = 8;
static_assert(std::tuple_size_v<decltype(members_of(std::declval<Wording&>()))> == MEMBERS);
static_assert(count_members<Wording>() - 1 + count_members<BasicTexts<std::string_view>>() ==
                  MEMBERS,
              "members_of() returns all members, those of the texts one by one");

/// A wording in which no member has its default.
Wording full_wording() {
  return {DIAGNOSES, "id", 80, {"message", "remedy", "category"}, {"a", "b"}, {"x", "y"}};
}

const std::vector<std::string> TEXTS = {"id", "message", "remedy", "category", "a", "b", "x", "y"};

/// For each member a wording that differs from full_wording() in it alone.
std::vector<Wording> different() {
  std::vector<Wording> all(MEMBERS, full_wording());
  all[0].type = vond::postprocessor::MISSING_DATA;
  all[1].severity = 81;
  all[2].id = "id#1";
  all[3].texts.message = "";
  all[4].texts.remedy = "Remedy";
  all[5].texts.category = "categories";
  all[6].definitions = {"b", "a"};
  all[7].based_on = {"x"};
  return all;
}

TEST(Wording, IsEqualInEveryMember) {
  EXPECT_EQ(full_wording(), full_wording());
  EXPECT_EQ(Wording{}, Wording{});
  for (const Wording& other : different()) {
    EXPECT_NE(other, full_wording());
    EXPECT_NE(owned(other), full_wording());
    EXPECT_NE(full_wording(), owned(other));
  }
}

TEST(Wording, HasAHashThatEveryMemberChanges) {
  EXPECT_EQ(hash_of(full_wording()), hash_of(full_wording()));
  for (const Wording& other : different()) {
    EXPECT_NE(hash_of(other), hash_of(full_wording()));
  }
}

TEST(Wording, HasAHashThatTellsWhereATextEnds) {
  Wording left;
  Wording right;
  left.definitions = {"a", "b"};
  right.definitions = {"a"};
  right.based_on = {"b"};
  EXPECT_NE(hash_of(left), hash_of(right));
  right = left;
  right.definitions = {"ab"};
  EXPECT_NE(hash_of(left), hash_of(right));
}

TEST(Wording, IsOwnedWithAllItsTexts) {
  std::string id(40, 'i');
  std::string definition(40, 'd');
  Wording wording = full_wording();
  wording.id = id;
  wording.definitions = {definition};
  const OwnedWording copy = owned(wording);
  EXPECT_EQ(copy, wording);
  id.assign(40, '-');
  definition.assign(40, '-');
  EXPECT_EQ(copy.id, std::string(40, 'i'));
  EXPECT_EQ(copy.definitions, std::vector<std::string>{std::string(40, 'd')});
}

TEST(Wording, WalksOverEveryText) {
  std::vector<std::string> texts;
  const Wording wording = full_wording();
  for_each_text(wording, [&texts](std::string_view text) { texts.emplace_back(text); });
  EXPECT_EQ(texts, TEXTS);
}

TEST(Wording, LetsTheWalkReplaceTexts) {
  Wording wording = full_wording();
  for_each_text(wording, [](std::string_view& text) { text.remove_suffix(text.size()); });
  for_each_text(wording, [](std::string_view text) { EXPECT_EQ(text, ""); });
  EXPECT_EQ(wording.definitions.size(), 2U);
}

TEST(Wording, SortsItsSetsAndDropsRepetitions) {
  Wording wording = full_wording();
  wording.definitions = {"b", "a", "b"};
  wording.based_on = {"y", "y", "x"};
  EXPECT_NE(wording, full_wording());
  sort_sets(wording);
  EXPECT_EQ(wording, full_wording());
}

}  // namespace
