#include "ui/controls/Bindings.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QStackedWidget>
#include <QValidator>
#include <algorithm>
#include <cmath>
#include <memory>

#include "ui/controls/ControlBinding.h"
#include "ui/controls/FocusReturn.h"
#include "ui/controls/PopUpBox.h"
#include "ui/controls/Translation.h"

namespace corvane {

namespace {

constexpr int progressSteps = 1000;

/// Renders what every control has: visibility, use and hint. Without a hint the tooltip is the one
/// that the interface file gives.
class CommonRenderer {
 public:
  CommonRenderer(const Control& control, QWidget& widget)
      : control_(control), widget_(widget), ownToolTip_(widget.toolTip()) {}

  void render() const {
    const std::string& hint = control_.hint();
    widget_.setVisible(!control_.isHidden());
    FocusReturn::of(widget_).setEnabled(widget_, control_.isEnabled());
    widget_.setToolTip(hint.empty() ? ownToolTip_ : plainToolTip(hint));
    widget_.setAccessibleDescription(hint.empty() ? ownToolTip_ : shownText(hint));
  }

 private:
  const Control& control_;
  QWidget& widget_;
  QString ownToolTip_;
};

/// The items on show, in the order for the eye: by rising tag, which puts "automatic" first and
/// speeds and depths in their natural order wherever they sit in the model.
QList<PopUpBox::Choice> visibleChoices(const PopUpButton& control) {
  QList<PopUpBox::Choice> choices;
  for (size_t index = 0; index < control.items().size(); ++index) {
    const PopUpItem& item = control.items()[index];
    if (item.hidden) continue;
    choices.append({QString::fromStdString(item.title), item.tag, static_cast<int>(index)});
  }
  std::stable_sort(choices.begin(), choices.end(),
                   [](const auto& left, const auto& right) { return left.tag < right.tag; });
  return choices;
}

/// What stands in the box for a value that none of its items on show stands for.
QString plainText(const PopUpButton& control) {
  if (!control.plainValue().empty()) return shownText(control.plainValue());
  if (!control.selectedIndex()) return {};
  return QString::fromStdString(control.items()[*control.selectedIndex()].title);
}

void renderPopUp(const PopUpButton& control, PopUpBox& box) {
  box.setChoices(visibleChoices(control));
  const auto selected = control.selectedIndex();
  box.showChoice(selected ? static_cast<int>(*selected) : -1, plainText(control));
}

/// A button's state, and its title where the control has one; else the text is the interface
/// file's.
class ButtonRenderer {
 public:
  ButtonRenderer(const Button& control, QAbstractButton& button)
      : control_(control), button_(button), ownText_(button.text()) {}

  void render() {
    if (control_.title() != shownTitle_) {
      shownTitle_ = control_.title();
      button_.setText(shownTitle_.empty() ? ownText_ : shownText(shownTitle_));
    }
    if (button_.isCheckable()) button_.setChecked(control_.isOn());
  }

 private:
  const Button& control_;
  QAbstractButton& button_;
  const QString ownText_;
  std::string shownTitle_;
};

void renderAction(const Button& control, QAction& action) {
  action.setVisible(!control.isHidden());
  action.setEnabled(control.isEnabled());
  if (action.isCheckable()) action.setChecked(control.isOn());
}

/// Asks a control about each edit of its entry before the edit is made, and has Return confirm the
/// entry there rather than press its dialog's default button as well.
class EditFilter : public QValidator {
 public:
  EditFilter(EntryField& control, QObject* parent) : QValidator(parent), control_(control) {}

  State validate(QString& proposed, int&) const override {
    const std::string text = proposed.toStdString();
    return text == control_.text() || control_.edit(text) ? Acceptable : Invalid;
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    control_.confirm();
    return true;
  }

 private:
  EntryField& control_;
};

}  // namespace

QString plainToolTip(const std::string& hint) {
  return shownText(hint).toHtmlEscaped();
}

void bind(TextField& field, QLabel& label) {
  const QString caption = label.accessibleName();
  new ControlBinding(field, label,
                     [&field, &label, caption, common = CommonRenderer(field, label)] {
                       const QString text = shownText(field.text());
                       label.setText(text);
                       label.setAccessibleName(QObject::tr("%1: %2").arg(caption, text));
                       common.render();
                     });
}

void bindVisibility(TextField& field, QWidget& widget) {
  new ControlBinding(field, widget, [&field, &widget] { widget.setVisible(!field.isHidden()); });
}

void bind(PopUpButton& control, PopUpBox& box) {
  new ControlBinding(control, box, [&control, &box, common = CommonRenderer(control, box)] {
    common.render();
    renderPopUp(control, box);
    if (!control.isOpen()) box.dismiss();
  });
  QObject::connect(&box, &PopUpBox::opening, &box, [&control] { control.open(); });
  QObject::connect(&box, &PopUpBox::closed, &box, [&control] { control.close(); });
  QObject::connect(&box, &PopUpBox::chosen, &box, [&control, &box](int index) {
    control.choose(static_cast<size_t>(index));
    renderPopUp(control, box);
  });
}

void bind(CheckBox& control, QCheckBox& box) {
  new ControlBinding(control, box, [&control, &box, common = CommonRenderer(control, box)] {
    common.render();
    box.setChecked(control.isOn());
  });
  QObject::connect(&box, &QCheckBox::clicked, &box, [&control, &box](bool on) {
    control.choose(on);
    box.setChecked(control.isOn());
  });
}

void bind(Button& control, QAbstractButton& button, QAction* action) {
  const auto title = std::make_shared<ButtonRenderer>(control, button);
  const auto renderState = [&control, title, action] {
    title->render();
    if (action) renderAction(control, *action);
  };
  new ControlBinding(control, button, [renderState, common = CommonRenderer(control, button)] {
    common.render();
    renderState();
  });
  const auto click = [&control, renderState] {
    control.click();
    renderState();
  };
  QObject::connect(&button, &QAbstractButton::clicked, &button, click);
  if (action) QObject::connect(action, &QAction::triggered, &button, click);
}

void bind(TabView& control, QStackedWidget& pages) {
  new ControlBinding(control, pages, [&control, &pages] {
    pages.setCurrentIndex(static_cast<int>(control.selectedIndex()));
  });
}

void bind(ProgressIndicator& control, QProgressBar& bar) {
  new ControlBinding(control, bar, [&control, &bar, common = CommonRenderer(control, bar)] {
    showProgress(bar, control.fraction());
    common.render();
  });
}

void bind(EntryField& control, QLineEdit& entry) {
  new ControlBinding(control, entry, [&control, &entry, common = CommonRenderer(control, entry)] {
    common.render();
    const QString text = QString::fromStdString(control.text());
    if (entry.text() != text) entry.setText(text);
  });
  auto* const filter = new EditFilter(control, &entry);
  entry.setValidator(filter);
  entry.installEventFilter(filter);
}

void showProgress(QProgressBar& bar, std::optional<double> fraction) {
  bar.setRange(0, fraction ? progressSteps : 0);
  if (fraction) bar.setValue(static_cast<int>(std::lround(*fraction * progressSteps)));
  bar.repaint();
}

}  // namespace corvane
