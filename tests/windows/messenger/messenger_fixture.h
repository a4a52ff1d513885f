// The messenger's window over a list of messages, and what a game gets to hear of it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "game/messages/message_list.h"
#include "program/frame_fixture.h"
#include "support/game_in_memory.h"
#include "windows/messenger/frmaddmessage.h"
#include "windows/messenger/frmchat.h"

namespace kestrun {

class MessengerTest : public FrameTest {
 protected:
  MessengerTest() { TellGameFolder(); }
  ~MessengerTest() override { CloseAllWindows(); }

  frmchat& Chat() { return Window<frmchat>(); }
  frmchat& Open() {
    if (!Chat().IsShown()) Chat().Show();
    return Chat();
  }
  // Puts the messages into the list as if they had been read from the settings.
  void Fill(const std::vector<Message>& messages) {
    for (const Message& message : messages) Chat().TakeMessage(-1, message.text, message.type);
    Chat().Changed = false;
  }
  void Seconds(uint64_t count) { desktop.clock().AdvanceMs(count * 1000); }
  // A server of the build that plays one round after the other.
  [[nodiscard]] GameOptions Server(size_t build) const {
    GameOptions options;
    options.build = build;
    options.folder = Path("game");
    options.plays_anything = true;
    options.round_seconds = 60;
    options.pause_ms = 10000;
    return options;
  }
  void PutMission() { WriteFile(GamePath("D08M03.BMS"), "mission"); }
  // Chat and console lines of a game's log, joined.
  [[nodiscard]] static std::string Heard(const GameInMemory& game) {
    std::string heard;
    for (const std::string& line : game.log) {
      const std::string text = ReplaceAll(line.substr(11), " chat ", " ");
      for (const char* kind : {"public ", "team ", "console "}) {
        if (text.starts_with(kind)) heard += text + "|";
      }
    }
    return heard;
  }
  void ExpectNotOpen(BoxAnswer answer) {
    desktop.dialogs()
        .ExpectBox("Delta Force isn't open. Continue?", answer)
        .WithButtons(BoxButtons::kYesNo)
        .WithIcon(BoxIcon::kQuestion);
  }
};

}  // namespace kestrun
