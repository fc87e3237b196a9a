#include "wire/Messages.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace sim::wire;
using nlohmann::json;

/// As it arrives: numbers are of other kinds when they come from a text.
Message overText(const Message& message) { return {json::parse(message.header.dump()), message.payload}; }

template <typename Struct>
Struct sentAsCall(Struct message) {
  const Request request = decodeRequest(overText(encode(Request{7, std::move(message)})));
  EXPECT_EQ(request.number, 7u);
  EXPECT_TRUE(std::holds_alternative<Struct>(request.call));
  return std::holds_alternative<Struct>(request.call) ? std::get<Struct>(request.call) : Struct{};
}

template <typename Struct>
Struct sentAsReport(Struct message) {
  const Report report = decodeReport(overText(encode(std::move(message))));
  EXPECT_TRUE(std::holds_alternative<Struct>(report));
  return std::holds_alternative<Struct>(report) ? std::get<Struct>(report) : Struct{};
}

bool isReadableCall(json header, std::optional<std::string> payload = {}) {
  return !std::holds_alternative<Unreadable>(decodeRequest(overText({std::move(header), std::move(payload)})).call);
}

bool isReadableReport(json header, std::optional<std::string> payload = {}) {
  return !std::holds_alternative<Unreadable>(decodeReport(overText({std::move(header), std::move(payload)})));
}

TEST(MessagesTests, EachVerbHasOneRowAndANameOfItsOwn) {
  std::set<std::string_view> names;
  for (std::size_t at = 0; at < kVerbs.size(); ++at) {
    EXPECT_EQ(kVerbs[at].verb, static_cast<Verb>(at));
    EXPECT_TRUE(names.insert(kVerbs[at].name).second) << kVerbs[at].name;
  }
  EXPECT_EQ(kVerbs.back().verb, Verb::raised) << "the last one";
}

TEST(MessagesTests, CallsArriveAsTheyWereSent) {
  const std::string bytes("{\"type\":\"tap\"}\0\xff", 16);
  sentAsCall(Screen{});
  EXPECT_EQ(sentAsCall(Event{bytes}).body, bytes);
  EXPECT_EQ(sentAsCall(Event{""}).body, "");
  EXPECT_EQ(sentAsCall(Image{"7-photo"}).id, "7-photo");
  EXPECT_EQ(sentAsCall(Shared{"item3.0"}).id, "item3.0");
  EXPECT_TRUE(sentAsCall(Appearance{true}).isDark);
  sentAsCall(Place{});
  EXPECT_EQ(sentAsCall(Reopen{bytes}).place, bytes);
  EXPECT_EQ(sentAsCall(LoadWidgets{"{}"}).refused, "{}");
  EXPECT_EQ(sentAsCall(ShowWidget{"/a.bundle"}).path, "/a.bundle");
  EXPECT_EQ(sentAsCall(CallWidget{"setIsActivePage:", false}).argument, false);
  EXPECT_EQ(sentAsCall(CallWidget{"viewDidAppear", {}}).method, "viewDidAppear");
  sentAsCall(OpenPreferences{});
  const auto display = sentAsCall(Display{390, 844, 3, 47, 1, 34, 2});
  EXPECT_EQ((std::vector{display.width, display.height, display.scale, display.top, display.left, display.bottom,
                         display.right}),
            (std::vector{390, 844, 3, 47, 1, 34, 2}));
}

TEST(MessagesTests, WhatMayBeMissingArrivesAsMissing) {
  constexpr auto kMost = std::numeric_limits<std::uint64_t>::max();
  const auto picked = sentAsCall(PickFile{"/a b", "Gr\u00FC\u00DFe \"1\".plist", kMost});
  EXPECT_EQ(picked.file, "/a b");
  EXPECT_EQ(picked.name, "Gr\u00FC\u00DFe \"1\".plist");
  EXPECT_EQ(picked.revision, kMost);
  EXPECT_EQ(sentAsCall(PickFile{"/a", "b", {}}).revision, std::nullopt);
  EXPECT_EQ(sentAsCall(AddPhoto{"/a", "b.png"}).name, "b.png");
  EXPECT_EQ(sentAsCall(AddPhoto{"/a", {}}).name, std::nullopt);
  EXPECT_EQ(sentAsCall(CallWidget{"viewDidAppear", {}}).argument, std::nullopt);
  EXPECT_EQ(sentAsCall(Pasteboard{"text"}).string, "text");
  EXPECT_EQ(sentAsCall(Pasteboard{""}).string, "") << "an empty text is a text";
  EXPECT_EQ(sentAsCall(Pasteboard{}).string, std::nullopt);
}

TEST(MessagesTests, ReportsArriveAsTheyWereSent) {
  const auto reply = sentAsReport(Reply{9, Outcome::stale, 12, "The screen has changed."});
  EXPECT_EQ(reply.request, 9u);
  EXPECT_EQ(reply.outcome, Outcome::stale);
  EXPECT_EQ(reply.revision, 12u);
  EXPECT_EQ(reply.content, "The screen has changed.");
  EXPECT_EQ(sentAsReport(Reply{9, Outcome::done, 12, ""}).content, "");
  EXPECT_EQ(sentAsReport(Changed{3}).revision, 3u);
  EXPECT_EQ(sentAsReport(Notification{"com.example"}).name, "com.example");
  EXPECT_EQ(sentAsReport(OpenURL{"https://example.com/"}).url, "https://example.com/");
  EXPECT_EQ(sentAsReport(Log{"a\nline"}).line, "a\nline");
  EXPECT_EQ(sentAsReport(Pasteboard{}).string, std::nullopt);
  const auto entering = sentAsReport(Entering{"/a.bundle", "-viewDidAppear"});
  EXPECT_EQ(entering.widget, "/a.bundle");
  EXPECT_EQ(entering.doing, "-viewDidAppear");
  const auto raised = sentAsReport(Raised{"TideException", "no\nmoon"});
  EXPECT_EQ(raised.name, "TideException");
  EXPECT_EQ(raised.reason, "no\nmoon");
}

