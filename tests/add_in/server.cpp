// The add-in of the tests as a program of its own, which serves its objects from outside: TourOutside.Tour. This is the
// road for a 32-bit add-in beside the 64-bit program. "-regserver" on its command line registers it; COM starts it with
// "-Embedding" when an object is wanted. It ends when its last object has gone, or, where the program that
// used it has died with objects of it, a while after.
#include "add_in/tour.h"
#include "add_in/tour_object.h"

namespace {

constexpr GUID kClass{0x0d2b84f7, 0x93c1, 0x4a65, {0xb7, 0x02, 0x4e, 0x8d, 0x61, 0xf3, 0x1c, 0x29}};
constexpr const wchar_t* kClassText = L"{0D2B84F7-93C1-4A65-B702-4E8D61F31C29}";
constexpr UINT kLookAroundMs = 200;
constexpr int kLooksAfterTheEnd = 50;

bool Register() {
  const std::wstring key = std::wstring(L"CLSID\\") + kClassText;
  return tour::WriteClassValue(L"TourOutside.Tour\\CLSID", kClassText) &&
         tour::WriteClassValue(key, L"The add-in of the tests, as a program") &&
         tour::WriteClassValue(key + L"\\LocalServer32", L"\"" + tour::OwnFile() + L"\"");
}

void Serve() {
  tour::TourFactory factory;
  DWORD registration = 0;
  CoRegisterClassObject(kClass, &factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &registration);
  SetTimer(nullptr, 0, kLookAroundMs, nullptr);
  bool has_served = false;
  int looks_after_the_end = 0;
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    DispatchMessageW(&message);
    has_served = has_served || tour::LiveObjects() > 0;
    if (!has_served || message.message != WM_TIMER || !tour::HasSeenTheEnd()) continue;
    if (tour::LiveObjects() == 0 || ++looks_after_the_end == kLooksAfterTheEnd) break;
  }
  tour::ForgetWindow();
  CoRevokeClassObject(registration);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR words, int) {
  if (std::wstring(words).find(L"regserver") != std::wstring::npos) return Register() ? 0 : 1;
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  Serve();
  CoUninitialize();
  return 0;
}
