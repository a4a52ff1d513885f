// What is answered while the thread with the windows waits.
#include "desktop/win32/system/waiting.h"

#include <gtest/gtest.h>
#include <objbase.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "desktop/win32/system/com_owner.h"

namespace kestrun {
namespace {

// Notes on which thread it was asked.
class Asked final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == __uuidof(IUnknown) || id == __uuidof(IDispatch);
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  // It lives as long as its test.
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    thread = GetCurrentThreadId();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }

  std::atomic<DWORD> thread = 0;
};

TEST(WaitingTest, CallsOfScreenReadersAreAnsweredMeanwhile) {
  ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
  Asked asked;
  IStream* handed = nullptr;
  ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(IDispatch), &asked, &handed), S_OK);
  std::atomic<bool> is_done = false;
  std::thread reader([&] {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    {
      ComOwner<IDispatch> proxy;
      if (CoGetInterfaceAndReleaseStream(handed, __uuidof(IDispatch), proxy.ReceiveAny()) == S_OK) {
        UINT count = 0;
        proxy->GetTypeInfoCount(&count);
      }
    }
    is_done = true;
    CoUninitialize();
  });
  {
    Waiting waiting;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!is_done && std::chrono::steady_clock::now() < end) {
      static_cast<void>(waiting.PaintAndListen());
      Sleep(5);
    }
  }
  EXPECT_TRUE(is_done);
  EXPECT_EQ(asked.thread, GetCurrentThreadId());
  // A reader that was not answered is, now.
  for (MSG message{}; !is_done;) {
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  reader.join();
  CoUninitialize();
}

}  // namespace
}  // namespace kestrun
