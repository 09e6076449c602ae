#include "cli/answers/CommandOutput.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <nlohmann/json.hpp>

namespace corvane {

namespace {

using nlohmann::ordered_json;

constexpr int progressWidth = 40;

bool isControl(unsigned char byte) {
  return byte < 0x20 || byte == 0x7F;
}

/// True where the two bytes are the UTF-8 form of U+0080 to U+009F, which some
/// terminals obey as they obey escape sequences.
bool isControlPair(std::string_view text, std::size_t index) {
  if (index + 1 >= text.size() || text[index] != '\xC2') return false;
  const auto next = static_cast<unsigned char>(text[index + 1]);
  return next >= 0x80 && next <= 0x9F;
}

std::string printable(std::string_view text) {
  std::string shown;
  for (std::size_t index = 0; index < text.size(); ++index) {
    const auto byte = static_cast<unsigned char>(text[index]);
    if (byte == '\n') {
      if (!shown.ends_with(' ')) shown += ' ';
    } else if (isControl(byte)) {
      shown += fmt::format("\\x{:02x}", byte);
    } else if (isControlPair(text, index)) {
      ++index;
      shown += fmt::format("\\u{:04x}", static_cast<unsigned char>(text[index]));
    } else {
      shown += text[index];
    }
  }
  return shown;
}

std::string documentText(const ordered_json& document) {
  return document.dump(2, ' ', false, ordered_json::error_handler_t::replace);
}

bool isTable(const ordered_json& value) {
  return value.is_array() && !value.empty() &&
         std::all_of(value.begin(), value.end(), [](const auto& row) { return row.is_object(); });
}

std::string scalarText(const ordered_json& value) {
  if (value.is_null()) return "-";
  if (value.is_string()) return printable(value.get_ref<const std::string&>());
  if (!value.is_array()) return documentText(value);
  std::string joined;
  for (const auto& element : value) {
    if (!joined.empty()) joined += ", ";
    joined += scalarText(element);
  }
  return joined;
}

/// Columns taken on a terminal: characters, not bytes.
std::size_t columns(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char byte) { return (byte & '\xC0') != '\x80'; }));
}

std::string padded(std::string text, std::size_t width) {
  const std::size_t taken = columns(text);
  if (taken < width) text.append(width - taken, ' ');
  return text;
}

void printIndented(std::ostream& out, std::size_t indent, std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  out << std::string(indent, ' ') << line << '\n';
}

std::vector<std::string> tableHeading(const ordered_json& rows) {
  std::vector<std::string> heading;
  for (const auto& row : rows) {
    for (const auto& field : row.items()) {
      if (std::find(heading.begin(), heading.end(), field.key()) == heading.end()) {
        heading.push_back(field.key());
      }
    }
  }
  return heading;
}

std::vector<std::vector<std::string>> tableCells(const ordered_json& rows,
                                                 const std::vector<std::string>& heading) {
  std::vector<std::vector<std::string>> cells{heading};
  for (const auto& row : rows) {
    auto& line = cells.emplace_back();
    for (const auto& name : heading) {
      line.push_back(row.contains(name) ? scalarText(row.at(name)) : "-");
    }
  }
  return cells;
}

void printTable(std::ostream& out, std::size_t indent, const ordered_json& rows) {
  const auto cells = tableCells(rows, tableHeading(rows));
  std::vector<std::size_t> widths(cells.front().size(), 0);
  for (const auto& line : cells) {
    for (std::size_t column = 0; column < line.size(); ++column) {
      widths[column] = std::max(widths[column], columns(line[column]));
    }
  }
  for (const auto& line : cells) {
    std::string text;
    for (std::size_t column = 0; column < line.size(); ++column) {
      text += padded(line[column], widths[column] + 2);
    }
    printIndented(out, indent, std::move(text));
  }
}

void printText(std::ostream& out, std::size_t indent, const ordered_json& answer);

void printField(std::ostream& out, std::size_t indent, const std::string& name, std::size_t width,
                const ordered_json& value) {
  if (value.is_object() || isTable(value)) {
    printIndented(out, indent, name + ":");
    printText(out, indent + 2, value);
  } else {
    printIndented(out, indent, padded(name + ":", width + 2) + scalarText(value));
  }
}

void printText(std::ostream& out, std::size_t indent, const ordered_json& answer) {
  if (isTable(answer)) {
    printTable(out, indent, answer);
    return;
  }
  if (!answer.is_object()) {
    const std::string text = scalarText(answer);
    if (!text.empty()) printIndented(out, indent, text);
    return;
  }
  std::size_t width = 0;
  for (const auto& field : answer.items()) {
    if (!field.value().is_object()) width = std::max(width, columns(field.key()));
  }
  for (const auto& field : answer.items()) {
    printField(out, indent, field.key(), width, field.value());
  }
}

