#include <gtest/gtest.h>

#include <bitset>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "vond/postprocessor/postprocessor_extension_data.h"

namespace {

using vond::FwdHierarchy;
using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::CompareBitset;
using vond::postprocessor::IssuesByMask;
using vond::postprocessor::PostprocessorExtensionData;

using Data = PostprocessorExtensionData;
using OptionMap = std::map<std::string, std::vector<std::pair<std::string, std::string>>>;
using Counts = std::map<std::bitset<5>, int, CompareBitset>;
using Issues =
    std::map<std::bitset<5>, std::vector<std::shared_ptr<CollapsedAnalysisOutput>>, CompareBitset>;

template <auto Field>
struct FieldType;
template <typename Type, Type Data::*Field>
struct FieldType<Field> {
  using type = Type;
};
template <auto Field, typename Expected>
constexpr bool FIELD_IS = std::is_same_v<typename FieldType<Field>::type, Expected>;

static_assert(FIELD_IS<&Data::host_string_list, std::vector<std::string>>);
static_assert(std::is_integral_v<decltype(Data::host_word)> && sizeof(Data::host_word) == 8);
static_assert(FIELD_IS<&Data::host_text_1, std::string>);
static_assert(FIELD_IS<&Data::host_text_2, std::string>);
static_assert(FIELD_IS<&Data::host_text_3, std::string>);
static_assert(FIELD_IS<&Data::host_text_4, std::string>);
static_assert(FIELD_IS<&Data::host_flag_1, bool>);
static_assert(FIELD_IS<&Data::host_flag_2, bool>);
static_assert(FIELD_IS<&Data::host_flag_3, bool>);
static_assert(FIELD_IS<&Data::fail_threshold, int>);
static_assert(FIELD_IS<&Data::host_count, int>);
static_assert(FIELD_IS<&Data::line_width, int>);
static_assert(FIELD_IS<&Data::counts_by_mask, Counts>);
static_assert(FIELD_IS<&Data::host_name_set, std::set<std::string>>);
static_assert(FIELD_IS<&Data::fwd_root, std::shared_ptr<FwdHierarchy>>);
static_assert(FIELD_IS<&Data::issues_by_mask, std::shared_ptr<Issues>>);
static_assert(FIELD_IS<&Data::log_level, std::string>);
static_assert(FIELD_IS<&Data::host_option_map, OptionMap>);

template <typename Pointer>
constexpr bool IS_SHARED_POINTER = false;
template <typename Pointee>
constexpr bool IS_SHARED_POINTER<std::shared_ptr<Pointee>> = true;
static_assert(IS_SHARED_POINTER<decltype(Data::host_shared_1)>);
static_assert(IS_SHARED_POINTER<decltype(Data::host_shared_2)>);
static_assert(IS_SHARED_POINTER<decltype(Data::host_shared_3)>);
static_assert(IS_SHARED_POINTER<decltype(Data::host_shared_4)>);
static_assert(IS_SHARED_POINTER<decltype(Data::host_shared_5)>);
static_assert(IS_SHARED_POINTER<decltype(Data::host_shared_6)>);
static_assert(IS_SHARED_POINTER<decltype(Data::host_shared_7)>);
static_assert(IS_SHARED_POINTER<decltype(Data::host_shared_8)>);
static_assert(IS_SHARED_POINTER<decltype(Data::host_shared_9)>);

static_assert(!std::is_polymorphic_v<Data>);
static_assert(std::is_copy_assignable_v<Data> && std::is_copy_constructible_v<Data>);

TEST(Record, HasTwentySevenFieldsInTheOrderOfTheBinaryContract) {
  const Data data;
  // Members are bound in the order of declaration, and all of them must be.
  const auto& [f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12, f13, f14, f15, f16, f17, f18, f19,
               f20, f21, f22, f23, f24, f25, f26, f27] = data;
  const std::vector<std::pair<const void*, const void*>> fields = {
      {&f1, &data.host_string_list}, {&f2, &data.host_word},      {&f3, &data.host_text_1},
      {&f4, &data.host_text_2},      {&f5, &data.host_text_3},    {&f6, &data.host_text_4},
      {&f7, &data.host_flag_1},      {&f8, &data.host_flag_2},    {&f9, &data.host_flag_3},
      {&f10, &data.fail_threshold},  {&f11, &data.host_count},    {&f12, &data.line_width},
      {&f13, &data.counts_by_mask},  {&f14, &data.host_name_set}, {&f15, &data.host_shared_1},
      {&f16, &data.host_shared_2},   {&f17, &data.host_shared_3}, {&f18, &data.host_shared_4},
      {&f19, &data.fwd_root},        {&f20, &data.host_shared_5}, {&f21, &data.host_shared_6},
      {&f22, &data.issues_by_mask},  {&f23, &data.log_level},     {&f24, &data.host_shared_7},
      {&f25, &data.host_shared_8},   {&f26, &data.host_shared_9}, {&f27, &data.host_option_map}};
  const void* previous = nullptr;
  for (std::size_t field = 0; field < fields.size(); ++field) {
    EXPECT_EQ(fields[field].first, fields[field].second) << "field " << field + 1;
    EXPECT_TRUE(std::less<>()(previous, fields[field].first)) << "field " << field + 1;
    previous = fields[field].first;
  }
}

/// Returns a record with something in every field.
Data make_full_record() {
  Data data;
  data.host_string_list = {"one", "two"};
  data.host_word = 0xFEDCBA9876543210U;
  data.host_text_1 = "text 1";
  data.host_text_2 = "text 2";
  data.host_text_3 = "text 3";
  data.host_text_4 = "text 4";
  data.host_flag_1 = true;
  data.host_flag_2 = true;
  data.host_flag_3 = true;
  data.fail_threshold = 75;
  data.host_count = 7;
  data.line_width = 80;
  data.counts_by_mask = {{16, 3}, {0, 1}};
  data.host_name_set = {"b", "a"};
  data.host_shared_1 = std::make_shared<int>(1);
  data.host_shared_2 = std::make_shared<int>(2);
  data.host_shared_3 = std::make_shared<int>(3);
  data.host_shared_4 = std::make_shared<int>(4);
  data.fwd_root = std::make_shared<FwdHierarchy>();
  data.host_shared_5 = std::make_shared<int>(5);
  data.host_shared_6 = std::make_shared<int>(6);
  data.issues_by_mask = std::make_shared<IssuesByMask>();
  data.log_level = "info";
  data.host_shared_7 = std::make_shared<int>(7);
  data.host_shared_8 = std::make_shared<int>(8);
  data.host_shared_9 = std::make_shared<int>(9);
  data.host_option_map = {{"option", {{"key", "value"}}}};
  return data;
}

void expect_equal(const Data& left, const Data& right) {
  EXPECT_EQ(left.host_string_list, right.host_string_list);
  EXPECT_EQ(left.host_word, right.host_word);
  EXPECT_EQ(left.host_text_1, right.host_text_1);
  EXPECT_EQ(left.host_text_2, right.host_text_2);
  EXPECT_EQ(left.host_text_3, right.host_text_3);
  EXPECT_EQ(left.host_text_4, right.host_text_4);
  EXPECT_EQ(left.host_flag_1, right.host_flag_1);
  EXPECT_EQ(left.host_flag_2, right.host_flag_2);
  EXPECT_EQ(left.host_flag_3, right.host_flag_3);
  EXPECT_EQ(left.fail_threshold, right.fail_threshold);
  EXPECT_EQ(left.host_count, right.host_count);
  EXPECT_EQ(left.line_width, right.line_width);
  EXPECT_EQ(left.counts_by_mask, right.counts_by_mask);
  EXPECT_EQ(left.host_name_set, right.host_name_set);
  EXPECT_EQ(left.host_shared_1, right.host_shared_1);
  EXPECT_EQ(left.host_shared_2, right.host_shared_2);
  EXPECT_EQ(left.host_shared_3, right.host_shared_3);
  EXPECT_EQ(left.host_shared_4, right.host_shared_4);
  EXPECT_EQ(left.fwd_root, right.fwd_root);
  EXPECT_EQ(left.host_shared_5, right.host_shared_5);
  EXPECT_EQ(left.host_shared_6, right.host_shared_6);
  EXPECT_EQ(left.issues_by_mask, right.issues_by_mask);
  EXPECT_EQ(left.log_level, right.log_level);
  EXPECT_EQ(left.host_shared_7, right.host_shared_7);
  EXPECT_EQ(left.host_shared_8, right.host_shared_8);
  EXPECT_EQ(left.host_shared_9, right.host_shared_9);
  EXPECT_EQ(left.host_option_map, right.host_option_map);
}

TEST(Record, CopyHoldsEqualValuesAndSharesThePointees) {
  const Data original = make_full_record();
  Data copy;
  copy = original;
  expect_equal(copy, original);
  EXPECT_EQ(original.fwd_root.use_count(), 2);
  EXPECT_EQ(original.issues_by_mask.use_count(), 2);
  EXPECT_EQ(original.host_shared_9.use_count(), 2);
}

TEST(Record, CopyOfValuesIsIndependentOfTheOriginal) {
  Data original = make_full_record();
  const Data copy = original;
  original.host_string_list.emplace_back("three");
  original.host_text_4 = "changed";
  original.fail_threshold = 25;
  original.counts_by_mask[16] = 99;
  original.host_name_set.clear();
  original.log_level = "debug";
  original.host_option_map["option"].clear();
  original.fwd_root.reset();
  const Data expected = make_full_record();
  EXPECT_EQ(copy.host_string_list, expected.host_string_list);
  EXPECT_EQ(copy.host_text_4, "text 4");
  EXPECT_EQ(copy.fail_threshold, 75);
  EXPECT_EQ(copy.counts_by_mask, expected.counts_by_mask);
  EXPECT_EQ(copy.host_name_set, expected.host_name_set);
  EXPECT_EQ(copy.log_level, "info");
  EXPECT_EQ(copy.host_option_map, expected.host_option_map);
  EXPECT_NE(copy.fwd_root, nullptr);
}

TEST(Record, ChangeOfAPointeeIsSeenThroughTheCopy) {
  const Data original = make_full_record();
  const Data copy = original;
  (*original.issues_by_mask)[24].push_back(std::make_shared<CollapsedAnalysisOutput>());
  EXPECT_EQ(copy.issues_by_mask->at(24), original.issues_by_mask->at(24));
}

TEST(Record, AssignedToItselfStaysAsItIs) {
  Data data = make_full_record();
  const Data before = data;
  const Data& same = data;
  data = same;
  expect_equal(data, before);
  EXPECT_EQ(data.host_shared_1.use_count(), 2);
}

TEST(Record, WithEmptyPointersIsCopiedWithEmptyPointers) {
  const Data original;
  Data copy = make_full_record();
  copy = original;
  expect_equal(copy, original);
  EXPECT_EQ(copy.fwd_root, nullptr);
  EXPECT_EQ(copy.issues_by_mask, nullptr);
  EXPECT_EQ(copy.host_shared_1, nullptr);
}

/// Notes the names of its pointers in the order in which their pointees are destroyed.
class ReleaseOrder {
 public:
  template <typename Pointee>
  std::shared_ptr<Pointee> pointer(const std::string& name) {
    return {new Pointee, [this, name](Pointee* pointee) {
              order.push_back(name);
              delete pointee;
            }};
  }

