#pragma once

#include <QAbstractListModel>
#include <vector>

#include "AppDelegate.h"

namespace corvane {

/// The rows of the device table as the application's controller gives them.
class DeviceListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  DeviceListModel(AppDelegate& delegate, QObject* parent);

  /// Asks the controller for all rows again.
  void reload();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  AppDelegate& delegate_;
  std::vector<DeviceTableCell> cells_;
};

}  // namespace corvane
