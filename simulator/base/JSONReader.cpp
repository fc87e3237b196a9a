#include "base/JSONReader.hpp"

#include <exception>
#include <nlohmann/json.hpp>
#include <utility>

namespace sim {

namespace {

/// Hands the library's events on and watches the depth.
class Handler final : public nlohmann::json_sax<nlohmann::json> {
 public:
  explicit Handler(ValueSink& sink) : sink_(sink) {}

  const std::string& problem() const { return problem_; }

  bool null() override { return tell(sink_.null()); }
  bool boolean(bool value) override { return tell(sink_.boolean(value)); }
  bool number_integer(number_integer_t value) override { return tell(sink_.integer(value)); }
  bool number_unsigned(number_unsigned_t value) override {
    const bool small = value <= static_cast<number_unsigned_t>(std::numeric_limits<std::int64_t>::max());
    return tell(small ? sink_.integer(static_cast<std::int64_t>(value)) : sink_.unsignedInteger(value));
  }
  bool number_float(number_float_t value, const string_t&) override { return tell(sink_.real(value)); }
  bool string(string_t& value) override { return tell(sink_.string(value)); }
  bool binary(binary_t&) override { return fail("JSON holds no bytes"); }
  bool start_object(std::size_t) override { return enter() && tell(sink_.beginDictionary(0)); }
  bool key(string_t& value) override { return tell(sink_.key(value)); }
  bool end_object() override { return leave() && tell(sink_.endDictionary()); }
  bool start_array(std::size_t) override { return enter() && tell(sink_.beginArray(0)); }
  bool end_array() override { return leave() && tell(sink_.endArray()); }
  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception& error) override {
    return fail(error.what());
  }

 private:
  bool fail(std::string problem) {
    if (problem_.empty()) problem_ = std::move(problem);
    return false;
  }
  bool tell(bool accepted) { return accepted || fail("The value was not taken"); }
  bool enter() { return ++depth_ <= kMaximumDepth || fail("The containers lie too deep"); }
  bool leave() {
    --depth_;
    return true;
  }

  ValueSink& sink_;
  std::size_t depth_ = 0;
  std::string problem_;
};

}  // namespace

Problem readJSON(std::string_view document, ValueSink& sink) {
  Handler handler(sink);
  try {
    if (nlohmann::json::sax_parse(document.begin(), document.end(), &handler)) return std::nullopt;
    return handler.problem();
  } catch (const std::exception& error) {
    return error.what();
  }
}

}  // namespace sim
