#pragma once

#include <locale>
#include <string>

namespace vond::test {

/// While it lives, the global locale writes 12 as 1'2 and 1.5 as 1,5.
class GroupingLocale {
 public:
  GroupingLocale()
      : previous_(std::locale::global(std::locale(std::locale::classic(), new Grouping))) {}
  GroupingLocale(const GroupingLocale&) = delete;
  GroupingLocale& operator=(const GroupingLocale&) = delete;
  ~GroupingLocale() { std::locale::global(previous_); }

 private:
  class Grouping : public std::numpunct<char> {
   protected:
    // Groups of one digit, so that numbers of two digits show them.
    std::string do_grouping() const override { return "\1"; }
    char do_thousands_sep() const override { return '\''; }
    char do_decimal_point() const override { return ','; }
  };

  std::locale previous_;
};

}  // namespace vond::test
