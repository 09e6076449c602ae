#pragma once

#include <QIcon>
#include <QString>
#include <string>

namespace corvane {

/// The picture that an icon's file name stands for. ".icns" names are drawn from the scalable
/// sources that the bundle's .icns files are made from. An unknown name gives the utility's icon.
QIcon artworkIcon(const std::string& fileName);

/// Where the frames of an animated picture are; empty for a still one.
QString artworkAnimation(const std::string& fileName);

}  // namespace corvane
