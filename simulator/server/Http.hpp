// Requests and responses as the server's parts see them; nothing here knows the HTTP library.
#pragma once

#include <nlohmann/json.hpp>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sim {

/// The first line and the headers of a request, as sent: the path is not decoded and carries no query.
struct RequestHead {
  std::string method;
  std::string path;
  std::vector<std::pair<std::string, std::string>> headers;

  /// Every value of the header, in the order sent. Names are compared without regard to case.
  std::vector<std::string_view> values(std::string_view name) const;
};

class Upload;

struct Request {
  RequestHead head;
  std::string body;
  std::shared_ptr<Upload> upload;  // The body of a call that takes a file.
};

/// A whole response. The body is shared, so that a table of files is not copied for each request.
struct Response {
  int status = 200;
  std::string type = "application/json";
  std::shared_ptr<const std::string> body;
  std::vector<std::pair<std::string, std::string>> headers;
};

/// Gives the response to one request; called once, on any thread.
using Respond = std::function<void(Response)>;

/// `body` is a JSON text.
Response jsonResponse(int status, std::string body);
Response jsonResponse(int status, const nlohmann::json& body);

/// `{"error": message}`.
Response errorResponse(int status, std::string_view message);

}  // namespace sim
