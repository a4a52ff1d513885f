#include "app/script_objects/page.h"

#include <algorithm>
#include <map>
#include <vector>

#include "base/text.h"
#include "forms/control_kinds.h"
#include "forms/font_object.h"
#include "forms/script_globals.h"
#include "forms/timer.h"
#include "forms/tree_view.h"
#include "forms/window_registry.h"

namespace kestrun {
namespace {

constexpr const char* kIntroduction =
    "# What scripts find by name\n\n"
    "Windows, controls, public procedures and members of objects: the contract with the authors of styles and "
    "add-ins.\n"
    "Names are found without regard to case. `tools/script_objects` writes this page from the member tables; a test\n"
    "fails when a name has changed and the page has not.\n\n"
    "A form alone means its `Controls`, and a control alone its default member, which the tables mark with a star.\n"
    "Values without a type take and give any. Colours are Long.\n";

std::string KindOf(const MemberInfo& member) {
  switch (member.kind) {
    case MemberKind::kReadOnly: return "read";
    case MemberKind::kWriteOnly: return "write";
    case MemberKind::kMethod: return "method";
    case MemberKind::kReadWrite: break;
  }
  return "read, write";
}

std::string NamesOf(const MemberInfo& member) {
  std::string names;
  int at = 0;
  for (const std::string& name : Split(member.parameters, ", ")) {
    const bool may_be_left_out = at++ >= member.least_arguments;
    names += (names.empty() ? "" : ", ") + (may_be_left_out ? "[" + name + "]" : name);
  }
  return names;
}

// "(Left, Top)" where the arguments have names, otherwise how many it takes: "(1)", "(0 to 2)". In brackets what may be
// left out.
std::string ArgumentsOf(const MemberInfo& member) {
  if (member.most_arguments == 0) return {};
  if (!member.parameters.empty()) return "(" + NamesOf(member) + ")";
  const std::string most = std::to_string(member.most_arguments);
  if (member.least_arguments == member.most_arguments) return "(" + most + ")";
  return "(" + std::to_string(member.least_arguments) + " to " + most + ")";
}

std::string MemberTableOf(const std::vector<MemberInfo>& members, const std::string& default_name) {
  std::string page = "\n| Member | Arguments | Use | Type |\n|---|---|---|---|\n";
  for (const MemberInfo& member : members) {
    page += "| `" + member.name + "`" + (member.name == default_name ? " *" : "") + " | " + ArgumentsOf(member) +
            " | " + KindOf(member) + " | " + std::string(member.type) + " |\n";
  }
  return page;
}

std::string DefaultNameOf(const TableObject& object) {
  const MemberId member = object.DefaultMember();
  return member == kNoMember ? std::string() : std::string(object.Members().At(member).name);
}

// The rows of a table and its bases, as a class lists them.
std::vector<MemberInfo> RowsOf(const MemberTable& table) {
  std::vector<MemberInfo> rows;
  for (size_t at = 0; at < table.Size(); ++at) {
    const Member& row = table.At(static_cast<MemberId>(at));
    if (table.Find(row.name) != static_cast<MemberId>(at)) continue;
    rows.push_back(
        {std::string(row.name), row.kind, row.least_arguments, row.most_arguments, row.type, row.parameters});
  }
  return rows;
}

// Those that the base does not have in the same form.
std::vector<MemberInfo> RowsBeyond(const MemberTable& table, const MemberTable& base) {
  const std::vector<MemberInfo> known = RowsOf(base);
  std::vector<MemberInfo> rows = RowsOf(table);
  std::erase_if(rows, [&known](const MemberInfo& row) {
    return std::any_of(known.begin(), known.end(), [&row](const MemberInfo& one) {
      return one.name == row.name && one.kind == row.kind && one.type == row.type &&
             one.most_arguments == row.most_arguments;
    });
  });
  return rows;
}

using Classes = std::map<std::string, Ref<TableObject>>;

void NoteClass(Classes& classes, TableObject& object) { classes.try_emplace(object.TypeName(), &object); }

std::string WindowSection(Form& form, Classes& classes) {
  std::string page = "\n### " + form.Name() + "\n";
  const std::vector<MemberInfo> own = RowsBeyond(form.Members(), Form::kFormMembers);
  if (!own.empty()) page += MemberTableOf(own, {});
  page += "\n| Control | Index | Class |\n|---|---|---|\n";
  for (const Ref<Control>& control : form.controls()) {
    const std::string index = control->Index() < 0 ? "" : std::to_string(control->Index());
    page += "| `" + control->Name() + "` | " + index + " | " + control->TypeName() + " |\n";
    NoteClass(classes, *control);
  }
  return page;
}

// Also what stands in no window.
void NoteOtherClasses(Classes& classes, Form& scratch) {
  for (const std::string& kind : ControlKindNames()) {
    NoteClass(classes, AddControlOfKind(scratch, kind, "new" + std::to_string(scratch.controls().size()), nullptr));
  }
  const Ref<TableObject> picture = MakeRef<Picture>(1, 1, std::vector<uint32_t>{0});
  for (const Ref<TableObject>& object :
       {picture, Ref<TableObject>(MakeRef<FontObject>(Ref<Control>(&scratch))),
        Ref<TableObject>(MakeRef<ScreenObject>()), Ref<TableObject>(MakeRef<FormCollection>()),
        Ref<TableObject>(MakeRef<AppObject>()), Ref<TableObject>(MakeRef<ClipboardObject>())}) {
    NoteClass(classes, *object);
  }
  auto& tree = scratch.Add<TreeView>("newTree");
  NoteClass(classes, tree.AddChild(nullptr, "", ""));
  NoteClass(classes, *MakeRef<TreeNodes>(Ref<TreeView>(&tree)));
  const Variant controls = GetMember(scratch, "Controls");
  NoteClass(classes, static_cast<TableObject&>(*controls.object()));
  scratch.Add<Timer>("elements", 0);
  const Variant array = GetMember(scratch, "elements");
  classes.try_emplace("Control array", static_cast<TableObject*>(array.object()));
}

std::string ClassSection(const std::string& name, const TableObject& object) {
  const bool is_control = dynamic_cast<const Control*>(&object) != nullptr;
  const std::vector<MemberInfo> rows =
      is_control ? RowsBeyond(object.Members(), Control::kControlMembers) : RowsOf(object.Members());
  const std::string lead = is_control ? "\nThe members of every control, and:\n" : "";
  return "\n### " + name + "\n" + lead + MemberTableOf(rows, DefaultNameOf(object));
}

// What all controls and all forms have, and each of the classes.
std::string ClassSections(const Classes& classes) {
  std::string page = "\n### Every control, and every form\n" + MemberTableOf(RowsOf(Control::kControlMembers), {});
  page += "\n### Every form\n\nThe members of every control, and:\n" +
          MemberTableOf(RowsBeyond(Form::kFormMembers, Control::kControlMembers), "Controls");
  for (const auto& [name, object] : classes) page += ClassSection(name, *object);
  return page;
}

}  // namespace

std::string ScriptObjectsPage() {
  const Ref<Form> scratch = MakeRef<Form>("scratch");
  Classes classes;
  std::string page = std::string(kIntroduction) + "\n## Windows\n";
  for (const std::string& name : RegisteredWindows()) page += WindowSection(WindowBeforeLoad(name), classes);
  NoteOtherClasses(classes, *scratch);
  return page + "\n## Classes\n" + ClassSections(classes);
}

std::string AddInSurface() {
  Classes classes;
  std::string page = "## What the window offers\n" + WindowSection(WindowBeforeLoad("frmputlist"), classes);
  return page + "\n## The classes of its controls\n" + ClassSections(classes);
}

}  // namespace kestrun
