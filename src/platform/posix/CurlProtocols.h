#pragma once

#include <curl/curl.h>

#include <functional>
#include <string>

namespace corvane {

/// Which schemes a transfer may read, and which ones a redirect may lead to.
struct CurlProtocols {
  bool allowsFiles = false;           ///< "file://" besides http and https; no redirect leads there
  bool redirectsToHttpsOnly = false;  ///< what began over https is never asked for over http

  bool operator==(const CurlProtocols&) const = default;
};

/// Those of a transfer of `url`.
CurlProtocols protocolsFor(const std::string& url, bool allowsFiles);

/// How options are set on a handle; each answers as curl_easy_setopt() does.
struct CurlOptionSetters {
  std::function<CURLcode(CURLoption option, const char* text)> text;
  std::function<CURLcode(CURLoption option, long number)> number;
};

/// Sets the schemes. A library that does not know the options by name, which are newer than some
/// that it meets at run time, is given the older ones by number. What is refused in both ways is
/// the answer: the transfer must not take place then.
CURLcode limitProtocols(const CurlProtocols& protocols, const CurlOptionSetters& setters);

}  // namespace corvane
