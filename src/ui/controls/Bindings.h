#pragma once

#include <optional>
#include <string>

#include "controls/Button.h"
#include "controls/CheckBox.h"
#include "controls/EntryField.h"
#include "controls/PopUpButton.h"
#include "controls/ProgressIndicator.h"
#include "controls/TabView.h"
#include "controls/TextField.h"

class QAbstractButton;
class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QStackedWidget;
class QString;
class QWidget;

/// One way for each kind of control to be rendered by a widget. A binding lives as long as its
/// widget; the control must outlive it. What the user does goes to the control, and the widget then
/// shows what the control made of it.
namespace corvane {

class PopUpBox;

/// A text to read. The label's accessible name, as the interface file has it, is its caption; the
/// binding has it read together with the value.
void bind(TextField& field, QLabel& label);

/// A label or frame of which only the visibility is the control's.
void bindVisibility(TextField& field, QWidget& widget);

void bind(PopUpButton& control, PopUpBox& box);
void bind(CheckBox& control, QCheckBox& box);

/// A push or toggle button, and the menu's action that does the same, if there is one. The texts
/// are the interface file's unless the control has a title.
void bind(Button& control, QAbstractButton& button, QAction* action = nullptr);

void bind(TabView& control, QStackedWidget& pages);
void bind(ProgressIndicator& control, QProgressBar& bar);

/// An entry field. Each edit, by key, paste, drop or input method, passes the control's filter; a
/// refused one leaves text and cursor where they were.
void bind(EntryField& control, QLineEdit& entry);

/// Shows how far some work is; nothing when it cannot be told. Draws at once, since the work may
/// keep the main queue.
void showProgress(QProgressBar& bar, std::optional<double> fraction);

/// What tooltips show for a hint, which is plain text whatever it looks like.
QString plainToolTip(const std::string& hint);

}  // namespace corvane
