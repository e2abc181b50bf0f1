#include "standalone/patterns/place_summary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using vond::standalone::PlaceValue;
using vond::standalone::sort_values;
using vond::standalone::summarize_place;
using vond::standalone::ValueKind;

/// What findings say at a place: value and nodes of each.
class Place {
 public:
  Place& add(const std::string& value, const std::vector<std::uint32_t>& nodes = {},
             std::size_t findings = 1) {
    auto& [count, value_nodes] = values_[value];
    count += findings;
    value_nodes.insert(value_nodes.end(), nodes.begin(), nodes.end());
    return *this;
  }

  Place& add_all(const std::vector<std::string>& values) {
    for (const std::string& value : values) {
      add(value);
    }
    return *this;
  }

  /// Numbers with something around them, each once.
  Place& add_range(int first, int last, const std::string& before = "",
                   const std::string& behind = "") {
    for (int number = first; number <= last; ++number) {
      add(std::string(before).append(std::to_string(number)).append(behind));
    }
    return *this;
  }

  /// The summary, which must be the same in any order of values and nodes.
  std::string summary(bool has_several_nodes = true) {
    std::string text = summarize_place(values(), names, has_several_nodes);
    std::mt19937 random(1);
    for (int i = 0; i < 5; ++i) {
      std::vector<PlaceValue> shuffled = values();
      std::shuffle(shuffled.begin(), shuffled.end(), random);
      for (auto& [value, use] : values_) {
        std::shuffle(use.second.begin(), use.second.end(), random);
      }
      EXPECT_EQ(summarize_place(std::move(shuffled), names, has_several_nodes), text);
    }
    return text;
  }

  std::vector<PlaceValue> values() const {
    std::vector<PlaceValue> values;
    for (const auto& [value, use] : values_) {
      values.push_back({value, use.first, use.second});
    }
    return values;
  }

 private:
  static std::string_view names(std::uint32_t node) {
    static std::map<std::uint32_t, std::string> names;
    return names.try_emplace(node, "cn" + std::to_string(node)).first->second;
  }

  std::map<std::string, std::pair<std::size_t, std::vector<std::uint32_t>>> values_;
};

TEST(PlaceSummary, TellsUpToEightValues) {
  EXPECT_EQ(Place().add_all({"13"}).summary(), "13");
  EXPECT_EQ(Place().add_all({"31", "13"}).summary(), "13 or 31");
  EXPECT_EQ(Place().add_all({"79", "31", "48", "13"}).summary(), "13, 31, 48 or 79");
  EXPECT_EQ(Place().add_range(5, 12).summary(), "5, 6, 7, 8, 9, 10, 11 or 12");
  EXPECT_EQ(Place().add_range(5, 13).summary(), "5 to 13");
}

TEST(PlaceSummary, TellsTheNodesOfARareValueAmongSeveralNodes) {
  Place place;
  place.add("13", {1, 2, 3, 4}).add("31", {7, 6, 5, 6}).add("48", {9}).add("79", {});
  EXPECT_EQ(place.summary(true), "13, 31 [cn5,cn6,cn7], 48 [cn9] or 79");
  EXPECT_EQ(place.summary(false), "13, 31, 48 or 79");
}

TEST(PlaceSummary, NamesNodesInNaturalOrderWithoutBracketsInsideItsOwn) {
  const std::vector<std::string> names = {"2414", "973", "rack 7", "cn10", "cn9"};
  const auto name_of = [&names](std::uint32_t node) { return std::string_view(names[node]); };
  const std::vector<std::uint32_t> numbers = {0, 1};
  const std::vector<std::uint32_t> others = {2, 3, 4};
  EXPECT_EQ(summarize_place({{"a1", 1, numbers}, {"a2", 1, others}}, name_of, true),
            "a1 [973,2414] or a2 [cn9,cn10,'rack 7']");
}

TEST(PlaceSummary, SortsFewValuesByNumberTimeOrNaturally) {
  EXPECT_EQ(Place().add_all({"100C", "-5C", "20C"}).summary(), "-5C, 20C or 100C");
  EXPECT_EQ(Place().add_all({"1,200", "900", "1200"}).summary(), "900, 1,200 or 1200");
  EXPECT_EQ(Place().add_all({"Feb 1 00:00:00", "Jan 31 00:00:00"}).summary(),
            "Jan 31 00:00:00 or Feb 1 00:00:00");
  EXPECT_EQ(Place().add_all({"eth10/a1", "eth9/a1"}).summary(), "eth9/a1 or eth10/a1");
  EXPECT_EQ(Place().add_all({"2.5", "12.25.1"}).summary(), "2.5 or 12.25.1");
}

