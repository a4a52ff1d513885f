// A map, pictures as bitmap files, and the service's answers for the windows of the previews.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "formats/bitmap/bitmap_file.h"
#include "forms/script_system.h"
#include "program/frame_fixture.h"
#include "program/site_file.h"
#include "windows/previews/frmlargeprev.h"
#include "windows/previews/frmpicture.h"
#include "windows/previews/frmpictureselect.h"

namespace kestrun {

class PreviewsTest : public FrameTest {
 protected:
  static constexpr const char* kService = "http://center.example";

  PreviewsTest() {
    WriteSetting(setting::kImageFolder, Path("maps"));
    InstallScriptSystem(ScriptSystem{[this] { return clipboard; },
                                     [this](const DecodedPicture& picture) { clipboard = picture; },
                                     [this] { clipboard.reset(); }});
  }
  ~PreviewsTest() override {
    CloseAllWindows();
    InstallScriptSystem(std::nullopt);
  }

  // A picture of one colour as the bytes of a bitmap file.
  static Bytes Bitmap(int width, int height, uint32_t color = 0xFF102030) {
    return EncodeBitmap(width, height, std::vector<uint32_t>(static_cast<size_t>(width * height), color));
  }
  static std::string BitmapText(int width, int height) { return std::string(AsChars(Bitmap(width, height))); }

  frmpicture& Manager(const std::string& map) {
    OpenPreviewManager(map);
    return Window<frmpicture>();
  }
  void PutService(const std::string& reply) {
    desktop.internet().Reply(SiteFileUrl(), std::string("[launcher]\r\nMAPCENTER=") + kService + "\r\n");
    desktop.internet().Reply(std::string(kService) + "/script.php", reply);
  }

  std::optional<DecodedPicture> clipboard;
};

}  // namespace kestrun
