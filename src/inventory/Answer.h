#pragma once

#include <string>
#include <utility>
#include <variant>

namespace corvane {

/// Why there is no value. The list is closed: every face and every rule can name each of them.
enum class Reason {
  DriverTooOld,    ///< not asked: the installed driver does not offer it
  PortNotEnabled,  ///< not asked: the driver has not enabled the port
  NotOffered,      ///< not asked: the product, or the driver, has no such thing
  NotAsked,        ///< not asked: something above it on the way did not answer
  NoAnswer,        ///< asked, and nothing came
  Missing,         ///< asked: the tool is not installed
  Hangs,           ///< asked: the tool ran out of its time
  Refused,         ///< asked: the driver or the tool refused
  Blocked,         ///< asked: the file that tools answer through cannot be used
  Senseless,       ///< an answer came and makes no sense
  NotInDump,       ///< a registry dump or a bundle does not hold it
};

/// A reason with what came in place of a value: the text that makes no sense, the status with which
/// a driver refused. The text may be empty.
struct NoValue {
  Reason reason = Reason::NoAnswer;
  std::string text;

  bool operator==(const NoValue&) const = default;
};

/// What came of asking for one thing: a value, or the reason why there is none. There is no third
/// state, and no value that stands for "unknown".
template <typename Value>
class Answer {
 public:
  Answer() : content_(NoValue{Reason::NotAsked, {}}) {}
  Answer(Value value) : content_(std::in_place_index<0>, std::move(value)) {}
  Answer(NoValue none) : content_(std::in_place_index<1>, std::move(none)) {}
  Answer(Reason reason) : content_(std::in_place_index<1>, NoValue{reason, {}}) {}

  bool isKnown() const { return content_.index() == 0; }
  explicit operator bool() const { return isKnown(); }

  /// The value. Undefined unless isKnown().
  const Value& value() const { return *std::get_if<0>(&content_); }
  const Value& operator*() const { return value(); }
  const Value* operator->() const { return &value(); }

  /// The value, or `other` when there is none.
  Value valueOr(Value other) const { return isKnown() ? value() : std::move(other); }

  /// Whether the value is known and is `expected`.
  bool is(const Value& expected) const { return isKnown() && value() == expected; }

  /// Why there is no value. Undefined when isKnown().
  const NoValue& none() const { return *std::get_if<1>(&content_); }
  bool lacksFor(Reason reason) const { return !isKnown() && none().reason == reason; }

  /// The answer to a question about the value: a function of it, or the same reason.
  template <typename Question>
  auto map(Question&& question) const -> Answer<decltype(question(std::declval<Value>()))> {
    if (!isKnown()) return none();
    return question(value());
  }

  bool operator==(const Answer&) const = default;

 private:
  std::variant<Value, NoValue> content_;
};

/// Whether nobody asked, as against asked and not answered.
inline bool isNotAsked(Reason reason) {
  return reason == Reason::DriverTooOld || reason == Reason::PortNotEnabled ||
         reason == Reason::NotOffered || reason == Reason::NotAsked;
}

/// The reason in words, such as "the driver is too old", for "not read: REASON".
std::string reasonText(const NoValue& none);

}  // namespace corvane
