#include "ui/BenchMenu.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/bench/file/BenchEdits.h"
#include "platform/bench/file/BenchProducts.h"

namespace corvane {

namespace {

constexpr int64_t bridges = 3;
constexpr int64_t hopsOfAChain = 6;
constexpr QSize fileWindowSize{720, 560};

QString adapterTitle(const BenchAdapter& adapter) {
  return QString::fromStdString(benchLabel(adapter) + "  " + adapter.product);
}

/// Where the chain of a bridge ends: the first place after everything that is attached there.
int64_t endOfChain(const BenchState& state, int64_t bridge) {
  int64_t last = 0;
  for (const BenchAdapter& adapter : state.adapters) {
    if (adapter.attached && adapter.bridge == bridge) last = std::max(last, adapter.hop);
  }
  for (const BenchThunderboltDevice& device : state.thunderboltDevices) {
    if (device.bridge == bridge) last = std::max(last, device.hop);
  }
  return last + 1;
}

/// The adapter that is attached there now; none when it has gone since. Labels may stand for
/// several.
BenchAdapter* attachedAt(BenchState& state, int64_t bridge, int64_t hop) {
  for (BenchAdapter& adapter : state.adapters) {
    if (adapter.attached && adapter.bridge == bridge && adapter.hop == hop) return &adapter;
  }
  return nullptr;
}

bool hasLink(const BenchAdapter& adapter, size_t port) {
  return adapter.fibreChannelPorts.empty() ? adapter.ethernetPorts[port].link
                                           : adapter.fibreChannelPorts[port].link;
}

size_t portCount(const BenchAdapter& adapter) {
  return std::max(adapter.fibreChannelPorts.size(), adapter.ethernetPorts.size());
}

}  // namespace

BenchMenu::BenchMenu(const std::string& path, QWidget* parent) : QMenu(parent), file_(path) {
  setObjectName("menuBench");
  setTitle(tr("&Bench"));
  connect(this, &QMenu::aboutToShow, this, &BenchMenu::fill);
  fill();
}

void BenchMenu::fill() {
  clear();
  try {
    const BenchState state = file_.load();
    addPlugMenu(state);
    addUnplugMenu(state);
    addLinkMenu(state);
  } catch (const BenchFileError& error) {
    addAction(QString::fromStdString(error.what()))->setEnabled(false);
  }
  addSeparator();
  addAction(tr("&Show File…"), this, &BenchMenu::showFile)->setObjectName("actionShowBenchFile");
}

void BenchMenu::addPlugMenu(const BenchState& state) {
  QMenu* const plug = addMenu(tr("&Plug In"));
  for (int64_t bridge = 1; bridge <= bridges; ++bridge) {
    const int64_t hop = endOfChain(state, bridge);
    if (hop > hopsOfAChain) continue;
    BenchAdapter place;
    place.bridge = bridge;
    place.hop = hop;
    QMenu* const products =
        plug->addMenu(tr("At %1").arg(QString::fromStdString(benchLabel(place))));
    for (const BenchProduct& product : benchProducts()) {
      const std::string name(product.name);
      products->addAction(QString::fromStdString(name), this, [this, name, bridge, hop] {
        edit([&](BenchState& bench) { plugAdapter(bench, name, bridge, hop, std::nullopt); });
      });
    }
  }
  plug->setEnabled(!plug->isEmpty());
}

void BenchMenu::addUnplugMenu(const BenchState& state) {
  QMenu* const unplug = addMenu(tr("&Unplug"));
  for (const BenchAdapter& adapter : state.adapters) {
    if (!adapter.attached) continue;
    unplug->addAction(adapterTitle(adapter), this,
                      [this, bridge = adapter.bridge, hop = adapter.hop] {
                        edit([&](BenchState& bench) {
                          BenchAdapter* const found = attachedAt(bench, bridge, hop);
                          if (found) unplugAdapter(*found);
                        });
                      });
  }
  unplug->setEnabled(!unplug->isEmpty());
}

void BenchMenu::addLinkMenu(const BenchState& state) {
  QMenu* const links = addMenu(tr("&Links"));
  for (const BenchAdapter& adapter : state.adapters) {
    if (!adapter.attached) continue;
    for (size_t port = 0; port < portCount(adapter); ++port) {
      const int number = static_cast<int>(port) + 1;
      QAction* const link =
          links->addAction(tr("%1  port %2").arg(adapterTitle(adapter)).arg(number));
      link->setCheckable(true);
      link->setChecked(hasLink(adapter, port));
      connect(link, &QAction::triggered, this,
              [this, bridge = adapter.bridge, hop = adapter.hop, number](bool up) {
                edit([&](BenchState& bench) {
                  BenchAdapter* const found = attachedAt(bench, bridge, hop);
                  if (found) setLink(*found, number, up, {});
                });
              });
    }
  }
  links->setEnabled(!links->isEmpty());
}

void BenchMenu::edit(const std::function<void(BenchState&)>& change) {
  try {
    file_.update(change);
  } catch (const std::exception& error) {
    tell(QString::fromStdString(error.what()));
  }
}

void BenchMenu::showFile() {
  auto* const window = new QDialog(parentWidget());
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowTitle(QString::fromStdString(file_.path()));
  auto* const text = new QPlainTextEdit(window);
  text->setObjectName("benchFileText");
  text->setAccessibleName(tr("Bench file"));
  text->setReadOnly(true);
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  try {
    text->setPlainText(QString::fromStdString(file_.text()));
  } catch (const BenchFileError& error) {
    text->setPlainText(QString::fromStdString(error.what()));
  }
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, window);
  connect(buttons, &QDialogButtonBox::rejected, window, &QDialog::close);
  auto* const layout = new QVBoxLayout(window);
  layout->addWidget(text);
  layout->addWidget(buttons);
  window->resize(fileWindowSize);
  window->show();
}

void BenchMenu::tell(const QString& problem) {
  auto* const box =
      new QMessageBox(QMessageBox::Warning, tr("Bench"), problem, QMessageBox::Ok, parentWidget());
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

}  // namespace corvane