  std::vector<std::string> order;
};

Data make_observed_record(ReleaseOrder& release) {
  Data data;
  data.host_shared_1 = release.pointer<int>("host_shared_1");
  data.host_shared_2 = release.pointer<int>("host_shared_2");
  data.host_shared_3 = release.pointer<int>("host_shared_3");
  data.host_shared_4 = release.pointer<int>("host_shared_4");
  data.fwd_root = release.pointer<FwdHierarchy>("fwd_root");
  data.host_shared_5 = release.pointer<int>("host_shared_5");
  data.host_shared_6 = release.pointer<int>("host_shared_6");
  data.issues_by_mask = release.pointer<IssuesByMask>("issues_by_mask");
  data.host_shared_7 = release.pointer<int>("host_shared_7");
  data.host_shared_8 = release.pointer<int>("host_shared_8");
  data.host_shared_9 = release.pointer<int>("host_shared_9");
  return data;
}

const std::vector<std::string> POINTERS_AS_DECLARED = {
    "host_shared_1", "host_shared_2", "host_shared_3", "host_shared_4",
    "fwd_root",      "host_shared_5", "host_shared_6", "issues_by_mask",
    "host_shared_7", "host_shared_8", "host_shared_9"};

TEST(Record, IsAssignedFieldByFieldInTheOrderOfDeclaration) {
  ReleaseOrder release;
  Data data = make_observed_record(release);
  const Data empty;
  data = empty;
  EXPECT_EQ(release.order, POINTERS_AS_DECLARED);
}

TEST(Record, ReleasesItsFieldsInReverseOrder) {
  ReleaseOrder release;
  { const Data data = make_observed_record(release); }
  const std::vector<std::string> reversed(POINTERS_AS_DECLARED.rbegin(),
                                          POINTERS_AS_DECLARED.rend());
  EXPECT_EQ(release.order, reversed);
}

TEST(Record, PointeeLivesUntilTheLastHolderLetsGo) {
  auto original = std::make_unique<Data>(make_full_record());
  const std::weak_ptr<IssuesByMask> pointee = original->issues_by_mask;
  auto copy = std::make_unique<Data>(*original);
  original.reset();
  EXPECT_FALSE(pointee.expired());
  copy.reset();
  EXPECT_TRUE(pointee.expired());
}

}  // namespace
