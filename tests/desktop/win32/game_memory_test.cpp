// The real memory and keys of a game in another process.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <winternl.h>

#include "desktop/win32/game_process.h"
#include "desktop/win32/window_fixture.h"
#include "game/builds.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const HostBuild& kDemo = HostBuildOf(0);
// The first byte of the game's own code, behind its block of memory.
constexpr int32_t kCodeAddress = 0x1161000;

// The rights of each handle that this process has to another one.
std::vector<ACCESS_MASK> RightsTo(DWORD process) {
  using Query = NTSTATUS(NTAPI*)(HANDLE, int, void*, ULONG, ULONG*);
  const auto query =
      reinterpret_cast<Query>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryObject")));
  std::vector<ACCESS_MASK> rights;
  for (uintptr_t number = 4; number < 4096; number += 4) {
    const auto handle = reinterpret_cast<HANDLE>(number);
    if (GetProcessId(handle) != process) continue;
    PUBLIC_OBJECT_BASIC_INFORMATION information{};
    if (query(handle, 0, &information, sizeof information, nullptr) == 0) rights.push_back(information.GrantedAccess);
  }
  return rights;
}

class GameMemoryTest : public RealWindowTest {
 protected:
  [[nodiscard]] std::unique_ptr<GameMemory> MakeMemory(KeyDelivery delivery = KeyDelivery::kAuto) {
    return platform.running_games().MakeMemory([delivery] { return delivery; });
  }
  // Puts a window in front and waits until it stays there: a new window is brought to the front late, behind our backs.
  [[nodiscard]] bool BringToFront(HWND window) {
    constexpr int kLongEnough = 15;
    int in_front = 0;
    return WaitFor([&] {
      Pump();
      ::Sleep(20);
      in_front = GetForegroundWindow() == window ? in_front + 1 : 0;
      if (in_front == 0) SetForegroundWindow(window);
      return in_front == kLongEnough;
    });
  }
  void Type(GameMemory& memory, int key_code, std::string_view text) {
    memory.PressKey(key_code);
    ::Sleep(200);
    memory.WriteTextAt(kDemo.MemoryAdress, text);
    memory.PressKey(13);
  }

  std::unique_ptr<GameMemory> memory = MakeMemory();
};

TEST_F(GameMemoryTest, WithoutAGameNothingIsAttachedReadOrWritten) {
  EXPECT_FALSE(memory->AttachToWindow(kDemo.window_title));
  EXPECT_EQ(memory->Refusal(), "");
  EXPECT_EQ(memory->ReadByteAt(kDemo.GameEndAddr), 0);
  EXPECT_EQ(memory->ReadLongAt(kDemo.GameTimer), 0);
  memory->WriteTextAt(kDemo.MemoryAdress, "resetgames");
  memory->PressKey(192);
}

