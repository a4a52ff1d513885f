// The ground under tests that send real requests: a server on this machine and the real client of the platform.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/headless_fixture.h"
#include "support/loopback_server.h"
#include "web/cls_http.h"
#ifdef _WIN32
#include "desktop/win32/system/win32_http.h"
#else
#include "desktop/headless/curl_http.h"
#endif

namespace kestrun {

class LoopbackTest : public HeadlessTest {
 protected:
  LoopbackTest() {
#ifdef _WIN32
    desktop.internet().transport = OpenWinHttpSession;
#else
    desktop.internet().transport = OpenCurlSession;
#endif
  }

  [[nodiscard]] std::string Get(std::string_view path) { return http.DownloadURl(server.Url(path), "GET"); }
  [[nodiscard]] ServedRequest LastServed() const {
    const std::vector<ServedRequest> requests = server.Requests();
    return requests.empty() ? ServedRequest() : requests.back();
  }

  LoopbackServer server;
  ClsHTTP http;
};

}  // namespace kestrun
