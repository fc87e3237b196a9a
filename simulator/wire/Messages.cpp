#include "wire/Messages.hpp"

#include <limits>
#include <utility>

namespace sim::wire {
namespace {

constexpr const char* kVerbField = "verb";
constexpr const char* kNumberField = "request";

constexpr std::array<std::string_view, 8> kOutcomes{"done",    "malformed", "unknown",  "stale",
                                                    "refused", "failed",    "diskFull", "garbled"};

/// Writes the fields of a message.
class Encoder final {
 public:
  explicit Encoder(Verb verb) { message_.header[kVerbField] = traitsOf(verb).name; }

  void operator()(const char* name, const auto& value) { message_.header[name] = value; }
  void operator()(const char* name, Outcome outcome) { message_.header[name] = nameOf(outcome); }
  template <typename Value>
  void operator()(const char* name, const std::optional<Value>& value) {
    if (value) message_.header[name] = *value;
  }
  void payload(auto& bytes) { message_.payload = std::move(bytes); }

  Message message() && { return std::move(message_); }

 private:
  Message message_;
};

/// Reads the fields of a message.
class Decoder final {
 public:
  explicit Decoder(Message& message) : message_(message) {}

  /// Whether everything was there.
  bool isComplete() const noexcept { return isComplete_; }

  void operator()(const char* name, auto& value) { require(read(name, value)); }
  template <typename Value>
  void operator()(const char* name, std::optional<Value>& value) {
    if (message_.header.contains(name)) require(read(name, value.emplace()));
  }
  void payload(std::string& bytes) {
    require(message_.payload.has_value());
    if (message_.payload) bytes = *std::move(message_.payload);
  }
  void payload(std::optional<std::string>& bytes) { bytes = std::move(message_.payload); }

 private:
  void require(bool isThere) { isComplete_ = isComplete_ && isThere; }

  template <typename Value>
  bool take(const char* name, bool (nlohmann::json::*isKind)() const noexcept, Value& value) const {
    const auto found = message_.header.find(name);
    if (found == message_.header.end() || !((*found).*isKind)()) return false;
    found->get_to(value);
    return true;
  }
  bool read(const char* name, std::string& value) const { return take(name, &nlohmann::json::is_string, value); }
  bool read(const char* name, bool& value) const { return take(name, &nlohmann::json::is_boolean, value); }
  bool read(const char* name, std::uint64_t& value) const {
    return take(name, &nlohmann::json::is_number_unsigned, value);
  }
  bool read(const char* name, int& value) const {
    std::uint64_t number = 0;
    if (!read(name, number) || number > std::numeric_limits<int>::max()) return false;
    value = static_cast<int>(number);
    return true;
  }
  bool read(const char* name, Outcome& value) const {
    std::string text;
    if (!read(name, text)) return false;
    const auto found = std::ranges::find(kOutcomes, text);
    value = static_cast<Outcome>(found - kOutcomes.begin());
    return found != kOutcomes.end();
  }

  Message& message_;
  bool isComplete_ = true;
};

template <typename Struct>
Message encodeAs(Struct& message) {
  Encoder encoder(Struct::kVerb);
  Struct::fields(message, encoder);
  return std::move(encoder).message();
}

/// Reads `message` when its verb is that of `Struct`. Returns whether it was.
template <typename Struct, typename Variant>
bool decodeAs(std::string_view verb, Message& message, Variant& result) {
  if (verb != traitsOf(Struct::kVerb).name) return false;
  Struct decoded;
  Decoder decoder(message);
  Struct::fields(decoded, decoder);
  if (decoder.isComplete()) result = std::move(decoded);
  return true;
}

template <typename... Structs>
void decodeAny(std::string_view verb, Message& message, std::variant<Structs...>& result) {
  (void)(decodeAs<Structs>(verb, message, result) || ...);
}

/// The field, or what a value of its type begins with.
template <typename Value>
Value fieldOf(Message& message, const char* name) {
  Value value{};
  Decoder decoder(message);
  decoder(name, value);
  return value;
}

}  // namespace

std::string_view nameOf(Outcome outcome) { return kOutcomes.at(static_cast<std::size_t>(outcome)); }

const VerbTraits& traitsOf(const Call& call) {
  return std::visit([]<typename Struct>(const Struct&) -> const VerbTraits& { return traitsOf(Struct::kVerb); }, call);
}

Message encode(Request request) {
  Message message = std::visit([](auto& call) { return encodeAs(call); }, request.call);
  message.header[kNumberField] = request.number;
  return message;
}

Message encode(Report report) {
  return std::visit([](auto& each) { return encodeAs(each); }, report);
}

Request decodeRequest(Message message) {
  Request request{fieldOf<std::uint64_t>(message, kNumberField), {}};
  decodeAny(fieldOf<std::string>(message, kVerbField), message, request.call);
  return request;
}

Report decodeReport(Message message) {
  const auto verb = fieldOf<std::string>(message, kVerbField);
  const auto number = fieldOf<std::uint64_t>(message, kNumberField);
  Report report;
  decodeAny(verb, message, report);
  if (verb == traitsOf(Verb::reply).name && number > 0 && std::holds_alternative<Unreadable>(report))
    report = Reply{.request = number, .outcome = Outcome::garbled, .content = "Settings has given a malformed answer."};
  return report;
}

}  // namespace sim::wire
