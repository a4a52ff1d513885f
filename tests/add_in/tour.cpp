#include "add_in/tour.h"

#include <string>

#include "add_in/tour_object.h"

namespace tour {
namespace {

using late_bound::Failure;
using late_bound::Reference;
using late_bound::Value;

constexpr UINT kLookEveryMs = 100;
constexpr int kTeamChatKey = 89;

// Kept beyond the add-in's own end, as a careless one does.
Reference kept_window;
Reference kept_list;
UINT_PTR look_timer = 0;
bool has_seen_the_end = false;

void ReadFields(const Reference& window) {
  for (const wchar_t* field : {L"Random", L"Rename", L"NextMap", L"Errors", L"DfVersion", L"MemoryAdress", L"GameTimer",
                               L"GameEndAddr", L"PState", L"LTime", L"Edited"}) {
    WriteLine(std::wstring(L"field ") + field + L"=" + window.Get(field).Text());
  }
}

void WriteFields(const Reference& window) {
  window.Put(L"Errors", 3);
  window.Put(L"NextMap", true);
  WriteLine(L"written Errors=" + window.Get(L"Errors").Text() + L" NextMap=" + window.Get(L"NextMap").Text());
  window.Put(L"Errors", 0);
}

// Each control that For Each finds is found by its name as well, elements of control arrays by their index.
void ReadControls(const Reference& window) {
  int count = 0;
  int found = 0;
  for (const Value& item : Reference(window.Get(L"Controls")).Items()) {
    const Reference control(item);
    const std::wstring name = control.Get(L"Name").Text();
    const int index = control.Get(L"Index").Number();
    std::vector<Value> which;
    if (index >= 0) which.emplace_back(index);
    ++count;
    if (Reference(window.Get(name.c_str(), which)).get() == control.get()) ++found;
  }
  WriteLine(L"controls " + std::to_wstring(count) + L" found " + std::to_wstring(found));
}

std::wstring RowsOf(const Reference& list) {
  std::wstring rows;
  for (int row = 0; row < list.Get(L"ListCount").Number(); ++row) {
    const std::wstring path = list.Get(L"List", {row}).Text();
    rows += (row ? L"," : L"") + path.substr(path.find_last_of(L'\\') + 1);
  }
  return rows;
}

void MoveRows(const Reference& window) {
  const Reference list(window.Get(L"lstmaps"));
  WriteLine(L"rows " + RowsOf(list));
  list.Put(L"ListIndex", 2);
  list.Invoke(list.Find(L"Selected"), DISPATCH_PROPERTYPUT, {2, true});
  window.Call(L"cmdup_Click");
  WriteLine(L"moved up " + RowsOf(list));
  list.Put(L"ListIndex", 1);
  window.Call(L"Cmddown_Click");
  WriteLine(L"moved down " + RowsOf(list));
  list.Put(L"ListIndex", -1);
}

void AskAround(const Reference& window, IDispatch& self) {
  const int own = window.Call(L"GetFormIndex", {L"FRMPUTLIST"}).Number();
  WriteLine(L"window " + Reference(window.Call(L"GetForm", {own})).Get(L"Name").Text());
  WriteLine(L"no window " + window.Call(L"GetFormIndex", {L"frmnowhere"}).Text());
  WriteLine(Reference(window.Call(L"GetAddin", {1})).get() == &self ? L"add-in 1 is this one" : L"add-in 1 is another");
  BSTR url = SysAllocString(L"before");
  Value by_reference;
  by_reference.get()->vt = VT_BYREF | VT_BSTR;
  by_reference.get()->pbstrVal = &url;
  const std::wstring map = Reference(window.Get(L"lstmaps")).Get(L"List", {0}).Text();
  const std::wstring picture = window.Call(L"GetPicturePath", {map.c_str(), by_reference}).Text();
  WriteLine(L"picture " + picture.substr(picture.find_last_of(L'\\') + 1) + L" url " + url);
  SysFreeString(url);
  try {
    window.Call(L"GetForm", {999});
  } catch (const Failure& failure) {
    WriteLine(L"bad index: " + std::to_wstring(failure.number) + L" " + failure.text);
  }
}

void RunAndInsert(const Reference& window) {
  window.Call(L"StartList");
  WriteLine(L"running " + Reference(window.Get(L"TmrInsert")).Get(L"Enabled").Text());
  window.Call(L"Insert_Map_List", {false});
  WriteLine(L"inserted row " + Reference(window.Get(L"lstmaps")).Get(L"ListIndex").Text());
  window.Call(L"Writemessage", {L"hello from the tour", kTeamChatKey, window.Get(L"MemoryAdress").Number()});
  const Reference memory(window.Get(L"MemControl1"));
  const bool is_on = memory.Call(L"ReadByteAt", {window.Get(L"GameEndAddr").Number()}).Number() > 0;
  WriteLine(is_on ? L"game is on" : L"game is over");
}

void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
  try {
    kept_window.Get(L"Caption");
  } catch (const Failure& failure) {
    KillTimer(nullptr, look_timer);
    has_seen_the_end = true;
    WriteLine(L"window after its end: " + std::to_wstring(failure.number) + L" " + failure.text);
    try {
      kept_list.Get(L"ListCount");
    } catch (const Failure& list_failure) {
      WriteLine(L"list after its end: " + std::to_wstring(list_failure.number) + L" " + list_failure.text);
    }
  }
}

}  // namespace

void ForgetWindow() {
  kept_window = Reference();
  kept_list = Reference();
}

bool HasSeenTheEnd() { return has_seen_the_end; }

void TakeTour(const Reference& window, IDispatch& self) {
  WriteLine(L"SetInfo");
  ReadFields(window);
  WriteFields(window);
  ReadControls(window);
  MoveRows(window);
  AskAround(window, self);
  RunAndInsert(window);
  window.Put(L"Edited", false);
  kept_window = window;
  kept_list = Reference(window.Get(L"lstmaps"));
  look_timer = SetTimer(nullptr, 0, kLookEveryMs, &Look);
  window.Call(L"mnu_back_Click");
  WriteLine(L"done");
}

}  // namespace tour
