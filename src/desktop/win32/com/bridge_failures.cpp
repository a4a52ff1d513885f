#include "desktop/win32/com/bridge_failures.h"

#include <utility>

#include "base/result_codes.h"
#include "base/runtime_error.h"
#include "desktop/win32/com/automation_value.h"
#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

constexpr const char* kSource = "Kestrun";

void Describe(const RuntimeError& failure, EXCEPINFO& told) {
  const auto* host = dynamic_cast<const HostError*>(&failure);
  const bool has_source = host && !host->source().empty();
  told.bstrSource = NewAutomationText(has_source ? host->source() : kSource);
  told.bstrDescription = NewAutomationText(failure.description());
  if (!host) return;
  told.bstrHelpFile = NewAutomationText(host->help_file());
  told.dwHelpContext = static_cast<DWORD>(host->help_context());
}

// The failure in flight as it was raised, with its source.
template <class Action>
void WithFailure(Action&& action) {
  try {
    throw;
  } catch (const HostError& failure) {
    action(failure);
  } catch (const std::exception&) {
    action(CurrentError());
  }
}

[[noreturn]] void RaiseTold(EXCEPINFO& told) {
  ToldTexts texts = TakeToldTexts(told);
  const int number = told.wCode ? told.wCode : NumberOfResult(told.scode);
  if (texts.description.empty()) {
    texts.description =
        HasStandardErrorText(number) ? std::string(StandardErrorText(number)) : TextOfResult(told.scode);
  }
  throw HostError(number, texts.description, texts.source, texts.help_file, static_cast<int>(told.dwHelpContext));
}

}  // namespace

HRESULT TellFailure(EXCEPINFO* told) noexcept {
  HRESULT result = E_FAIL;
  try {
    WithFailure([&](const RuntimeError& failure) {
      result = ResultOfNumber(failure.number());
      if (!told) return;
      *told = {};
      told->scode = result;
      Describe(failure, *told);
    });
  } catch (const std::exception&) {
    // Without memory for its texts the number alone is told.
  }
  return told ? DISP_E_EXCEPTION : result;
}

ToldTexts TakeToldTexts(EXCEPINFO& told) {
  if (told.pfnDeferredFillIn) told.pfnDeferredFillIn(&told);
  return {.source = TakeAutomationText(std::exchange(told.bstrSource, nullptr)),
          .description = TakeAutomationText(std::exchange(told.bstrDescription, nullptr)),
          .help_file = TakeAutomationText(std::exchange(told.bstrHelpFile, nullptr))};
}

void RaiseResult(HRESULT result, EXCEPINFO* told) {
  if (result == DISP_E_EXCEPTION && told) RaiseTold(*told);
  const int number = NumberOfResult(result);
  if (HasStandardErrorText(number)) Raise(number);
  const std::string text = TextOfResult(result);
  throw HostError(number, text.empty() ? std::string(StandardErrorText(error::kAutomationError)) : text);
}

std::string TextOfResult(HRESULT result) {
  wchar_t text[512];
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                      static_cast<DWORD>(result), 0, text, 512, nullptr);
  std::wstring_view sentence(text, length);
  while (!sentence.empty() && sentence.back() <= L' ') sentence.remove_suffix(1);
  return FromWide(sentence);
}

}  // namespace kestrun
