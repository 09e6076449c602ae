#pragma once

#include <QLocale>
#include <QString>
#include <QTranslator>
#include <string>

namespace corvane {

class LaunchFailure;

/// The language of the window: our own texts and the toolkit's, as far as they are in a language
/// that the user prefers to English. It lasts as long as this object. Main thread only.
class Translation {
 public:
  /// An application object exists.
  explicit Translation(const QLocale& locale);

  Translation(const Translation&) = delete;
  Translation& operator=(const Translation&) = delete;

  /// Whether the texts are in another language than English.
  bool isInstalled() const { return !ownTexts_.isEmpty(); }

 private:
  bool load(const QString& language);

  QTranslator ownTexts_;
  QTranslator toolkitTexts_;
};

/// What the window shows for a text that the controllers give. Those of our own wording are
/// translated; texts with a fixed wording and the data of adapters come back as they are.
QString shownText(const std::string& text);

/// The same for several texts in one, joined by ", ".
QString shownList(const std::string& texts);

/// What was worked on when a launch failed, and why it did.
QString shownFailure(const LaunchFailure& failure);

}  // namespace corvane
