#include "platform/posix/CurlProtocols.h"

#include <strings.h>

#include <string_view>

namespace corvane {

namespace {

// By their numbers: older headers lack the first two, newer ones warn of the last two.
constexpr auto schemesByName = static_cast<CURLoption>(10318);
constexpr auto redirectsByName = static_cast<CURLoption>(10319);
constexpr auto schemesByNumber = static_cast<CURLoption>(181);
constexpr auto redirectsByNumber = static_cast<CURLoption>(182);

constexpr long web = CURLPROTO_HTTP | CURLPROTO_HTTPS;

CURLcode set(const CurlOptionSetters& setters, CURLoption byName, const char* names,
             CURLoption byNumber, long numbers) {
  const CURLcode code = setters.text(byName, names);
  return code == CURLE_UNKNOWN_OPTION ? setters.number(byNumber, numbers) : code;
}

}  // namespace

CurlProtocols protocolsFor(const std::string& url, bool allowsFiles) {
  constexpr std::string_view secure = "https:";
  return {allowsFiles, strncasecmp(url.c_str(), secure.data(), secure.size()) == 0};
}

CURLcode limitProtocols(const CurlProtocols& protocols, const CurlOptionSetters& setters) {
  const bool files = protocols.allowsFiles;
  const CURLcode code = set(setters, schemesByName, files ? "http,https,file" : "http,https",
                            schemesByNumber, files ? web | CURLPROTO_FILE : web);
  if (code != CURLE_OK) return code;
  const bool secure = protocols.redirectsToHttpsOnly;
  return set(setters, redirectsByName, secure ? "https" : "http,https", redirectsByNumber,
             secure ? CURLPROTO_HTTPS : web);
}

}  // namespace corvane
