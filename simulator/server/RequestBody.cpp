#include "server/RequestBody.hpp"

#include <cerrno>
#include <system_error>
#include <utility>

namespace sim {
namespace {

constexpr std::size_t kMostIgnored = 16 << 20;  // Bytes of a refused body that are read beyond what it may have.

}  // namespace

bool RequestBody::take(std::string_view bytes) {
  if (!refusal_ && bytes.size() > longest_ - taken_) refusal_ = tooLongResponse();
  if (refusal_) {
    ignored_ += bytes.size();
    return ignored_ <= longest_ - taken_ + kMostIgnored;
  }
  taken_ += bytes.size();
  if (!upload_) {
    text_.append(bytes);
  } else if (const int error = upload_->append(bytes)) {
    upload_.reset();  // What was written takes up the disk.
    refusal_ = notStoredResponse(error);
  }
  return true;
}

std::optional<Response> RequestBody::finish(Request& request) {
  if (refusal_) return std::move(refusal_);
  request.body = std::move(text_);
  request.upload = std::move(upload_);
  return std::nullopt;
}

Response tooLongResponse() { return errorResponse(413, "The body is too long."); }

Response notStoredResponse(int error) {
  if (error == ENOSPC || error == EDQUOT || error == EFBIG)
    return errorResponse(507, "There is no room left for the file on the disk of this computer.");
  return errorResponse(500, "The file could not be stored: " + std::generic_category().message(error) + ".");
}

}  // namespace sim
