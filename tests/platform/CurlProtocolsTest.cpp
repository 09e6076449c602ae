#include "platform/posix/CurlProtocols.h"

#include <map>

using namespace corvane;

namespace {

constexpr int schemesByName = 10318;
constexpr int redirectsByName = 10319;
constexpr long http = CURLPROTO_HTTP;
constexpr long https = CURLPROTO_HTTPS;

/// A library that knows some options, and keeps what it is given.
class OptionRecorder {
 public:
  CurlOptionSetters setters(CURLcode byName, CURLcode byNumber) {
    return {[this, byName](CURLoption option, const char* text) {
              texts_[option] = text;
              return byName;
            },
            [this, byNumber](CURLoption option, long number) {
              numbers_[option] = number;
              return byNumber;
            }};
  }

  std::map<int, std::string> texts_;
  std::map<int, long> numbers_;
};

TEST(CurlProtocols, AreLimitedByNameWhereTheLibraryKnowsThat) {
  OptionRecorder library;
  EXPECT_EQ(limitProtocols({}, library.setters(CURLE_OK, CURLE_OK)), CURLE_OK);
  EXPECT_EQ(library.texts_[schemesByName], "http,https");
  EXPECT_EQ(library.texts_[redirectsByName], "http,https");
  EXPECT_TRUE(library.numbers_.empty());
}

TEST(CurlProtocols, AreLimitedByNumberWhereTheLibraryIsOlder) {
  OptionRecorder library;
  const auto setters = library.setters(CURLE_UNKNOWN_OPTION, CURLE_OK);
  EXPECT_EQ(limitProtocols({true, true}, setters), CURLE_OK);
  EXPECT_EQ(library.numbers_,
            (std::map<int, long>{{181, http | https | CURLPROTO_FILE}, {182, https}}));
}

TEST(CurlProtocols, WhatIsTakenInNeitherWayIsAFailure) {
  OptionRecorder library;
  EXPECT_EQ(limitProtocols({}, library.setters(CURLE_UNKNOWN_OPTION, CURLE_UNKNOWN_OPTION)),
            CURLE_UNKNOWN_OPTION);
  EXPECT_EQ(limitProtocols({}, library.setters(CURLE_UNSUPPORTED_PROTOCOL, CURLE_OK)),
            CURLE_UNSUPPORTED_PROTOCOL);
}

TEST(CurlProtocols, TheLibraryAtHandTakesThem) {
  CURL* const handle = curl_easy_init();
  const auto set = [handle](CURLoption option, auto value) {
    return curl_easy_setopt(handle, option, value);
  };
  EXPECT_EQ(limitProtocols({true, true}, {set, set}), CURLE_OK);
  curl_easy_cleanup(handle);
}

TEST(CurlProtocols, WhatBeganSecurelyStaysSo) {
  for (const char* url : {"https://server/file", "HTTPS://server/file", "hTTps:x"}) {
    EXPECT_EQ(protocolsFor(url, false), (CurlProtocols{false, true})) << url;
  }
  for (const char* url : {"http://server/https:", "file:///https", "httpss://x", "https", ""}) {
    EXPECT_EQ(protocolsFor(url, true), (CurlProtocols{true, false})) << url;
  }
  OptionRecorder library;
  limitProtocols(protocolsFor("https://server", true), library.setters(CURLE_OK, CURLE_OK));
  EXPECT_EQ(library.texts_[schemesByName], "http,https,file");
  EXPECT_EQ(library.texts_[redirectsByName], "https");
}

}  // namespace
