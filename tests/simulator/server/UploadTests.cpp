// Files that come in: every rule, with real sockets.
#include "support/plain/HttpClient.hpp"
#include "support/plain/RunningSimulator.hpp"
#include "support/plain/TemporaryFolder.hpp"
#include "support/plain/Waiting.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace {

using nlohmann::json;
using test::HttpConnection;
using test::HttpRequest;
using test::HttpResponse;

constexpr std::size_t kLongestFile = 100 << 20;

sim::SettingsProcess::Patience impatience() {
  sim::SettingsProcess::Patience patience;
  patience.answer = patience.firstAnswer = std::chrono::milliseconds(1500);
  return patience;
}

class UploadTests : public ::testing::Test {
 protected:
  // An upload without its length and body.
  HttpRequest head(const std::string& target, const std::vector<std::string>& headers = {"X-Sim-File-Name: a.png"},
                   const std::string& type = "application/octet-stream") const {
    HttpRequest request{"PUT", target, simulator_.pageHeaders(), {}};
    request.headers.push_back("Content-Type: " + type);
    request.headers.insert(request.headers.end(), headers.begin(), headers.end());
    return request;
  }

  HttpResponse send(HttpRequest request, const std::string& body) const {
    request.headers.push_back("Content-Length: " + std::to_string(body.size()));
    request.body = body;
    return test::roundTrip(simulator_.port(), request.bytes());
  }

  HttpResponse upload(const std::string& target, const std::string& body) const { return send(head(target), body); }

  // Begins an upload whose length is not announced, and sends so many MiB of it.
  void sendInChunks(HttpConnection& connection, int mebibytes) const {
    HttpRequest request = head("/api/photos");
    request.headers.push_back("Transfer-Encoding: chunked");
    connection.send(request.bytes());
    const std::string chunk = "100000\r\n" + std::string(1 << 20, ' ') + "\r\n";
    for (int i = 0; i < mebibytes; ++i) connection.send(chunk);
  }

  std::filesystem::path uploads() const { return device_ / ".simulator/uploads"; }

  // Files go when their request has ended, which the client may see first.
  void expectNothingLeft() const {
    EXPECT_TRUE(test::waitUntil([this] { return std::filesystem::is_empty(uploads()); }));
  }

  // The simulator goes on, and no call has reached the Settings process.
  void expectUntouched() const {
    expectNothingLeft();
    EXPECT_EQ(simulator_.get("/api/screen").json()["revision"], 1);
  }

  test::TemporaryFolder folder_;
  std::filesystem::path device_ = folder_.path() / "device";
  test::RunningSimulator simulator_{device_, impatience()};
};

TEST_F(UploadTests, AFileReachesTheSettingsProcessAndIsRemovedAfterTheAnswer) {
  for (const char* target : {"/api/photos", "/api/picked-file"}) {
    std::string body(3'000'000, '\0');
    for (std::size_t i = 0; i < body.size(); ++i) body[i] = static_cast<char>(i * 31);
    const HttpResponse response = upload(target, body);
    EXPECT_EQ(response.status, 200) << target;
    EXPECT_EQ(response.json(), json({{"name", "a.png"}, {"size", body.size()}, {"revision", nullptr}})) << target;
    expectNothingLeft();
  }
}

