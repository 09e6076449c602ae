#include "ui/QtPrompts.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <memory>
#include <utility>

#include "ui/sheets/AlertSheet.h"

namespace corvane {

namespace {

QFileDialog::FileMode fileModeFor(const OpenPanelRequest& request) {
  if (request.choosesFolders && !request.choosesFiles) return QFileDialog::Directory;
  return request.allowsSeveral ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
}

/// Shows an alert and waits for one of its buttons. Returns alertFirstButton + its index.
int runModal(const AlertContent& content, QWidget* parent) {
  AlertSheet view(parent);
  view.setObjectName("modalAlert");
  int code = alertEndedByProgram;
  QObject::connect(&view, &AlertSheet::buttonPressed, &view, [&](int index) {
    code = alertFirstButton + index;
    view.done(QDialog::Accepted);
  });
  QObject::connect(&view, &AlertSheet::leaveRequested, &view,
                   [&view] { view.done(QDialog::Rejected); });
  view.setContent(content);
  view.exec();
  return code;
}

}  // namespace

bool QtPrompts::isWaiting() const {
  return std::any_of(sheets_.begin(), sheets_.end(), [](const auto& entry) {
    const auto& view = entry.second.view;
    return view && view->isVisible() && view->isWaiting();
  });
}

bool QtPrompts::askToLeave() {
  QMessageBox question(mainWindow_);
  question.setObjectName("leaveQuestion");
  question.setIcon(QMessageBox::Warning);
  question.setText(tr("The update is still running."));
  question.setInformativeText(
      tr("Quitting now can leave an adapter without working firmware and volumes unmounted."));
  QPushButton* const wait = question.addButton(tr("Keep Waiting"), QMessageBox::RejectRole);
  QPushButton* const leave = question.addButton(tr("Quit Anyway"), QMessageBox::DestructiveRole);
  question.setDefaultButton(wait);
  question.setEscapeButton(wait);
  question.exec();
  return question.clickedButton() == leave;
}

int QtPrompts::showModalAlert(const AlertContent& content) {
  return runModal(content, mainWindow_);
}

void QtPrompts::showAlertSheet(AlertIdentity alert, const AlertContent& content, SheetParent parent,
                               std::function<void(int code)> ended) {
  AlertSheet& view = sheetFor(alert, parent);
  sheets_[alert].ended = std::move(ended);
  view.setContent(content);
  if (!view.isVisible()) view.open();
}

void QtPrompts::endAlertSheet(AlertIdentity alert) {
  finish(alert, alertEndedByProgram);
}

void QtPrompts::showAlertProgress(AlertIdentity alert, std::optional<double> fraction) {
  const auto sheet = sheets_.find(alert);
  if (sheet != sheets_.end() && sheet->second.view) sheet->second.view->setProgress(fraction);
}

void QtPrompts::showOpenPanel(const OpenPanelRequest& request,
                              std::function<void(std::vector<std::string> paths)> chosen) {
  auto* const panel = new QFileDialog(mainWindow_);
  panel->setObjectName("openPanel");
  panel->setAttribute(Qt::WA_DeleteOnClose);
  panel->setFileMode(fileModeFor(request));
  panel->setOption(QFileDialog::ReadOnly, !request.createsFolders);
  if (!request.prompt.empty()) {
    panel->setLabelText(QFileDialog::Accept, QString::fromStdString(request.prompt));
  }
  connect(panel, &QDialog::finished, this, [panel, chosen = std::move(chosen)](int result) {
    std::vector<std::string> paths;
    if (result == QDialog::Accepted) {
      for (const QString& path : panel->selectedFiles()) paths.push_back(path.toStdString());
    }
    chosen(paths);
  });
  panel->open();
}

void QtPrompts::beep() {
  QApplication::beep();
}

void QtPrompts::terminate() {
  QMetaObject::invokeMethod(
      qApp, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
}

QWidget* QtPrompts::windowFor(SheetParent parent) const {
  return parent == SheetParent::UpdateWindow && updateWindow_ ? updateWindow_ : mainWindow_;
}

AlertSheet& QtPrompts::sheetFor(AlertIdentity alert, SheetParent parent) {
  QPointer<AlertSheet>& view = sheets_[alert].view;
  if (view) return *view;
  view = new AlertSheet(windowFor(parent));
  view->setObjectName("alertSheet");
  view->setWindowModality(Qt::WindowModal);
  connect(view, &AlertSheet::buttonPressed, this,
          [this, alert](int index) { finish(alert, alertFirstButton + index); });
  connect(view, &AlertSheet::leaveRequested, this, [this] {
    if (askToLeave()) terminate();
  });
  return *view;
}

// The sheet is gone before its handler runs, which may show it anew.
void QtPrompts::finish(AlertIdentity alert, int code) {
  const auto found = sheets_.find(alert);
  if (found == sheets_.end()) return;
  const Sheet sheet = std::move(found->second);
  sheets_.erase(found);
  if (sheet.view) {
    sheet.view->hide();
    sheet.view->deleteLater();
  }
  if (sheet.ended) sheet.ended(code);
}

}  // namespace corvane
