#include "server/ScreenRevision.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using sim::revisionIn;

TEST(ScreenRevisionTests, FindsTheNumberAtTheTop) {
  EXPECT_EQ(revisionIn(R"({"revision":7})"), 7u);
  EXPECT_EQ(revisionIn(R"({"page":{"revision":1,"rows":[{"revision":2}]},"path":[],"revision":18446744073709551615})"),
            18446744073709551615u);
}

TEST(ScreenRevisionTests, AnythingElseIsNone) {
  for (const char* text : {"", "7", "[7]", "{}", R"({"revision":"7"})", R"({"revision":-7})", R"({"revision":1.5})",
                           R"({"page":{"revision":7}})", R"({"revision":null,"other":7})", R"(["revision",7])",
                           R"({"revision":[7]})", R"({"a":"\"revision\":7"})"})
    EXPECT_EQ(revisionIn(text), 0u) << text;
}

TEST(ScreenRevisionTests, DeepNestingDoesNoHarm) { EXPECT_EQ(revisionIn(std::string(1'000'000, '[')), 0u); }

}  // namespace