TEST(PlaceSummary, TellsTheRangeOfManyNumbersAndWhatStandsAroundThemOnce) {
  EXPECT_EQ(Place().add_range(83, 131, "", "C").summary(), "83 to 131C");
  EXPECT_EQ(Place().add_range(90, 110, "core.").summary(), "core.90 to 110");
  EXPECT_EQ(Place().add_range(-4, 4, "<", ">").summary(), "<-4 to 4>");
  EXPECT_EQ(Place().add_range(10, 20, "NODE-eth").summary(), "NODE-eth10 to 20");
}

TEST(PlaceSummary, TellsNoRangeOfNumbersOfDifferentUnitsOrWithLeadingZeros) {
  EXPECT_EQ(Place().add_range(1, 8, "", "GB").add("9MB").summary(), "1GB, 2GB and 7 more");
  EXPECT_EQ(Place().add_range(1, 8).add("09").summary(), "1, 2 and 7 more");
}

TEST(PlaceSummary, ShowsNumbersAsTheyAreWritten) {
  EXPECT_EQ(Place().add_range(1193, 1199).add("1,200").add("1200").summary(), "1193 to 1200");
  EXPECT_EQ(Place().add_range(1195, 1201).add("1.195e3").add("+1195").summary(), "+1195 to 1201");
  EXPECT_EQ(Place().add_range(990, 998).add("1e+03").summary(), "990 to 1e+03");
}

TEST(PlaceSummary, TellsTheRangeOfNumbersWithoutAWholePart) {
  const std::vector<std::string> loads = {".5", ".12", ".85", "1.9", ".71", ".3", ".25", "0.6"};
  EXPECT_EQ(Place().add_all(loads).summary(), ".12, .25, .3, .5, 0.6, .71, .85 or 1.9");
  EXPECT_EQ(Place().add_all(loads).add(".45").summary(), ".12 to 1.9");
  EXPECT_EQ(Place().add_all({"-.5", "-.12", "-1", "+.3"}).summary(), "-1, -.5, -.12 or +.3");
}

TEST(PlaceSummary, TellsTheLeastOfNumbersWithAMinusSignOfTypography) {
  EXPECT_EQ(Place().add_range(0, 8).add("\u22121").add("\u22122").summary(), "\u22122 to 8");
}

TEST(PlaceSummary, TellsWhatStandsOut) {
  EXPECT_EQ(Place().add_range(81, 89).add("131", {77}).summary(),
            "81 to 131 [median 85; 131 on cn77]");
  EXPECT_EQ(Place().add_range(81, 89).add("131", {77}).summary(false),
            "81 to 131 [median 85; 131 on cn77]");
  EXPECT_EQ(Place().add_range(81, 89, "", "C").add("131C").summary(),
            "81 to 131C [median 85; 131]");
}

TEST(PlaceSummary, TellsTheNodesOfWhatStandsOutByNameUpToThree) {
  const auto with = [](const std::vector<std::uint32_t>& nodes) {
    return Place().add_range(81, 89).add("131", nodes).summary();
  };
  EXPECT_EQ(with({3, 1, 2, 1}), "81 to 131 [median 85; 131 on cn1,cn2,cn3]");
  EXPECT_EQ(with({3, 1, 2, 4}), "81 to 131 [median 85; 131 on 4 nodes]");
}

TEST(PlaceSummary, TellsTheThreeThatAreFarthestOut) {
  EXPECT_EQ(Place().add_range(81, 89).add_all({"131", "10", "133", "132", "9"}).summary(),
            "9 to 133 [median 85; 9; 10; 133]");
  EXPECT_EQ(Place().add_range(100, 140).add_all({"1200", "-900", "1,200", "1.2e3"}).summary(),
            "-900 to 1200 [median 121; 1,200; 1.2e3; 1200]");
}

TEST(PlaceSummary, TellsTheLesserFirstOfWhatIsEquallyFarOut) {
  // Quartiles 3 and 9.
  EXPECT_EQ(Place().add_range(1, 11).add_all({"-20", "32"}).summary(),
            "-20 to 32 [median 6; -20; 32]");
}

TEST(PlaceSummary, LeavesWhatIsJustThreeRangesAwayOut) {
  // The quartiles of 12 values are the third and the ninth: 3 and 9, or a tenth of them.
  EXPECT_EQ(Place().add_range(1, 11).add("27").summary(), "1 to 27");
  EXPECT_EQ(Place().add_range(1, 11).add("27.001").summary(), "1 to 27.001 [median 6; 27.001]");
  Place tenths;
  for (int i = 1; i <= 11; ++i) {
    tenths.add(std::to_string(i / 10) + "." + std::to_string(i % 10));
  }
  EXPECT_EQ(Place(tenths).add("2.7").summary(), "0.1 to 2.7");
  EXPECT_EQ(Place(tenths).add("2.7000001").summary(), "0.1 to 2.7000001 [median 0.6; 2.7000001]");
}