TEST(MessagesTests, OutcomesHaveNamesOfTheirOwn) {
  std::set<std::string_view> names;
  for (int at = 0; at <= static_cast<int>(Outcome::garbled); ++at) {
    const auto outcome = static_cast<Outcome>(at);
    EXPECT_TRUE(names.insert(nameOf(outcome)).second);
    EXPECT_EQ(sentAsReport(Reply{1, outcome, 1, ""}).outcome, outcome);
  }
}

TEST(MessagesTests, WhatACallLacksMakesItUnreadable) {
  for (const json& header : {json::object(),
                             json{{"verb", "dance"}},
                             json{{"verb", 3}},
                             json{{"verb", nullptr}},
                             json{{"verb", ""}},
                             json{{"verb", "Screen"}},
                             json{{"verb", "reply"}},
                             json{{"verb", "event"}},
                             json{{"verb", "image"}},
                             json{{"verb", "image"}, {"id", 3}},
                             json{{"verb", "pickFile"}, {"name", "a"}},
                             json{{"verb", "pickFile"}, {"file", "/a"}},
                             json{{"verb", "pickFile"}, {"file", "/a"}, {"name", nullptr}},
                             json{{"verb", "pickFile"}, {"file", "/a"}, {"name", "a"}, {"revision", -1}},
                             json{{"verb", "pickFile"}, {"file", "/a"}, {"name", "a"}, {"revision", "1"}},
                             json{{"verb", "addPhoto"}, {"file", "/a"}, {"name", 1}},
                             json{{"verb", "appearance"}, {"isDark", "yes"}},
                             json{{"verb", "display"}, {"width", 390}},
                             json{{"verb", "showWidget"}},
                             json{{"verb", "callWidget"}},
                             json{{"verb", "callWidget"}, {"method", "a:"}, {"argument", 1}},
                             json{{"verb", "loadWidgets"}}})
    EXPECT_FALSE(isReadableCall(header)) << header;

  json display = encode(Request{0, Display{390, 844, 3, 0, 0, 0, 0}}).header;
  EXPECT_TRUE(isReadableCall(display));
  display["width"] = std::numeric_limits<int>::max();
  EXPECT_TRUE(isReadableCall(display));
  for (const json& width : {json(-1), json(1.5), json(1ull << 31), json("390"), json()}) {
    display["width"] = width;
    EXPECT_FALSE(isReadableCall(display)) << width;
  }
}

TEST(MessagesTests, AnUnreadableCallKeepsItsNumber) {
  EXPECT_EQ(decodeRequest(overText({{{"verb", "dance"}, {"request", 5}}, {}})).number, 5u);
  for (const json& number : {json("5"), json(-5), json(5.5), json()})
    EXPECT_EQ(decodeRequest(overText({{{"verb", "screen"}, {"request", number}}, {}})).number, 0u) << number;
}

TEST(MessagesTests, FieldsThatNobodyKnowsAreIgnored) {
  EXPECT_TRUE(isReadableCall({{"verb", "screen"}, {"new", 1}}, "payload"));
  EXPECT_TRUE(isReadableReport({{"verb", "changed"}, {"revision", 1}, {"new", {1}}}));
}

TEST(MessagesTests, WhatAReportLacksMakesItUnreadable) {
  for (const json& header : {json{{"verb", "changed"}}, json{{"verb", "changed"}, {"revision", -1}},
                             json{{"verb", "log"}}, json{{"verb", "screen"}}, json{{"verb", "reply"}},
                             json{{"verb", "dance"}, {"request", 4}}, json{{"verb", "changed"}, {"request", 4}},
                             json{{"verb", "entering"}, {"widget", "/a"}}, json{{"verb", "raised"}, {"name", "a"}}})
    EXPECT_FALSE(isReadableReport(header)) << header;
}

TEST(MessagesTests, AReplyThatIsNoneIsTheReplyToItsRequest) {
  const json good = encode(Reply{4, Outcome::done, 2, "content"}).header;
  EXPECT_TRUE(isReadableReport(good, "content"));
  const auto outcomeOf = [](const json& header, std::optional<std::string> payload) {
    const Report report = decodeReport(overText({header, std::move(payload)}));
    const auto* reply = std::get_if<Reply>(&report);
    EXPECT_TRUE(reply && reply->request == 4 && !reply->content.empty()) << header;
    return reply ? reply->outcome : Outcome::done;
  };
  EXPECT_EQ(outcomeOf(good, {}), Outcome::garbled) << "without its payload";
  for (const auto& [field, value] : std::vector<std::pair<std::string, json>>{
           {"outcome", "fine"}, {"outcome", 200}, {"outcome", {}}, {"revision", "2"}, {"revision", {}}}) {
    json bad = good;
    bad[field] = value;
    EXPECT_EQ(outcomeOf(bad, "content"), Outcome::garbled) << bad;
  }
  json numberless = good;
  numberless["request"] = "4";
  EXPECT_FALSE(isReadableReport(numberless, "content"));
}

}  // namespace