TEST_F(UploadTests, TheBytesAreThoseThatWereSent) {
  const std::string body = "keep " + std::string(200'000, '\x80') + "\r\n\0 end";
  EXPECT_EQ(upload("/api/photos", body).status, 200);
  EXPECT_EQ(test::readText(device_ / "fake/kept"), body);
  expectNothingLeft();
}

TEST_F(UploadTests, ABodyInChunksAndAnEmptyOneAreFilesToo) {
  HttpRequest request = head("/api/photos");
  request.headers.push_back("Transfer-Encoding: chunked");
  request.body = "5\r\nhello\r\n4\r\n you\r\n0\r\n\r\n";
  EXPECT_EQ(test::roundTrip(simulator_.port(), request.bytes()).json()["size"], 9);
  EXPECT_EQ(upload("/api/picked-file", "").json()["size"], 0);
  EXPECT_EQ(test::roundTrip(simulator_.port(), head("/api/picked-file").bytes()).json()["size"], 0);
  expectNothingLeft();
}

TEST_F(UploadTests, ArrivingBytesGoToTheDisk) {
  HttpConnection connection(simulator_.port());
  HttpRequest request = head("/api/photos");
  request.headers.push_back("Content-Length: 8000000");
  connection.send(request.bytes() + std::string(7'000'000, 'x'));
  EXPECT_TRUE(test::waitUntil([this] {
    for (const auto& entry : std::filesystem::directory_iterator(uploads()))
      if (entry.file_size() == 7'000'000) return true;
    return false;
  }));
  connection.send(std::string(1'000'000, 'x'));
  EXPECT_TRUE(connection.waitFor("\"size\":8000000"));
  expectNothingLeft();
}

TEST_F(UploadTests, NameAndRevisionAreHandedOn) {
  const auto response =
      send(head("/api/picked-file", {"X-Sim-File-Name: gr%C3%BC%20n.plist", "X-Sim-Revision: 7"}), "x");
  EXPECT_EQ(response.json(), json({{"name", "gr\u00FC n.plist"}, {"size", 1}, {"revision", 7}}));
  EXPECT_EQ(send(head("/api/photos", {}), "x").json()["name"], nullptr);
}

TEST_F(UploadTests, ABadNameIsRefused) {
  for (const std::string name : {"", ".", "..", "a%2Fb", "../a", "a%00", "%", "%FF", "a%0D%0Ab"}) {
    for (const char* target : {"/api/photos", "/api/picked-file"})
      EXPECT_EQ(send(head(target, {"X-Sim-File-Name: " + name}), "x").status, 400) << target << " " << name;
  }
  EXPECT_EQ(send(head("/api/picked-file", {}), "x").status, 400);
  EXPECT_EQ(send(head("/api/picked-file", {"X-Sim-File-Name: a", "X-Sim-File-Name: b"}), "x").status, 400);
  expectUntouched();
}

TEST_F(UploadTests, ABadRevisionIsRefused) {
  for (const std::string revision : {"", "x", "-1", "1.0", "1 2", "99999999999999999999", "0x1"})
    EXPECT_EQ(send(head("/api/picked-file", {"X-Sim-File-Name: a", "X-Sim-Revision: " + revision}), "x").status, 400)
        << revision;
  expectUntouched();
}

TEST_F(UploadTests, OnlyBytesAndPicturesAreTaken) {
  for (const std::string type : {"application/json", "text/plain", "multipart/form-data",
                                 "application/x-www-form-urlencoded", "imagepng", "application/octet-streams", ""})
    EXPECT_EQ(send(head("/api/photos", {}, type), "x").status, 415) << type;
  HttpRequest untyped{"PUT", "/api/photos", simulator_.pageHeaders(), {}};
  EXPECT_EQ(send(untyped, "x").status, 415);
  HttpRequest twice = head("/api/photos");
  twice.headers.push_back("Content-Type: image/png");
  EXPECT_EQ(send(twice, "x").status, 415);
  HttpRequest encoded = head("/api/photos", {"Content-Encoding: gzip"});
  EXPECT_EQ(send(encoded, "x").status, 415);
  expectUntouched();
  for (const std::string type : {"image/png", "Image/HEIC", "application/octet-stream; x=y"})
    EXPECT_EQ(send(head("/api/photos", {}, type), "x").status, 200) << type;
}

TEST_F(UploadTests, UploadsArePutWithTheToken) {
  for (const std::string method : {"GET", "POST", "DELETE"}) {
    HttpRequest request = head("/api/photos");
    request.method = method;
    const HttpResponse response = send(request, "x");
    EXPECT_EQ(response.status, 405) << method;
    EXPECT_EQ(response.header("Allow"), "PUT") << method;
  }
  for (const char* target : {"/api/photos", "/api/picked-file"}) {
    HttpRequest stranger = head(target);
    std::erase_if(stranger.headers, [](const std::string& line) { return line.starts_with("X-Sim-Token:"); });
    EXPECT_EQ(send(stranger, "x").status, 403) << target;
    HttpRequest foreign = head(target, {"Origin: http://evil.test"});
    EXPECT_EQ(send(foreign, "x").status, 403) << target;
  }
  expectUntouched();
}

TEST_F(UploadTests, ATooLargeFileIsRefusedBeforeItComes) {
  HttpRequest request = head("/api/photos");
  request.headers.push_back("Content-Length: " + std::to_string(kLongestFile + 1));
  EXPECT_EQ(test::roundTrip(simulator_.port(), request.bytes()).status, 413);
  expectUntouched();
}

TEST_F(UploadTests, ATooLargeFileInChunksIsRefusedAndLeavesNothing) {
  HttpConnection connection(simulator_.port());
  sendInChunks(connection, 101);
  connection.send("0\r\n\r\n");
  EXPECT_TRUE(connection.waitFor("413"));
  expectUntouched();
}

TEST_F(UploadTests, AnEndlessFileEndsTheConnection) {
  HttpConnection connection(simulator_.port());
  sendInChunks(connection, 160);
  connection.waitForEnd();
  expectUntouched();
}

TEST_F(UploadTests, AFileOfTheMostBytesIsTaken) {
  EXPECT_EQ(upload("/api/photos", std::string(kLongestFile, 'x')).json()["size"], kLongestFile);
  expectNothingLeft();
}

TEST_F(UploadTests, AClientThatLeavesInTheMiddleLeavesNothing) {
  {
    HttpConnection connection(simulator_.port());
    HttpRequest request = head("/api/photos");
    request.headers.push_back("Content-Length: 1000000");
    connection.send(request.bytes() + std::string(500'000, 'x'));
    EXPECT_TRUE(test::waitUntil([this] { return !std::filesystem::is_empty(uploads()); }));
  }
  expectUntouched();
}

TEST_F(UploadTests, AClientThatLeavesBeforeTheAnswerLeavesNothing) {
  {
    HttpConnection connection(simulator_.port());
    HttpRequest request = head("/api/photos");
    request.headers.push_back("Content-Length: 7");
    connection.send(request.bytes() + "picture");
  }
  expectNothingLeft();
}

TEST_F(UploadTests, ARefusedFileIsRemoved) {
  const HttpResponse response = upload("/api/photos", "refuse it");
  EXPECT_EQ(response.status, 422);
  EXPECT_EQ(response.json()["error"], "This is no picture.");
  EXPECT_EQ(upload("/api/photos", "full it is").status, 507);
  const HttpResponse failed = upload("/api/photos", "fail over it");
  EXPECT_EQ(failed.status, 500);
  EXPECT_EQ(failed.json()["error"], "The disk is at fault.");
  expectNothingLeft();
}

TEST_F(UploadTests, TheFileGoesWithASettingsProcessThatDies) {
  for (const char* target : {"/api/photos", "/api/picked-file"}) {
    EXPECT_EQ(upload(target, "crash over it").status, 500) << target;
    expectNothingLeft();
  }
}

TEST_F(UploadTests, TheFileGoesWhenNoAnswerComes) {
  EXPECT_EQ(upload("/api/photos", "hang over it").status, 504);
  expectNothingLeft();
}

TEST_F(UploadTests, ARespringMeanwhile) {
  const HttpResponse picked = upload("/api/picked-file", "killall now");
  EXPECT_EQ(picked.status, 200);
  EXPECT_TRUE(picked.json().contains("process")) << "the screen after the respring";
  EXPECT_EQ(upload("/api/photos", "killall now").status, 503);
  expectNothingLeft();
}

TEST_F(UploadTests, AFolderThatIsGoneIsSaid) {
  std::filesystem::remove_all(uploads());
  const HttpResponse response = upload("/api/photos", "picture");
  EXPECT_EQ(response.status, 500);
  EXPECT_EQ(response.json()["error"], "The file could not be stored: No such file or directory.");
  EXPECT_EQ(simulator_.get("/api/screen").status, 200);
}

TEST_F(UploadTests, FewFilesAreOnTheirWayAtOnce) {
  std::vector<HttpConnection> open;
  HttpRequest begun = head("/api/photos");
  begun.headers.push_back("Content-Length: 100");
  for (int i = 0; i < 8; ++i) {
    open.emplace_back(simulator_.port()).send(begun.bytes() + "x");
  }
  EXPECT_TRUE(test::waitUntil([this] {
    return std::distance(std::filesystem::directory_iterator(uploads()), std::filesystem::directory_iterator()) == 8;
  }));
  EXPECT_EQ(upload("/api/photos", "x").status, 503);
  open.pop_back();
  EXPECT_TRUE(test::waitUntil([this] { return upload("/api/photos", "x").status == 200; }));
  open.clear();
  expectNothingLeft();
}

TEST(UploadFolderTests, WhatAFormerRunLeftIsRemoved) {
  const test::TemporaryFolder folder;
  test::writeText(folder.path() / "device/.simulator/uploads/1", "left");
  test::writeText(folder.path() / "device/.simulator/uploads/folder/2", "left");
  const test::RunningSimulator simulator(folder.path() / "device");
  EXPECT_TRUE(std::filesystem::is_empty(folder.path() / "device/.simulator/uploads"));
}

}  // namespace
