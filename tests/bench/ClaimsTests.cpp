#include "bench/Claims.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <limits>
#include <sstream>
#include <string>

namespace {

using bench::atLeast;
using bench::atMost;
using bench::Bound;
using bench::Claims;

struct Report {
  std::string text;
  int status;
};

Report reportOf(const Claims& claims) {
  std::ostringstream out;
  const int status = claims.report(out);
  return {out.str(), status};
}

Report reportOf(double numerator, double denominator, Bound bound) {
  Claims claims;
  claims.ratio("tone 180x180", "kernel/read", numerator, denominator, bound);
  return reportOf(claims);
}

TEST(ClaimsTests, aLineSaysWhichDirectionIsGoodAndTheBound) {
  EXPECT_EQ(reportOf(3, 2, atLeast(0.9)).text, "tone 180x180: kernel/read 1.50 (at least 0.9)\n");
  EXPECT_EQ(reportOf(3, 2, atMost(2.5)).text, "tone 180x180: kernel/read 1.50 (at most 2.5)\n");
}

TEST(ClaimsTests, aTimeIsGivenInMillisecondsBesideItsGoal) {
  Claims claims;
  claims.time("theme page", "page/goal", 68.54, 100);
  const Report report = reportOf(claims);
  EXPECT_EQ(report.text, "theme page: page/goal 0.69 (at most 1): 68.5 ms, goal 100 ms\n");
  EXPECT_EQ(report.status, 0);
}

TEST(ClaimsTests, claimsThatAreKeptPass) {
  EXPECT_EQ(reportOf(30, 1, atLeast(30)).status, 0);
  EXPECT_EQ(reportOf(100, 1, atLeast(30)).status, 0);
  EXPECT_EQ(reportOf(2.5, 1, atMost(2.5)).status, 0);
  EXPECT_EQ(reportOf(0.1, 1, atMost(2.5)).status, 0);
  EXPECT_EQ(reportOf(Claims()).status, 0);
}

TEST(ClaimsTests, aBoundThatIsMissedALittleIsSaidAndPasses) {
  const Report slower = reportOf(16, 1, atLeast(30)), longer = reportOf(4.9, 1, atMost(2.5));
  EXPECT_EQ(slower.text, "tone 180x180: kernel/read 16.00 (at least 30), missed\n");
  EXPECT_EQ(longer.text, "tone 180x180: kernel/read 4.90 (at most 2.5), missed\n");
  EXPECT_EQ(slower.status, 0);
  EXPECT_EQ(longer.status, 0);
}

TEST(ClaimsTests, aBoundThatIsMissedTwiceFails) {
  const Report slower = reportOf(15, 1, atLeast(30)), longer = reportOf(5, 1, atMost(2.5));
  EXPECT_EQ(slower.text, "tone 180x180: kernel/read 15.00 (at least 30), MISSED BY FAR\n");
  EXPECT_EQ(longer.text, "tone 180x180: kernel/read 5.00 (at most 2.5), MISSED BY FAR\n");
  EXPECT_EQ(slower.status, 1);
  EXPECT_EQ(longer.status, 1);
}

TEST(ClaimsTests, aTimeOfTwiceTheGoalFails) {
  Claims claims;
  claims.time("theme page", "page/goal", 199, 100);
  EXPECT_EQ(reportOf(claims).status, 0);
  claims.time("theme pick", "pick/goal", 4000, 2000);
  const Report report = reportOf(claims);
  EXPECT_EQ(report.status, 1);
  EXPECT_EQ(report.text,
            "theme page: page/goal 1.99 (at most 1): 199.0 ms, goal 100 ms, missed\n"
            "theme pick: pick/goal 2.00 (at most 1): 4000.0 ms, goal 2000 ms, MISSED BY FAR\n");
}

TEST(ClaimsTests, oneClaimThatIsMissedByFarFailsAmongOthersThatAreKept) {
  Claims claims;
  claims.ratio("first", "many/few", 2, 1, atMost(2.5));
  claims.ratio("second", "many/few", 9, 1, atMost(2.5));
  claims.ratio("third", "many/few", 2, 1, atMost(2.5));
  EXPECT_EQ(reportOf(claims).status, 1);
}

TEST(ClaimsTests, whatWasNotMeasuredFails) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN(), kEndless = std::numeric_limits<double>::infinity();
  for (const Bound bound : {atLeast(1), atMost(1)}) {
    for (const double bad : {0., -1., kNone, kEndless}) {
      EXPECT_EQ(reportOf(bad, 1, bound).status, 1) << bad;
      EXPECT_EQ(reportOf(1, bad, bound).status, 1) << bad;
    }
  }
}

TEST(ClaimsDeathTest, aProgramThatReturnsTheReportEndsWithAnError) {
  Claims claims;
  claims.ratio("lists tap", "20000/10000", 40, 10, atMost(1.5));
  EXPECT_EXIT(std::exit(claims.report(std::cerr)), testing::ExitedWithCode(1), "lists tap: 20000/10000 4.00 .*BY FAR");
}

}  // namespace
