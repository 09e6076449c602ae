#include "platform/bench/file/JsonLines.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <vector>

namespace corvane {

namespace {

using Json = nlohmann::ordered_json;

/// Reads the text byte by byte for the parser and knows how far it has come.
struct CountingIterator {
  using difference_type = std::ptrdiff_t;
  using value_type = char;
  using pointer = const char*;
  using reference = const char&;
  using iterator_category = std::input_iterator_tag;

  const char* position = nullptr;
  const char** reached = nullptr;

  reference operator*() const { return *position; }
  CountingIterator& operator++() {
    *reached = ++position;
    return *this;
  }
  bool operator==(const CountingIterator& other) const { return position == other.position; }
  bool operator!=(const CountingIterator& other) const { return position != other.position; }
};

/// Follows the parser through a document and tells `visit` of each value: its pointer, and the
/// place that the parser has reached.
class Tracker : public nlohmann::json_sax<Json> {
 public:
  virtual void visit(const std::string& pointer) = 0;
  virtual void visitRepeatedKey(const std::string& pointer) = 0;

  bool null() override { return scalar(); }
  bool boolean(bool) override { return scalar(); }
  bool number_integer(number_integer_t) override { return scalar(); }
  bool number_unsigned(number_unsigned_t) override { return scalar(); }
  bool number_float(number_float_t, const string_t&) override { return scalar(); }
  bool string(string_t&) override { return scalar(); }
  bool binary(binary_t&) override { return scalar(); }
  bool start_object(std::size_t) override { return open(false); }
  bool start_array(std::size_t) override { return open(true); }
  bool end_object() override { return close(); }
  bool end_array() override { return close(); }

  bool key(string_t& name) override {
    Level& level = levels_.back();
    level.token = (Json::json_pointer() / name).to_string();
    if (!level.keys.insert(name).second) visitRepeatedKey(pointer());
    return true;
  }

  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override {
    return false;
  }

 private:
  struct Level {
    bool isArray = false;
    size_t nextIndex = 0;
    std::string token;  ///< with its leading "/"
    std::set<std::string> keys;
  };

  std::string pointer() const {
    std::string text;
    for (const Level& level : levels_) text += level.token;
    return text;
  }

  void beginValue() {
    if (!levels_.empty() && levels_.back().isArray) {
      levels_.back().token = "/" + std::to_string(levels_.back().nextIndex++);
    }
    visit(pointer());
  }

  bool scalar() {
    beginValue();
    return true;
  }

  bool open(bool isArray) {
    beginValue();
    levels_.push_back(Level{isArray, 0, {}, {}});
    return levels_.size() < deepestLevel;
  }

  bool close() {
    levels_.pop_back();
    return true;
  }

  /// Far deeper than any bench; keeps the pointers of a hostile text short.
  static constexpr size_t deepestLevel = 64;

  std::vector<Level> levels_;
};

class LineFinder : public Tracker {
 public:
  LineFinder(std::string_view text, std::string wanted) : text_(text), wanted_(std::move(wanted)) {}

  size_t find() {
    const char* end = text_.data() + text_.size();
    reached_ = text_.data();
    Json::sax_parse(CountingIterator{text_.data(), &reached_}, CountingIterator{end, &reached_},
                    this);
    return line_;
  }

  void visit(const std::string& pointer) override {
    const bool encloses = wanted_.compare(0, pointer.size(), pointer) == 0 &&
                          (wanted_.size() == pointer.size() || wanted_[pointer.size()] == '/');
    if (encloses && (line_ == 0 || pointer.size() > found_)) {
      found_ = pointer.size();
      line_ = currentLine();
    }
  }

  void visitRepeatedKey(const std::string&) override {}

 private:
  /// The parser may have looked one byte ahead to see a number's end; that byte is not counted.
  size_t currentLine() const {
    const char* last = std::max(text_.data(), reached_ - 1);
    return 1 + static_cast<size_t>(std::count(text_.data(), last, '\n'));
  }

  std::string_view text_;
  std::string wanted_;
  const char* reached_ = nullptr;
  size_t found_ = 0;
  size_t line_ = 0;
};

class RepeatedKeyFinder : public Tracker {
 public:
  std::optional<std::string> find(std::string_view text) {
    Json::sax_parse(text.begin(), text.end(), this);
    return repeated_;
  }

  void visit(const std::string&) override {}
  void visitRepeatedKey(const std::string& pointer) override {
    if (!repeated_) repeated_ = pointer;
  }

 private:
  std::optional<std::string> repeated_;
};

}  // namespace

size_t lineOfJsonValue(std::string_view text, const std::string& pointer) {
  return LineFinder(text, pointer).find();
}

std::optional<std::string> findRepeatedJsonKey(std::string_view text) {
  return RepeatedKeyFinder().find(text);
}

}  // namespace corvane