TEST(PlaceSummary, CountsQuartilesAndMedianByFindings) {
  // Of 108 findings 100 say 5: no range between the quartiles.
  Place place;
  place.add_range(1, 9).add("5", {}, 99);
  EXPECT_EQ(place.summary(), "1 to 9 [median 5; 1; 9; 2]");
  // Four of nine and five of nine: 1 and 9 are the quartiles.
  EXPECT_EQ(Place().add_range(1, 9).add("1", {}, 1000).add("9", {}, 1000).summary(), "1 to 9");
}

TEST(PlaceSummary, TakesNumbersThatFitNoMachineWord) {
  const std::string zeros(30, '0');
  EXPECT_EQ(Place().add_range(1, 9, "", zeros).add("9" + zeros + "0000").summary(),
            "1" + zeros + " to 9" + zeros + "0000 [median 5" + zeros + "; 9" + zeros + "0000]");
  EXPECT_EQ(Place().add_range(1, 9).add("1e999999999").add("-1e999999999").summary(),
            "-1e999999999 to 1e999999999 [median 5; -1e999999999; 1e999999999]");
}

TEST(PlaceSummary, TellsFromWhenToWhenManyTimesAre) {
  Place dates;
  Place times;
  for (int day = 10; day < 20; ++day) {
    dates.add("2026-01-" + std::to_string(day));
    times.add("Jan " + std::to_string(day) + " 00:00:00");
  }
  EXPECT_EQ(dates.summary(), "2026-01-10 to 2026-01-19");
  EXPECT_EQ(times.add("Jan  9 01:00:00").summary(), "Jan  9 01:00:00 to Jan 19 00:00:00");
  EXPECT_EQ(dates.add("23:59:59").summary(), "23:59:59, 2026-01-10 and 9 more");
}

TEST(PlaceSummary, TellsTheFirstTwoOfManyOthers) {
  EXPECT_EQ(Place()
                .add_range(13, 24, "core.b", "x")
                .add_range(7, 7, "core.a")
                .add("core.b12", {1})
                .summary(),
            "core.a7, core.b12 and 12 more");
}

/// The summary's bracket worked out finding by finding.
std::string expected_range(const std::map<int, int>& counts) {
  std::vector<int> all;
  for (const auto& [number, count] : counts) {
    all.insert(all.end(), static_cast<std::size_t>(count), number);
  }
  const auto element = [&all](std::size_t quarters) {
    return all[quarters * (all.size() - 1) / 4];
  };
  const int allowed = 3 * (element(3) - element(1));
  std::vector<std::pair<int, int>> outside;
  for (const auto& [number, count] : counts) {
    const int distance = std::max(element(1) - number, number - element(3));
    if (distance > allowed) {
      outside.emplace_back(-distance, number);
    }
  }
  std::sort(outside.begin(), outside.end());
  outside.resize(std::min<std::size_t>(outside.size(), 3));
  std::string text = std::to_string(all.front()) + " to " + std::to_string(all.back());
  if (outside.empty()) {
    return text;
  }
  text += " [median " + std::to_string(element(2));
  for (const auto& [distance, number] : outside) {
    text += "; " + std::to_string(number);
  }
  return text + "]";
}

TEST(PlaceSummary, IsWhatCountingEveryFindingGives) {
  std::mt19937 random(7);
  const auto below = [&random](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  for (int round = 0; round < 500; ++round) {
    std::map<int, int> counts;
    const int spread = 1 << below(8);
    while (counts.size() < 9U + static_cast<unsigned>(below(20))) {
      const int number = below(8) == 0 ? below(2000) - 1000 : below(10 + spread) - spread / 2;
      counts[number] += 1 + below(4);
    }
    Place place;
    for (const auto& [number, count] : counts) {
      place.add(std::to_string(number), {}, static_cast<std::size_t>(count));
    }
    ASSERT_EQ(place.summary(), expected_range(counts));
  }
}

TEST(SortedValues, TellWhatKindTheyAre) {
  Place numbers;
  numbers.add_all({"100C", "20C"});
  const auto sorted = sort_values(numbers.values());
  EXPECT_EQ(sorted.kind, ValueKind::NUMBER);
  EXPECT_EQ(sorted.before, "");
  EXPECT_EQ(sorted.behind, "C");
  EXPECT_EQ(sorted.values[0].text, "20C");
  EXPECT_EQ(sort_values(Place().add_all({"00:00:01", "00:00:02"}).values()).kind, ValueKind::TIME);
  EXPECT_EQ(sort_values(Place().add_all({"x1y2", "2"}).values()).kind, ValueKind::OTHER);
}

}  // namespace
