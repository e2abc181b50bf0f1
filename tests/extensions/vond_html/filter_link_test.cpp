#include "filter_link.h"

#include <gtest/gtest.h>

namespace vond::test {
namespace {

using vond_html::filter_fragment;

TEST(FilterLink, NamesAndValuesAreJoinedAsInAddresses) {
  EXPECT_EQ(filter_fragment({{"band", "critical"}, {"type", "missing_data"}}),
            "band=critical&type=missing_data");
  EXPECT_EQ(filter_fragment({}), "");
}

TEST(FilterLink, WhatWouldEndAValueIsEncodedByteByByte) {
  EXPECT_EQ(filter_fragment({{"definition", "a/b&c=d e+%#\xC3\xA4"}}),
            "definition=a%2Fb%26c%3Dd%20e%2B%25%23%C3%A4");
}

}  // namespace
}  // namespace vond::test
