#include "server/Options.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace {

sim::Options parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "simulator");
  return sim::parseOptions(static_cast<int>(arguments.size()), arguments.data(), {});
}

TEST(OptionsTests, Defaults) {
  const sim::Options options = parse({});
  EXPECT_EQ(options.device, "device");
  EXPECT_EQ(options.port, 0);
  EXPECT_TRUE(options.sandbox);
  EXPECT_FALSE(options.help);
}

TEST(OptionsTests, TakesEveryOption) {
  const sim::Options options = parse(
      {"--device", "d", "--install", "i", "--settings", "s", "--web", "w", "--port", "65535", "--sandbox", "off"});
  EXPECT_EQ(options.device, "d");
  EXPECT_EQ(options.install, "i");
  EXPECT_EQ(options.settings, "s");
  EXPECT_EQ(options.web, "w");
  EXPECT_EQ(options.port, 65535);
  EXPECT_FALSE(options.sandbox);
  EXPECT_TRUE(parse({"--help"}).help);
}

TEST(OptionsTests, RefusesEverythingElse) {
  for (const std::vector<const char*>& arguments : {std::vector<const char*>{"--nothing"},
                                                    {"device"},
                                                    {"--device"},
                                                    {"--device", ""},
                                                    {"--port"},
                                                    {"--port", "65536"},
                                                    {"--sandbox"},
                                                    {"--sandbox", "on"},
                                                    {"--port", "-1"},
                                                    {"--port", "80x"},
                                                    {"--port", ""},
                                                    {"--port", " 80"},
                                                    {"-h"}})
    EXPECT_THROW(parse(arguments), sim::UsageError);
}

}  // namespace
