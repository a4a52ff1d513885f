#include "app/vbsrun/wscript.h"

#include <cstdio>

#include "base/convert.h"
#include "base/list_enumeration.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun {
namespace {

ArgumentList& ListOf(Object& object) { return static_cast<ArgumentList&>(object); }

Variant GetItem(Object& object, Arguments arguments) {
  const int32_t at = ToLong(arguments[0]);
  const std::vector<std::string>& texts = ListOf(object).texts();
  if (at < 0 || static_cast<size_t>(at) >= texts.size()) Raise(error::kSubscriptOutOfRange);
  return texts[static_cast<size_t>(at)];
}

Variant GetCount(Object& object, Arguments) { return static_cast<int32_t>(ListOf(object).texts().size()); }

constexpr Member kListMembers[] = {
    {"Item", MemberKind::kReadOnly, 1, 1, GetItem},
    {"Count", MemberKind::kReadOnly, 0, 0, GetCount},
    {"Length", MemberKind::kReadOnly, 0, 0, GetCount},
};

std::string Printed(const Variant& value) {
  if (value.Is(VarType::kNull)) return "null";
  return ToText(vbs::Concatenate(vbs::PlainValue(value), ""));
}

// The arguments with blanks between them, on a line of their own.
Variant Echo(Object&, Arguments arguments) {
  std::string line;
  for (size_t at = 0; at < arguments.size(); ++at) line += (at ? " " : "") + Printed(arguments[at]);
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stdout);
  return {};
}

Variant Quit(Object&, Arguments arguments) { throw ScriptQuit{arguments.empty() ? 0 : ToLong(arguments[0])}; }

Variant GetArguments(Object& object, Arguments arguments) {
  const Ref<ArgumentList>& list = static_cast<WScriptObject&>(object).arguments();
  return arguments.empty() ? Variant(list) : list->Get(0, arguments);
}

constexpr Member kMembers[] = {
    {"Echo", MemberKind::kMethod, 0, 255, Echo},
    {"Quit", MemberKind::kMethod, 0, 1, Quit},
    {"Arguments", MemberKind::kReadOnly, 0, 1, GetArguments},
};

}  // namespace

const MemberTable& ArgumentList::Members() const {
  static const MemberTable kTable{nullptr, kListMembers};
  return kTable;
}

std::unique_ptr<Enumeration> ArgumentList::Enumerate() {
  return std::make_unique<ListEnumeration<std::string>>(texts_);
}

const MemberTable& WScriptObject::Members() const {
  static const MemberTable kTable{nullptr, kMembers};
  return kTable;
}

}  // namespace kestrun
