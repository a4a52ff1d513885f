// The uploader over a folder of maps, against a stand-in for the site that is a real web server.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "formats/bms/bms_writer.h"
#include "program/frame_fixture.h"
#include "support/mapping_center.h"
#include "support/zip_builder.h"
#include "windows/upload/frmcenter.h"
#ifdef _WIN32
#include "desktop/win32/system/win32_http.h"
#else
#include "desktop/headless/curl_http.h"
#endif

namespace kestrun {

inline const std::string kPicture = "\xFF\xD8\xFF picture \x80\x81\x8D\xA0";

class UploadTest : public FrameTest {
 protected:
  UploadTest() {
    TellGameFolder();
    desktop.internet().transport = [this] {
#ifdef _WIN32
      return center.OpenSession(OpenWinHttpSession());
#else
      return center.OpenSession(OpenCurlSession());
#endif
    };
    WriteIni("[launcher]\r\nUSERNAME=neo\r\nPASSWORD=sesame\r\n");
  }
  ~UploadTest() override { CloseAllWindows(); }

  // A zip with one mission of that name in it.
  static std::string MissionZip(const std::string& mission, const std::string& member = "Oasis.bms") {
    MissionFields fields;
    fields.mission_name = mission;
    fields.designer = "Trinity";
    fields.game_types = 0x1000;
    return BuildZip({{"readme.txt", "no map"}, {member, std::string(AsChars(WriteMission(fields)))}});
  }
  void PutZip(const std::string& base) { WriteFile(MapPath(base + ".zip"), MissionZip(base, base + ".bms")); }
  // All three files of a map.
  void PutMap(const std::string& base) {
    PutZip(base);
    WriteFile(MapPath(base + ".jpg"), kPicture);
    WriteFile(MapPath(base + ".txt"), "[COMMENTS]\r\nA map.\r\n[ADDONS]\r\nNone.\r\n");
  }
  FrmCenter& Open() {
    FrmCenter& window = Window<FrmCenter>();
    if (window.TxtDir.Text.get() != Path("maps")) window.TxtDir.Text = Path("maps");
    return window;
  }
  void Start() { Open().Command1.Press(); }
  static std::string LogText() { return Window<FrmCenter>().txtLog.Text; }
  // The log without its first line, which tells the time.
  static std::string LogBehindStart() {
    const std::string log = LogText();
    return log.substr(log.find("\r\n") + 2);
  }
  [[nodiscard]] std::vector<std::string> TakenNames() const {
    std::vector<std::string> names;
    for (const TakenMap& map : center.Taken()) names.push_back(map["mapname"]);
    return names;
  }

  MappingCenter center;
};

}  // namespace kestrun
