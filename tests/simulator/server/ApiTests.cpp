// The automation interface, from the request to the Settings process and back.
#include "server/Display.hpp"
#include "support/plain/RunningSimulator.hpp"
#include "support/plain/TemporaryFolder.hpp"
#include "support/plain/Waiting.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace {

using nlohmann::json;

class ApiTests : public ::testing::Test {
 protected:
  test::TemporaryFolder folder_;
  const std::filesystem::path device_ = std::filesystem::canonical(folder_.path()) / "device";
  test::RunningSimulator simulator_{device_};
};

TEST_F(ApiTests, GivesTheScreenOfTheSettingsProcess) {
  const auto response = simulator_.get("/api/screen");
  EXPECT_EQ(response.status, 200);
  EXPECT_EQ(response.header("Content-Type"), "application/json");
  EXPECT_EQ(response.header("Cache-Control"), "no-store");
  EXPECT_EQ(response.json()["revision"], 1);
}

TEST_F(ApiTests, AnEventIsAnsweredWithTheScreenAfterIt) {
  const auto response = simulator_.tap("notify:com.example.changed");
  EXPECT_EQ(response.status, 200);
  EXPECT_EQ(response.json()["revision"], 2);
}

TEST_F(ApiTests, WhatAnEventPostedIsThereWhenItIsAnswered) {
  simulator_.tap("notify:com.example.first");
  simulator_.tap("notify:com.example.second");
  simulator_.tap("open:https://example.com/");
  simulator_.tap("copy:gr\u00FC\u00DFe \U0001F600");
  simulator_.tap("log:a line");
  simulator_.tap("log:" + device_.string() + "/var/a and " + device_.string() + "/b, not " + device_.string() + "2/c");
  const json device = simulator_.device();
  EXPECT_EQ(device["notifications"], json::parse(R"([{"name":"com.example.first","sequence":1},
                                                     {"name":"com.example.second","sequence":2}])"));
  EXPECT_EQ(device["openedURLs"], json::array({"https://example.com/"}));
  EXPECT_EQ(device["pasteboard"], "gr\u00FC\u00DFe \U0001F600");
  EXPECT_EQ(device["log"], json::array({"a line", "/var/a and /b, not " + device_.string() + "2/c"}))
      << "paths are those of the device";
  EXPECT_EQ(device["resprings"], 0);
  EXPECT_EQ(device["files"], json::array());
  simulator_.tap("clear");
  EXPECT_EQ(simulator_.device()["pasteboard"], nullptr);
}

TEST_F(ApiTests, ABuildThatFailedIsShownUntilItSucceeds) {
  const json failed{{"name", "Kite"},
                    {"sentence", "Kite was not built."},
                    {"errors", {{{"file", "a.m"}, {"line", 3}, {"column", nullptr}, {"message", "what"}}}}};
  EXPECT_EQ(simulator_.send("PUT", "/api/builds", failed).json(), failed);
  EXPECT_EQ(simulator_.device()["builds"], json::array({failed}));
  EXPECT_EQ(simulator_.send("PUT", "/api/builds", {{"name", "Kite"}, {"sentence", nullptr}}).status, 200);
  EXPECT_EQ(simulator_.device()["builds"], json::array());
}

TEST_F(ApiTests, WhatTellsOfNoBuildIsRefused) {
  const std::vector<json> bodies{
      nullptr,
      json::array(),
      json::object(),
      {{"name", 1}},
      {{"name", "a"}, {"sentence", 1}},
      {{"name", "a"}, {"sentence", "b"}, {"errors", 1}},
      {{"name", "a"}, {"sentence", "b"}, {"errors", {1}}},
      {{"name", "a"}, {"sentence", "b"}, {"errors", {{{"line", 3}}}}},
      {{"name", "a"}, {"sentence", "b"}, {"errors", {{{"line", -3}, {"message", "c"}}}}},
      {{"name", "a"}, {"sentence", "b"}, {"errors", {{{"file", 3}, {"message", "c"}}}}},
  };
  for (const json& body : bodies) EXPECT_EQ(simulator_.send("PUT", "/api/builds", body).status, 400) << body;
  EXPECT_EQ(simulator_.device()["builds"], json::array());
}

TEST_F(ApiTests, AnUnknownIdentifierIsRefused) {
  const auto response = simulator_.tap("nothing");
  EXPECT_EQ(response.status, 404);
  EXPECT_EQ(response.json()["error"], "There is no \"nothing\" on the screen.");
}

