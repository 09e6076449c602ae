#include "ui/controls/Artwork.h"

#include <QFile>
#include <QFileInfo>

namespace corvane {

namespace {

QString resourcePath(const std::string& fileName) {
  const QFileInfo file(QString::fromStdString(fileName));
  const QString name = file.suffix() == "icns" ? file.completeBaseName() + ".svg" : file.fileName();
  return ":/artwork/" + name;
}

}  // namespace

QIcon artworkIcon(const std::string& fileName) {
  const QString path = resourcePath(fileName);
  return QIcon(QFile::exists(path) ? path : QStringLiteral(":/artwork/corvane.svg"));
}

QString artworkAnimation(const std::string& fileName) {
  const QString path = resourcePath(fileName);
  return path.endsWith(".gif") && QFile::exists(path) ? path : QString();
}

}  // namespace corvane
