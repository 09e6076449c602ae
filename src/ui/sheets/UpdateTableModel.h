#pragma once

#include <QAbstractTableModel>

namespace corvane {

class OnlineUpdate;

/// The rows of the update window as its controller gives them.
class UpdateTableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  UpdateTableModel(OnlineUpdate& controller, QObject* parent);

  /// Asks the controller for all rows again.
  void reload();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  OnlineUpdate& controller_;
};

}  // namespace corvane
