#pragma once

class QDialog;

namespace corvane {

/// Gives a dialog the height that its texts need at its width, whatever the size of the letters. It
/// is never narrower than its interface file makes it.
void fitToContent(QDialog& dialog);

}  // namespace corvane
