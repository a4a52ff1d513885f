// What scripts reach of a tree and its nodes.
#include "base/list_enumeration.h"
#include "forms/member_rows.h"
#include "forms/tree_view.h"

namespace kestrun {
namespace {

TreeNode& Node(Object& object) { return static_cast<TreeNode&>(object); }
TreeView& Tree(Object& object) { return static_cast<TreeView&>(object); }
TreeNodes& Nodes(Object& object) { return static_cast<TreeNodes&>(object); }

Variant ReferenceTo(TreeNode* node) { return node ? Variant(node) : Variant::Nothing(); }

// Another node of the same tree, reached from one.
template <auto kGetter>
constexpr Member NodeRow(std::string_view name) {
  return {name,
          MemberKind::kReadOnly,
          0,
          0,
          [](Object& object, Arguments) -> Variant { return ReferenceTo((Node(object).*kGetter)()); },
          nullptr,
          "Node"};
}

// The node that a caller means by itself, by its key or by its number.
TreeNode& NodeMeant(const TreeView& tree, const Variant& which) {
  if (!which.Is(VarType::kObject)) return tree.NodeAt(which);
  auto* node = dynamic_cast<TreeNode*>(which.object());
  if (!node || node->tree() != &tree) Raise(error::kInvalidPropertyValue);
  return *node;
}

bool IsGiven(Arguments given, size_t at) {
  return at < given.size() && !given[at].IsMissing() && !given[at].Is(VarType::kEmpty);
}
std::string TextGiven(Arguments given, size_t at) { return IsGiven(given, at) ? ToText(given[at]) : std::string(); }

// Relative, Relationship, Key, Text, Image
Variant CallAdd(Object& object, Arguments given) {
  TreeView& tree = Nodes(object).tree();
  TreeNode* const relative = IsGiven(given, 0) ? &NodeMeant(tree, given[0]) : nullptr;
  const int relation = IsGiven(given, 1) ? ToLong(given[1]) : static_cast<int>(TreeRelation::kNext);
  if (relation < static_cast<int>(TreeRelation::kFirst) || relation > static_cast<int>(TreeRelation::kChild)) {
    Raise(error::kInvalidPropertyValue);
  }
  return &tree.Add(relative, static_cast<TreeRelation>(relation), TextGiven(given, 2), TextGiven(given, 3),
                   IsGiven(given, 4) ? given[4] : Variant());
}

Variant CallRemove(Object& object, Arguments given) {
  TreeView& tree = Nodes(object).tree();
  tree.Remove(NodeMeant(tree, given[0]));
  return {};
}

Variant CallClear(Object& object, Arguments) {
  Nodes(object).tree().Clear();
  return {};
}

void PutSelected(Object& object, Arguments, const Variant& value) {
  if (!value.Is(VarType::kObject)) Raise(error::kObjectRequired);
  Tree(object).Select(value.object() ? &NodeMeant(Tree(object), value) : nullptr);
}

void PutImages(Object& object, Arguments, const Variant& value) {
  auto* images = value.Is(VarType::kObject) ? dynamic_cast<ImageList*>(value.object()) : nullptr;
  if (!images && !(value.Is(VarType::kObject) && !value.object())) Raise(error::kInvalidPropertyValue);
  Tree(object).SetImages(Ref<ImageList>(images));
}

constexpr Member kNodeRows[]{
    AccessorRow<&TreeNode::Key, &TreeNode::SetKey>("Key"),
    AccessorRow<&TreeNode::Text, &TreeNode::SetText>("Text"),
    AccessorRow<&TreeNode::Image, &TreeNode::SetImage>("Image"),
    AccessorRow<&TreeNode::Tag, &TreeNode::SetTag>("Tag"),
    AccessorRow<&TreeNode::Expanded, &TreeNode::SetExpanded>("Expanded"),
    AccessorRow<&TreeNode::Selected, &TreeNode::SetSelected>("Selected"),
    ReadOnlyRow<&TreeNode::Index>("Index"),
    ReadOnlyRow<&TreeNode::Children>("Children"),
    NodeRow<&TreeNode::Child>("Child"),
    NodeRow<&TreeNode::Next>("Next"),
    NodeRow<&TreeNode::Previous>("Previous"),
    NodeRow<&TreeNode::Parent>("Parent"),
    NodeRow<&TreeNode::Root>("Root"),
};
constexpr MemberTable kNodeTable{nullptr, kNodeRows};

constexpr Member kNodesRows[]{
    ReadOnlyRow<&TreeNodes::Count>("Count"),
    {"Item", MemberKind::kReadOnly, 1, 1,
     [](Object& object, Arguments which) -> Variant { return &Nodes(object).tree().NodeAt(which[0]); }, nullptr, "Node",
     "Index"},
    RawMethodRow("Add", 0, 5, &CallAdd, "Relative, Relationship, Key, Text, Image"),
    RawMethodRow("Remove", 1, 1, &CallRemove, "Index"),
    RawMethodRow("Clear", 0, 0, &CallClear),
};
constexpr MemberTable kNodesTable{nullptr, kNodesRows};

constexpr Member kTreeRows[]{
    PropertyRow<&TreeView::BorderStyle>("BorderStyle"),
    PropertyRow<&TreeView::Appearance>("Appearance"),
    {"Nodes", MemberKind::kReadOnly, 0, 0,
     [](Object& object, Arguments) -> Variant { return MakeRef<TreeNodes>(Ref<TreeView>(&Tree(object))); }, nullptr,
     "Nodes"},
    {"SelectedItem", MemberKind::kReadWrite, 0, 0,
     [](Object& object, Arguments) -> Variant { return ReferenceTo(Tree(object).SelectedItem()); }, &PutSelected,
     "Node"},
    {"ImageList", MemberKind::kReadWrite, 0, 0,
     [](Object& object, Arguments) -> Variant {
       ImageList* const images = Tree(object).Images();
       return images ? Variant(images) : Variant::Nothing();
     },
     &PutImages, "ImageList"},
};
const MemberTable kTreeTable{&Control::kWindowedMembers, kTreeRows};

}  // namespace

const MemberTable& TreeNode::Members() const { return kNodeTable; }
const MemberTable& TreeNodes::Members() const { return kNodesTable; }
const MemberTable& TreeView::Members() const { return kTreeTable; }

std::unique_ptr<Enumeration> TreeNodes::Enumerate() {
  if (!IsAlive()) Raise(error::kObjectRequired);
  return std::make_unique<ListEnumeration<Ref<TreeNode>>>(tree_->nodes());
}

}  // namespace kestrun