TEST_F(ApiTests, MalformedEventsAreRefused) {
  const std::string deep = "{\"type\":" + std::string(100'000, '[') + std::string(100'000, ']') + "}";
  for (const std::string& body :
       {std::string(), std::string("null"), std::string("[]"), std::string("{"), std::string("{}"),
        std::string("{\"type\":1}"), std::string("{\"type\":\"tap\"} x"), std::string("\xFF"), deep,
        std::string(1'000'000, '['), std::string("{'type':'tap'}")}) {
    test::HttpRequest request{"POST", "/api/events", simulator_.pageHeaders(), body};
    request.headers.push_back("Content-Type: application/json");
    request.headers.push_back("Content-Length: " + std::to_string(body.size()));
    const auto response = test::roundTrip(simulator_.port(), request.bytes());
    EXPECT_EQ(response.status, 400) << body.substr(0, 40);
    EXPECT_TRUE(response.json()["error"].is_string());
  }
  EXPECT_EQ(simulator_.get("/api/screen").json()["revision"], 1);
}

TEST_F(ApiTests, AnEventReachesTheSettingsProcessAsItIs) {
  const std::string body = "{ \"id\":\"echo\",\"type\":\"tap\", \"number\":1.50,\"text\":\"\\u00fc\" }";
  test::HttpRequest request{"POST", "/api/events", simulator_.pageHeaders(), body};
  request.headers.push_back("Content-Type: application/json");
  request.headers.push_back("Content-Length: " + std::to_string(body.size()));
  EXPECT_EQ(test::roundTrip(simulator_.port(), request.bytes()).body, body);
}

TEST_F(ApiTests, AnEventForAnotherRevisionIsRefused) {
  const json stale{{"type", "tap"}, {"id", "log:x"}, {"revision", 1}};
  EXPECT_EQ(simulator_.send("POST", "/api/events", stale).status, 200);
  const auto response = simulator_.send("POST", "/api/events", stale);
  EXPECT_EQ(response.status, 409);
  EXPECT_TRUE(response.json()["error"].is_string());
  EXPECT_EQ(response.json()["revision"], 2);
  EXPECT_EQ(simulator_.device()["log"].size(), 1u);
  EXPECT_EQ(simulator_.send("POST", "/api/events", {{"type", "tap"}, {"id", "log:x"}, {"revision", 2}}).status, 200);
}

TEST_F(ApiTests, APostedRevisionCountsAtOnce) {
  simulator_.tap("change");
  EXPECT_EQ(simulator_.send("POST", "/api/events", {{"type", "tap"}, {"id", "log:x"}, {"revision", 1}}).status, 409);
}

TEST_F(ApiTests, AMalformedAnswerIsAnErrorOfItsOwn) {
  const auto response = simulator_.tap("malformed");
  EXPECT_EQ(response.status, 502);
  EXPECT_EQ(response.json()["error"], "Settings has given a malformed answer.");
}

TEST_F(ApiTests, WhatNobodyUnderstandsIsLogged) {
  EXPECT_EQ(simulator_.tap("nonsense").status, 200) << "the process is none the worse";
  EXPECT_EQ(simulator_.device()["log"], json::array({"[simulator] Settings has said what nobody understands."}));
}

TEST_F(ApiTests, PicturesComeFromTheSettingsProcess) {
  for (int i = 0; i < 2; ++i) {
    const auto response = simulator_.get("/images/17");
    EXPECT_EQ(response.status, 200);
    EXPECT_EQ(response.header("Content-Type"), "image/png");
    EXPECT_EQ(response.body, "picture 17");
  }
  EXPECT_EQ(simulator_.get("/images/none").status, 404);
  EXPECT_EQ(simulator_.get("/images/").status, 404);
}

TEST_F(ApiTests, ThePasteboardIsToldToTheSettingsProcess) {
  EXPECT_EQ(simulator_.get("/api/screen").json()["pasteboard"], nullptr);
  EXPECT_EQ(simulator_.send("PUT", "/api/device/pasteboard", {{"string", "from outside"}}).status, 200);
  EXPECT_EQ(simulator_.get("/api/screen").json()["pasteboard"], "from outside");
  EXPECT_EQ(simulator_.device()["pasteboard"], "from outside");
  EXPECT_EQ(simulator_.send("PUT", "/api/device/pasteboard", {{"string", nullptr}}).status, 200);
  EXPECT_EQ(simulator_.get("/api/screen").json()["pasteboard"], nullptr);
}

TEST_F(ApiTests, AMalformedPasteboardIsRefused) {
  simulator_.send("PUT", "/api/device/pasteboard", {{"string", "kept"}});
  for (const json& body : {json{{"string", 1}}, json::object(), json::array({"string"}), json(nullptr)})
    EXPECT_EQ(simulator_.send("PUT", "/api/device/pasteboard", body).status, 400) << body;
  EXPECT_EQ(simulator_.device()["pasteboard"], "kept");
}

TEST_F(ApiTests, TheAppearanceIsToldToTheSettingsProcess) {
  EXPECT_EQ(simulator_.device()["appearance"], nullptr);
  EXPECT_EQ(simulator_.send("PUT", "/api/device/appearance", {{"style", "dark"}}).status, 200);
  EXPECT_EQ(simulator_.get("/api/screen").json()["appearance"], "dark");
  EXPECT_EQ(simulator_.device()["appearance"], "dark");
  for (const json& body : {json{{"style", "blue"}}, json{{"style", nullptr}}, json::object()})
    EXPECT_EQ(simulator_.send("PUT", "/api/device/appearance", body).status, 400) << body;
}

TEST_F(ApiTests, TheDisplayIsToldToTheSettingsProcess) {
  const json phone = sim::kPhoneDisplay.json();
  const json tablet = sim::kTabletDisplay.json();
  EXPECT_EQ(phone, (json{{"kind", "phone"},
                         {"orientation", "portrait"},
                         {"width", 390},
                         {"height", 844},
                         {"scale", 3},
                         {"safeArea", {{"top", 47}, {"left", 0}, {"bottom", 34}, {"right", 0}}}}));
  EXPECT_EQ(simulator_.get("/api/screen").json()["display"], json::array({390, 844, 3, 0}));
  EXPECT_EQ(simulator_.device()["display"], phone);

  const auto response = simulator_.send("PUT", "/api/device/display", {{"kind", "tablet"}});
  EXPECT_EQ(response.status, 200);
  EXPECT_EQ(response.json(), tablet);
  EXPECT_EQ(simulator_.get("/api/screen").json()["display"], json::array({820, 1180, 2, 0}));
  EXPECT_EQ(simulator_.device()["display"], tablet);

  for (const json& body :
       {json{{"kind", "watch"}}, json{{"kind", 1}}, json::object(), json::array({"phone"}), json(nullptr),
        json{{"orientation", "upside down"}}, json{{"kind", "phone"}, {"orientation", nullptr}}})
    EXPECT_EQ(simulator_.send("PUT", "/api/device/display", body).status, 400) << body;
  EXPECT_EQ(simulator_.device()["display"], tablet);
}

TEST_F(ApiTests, TheDeviceIsTurnedAndStaysTurned) {
  const auto set = [&](const json& body) { return simulator_.send("PUT", "/api/device/display", body).json(); };
  const auto told = [&] { return simulator_.get("/api/screen").json()["display"]; };
  const json landscape = set({{"orientation", "landscape"}});
  EXPECT_EQ(landscape["kind"], "phone");
  EXPECT_EQ(landscape["orientation"], "landscape");
  EXPECT_EQ(told(), json::array({844, 390, 3, 47}));
  EXPECT_EQ(simulator_.device()["display"], landscape);

  EXPECT_EQ(set({{"kind", "tablet"}})["orientation"], "landscape") << "what is not named stays";
  EXPECT_EQ(told(), json::array({1180, 820, 2, 0}));
  EXPECT_EQ(set({{"kind", "phone"}, {"orientation", "portrait"}}), sim::kPhoneDisplay.json());
  EXPECT_EQ(told(), json::array({390, 844, 3, 0}));
}

TEST_F(ApiTests, TheDisplayStaysThroughARespring) {
  simulator_.send("PUT", "/api/device/display", {{"kind", "tablet"}});
  const auto before = simulator_.get("/api/screen").json()["process"];
  simulator_.tap("killall");
  const json after = simulator_.get("/api/screen").json();
  EXPECT_NE(after["process"], before);
  EXPECT_EQ(after["display"], json::array({820, 1180, 2, 0}));
}

TEST_F(ApiTests, UnknownAddressesAreNotFound) {
  for (const std::string target : {"/api", "/api/", "/api/screen/", "/api/Screen", "/nothing", "/images"})
    EXPECT_EQ(simulator_.get(target).status, 404) << target;
}

TEST_F(ApiTests, ACallWithoutBodyRefusesOne) {
  test::HttpRequest request{"GET", "/api/screen", simulator_.pageHeaders(), "{}"};
  request.headers.push_back("Content-Length: 2");
  EXPECT_EQ(test::roundTrip(simulator_.port(), request.bytes()).status, 400);
}

TEST_F(ApiTests, OtherCallsAreAnsweredWhileTheSettingsProcessIsBusy) {
  int slow = 0;
  std::thread waiting([&] { slow = simulator_.tap("slow:1500").status; });
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(simulator_.get("/api/device").status, 200);
  EXPECT_EQ(simulator_.get("/").status, 200);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(1200));
  waiting.join();
  EXPECT_EQ(slow, 200);
}

TEST_F(ApiTests, ManyCallsAtOnceAreAllAnswered) {
  std::vector<std::thread> threads;
  std::atomic<int> good = 0;
  for (int i = 0; i < 8; ++i)
    threads.emplace_back([&] {
      for (int j = 0; j < 20; ++j) good += simulator_.get("/api/screen").status == 200 ? 1 : 0;
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(good, 160);
}

TEST_F(ApiTests, AClientThatGoesAwayHurtsNobody) {
  for (int i = 0; i < 20; ++i) {
    test::HttpConnection connection(simulator_.port());
    connection.send(test::HttpRequest{"GET", "/api/screen", simulator_.pageHeaders(), {}}.bytes());
  }
  EXPECT_EQ(simulator_.get("/api/screen").status, 200);
}

}  // namespace
