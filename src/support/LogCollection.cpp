#include "support/LogCollection.h"

#include <fmt/format.h>

#include <array>
#include <utility>

namespace corvane {

namespace {

constexpr const char* desktopFolder = "~/Desktop/AllLogs/";

/// Of all releases only these have a system log that the copying does not reach.
constexpr const char* unifiedLogReleases = "10.12.";

/// A text inside the quotation marks of a script.
std::string scriptText(const std::string& text) {
  std::string escaped;
  for (const char character : text) {
    if (character == '"' || character == '\\') escaped += '\\';
    escaped += character;
  }
  return escaped;
}

/// One collection, run on a global queue or by whoever wants its copying part. It holds what it
/// needs itself: the object that began it may be gone before it ends.
class CollectionWork {
 public:
  using Show = std::function<void(const std::string& step, double fraction)>;

  /// `parent` ends with "/", as the shell takes it; `show` is told of each step.
  CollectionWork(const Platform& platform, std::string parent, const std::string& stamp, Show show)
      : platform_(platform),
        parent_(std::move(parent)),
        folder_(parent_ + stamp),
        show_(std::move(show)) {
    result_.folder = folder_;
  }

  const LogCollectionResult& result() const { return result_; }

  void collect() {
    show_("Making the folder…", 0.0);
    run(fmt::format("mkdir -pv {}/systemLog", folder_));
    const bool hasUnifiedLog =
        platform_.systemVersion.productVersion().find(unifiedLogReleases) != std::string::npos;
    if (hasUnifiedLog && !collectUnifiedLog()) return removeFolder();
    copy();
  }

  void copy() {
    show_("Copying the system log…", 0.2);
    run(fmt::format("/bin/cp {}* {}/systemLog/", shellPath(platform_.paths.systemLog), folder_));
    show_("Reading the device registry…", 0.3);
    run(fmt::format("ioreg  -l > {}/ioreg.txt", folder_));
    show_("Profiling the system…", 0.4);
    run(fmt::format("system_profiler -xml > {}/profiler.spx", folder_));
    show_("Showing the folder…", 1.0);
    run(fmt::format("open {}", parent_));
  }

 private:
  /// Scripts are run on the main thread, whatever waits for them.
  bool collectUnifiedLog() {
    show_("Collecting the unified log…", 0.1);
    const std::string script = fmt::format(
        "do shell script \"log collect --output {}/systemLog/\" with administrator privileges",
        scriptText(folder_));
    bool succeeded = false;
    platform_.dispatch.syncMain([&] { succeeded = platform_.scripts.run(script).succeeded; });
    return succeeded;
  }

  void removeFolder() {
    run(fmt::format("rm -fr {}", folder_));
    result_.cancelled = true;
  }

  void run(const std::string& line) {
    if (platform_.shell.run(line) != 0) result_.failedLines.push_back(line);
  }

  const Platform platform_;
  const std::string parent_;
  const std::string folder_;
  const Show show_;
  LogCollectionResult result_;
};

}  // namespace

std::string logStamp(std::time_t time) {
  std::tm parts{};
  localtime_r(&time, &parts);
  std::array<char, 32> text{};
  const size_t size = std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &parts);
  return std::string(text.data(), size);
}

LogCollection::LogCollection(const Platform& platform, MainWindowControls& controls,
                             std::function<std::time_t()> clock)
    : platform_(platform),
      controls_(controls),
      clock_(std::move(clock)),
      folder_(desktopFolder),
      mainWork_(platform.dispatch, *this) {
  controls_.downloadLogs.setAction([this](Button&) { downloadLogs(); });
}

void LogCollection::setFolder(const std::string& folder) {
  folder_ = shellPath(folder) + "/";
}

void LogCollection::whenFinished(std::function<void(const LogCollectionResult&)> finished) {
  finished_ = std::move(finished);
}

void LogCollection::downloadLogs() {
  if (isRunning_) return;
  isRunning_ = true;
  title_ = controls_.downloadLogs.title();
  controls_.downloadLogs.suspend();
  controls_.logProgress.start();

  const auto main = mainWork_.way();
  const auto show = [main](const std::string& step, double fraction) {
    main.async([step, fraction](LogCollection& collection) { collection.show(step, fraction); });
  };
  auto work = std::make_shared<CollectionWork>(platform_, folder_, logStamp(clock_()), show);
  platform_.dispatch.asyncGlobal(QueuePriority::Default, [work, main] {
    work->collect();
    main.async([work](LogCollection& collection) { collection.finish(work->result()); });
  });
}

void LogCollection::downloadLogsBefore1012(const std::string& stamp) const {
  CollectionWork(platform_, folder_, stamp, [](const std::string&, double) {}).copy();
}

void LogCollection::show(const std::string& step, double fraction) {
  controls_.downloadLogs.setTitle(step);
  controls_.logProgress.setFraction(fraction);
}

void LogCollection::finish(const LogCollectionResult& result) {
  controls_.downloadLogs.setTitle(title_);
  controls_.downloadLogs.resume();
  controls_.logProgress.setFraction(std::nullopt);
  controls_.logProgress.stop();
  isRunning_ = false;
  if (finished_) finished_(result);
}

}  // namespace corvane
