// What a failed assertion leaves on standard error, for death tests. A plain substring: the
// conditions hold characters that mean something in a regular expression.

#pragma once

#include <gmock/gmock.h>

#include <string>

inline testing::Matcher<const std::string&> failedAssertion(const std::string& condition) {
  return testing::HasSubstr("Assertion `" + condition + "' failed");
}
