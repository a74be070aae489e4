#include "examples/suite_host/input_json.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <set>
#include <utility>

namespace {

// Chromium ends a renderer whose message is nested more than 200 levels deep.
constexpr std::size_t kMaxLevels = 100;
constexpr std::size_t kMaxDigits = 40;  // in an error message

// Checks a document while it is parsed. Each function returns false to stop the parser.
class InputCheck : public nlohmann::json_sax<Json> {
 public:
  const std::string& error() const { return error_; }

  bool null() override { return IsInObject(); }
  bool boolean(bool /*value*/) override { return IsInObject(); }
  bool string(string_t& /*value*/) override { return IsInObject(); }
  bool binary(binary_t& /*value*/) override { return IsInObject(); }  // never called for JSON
  bool number_integer(number_integer_t value) override {
    return value < Limits::min() ? RejectInteger(std::to_string(value)) : IsInObject();
  }
  bool number_unsigned(number_unsigned_t value) override {
    return value > number_unsigned_t{Limits::max()} ? RejectInteger(std::to_string(value))
                                                    : IsInObject();
  }
  // The parser reports integers beyond 64 bits here.
  bool number_float(number_float_t /*value*/, const string_t& digits) override {
    return digits.find_first_of(".eE") == string_t::npos ? RejectInteger(digits) : IsInObject();
  }
  bool start_array(std::size_t /*size*/) override {
    if (!IsInObject()) return false;
    if (++depth_ <= kMaxLevels + 1) return true;
    return Reject("lists are nested more than " + std::to_string(kMaxLevels) + " levels deep");
  }
  bool start_object(std::size_t /*size*/) override {
    return ++depth_ == 1 || Reject("an object within the object");
  }
  bool key(string_t& name) override {
    return keys_.insert(name).second || Reject("the key \"" + name + "\" occurs twice");
  }
  bool end_array() override { return Leave(); }
  bool end_object() override { return Leave(); }
  bool parse_error(std::size_t position, const std::string& /*token*/,
                   const Json::exception& failure) override {
    // Numbers of more than 308 digits are out of range.
    constexpr int kOutOfRange = 406;
    return Reject(failure.id == kOutOfRange
                      ? "a number is out of range"
                      : "not JSON at byte " + std::to_string(position) + ", expected an object");
  }

 private:
  using Limits = std::numeric_limits<std::int32_t>;

  bool IsInObject() { return depth_ > 0 || Reject("expected a JSON object"); }
  bool Leave() {
    --depth_;
    return true;
  }
  bool Reject(std::string error) {
    error_ = std::move(error);
    return false;
  }
  bool RejectInteger(const std::string& digits) {
    return Reject("an int has 32 bits, which is too few for " + digits.substr(0, kMaxDigits) +
                  (digits.size() > kMaxDigits ? "..." : ""));
  }

  std::set<std::string> keys_;
  std::size_t depth_ = 0;  // of objects and arrays
  std::string error_;
};

}  // namespace

bool ParseInput(const std::string& text, Json& object, std::string& error) {
  InputCheck check;
  if (Json::sax_parse(text, &check)) {
    object = Json::parse(text);
    return true;
  }
  error = check.error();
  return false;
}
