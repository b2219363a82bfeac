// A site that is asked by https, without the trouble of certificates.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/curl_http_client.h"

namespace support {

/// Asks the server at `plainOrigin` ("http://127.0.0.1:1234/") for what is asked of "https://secure.test/".
/// Redirects look as if that had answered. All other addresses are asked as they are.
class SecuredClient : public platform::HttpClient {
 public:
  static constexpr std::string_view kOrigin = "https://secure.test/";

  explicit SecuredClient(std::string plainOrigin) : m_plainOrigin(std::move(plainOrigin)) {}

  platform::HttpAnswer fetch(const platform::HttpRequest& request, std::stop_token stop) override {
    platform::HttpRequest plain = request;
    plain.url = with(m_plainOrigin, kOrigin, request.url);
    if (request.followsTo) {
      plain.followsTo = [this, &request](std::string_view address) {
        return request.followsTo(with(kOrigin, m_plainOrigin, address));
      };
    }
    return m_client.fetch(plain, stop);
  }

 private:
  static std::string with(std::string_view origin, std::string_view insteadOf, std::string_view address) {
    if (!address.starts_with(insteadOf)) return std::string(address);
    return std::string(origin).append(address.substr(insteadOf.size()));
  }

  std::string m_plainOrigin;
  platform::CurlHttpClient m_client{{.userAgent = "test"}};
};

}  // namespace support