TEST_F(GameMemoryTest, AGameIsFoundByItsExactTitleAndRead) {
  const GameProcess game(0, "-round 900");
  ASSERT_TRUE(game.IsThere());
  EXPECT_FALSE(memory->AttachToWindow("Delta Force Land Warrior, DEMO V0.99.49"));
  EXPECT_FALSE(memory->AttachToWindow("Delta Force Land Warrior, Demo V0.99.4"));
  EXPECT_FALSE(memory->AttachToWindow("Delta Force Land Warrior, Demo V0.99.499"));
  ASSERT_TRUE(memory->AttachToWindow(kDemo.window_title));
  ASSERT_TRUE(game.Logs("map D08M03.BMS"));
  EXPECT_EQ(memory->ReadByteAt(kDemo.GameEndAddr), 1);
  const int32_t clock = memory->ReadLongAt(kDemo.GameTimer);
  EXPECT_GT(clock, 50'000);
  EXPECT_LE(clock, 56'250);
  EXPECT_TRUE(WaitFor([&] { return memory->ReadLongAt(kDemo.GameTimer) < clock; })) << "the clock runs";
}

TEST_F(GameMemoryTest, AnAddressThatCannotBeReadGivesZero) {
  const GameProcess game(0);
  ASSERT_TRUE(memory->AttachToWindow(kDemo.window_title));
  EXPECT_EQ(memory->ReadByteAt(0), 0);
  EXPECT_EQ(memory->ReadLongAt(-16), 0);
  EXPECT_NE(memory->ReadLongAt(kCodeAddress), 0);
}

TEST_F(GameMemoryTest, AllBuildsOfBothTablesHaveTheirMemoryInTheGamesProcess) {
  for (size_t row = 0; row < kMessengerBuilds.size(); ++row) {
    const MessengerBuild& build = kMessengerBuilds[row];
    const GameProcess game(row);
    ASSERT_TRUE(memory->AttachToWindow(build.window_title)) << build.caption;
    ASSERT_TRUE(game.Logs("map D08M03.BMS"));
    EXPECT_EQ(memory->ReadByteAt(build.GameEndAddress), build.GameEndAddress == 0 ? 0 : 1) << build.caption;
    memory->PressKey(84);
    ::Sleep(200);
    memory->WriteTextAt(build.MemoryAdress, "hello");
    memory->PressKey(13);
    EXPECT_TRUE(game.Logs("public chat hello")) << build.caption << "\n" << game.Log();
  }
}

TEST_F(GameMemoryTest, KeysReachAGameInTheBackgroundAsMessages) {
  const Ref<Form> form = MakeRef<Form>("behind");
  form->Show();
  Pump();
  const GameProcess game(0);
  ASSERT_TRUE(memory->AttachToWindow(kDemo.window_title));
  ASSERT_TRUE(BringToFront(HandleOf(*form)));
  Type(*memory, 192, "resetgames");
  EXPECT_TRUE(game.Logs("console resetgames")) << game.Log();
  EXPECT_TRUE(game.Logs("end of round 1: resetgames"));
  Type(*memory, 84, "hello everybody");
  EXPECT_TRUE(game.Logs("public chat hello everybody")) << game.Log();
  Type(*memory, 89, "follow me");
  EXPECT_TRUE(game.Logs("team chat follow me")) << game.Log();
  EXPECT_EQ(GetForegroundWindow(), HandleOf(*form)) << "the user's own window stays in front";
  EXPECT_EQ(memory->Refusal(), "");
}

TEST_F(GameMemoryTest, KeysReachAGameInFrontAsInput) {
  const GameProcess game(0);
  for (const KeyDelivery delivery : {KeyDelivery::kAuto, KeyDelivery::kInput}) {
    memory = MakeMemory(delivery);
    ASSERT_TRUE(memory->AttachToWindow(kDemo.window_title));
    ASSERT_TRUE(BringToFront(game.window()));
    const std::string text = "way " + std::to_string(static_cast<int>(delivery));
    Type(*memory, 192, text);
    EXPECT_TRUE(game.Logs("console " + text)) << game.Log();
  }
  EXPECT_FALSE(GetAsyncKeyState(192) & 0x8000) << "the key was let go";
}

TEST_F(GameMemoryTest, MessagesReachAGameInFrontToo) {
  const GameProcess game(0);
  memory = MakeMemory(KeyDelivery::kPost);
  ASSERT_TRUE(memory->AttachToWindow(kDemo.window_title));
  ASSERT_TRUE(BringToFront(game.window()));
  Type(*memory, 84, "by messages");
  EXPECT_TRUE(game.Logs("public chat by messages")) << game.Log();
}

TEST_F(GameMemoryTest, InputGoesToTheWindowInFrontWhenTheSettingSaysSo) {
  const Ref<Form> form = MakeRef<Form>("infront");
  form->KeyPreview = true;
  std::vector<int> heard;
  form->KeyDown = [&](int& code, int) { heard.push_back(code); };
  form->Show();
  Pump();
  const GameProcess game(0);
  memory = MakeMemory(KeyDelivery::kInput);
  ASSERT_TRUE(memory->AttachToWindow(kDemo.window_title));
  ASSERT_TRUE(BringToFront(HandleOf(*form)));
  memory->PressKey(84);
  EXPECT_TRUE(WaitFor([&] {
    Pump();
    return !heard.empty();
  }));
  EXPECT_THAT(heard, ElementsAre(84));
}

// One posted message of a key: what it is, its key or character, and its data.
struct KeyMessage {
  UINT message;
  WPARAM code;
  LPARAM data;
  friend bool operator==(const KeyMessage&, const KeyMessage&) = default;
};

void PrintTo(const KeyMessage& key, std::ostream* out) {
  *out << std::hex << key.message << " " << key.code << " " << static_cast<uint32_t>(key.data);
}

// A key's data when it goes up: it was down, and is released.
LPARAM Released(LPARAM data) { return static_cast<LPARAM>(static_cast<uint32_t>(data) | 0xC0000000); }

std::vector<KeyMessage> WaitingKeys(HWND window) {
  std::vector<KeyMessage> keys;
  MSG message{};
  while (PeekMessageW(&message, window, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
    keys.push_back({message.message, message.wParam, static_cast<LPARAM>(static_cast<uint32_t>(message.lParam))});
  }
  return keys;
}

// A window of this process stands for the game's: what is posted to it can be looked at.
TEST_F(GameMemoryTest, KeyMessagesCarryRepeatCountScanCodeAndTransition) {
  const Ref<Form> form = MakeRef<Form>("posted");
  form->Caption = "A window that gets keys";
  form->Show();
  Pump();
  memory = MakeMemory(KeyDelivery::kPost);
  ASSERT_TRUE(memory->AttachToWindow("A window that gets keys"));
  const HWND window = HandleOf(*form);
  const LPARAM scan = static_cast<LPARAM>(MapVirtualKeyW(84, MAPVK_VK_TO_VSC)) << 16;
  memory->PressKey(84);
  EXPECT_THAT(WaitingKeys(window), ElementsAre(KeyMessage{WM_KEYDOWN, 84, scan | 1}, KeyMessage{WM_CHAR, 't', scan | 1},
                                               KeyMessage{WM_KEYUP, 84, Released(scan | 1)}));
  const LPARAM enter = static_cast<LPARAM>(MapVirtualKeyW(VK_RETURN, MAPVK_VK_TO_VSC)) << 16;
  memory->PressKey(13);
  EXPECT_THAT(WaitingKeys(window),
              ElementsAre(KeyMessage{WM_KEYDOWN, VK_RETURN, enter | 1}, KeyMessage{WM_CHAR, '\r', enter | 1},
                          KeyMessage{WM_KEYUP, VK_RETURN, Released(enter | 1)}));
}

TEST_F(GameMemoryTest, AKeyWithoutACharacterPostsNoneAndAnExtendedKeySaysSo) {
  const Ref<Form> form = MakeRef<Form>("posted");
  form->Caption = "A window that gets keys";
  form->Show();
  Pump();
  memory = MakeMemory(KeyDelivery::kPost);
  ASSERT_TRUE(memory->AttachToWindow("A window that gets keys"));
  constexpr LPARAM kExtended = 1 << 24;
  const LPARAM scan = static_cast<LPARAM>(MapVirtualKeyW(VK_DOWN, MAPVK_VK_TO_VSC) & 0xFF) << 16;
  memory->PressKey(VK_DOWN);
  EXPECT_THAT(WaitingKeys(HandleOf(*form)), ElementsAre(KeyMessage{WM_KEYDOWN, VK_DOWN, scan | kExtended | 1},
                                                        KeyMessage{WM_KEYUP, VK_DOWN, Released(scan | kExtended | 1)}));
}

TEST_F(GameMemoryTest, ATextOverMemoryThatMayNotBeWrittenIsNotWritten) {
  const GameProcess game(0);
  ASSERT_TRUE(memory->AttachToWindow(kDemo.window_title));
  const int32_t code = memory->ReadLongAt(kCodeAddress);
  memory->WriteTextAt(kCodeAddress, "resetgames");
  EXPECT_EQ(memory->ReadLongAt(kCodeAddress), code);
  // Its first bytes lie in the writable block, its last ones behind it.
  memory->WriteTextAt(kCodeAddress - 4, "resetgames");
  EXPECT_EQ(memory->ReadLongAt(kCodeAddress - 4), 0);
  memory->WriteTextAt(0, "resetgames");
  memory->WriteTextAt(-16, "resetgames");
  EXPECT_EQ(memory->Refusal(), "");
  EXPECT_FALSE(game.HasEnded());
}

TEST_F(GameMemoryTest, TheRightToWriteIsAskedForAtTheFirstText) {
  const GameProcess game(0);
  const std::vector<ACCESS_MASK> before = RightsTo(game.Id());  // the test's own
  ASSERT_TRUE(memory->AttachToWindow(kDemo.window_title));
  static_cast<void>(memory->ReadByteAt(kDemo.GameEndAddr));
  memory->PressKey(27);
  const auto count_writing = [&] {
    return std::ranges::count_if(RightsTo(game.Id()),
                                 [](ACCESS_MASK rights) { return (rights & PROCESS_VM_WRITE) != 0; });
  };
  const auto writing_before = count_writing();
  EXPECT_EQ(RightsTo(game.Id()).size(), before.size() + 1);
  memory->WriteTextAt(kDemo.MemoryAdress, "hello");
  EXPECT_EQ(count_writing(), writing_before + 1);
  EXPECT_EQ(RightsTo(game.Id()).size(), before.size() + 1) << "the handle for reading alone was let go";
}

TEST_F(GameMemoryTest, AGameThatIsKilledReadsZeroAndItsHandleIsLetGo) {
  const GameProcess game(0, "-kill 2500");
  const size_t own_handles = RightsTo(game.Id()).size();
  ASSERT_TRUE(memory->AttachToWindow(kDemo.window_title));
  ASSERT_TRUE(WaitFor([&] { return memory->ReadByteAt(kDemo.GameEndAddr) == 1; }));
  ASSERT_TRUE(WaitFor([&] { return game.HasEnded(); }));
  EXPECT_THAT(game.Log(), HasSubstr("killed in the middle"));
  EXPECT_EQ(memory->ReadByteAt(kDemo.GameEndAddr), 0);
  EXPECT_EQ(memory->ReadLongAt(kDemo.GameTimer), 0);
  memory->PressKey(192);
  memory->WriteTextAt(kDemo.MemoryAdress, "resetgames");
  EXPECT_EQ(RightsTo(game.Id()).size(), own_handles);
  EXPECT_FALSE(memory->AttachToWindow(kDemo.window_title));
}

TEST_F(GameMemoryTest, AGameThatIsStartedAgainIsReadOnceItIsAttachedAgain) {
  {
    const GameProcess first(0);
    ASSERT_TRUE(memory->AttachToWindow(kDemo.window_title));
  }
  const GameProcess second(0);
  ASSERT_TRUE(second.Logs("map D08M03.BMS"));
  EXPECT_EQ(memory->ReadByteAt(kDemo.GameEndAddr), 0);
  ASSERT_TRUE(memory->AttachToWindow(kDemo.window_title));
  EXPECT_EQ(memory->ReadByteAt(kDemo.GameEndAddr), 1);
}

// What another process may do with a game: nothing, or all but writing, as with one that runs with more rights.
class Guarded {
 public:
  explicit Guarded(DWORD rights) {
    InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION);
    InitializeAcl(AsAcl(), sizeof acl_, ACL_REVISION);
    SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
    AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everyone_);
    if (rights != 0) AddAccessAllowedAce(AsAcl(), ACL_REVISION, rights, everyone_);
    SetSecurityDescriptorDacl(&descriptor_, TRUE, AsAcl(), FALSE);
  }
  ~Guarded() { FreeSid(everyone_); }
  Guarded(const Guarded&) = delete;
  Guarded& operator=(const Guarded&) = delete;

  [[nodiscard]] SECURITY_ATTRIBUTES* Attributes() { return &attributes_; }

 private:
  ACL* AsAcl() { return reinterpret_cast<ACL*>(acl_); }

  alignas(ACL) BYTE acl_[256]{};
  PSID everyone_ = nullptr;
  SECURITY_DESCRIPTOR descriptor_{};
  SECURITY_ATTRIBUTES attributes_{sizeof(SECURITY_ATTRIBUTES), &descriptor_, FALSE};
};

TEST_F(GameMemoryTest, AGameThatNobodyMayOpenIsNotAttachedAndSaysWhy) {
  Guarded nothing(0);
  const GameProcess game(0, "", nothing.Attributes());
  ASSERT_TRUE(game.IsThere());
  EXPECT_FALSE(memory->AttachToWindow(kDemo.window_title));
  EXPECT_EQ(memory->Refusal(), kGameNotReadable);
}

TEST_F(GameMemoryTest, AGameThatMayOnlyBeReadSaysWhyWhenATextIsWritten) {
  Guarded reading(PROCESS_QUERY_INFORMATION | PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_VM_READ | SYNCHRONIZE);
  const GameProcess game(0, "", reading.Attributes());
  ASSERT_TRUE(memory->AttachToWindow(kDemo.window_title));
  EXPECT_EQ(memory->Refusal(), "");
  memory->WriteTextAt(kDemo.MemoryAdress, "resetgames");
  EXPECT_EQ(memory->Refusal(), kGameNotWritable);
  EXPECT_EQ(memory->ReadByteAt(kDemo.MemoryAdress), 0);
}

}  // namespace
}  // namespace kestrun
