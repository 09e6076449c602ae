#include "platform/Shell.h"

#include <algorithm>
#include <string_view>

namespace corvane {

namespace {

bool isPlain(char character) {
  constexpr std::string_view plainMarks = "._-";
  const bool letter =
      (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
  const bool digit = character >= '0' && character <= '9';
  return letter || digit || plainMarks.find(character) != std::string_view::npos;
}

std::string quoted(const std::string& word) {
  std::string text = "'";
  for (const char character : word) {
    if (character == '\'') {
      text += "'\\''";
    } else if (character != '\0') {
      text += character;
    }
  }
  return text + "'";
}

}  // namespace

std::string shellWord(const std::string& word) {
  const bool plain = !word.empty() && std::all_of(word.begin(), word.end(), isPlain);
  return plain ? word : quoted(word);
}

std::string shellPath(const std::string& path) {
  const bool plain = !path.empty() && std::all_of(path.begin(), path.end(), [](char character) {
    return character == '/' || isPlain(character);
  });
  return plain ? path : quoted(path);
}

}  // namespace corvane
