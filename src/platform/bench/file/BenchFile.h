#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/bench/file/BenchState.h"

namespace corvane {

/// Why a bench file was refused. what() is one line for a person: "FILE:LINE: FIELD: REASON", as
/// far as they are known.
class BenchFileError : public std::runtime_error {
 public:
  enum class Kind {
    Missing,     ///< there is no such file
    Unreadable,  ///< it cannot be read, locked or written
    Misfit,      ///< it is no JSON, does not fit the schema, or contradicts itself
  };

  BenchFileError(Kind kind, const std::string& path, size_t line, const std::string& field,
                 const std::string& reason);

  Kind kind() const { return kind_; }
  size_t line() const { return line_; }                ///< counted from 1; 0 when not known
  const std::string& field() const { return field_; }  ///< as a JSON pointer
  const std::string& reason() const { return reason_; }

 private:
  Kind kind_;
  size_t line_;
  std::string field_;
  std::string reason_;
};

/// The file that holds a simulated computer.
///
/// The file is the machine's state: every program that runs on the bench reads it when it needs to
/// know, and writes back what it changes. A change is made under a lock, written aside, brought to
/// disk and renamed into place, so two writers never lose each other's changes, a reader never
/// sees half a file, and a writer that is killed leaves the old file whole. A file that does not
/// fit the schema is refused and never overwritten.
///
/// Any thread may use an object; several objects and processes may use one file.
class BenchFile {
 public:
  /// `path` is made absolute, links resolved; the file need not be there yet.
  explicit BenchFile(const std::string& path);

  const std::string& path() const { return path_; }

  /// The folder beside the file in which the simulated computer's own files live: "demo.files" for
  /// "demo.json".
  std::string folder() const;

  /// Reads the file. Throws BenchFileError.
  BenchState load() const;

  /// Reads the file, lets `change` alter the state and writes it back. Nothing is written when
  /// nothing changed, when `change` throws, or when the result would not fit. What the change does
  /// not touch keeps its value. Throws BenchFileError; `change`'s own exceptions pass through.
  void update(const std::function<void(BenchState&)>& change) const;

  /// Sets the field that the JSON pointer names to the JSON value given as text, or to the text
  /// itself when it is not JSON or does not fit as JSON. Throws BenchFileError.
  void set(const std::string& pointer, const std::string& value) const;

  /// Writes a new file. Refuses when there is one already. Throws BenchFileError.
  void create(const BenchState& state) const;

  /// The file's text as it stands. Throws BenchFileError.
  std::string text() const;

 private:
  std::string path_;
};

/// Reads the text of a bench file; `path` is what errors name. Throws BenchFileError.
BenchState parseBench(std::string_view text, const std::string& path);

/// The text of a bench file that holds `state`.
std::string benchText(const BenchState& state);

}  // namespace corvane
