#include "server/ScreenRevision.hpp"

#include <nlohmann/json.hpp>

namespace sim {
namespace {

// Takes the parser's events and stops it at the number.
class RevisionFinder final : public nlohmann::json_sax<nlohmann::json> {
 public:
  std::uint64_t revision() const noexcept { return revision_; }

  bool key(string_t& name) override {
    isNext_ = depth_ == 1 && name == "revision";
    return true;
  }
  bool number_unsigned(number_unsigned_t value) override {
    if (isNext_) revision_ = value;
    return !isNext_;
  }

  bool start_object(std::size_t) override { return begin(); }
  bool start_array(std::size_t) override { return begin(); }
  bool end_object() override { return end(); }
  bool end_array() override { return end(); }
  bool null() override { return skip(); }
  bool boolean(bool) override { return skip(); }
  bool number_integer(number_integer_t) override { return skip(); }
  bool number_float(number_float_t, const string_t&) override { return skip(); }
  bool string(string_t&) override { return skip(); }
  bool binary(binary_t&) override { return skip(); }
  bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&) override { return false; }

 private:
  bool begin() {
    ++depth_;
    return skip();
  }
  bool end() {
    --depth_;
    return true;
  }
  bool skip() {
    isNext_ = false;
    return true;
  }

  std::uint64_t revision_ = 0;
  int depth_ = 0;
  bool isNext_ = false;
};

}  // namespace

std::uint64_t revisionIn(std::string_view text) {
  RevisionFinder finder;
  nlohmann::json::sax_parse(text.begin(), text.end(), &finder);
  return finder.revision();
}

}  // namespace sim
