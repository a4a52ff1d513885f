#include "desktop/win32/window/reader_name.h"

#include "base/runtime_error.h"
#include "desktop/win32/system/com_owner.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/ole_start.h"
#include "desktop/win32/system/wide_text.h"
// Behind windows.h, which it needs.
#include <oleacc.h>

namespace kestrun {
namespace {

// Of the system's headers these stand in no library that the program is linked with.
constexpr GUID kServices{0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID kServicesInterface{0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr GUID kNameProperty{0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};

constexpr GUID kDescriptionProperty{0x4d48dfe4, 0xbd3f, 0x491f, {0xa6, 0x48, 0x49, 0x2d, 0x6f, 0x20, 0xc5, 0x88}};

// Runs with the system's service, where there is one.
template <class Action>
void WithServices(Action&& action) {
  Attempt([&] {
    StartOle();
    ComOwner<IAccPropServices> services;
    if (FAILED(KESTRUN_LATE(L"ole32.dll", CoCreateInstance)(kServices, nullptr, CLSCTX_INPROC_SERVER,
                                                            kServicesInterface, services.ReceiveAny()))) {
      return;
    }
    action(*services.get());
  });
}

}  // namespace

void TellReadersName(HWND window, const std::string& name) {
  WithServices([&](IAccPropServices& services) {
    services.SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, kNameProperty,
                            ToWide(name).c_str());
  });
}

void TellReadersRowNote(HWND list, int row, const std::string& note) {
  const auto child = static_cast<DWORD>(row) + 1;
  WithServices([&](IAccPropServices& services) {
    if (note.empty()) {
      services.ClearHwndProps(list, static_cast<DWORD>(OBJID_CLIENT), child, &kDescriptionProperty, 1);
    } else {
      services.SetHwndPropStr(list, static_cast<DWORD>(OBJID_CLIENT), child, kDescriptionProperty,
                              ToWide(note).c_str());
    }
  });
}

}  // namespace kestrun
