// Objects that are made from the name of their class, and components that register themselves.
#include "desktop/win32/com/created_object.h"

#include <gtest/gtest.h>

#include "base/convert.h"
#include "desktop/win32/com/component_registration.h"
#include "desktop/win32/game_process.h"
#include "desktop/win32/system/windows_api.h"
#include "support/error_number.h"

namespace kestrun {
namespace {

constexpr const wchar_t* kClassKey = L"CLSID\\{5D1C9B8E-3A0F-4D77-9E61-C2A4B7F08D13}";
constexpr const char* kClassId = "{5D1C9B8E-3A0F-4D77-9E61-C2A4B7F08D13}";
constexpr REGSAM kOtherView = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

std::string FailureFor(const std::string& id) {
  return ErrorOf([&] { return CreateObjectOfClass(id); });
}

TEST(CreatedObjectTest, AnUnknownIdentifierIsError429) {
  for (const char* id : {"UNKNOWN", "", "No.Such.Class", "{00000000-1111-2222-3333-444444444444}", "{nonsense"}) {
    EXPECT_EQ(FailureFor(id), "429: ActiveX component can't create object") << id;
  }
}

TEST(CreatedObjectTest, AClassOfTheSystemIsMadeByItsProgramIdentifierAndByItsClassIdentifier) {
  for (const char* id : {"Scripting.Dictionary", "{EE09B103-97E0-11CF-978F-00A02463E06F}",
                         "EE09B103-97E0-11CF-978F-00A02463E06F", " Scripting.Dictionary "}) {
    const Ref<Object> words = CreateObjectOfClass(id);
    CallMember(*words, "Add", {"one", int32_t{1}});
    CallMember(*words, "Add", {"two", int32_t{2}});
    EXPECT_EQ(ToLong(GetMember(*words, "Count")), 2) << id;
    EXPECT_EQ(ToLong(GetMember(*words, "Item", {"two"})), 2);
    std::string keys;
    const std::unique_ptr<Enumeration> items = words->Enumerate();
    ASSERT_NE(items, nullptr);
    for (Variant item; items->Next(item);) keys += ToText(item) + "|";
    EXPECT_EQ(keys, "one|two|");
    EXPECT_EQ(ErrorNumberOf([&] { return CallMember(*words, "Add", {"one", int32_t{1}}); }), 457);
  }
}

// A component in the registry of programs of the other kind.
class OtherKindOfComponent : public testing::Test {
 protected:
  OtherKindOfComponent() {
    HKEY made = nullptr;
    RegCreateKeyExW(HKEY_CLASSES_ROOT, (std::wstring(kClassKey) + L"\\InprocServer32").c_str(), 0, nullptr, 0,
                    KEY_SET_VALUE | kOtherView, nullptr, &made, nullptr);
    RegCloseKey(made);
  }
  ~OtherKindOfComponent() override {
    RegDeleteKeyExW(HKEY_CLASSES_ROOT, (std::wstring(kClassKey) + L"\\InprocServer32").c_str(), kOtherView, 0);
    RegDeleteKeyExW(HKEY_CLASSES_ROOT, kClassKey, kOtherView, 0);
  }
};

TEST_F(OtherKindOfComponent, SaysWhichProgramToUse) {
  const std::string own = sizeof(void*) == 8 ? "64-bit" : "32-bit";
  const std::string other = sizeof(void*) == 8 ? "32-bit" : "64-bit";
  EXPECT_EQ(FailureFor(kClassId), "429: ActiveX component can't create object\r\nThis component is made for " + other +
                                      " programs, and this kestrun.exe is a " + own + " one: use the " + other +
                                      " kestrun.exe.");
}

std::string SystemLibrary(const std::string& name) {
  wchar_t folder[MAX_PATH];
  std::wstring path(folder, GetSystemDirectoryW(folder, MAX_PATH));
  return std::string(path.begin(), path.end()) + "\\" + name;
}

TEST(ComponentRegistrationTest, ALibraryWithTheEntryIsRegistered) {
  EXPECT_TRUE(RunRegistrationEntry(SystemLibrary("scrrun.dll"), false));
}

TEST(ComponentRegistrationTest, AFileThatIsNoLibraryOrHasNoEntryIsNot) {
  EXPECT_FALSE(RunRegistrationEntry("C:\\nowhere\\component.dll", false));
  EXPECT_FALSE(RunRegistrationEntry(SystemLibrary("kernel32.dll"), false));
  EXPECT_FALSE(RunRegistrationEntry(SystemLibrary("kernel32.dll"), true));
}

bool has_entry_returned = false;

DWORD WINAPI CallHangingEntry(void*) {
  static_cast<void>(RunRegistrationEntry(ProgramBesideTests("tour_inside.dll"), false));
  has_entry_returned = true;
  return 0;
}

// The calling thread waits for ten seconds and ends with the code of one that still runs.
TEST(ComponentRegistrationTest, AnEntryThatHangsTakesTheCallingThreadDown) {
  SetEnvironmentVariableW(L"TOUR_HANGS", L"1");
  const HANDLE caller = CreateThread(nullptr, 0, &CallHangingEntry, nullptr, 0, nullptr);
  EXPECT_EQ(WaitForSingleObject(caller, 9'000), static_cast<DWORD>(WAIT_TIMEOUT));
  EXPECT_EQ(WaitForSingleObject(caller, 30'000), WAIT_OBJECT_0);
  DWORD code = 0;
  GetExitCodeThread(caller, &code);
  CloseHandle(caller);
  EXPECT_EQ(code, static_cast<DWORD>(STILL_ACTIVE));
  EXPECT_FALSE(has_entry_returned);
  SetEnvironmentVariableW(L"TOUR_HANGS", nullptr);
}

}  // namespace
}  // namespace kestrun