int exitCode(ExitStatus status) {
  return static_cast<int>(status);
}

bool asksForJson(const std::vector<std::string>& arguments) {
  return std::find(arguments.begin(), arguments.end(), "--json") != arguments.end();
}

/// What is wrong with the command line. The library asks for a command even where one was given
/// that is none.
std::string complaint(const CLI::App& app, const CLI::ParseError& error) {
  const auto unknown = app.remaining(true);
  std::string text = error.what();
  if (unknown.empty() || text != CLI::RequiredError::Subcommand(1).what()) return text;
  return fmt::format("there is no {} \"{}\"",
                     unknown.front().starts_with('-') ? "option" : "command", unknown.front());
}

int reportParseError(CLI::App& app, CommandContext& context,
                     const std::vector<std::string>& arguments, const CLI::ParseError& error) {
  if (error.get_exit_code() == 0) return app.exit(error, context.out, context.err);
  context.json = asksForJson(arguments);
  printFailure(context,
               CommandFailure(ExitStatus::WrongCommandLine, "command line", complaint(app, error),
                              fmt::format("\"{} --help\" lists what there is, \"{} "
                                          "COMMAND --help\" what a command takes.",
                                          context.program, context.program)));
  return exitCode(ExitStatus::WrongCommandLine);
}

}  // namespace

CommandFailure::CommandFailure(ExitStatus status, const std::string& subject,
                               const std::string& reason, std::string hint)
    : CommandFailure(status, subject, reason, std::move(hint), ordered_json::object()) {}

CommandFailure::CommandFailure(ExitStatus status, const std::string& subject,
                               const std::string& reason, std::string hint,
                               const ordered_json& answer)
    : std::runtime_error(subject + ": " + reason),
      status_(status),
      subject_(subject),
      reason_(reason),
      hint_(std::move(hint)),
      answer_(documentText(answer)) {}

void addJsonFlag(CLI::App& command, CommandContext& context) {
  command.add_flag("--json", context.json, "Print one JSON document");
}

ordered_json textOrNothing(const std::optional<std::string>& text) {
  return text ? ordered_json(*text) : ordered_json(nullptr);
}

void printAnswer(CommandContext& context, const ordered_json& answer) {
  if (context.json) {
    context.out << documentText(answer) << '\n';
  } else {
    printText(context.out, 0, answer);
  }
}

void printFailure(CommandContext& context, const CommandFailure& failure) {
  if (context.json) {
    auto document = ordered_json::parse(failure.answer());
    document["error"] = {
        {"what", failure.subject()}, {"why", failure.reason()}, {"hint", failure.hint()}};
    context.out << documentText(document) << '\n';
    return;
  }
  printNote(context, failure.what());
  if (!failure.hint().empty()) context.err << printable(failure.hint()) << '\n';
}

void printNote(CommandContext& context, std::string_view text) {
  context.err << context.program << ": " << printable(text) << '\n';
}

bool askToGoOn(CommandContext& context, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) context.err << printable(line) << '\n';
  context.err << "Go on? [y/N] " << std::flush;
  std::string answer;
  std::getline(context.in, answer);
  return answer == "y" || answer == "Y" || answer == "yes";
}

int runCommandLine(CLI::App& app, CommandContext& context,
                   const std::vector<std::string>& arguments) {
  try {
    // The library takes the arguments last one first.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    return exitCode(ExitStatus::Done);
  } catch (const CLI::ParseError& error) {
    return reportParseError(app, context, arguments, error);
  } catch (const CommandFailure& failure) {
    printFailure(context, failure);
    return exitCode(failure.status());
  } catch (const std::exception& error) {
    printFailure(context, CommandFailure(ExitStatus::Failed, "internal error", error.what(),
                                         "Please report this with the command line."));
    return exitCode(ExitStatus::Failed);
  }
}

ProgressBar::ProgressBar(CommandContext& context, const std::string& label)
    : context_(context), label_(printable(label)) {}

ProgressBar::~ProgressBar() {
  if (shownPercent_ >= 0) context_.err << "\r\x1b[K" << std::flush;
}

void ProgressBar::show(std::uint64_t done, std::uint64_t total) {
  if (!context_.errorIsTerminal) return;
  const std::uint64_t reached = std::min(done, total);
  const int percent =
      total == 0
          ? 100
          : static_cast<int>(static_cast<double>(reached) * 100.0 / static_cast<double>(total));
  if (percent <= shownPercent_) return;
  shownPercent_ = percent;
  const auto filled = static_cast<std::size_t>(percent * progressWidth / 100);
  context_.err << fmt::format("\r{} [{:<{}}] {:3}%", label_, std::string(filled, '#'),
                              progressWidth, percent)
               << std::flush;
}

}  // namespace corvane
