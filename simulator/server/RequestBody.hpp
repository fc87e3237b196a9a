// The body of a request while it arrives: in memory, or in a file when it is one.
#pragma once

#include "server/Http.hpp"
#include "server/UploadFolder.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace sim {

/// HTTP thread only.
class RequestBody final {
 public:
  /// A body of no bytes.
  RequestBody() = default;

  /// A body of at most `longest` bytes. `upload`: the file that takes them; null keeps them in memory.
  explicit RequestBody(std::size_t longest, UploadPtr upload = nullptr)
      : longest_(longest), upload_(std::move(upload)) {}

  /// Takes the next bytes. False when so many came after the body was refused that the connection had better end: the
  /// refusal can only be given when the body has been read.
  bool take(std::string_view bytes);

  /// Hands the whole body over to `request`; or says why it is refused.
  std::optional<Response> finish(Request& request);

 private:
  std::size_t longest_ = 0;  // Bytes, like the next two.
  std::size_t taken_ = 0;
  std::size_t ignored_ = 0;
  UploadPtr upload_;
  std::string text_;
  std::optional<Response> refusal_;
};

/// The refusal of a body of too many bytes.
Response tooLongResponse();

/// The refusal of an upload that could not be written, for the reason `error`, an `errno` value.
Response notStoredResponse(int error);

}  // namespace sim
