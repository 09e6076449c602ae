#include "platform/dump/RegistryDump.h"

#include <algorithm>
#include <utility>

#include "platform/dump/DumpForm.h"
#include "platform/dump/RegistryDumpBuilder.h"

namespace corvane {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The fewest letters of a bundle identifier that tell its maker: "com.velm".
constexpr size_t fewestLetters = 8;

bool looksLikePropertyList(std::string_view bytes) {
  if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
  const size_t begin = bytes.find_first_not_of(" \t\r\n");
  if (begin == std::string_view::npos) return false;
  bytes.remove_prefix(begin);
  return bytes.starts_with("<?xml") || bytes.starts_with("<!DOCTYPE plist") ||
         bytes.starts_with("<plist") || bytes.starts_with("bplist");
}

}  // namespace

RegistryDump::RegistryDump(std::string bytes, std::deque<Node> nodes,
                           std::unique_ptr<const DumpForm> form, DumpProblems problems)
    : bytes_(std::move(bytes)),
      nodes_(std::move(nodes)),
      form_(std::move(form)),
      problems_(problems) {}

RegistryDump::~RegistryDump() = default;
RegistryDump::RegistryDump(RegistryDump&&) noexcept = default;
RegistryDump& RegistryDump::operator=(RegistryDump&&) noexcept = default;

std::string_view RegistryDump::bytes(Entry entry) const {
  const Node& node = nodes_[entry];
  return std::string_view(bytes_).substr(node.begin, node.end - node.begin);
}

std::optional<RegistryDump::Entry> RegistryDump::parent(Entry entry) const {
  const Entry found = nodes_[entry].parent;
  return found == none ? std::nullopt : std::optional(found);
}

std::optional<RegistryDump::Entry> RegistryDump::firstChild(Entry entry) const {
  const Entry found = nodes_[entry].firstChild;
  return found == none ? std::nullopt : std::optional(found);
}

std::optional<RegistryDump::Entry> RegistryDump::nextSibling(Entry entry) const {
  const Entry found = nodes_[entry].nextSibling;
  return found == none ? std::nullopt : std::optional(found);
}

std::string RegistryDump::name(Entry entry) const {
  std::string keep;
  return std::string(form_->header(bytes(entry), keep).name);
}

std::string RegistryDump::location(Entry entry) const {
  std::string keep;
  return std::string(form_->header(bytes(entry), keep).location);
}

std::string RegistryDump::className(Entry entry) const {
  std::string keep;
  return std::string(form_->header(bytes(entry), keep).className);
}

bool RegistryDump::isAnnounced(Entry entry) const {
  std::string keep;
  return form_->header(bytes(entry), keep).announced;
}

PropertyValue::Dictionary RegistryDump::properties(Entry entry) const {
  DumpProblems ignored;
  return form_->properties(bytes(entry), ignored);
}

bool RegistryDump::holds(Entry entry, const PropertyValue::Dictionary& wanted) const {
  const bool possible = std::all_of(wanted.begin(), wanted.end(), [&](const auto& want) {
    const std::string* text = want.second.text();
    return !text || form_->mayHold(bytes(entry), *text);
  });
  if (!possible) return false;
  const PropertyValue::Dictionary held = properties(entry);
  return std::all_of(wanted.begin(), wanted.end(), [&](const auto& want) {
    const PropertyValue* value = findProperty(held, want.first);
    return value && *value == want.second;
  });
}

std::vector<RegistryDump::Entry> RegistryDump::entriesWith(
    const PropertyValue::Dictionary& wanted) const {
  std::vector<Entry> found;
  for (Entry entry = 0; entry < nodes_.size(); ++entry) {
    if (holds(entry, wanted)) found.push_back(entry);
  }
  return found;
}

bool RegistryDump::mayHaveHeld(Entry entry, const PropertyValue::Dictionary& wanted) const {
  return !wanted.empty() && std::all_of(wanted.begin(), wanted.end(), [&](const auto& want) {
    const std::string* text = want.second.text();
    const auto left = form_->cutText(bytes(entry), want.first);
    return text && left && left->size() >= fewestLetters && text->starts_with(*left);
  });
}

std::vector<RegistryDump::Entry> RegistryDump::entriesThatMayHold(
    const PropertyValue::Dictionary& wanted) const {
  std::vector<Entry> found;
  for (Entry entry = 0; entry < nodes_.size(); ++entry) {
    if (holds(entry, wanted) || mayHaveHeld(entry, wanted)) found.push_back(entry);
  }
  return found;
}

std::vector<RegistryDump::Entry> RegistryDump::entriesNamed(std::string_view name) const {
  std::vector<Entry> found;
  std::string keep;
  for (Entry entry = 0; entry < nodes_.size(); ++entry) {
    if (form_->header(bytes(entry), keep).name == name) found.push_back(entry);
  }
  return found;
}

DumpProblems RegistryDump::problems() const {
  DumpProblems problems = problems_;
  for (Entry entry = 0; entry < nodes_.size(); ++entry) {
    form_->properties(bytes(entry), problems);
  }
  return problems;
}

RegistryDump::Entry RegistryDumpBuilder::add(size_t begin, size_t end, size_t depth) {
  while (!path_.empty() && path_.back().depth >= depth) path_.pop_back();
  const auto entry = static_cast<RegistryDump::Entry>(nodes_.size());
  RegistryDump::Node node;
  node.begin = static_cast<uint32_t>(begin);
  node.end = static_cast<uint32_t>(end);
  if (!path_.empty()) {
    Open& parent = path_.back();
    node.parent = parent.entry;
    RegistryDump::Entry& link = parent.lastChild == RegistryDump::none
                                    ? nodes_[parent.entry].firstChild
                                    : nodes_[parent.lastChild].nextSibling;
    link = entry;
    parent.lastChild = entry;
  }
  nodes_.push_back(node);
  path_.push_back({depth, entry, RegistryDump::none});
  return entry;
}

RegistryDump RegistryDumpBuilder::finish(std::string bytes, std::unique_ptr<const DumpForm> form,
                                         const DumpProblems& problems) {
  return RegistryDump(std::move(bytes), std::move(nodes_), std::move(form), problems);
}

DumpReading readRegistryDump(std::string bytes) {
  if (bytes.size() > mostDumpBytes) return {std::nullopt, "It is larger than 4 GB."};
  return looksLikePropertyList(bytes) ? readPropertyListDump(std::move(bytes))
                                      : readTextDump(std::move(bytes));
}

}  // namespace corvane
