#include "cli/archive/ArchiveManifest.h"

#include <fmt/format.h>

#include <fstream>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <set>
#include <string_view>

#include "cli/answers/CommandOutput.h"

namespace corvane {

namespace {

using nlohmann::json;

constexpr const char* manifestHint =
    "A manifest is {\"id\",\"version\",\"files\":[{\"id\",\"version\",\"description\",\"name\","
    "\"path\"}]}, all of them texts but the list.";

/// Reads the fields of one manifest and says where it was when one is wrong.
class ManifestReader {
 public:
  explicit ManifestReader(std::filesystem::path path) : path_(std::move(path)) {}

  ArchiveManifest read() const {
    const json document = parse();
    requireFields(document, "", {"id", "version", "files"});
    ArchiveManifest manifest{storableText(document, "", "id"),
                             storableText(document, "", "version"), readFiles(document)};
    requireDistinctIds(manifest);
    return manifest;
  }

 private:
  [[noreturn]] void refuse(const std::string& reason) const {
    throw CommandFailure(ExitStatus::Failed, path_.string(), reason, manifestHint);
  }

  json parse() const {
    std::error_code error;
    if (!std::filesystem::exists(path_, error)) {
      throw CommandFailure(ExitStatus::NotFound, path_.string(), "there is no such manifest",
                           manifestHint);
    }
    std::ifstream stream(path_, std::ios::binary);
    try {
      return json::parse(stream);
    } catch (const json::parse_error& parseError) {
      refuse(fmt::format("is not a JSON document ({})", parseError.what()));
    }
  }

  void requireFields(const json& object, const std::string& pointer,
                     std::initializer_list<std::string_view> names) const {
    if (!object.is_object()) refuse(fmt::format("\"{}\" must be an object", pointer));
    for (const auto name : names) {
      if (!object.contains(name)) refuse(fmt::format("\"{}/{}\" is missing", pointer, name));
    }
    for (const auto& field : object.items()) {
      if (std::find(names.begin(), names.end(), field.key()) == names.end()) {
        refuse(fmt::format("\"{}/{}\" is not known", pointer, field.key()));
      }
    }
  }

  std::string text(const json& object, const std::string& pointer, const char* name) const {
    const json& value = object.at(name);
    if (!value.is_string()) refuse(fmt::format("\"{}/{}\" must be a text", pointer, name));
    return value.get<std::string>();
  }

  /// The format has no way to escape: "<" would end the text early when read, and a
  /// zero character when written.
  std::string storableText(const json& object, const std::string& pointer, const char* name) const {
    auto value = text(object, pointer, name);
    if (value.find_first_of(std::string_view("<\0", 2)) != std::string::npos) {
      refuse(fmt::format("\"{}/{}\" holds \"<\" or a zero character, which a package cannot store",
                         pointer, name));
    }
    return value;
  }

  std::vector<ArchiveManifest::File> readFiles(const json& document) const {
    const json& list = document.at("files");
    if (!list.is_array()) refuse("\"/files\" must be a list");
    std::vector<ArchiveManifest::File> files;
    for (const auto& entry : list) {
      files.push_back(readFile(entry, fmt::format("/files/{}", files.size())));
    }
    return files;
  }

  ArchiveManifest::File readFile(const json& entry, const std::string& pointer) const {
    requireFields(entry, pointer, {"id", "version", "description", "name", "path"});
    return {storableText(entry, pointer, "id"), storableText(entry, pointer, "version"),
            storableText(entry, pointer, "description"), storableText(entry, pointer, "name"),
            path_.parent_path() / text(entry, pointer, "path")};
  }

  void requireDistinctIds(const ArchiveManifest& manifest) const {
    std::set<std::string_view> ids;
    for (const auto& file : manifest.files) {
      if (!ids.insert(file.id).second) {
        refuse(fmt::format("two files have the id \"{}\", of which only the first could be read",
                           file.id));
      }
    }
  }

  std::filesystem::path path_;
};

}  // namespace

ArchiveManifest readArchiveManifest(const std::filesystem::path& path) {
  return ManifestReader(path).read();
}

}  // namespace corvane
