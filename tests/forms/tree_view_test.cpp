// A tree as its window's code and as scripts see it.
#include "forms/tree_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/convert.h"
#include "forms/form.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;

class frmtree final : public Form {
 public:
  frmtree() : Form("frmtree") {}
  TreeView& Tree = Add<TreeView>("Tree");
  ImageList& Pictures = Add<ImageList>("Pictures");
};

std::vector<std::string> TextsOf(const std::vector<TreeNode*>& nodes) {
  std::vector<std::string> texts;
  for (const TreeNode* node : nodes) texts.push_back(node->Text());
  return texts;
}

class TreeViewTest : public HeadlessTest {
 protected:
  Ref<frmtree> form = MakeRef<frmtree>();
  TreeView& tree = form->Tree;

  Ref<Object> Nodes() { return Ref<Object>(GetMember(tree, "Nodes").object()); }
};

TEST_F(TreeViewTest, ChildrenStandBelowTheirParentInTheOrderOfTheirAdding) {
  TreeNode& root = tree.AddChild(nullptr, "ROOT", "Project");
  tree.AddChild(&root, "A", "first");
  tree.AddChild(&root, "B", "second");
  EXPECT_THAT(TextsOf(tree.roots()), ElementsAre("Project"));
  EXPECT_THAT(TextsOf(root.children()), ElementsAre("first", "second"));
  EXPECT_EQ(root.Child()->Next()->Text(), "second");
  EXPECT_EQ(root.Child()->Previous(), nullptr);
  EXPECT_EQ(root.Child()->Next()->Next(), nullptr);
  EXPECT_EQ(root.Child()->Next()->Root(), &root);
  EXPECT_EQ(root.Child()->Next()->Index(), 3);
}

TEST_F(TreeViewTest, ANodeIsPlacedBesideAnother) {
  TreeNode& middle = tree.AddChild(nullptr, "M", "middle");
  tree.Add(&middle, TreeRelation::kPrevious, "", "before", {});
  tree.Add(&middle, TreeRelation::kNext, "", "behind", {});
  tree.Add(&middle, TreeRelation::kFirst, "", "first", {});
  tree.Add(&middle, TreeRelation::kLast, "", "last", {});
  EXPECT_THAT(TextsOf(tree.roots()), ElementsAre("first", "before", "middle", "behind", "last"));
}

TEST_F(TreeViewTest, ANodeIsFoundByItsKeyUntilItIsRemoved) {
  TreeNode& root = tree.AddChild(nullptr, "ROOT", "Project");
  TreeNode& leaf = tree.AddChild(&root, "LEAF", "main.vbs");
  EXPECT_EQ(tree.FindNode("LEAF"), &leaf);
  tree.Remove(root);
  EXPECT_EQ(tree.FindNode("LEAF"), nullptr);
  EXPECT_TRUE(tree.nodes().empty());
  EXPECT_TRUE(tree.roots().empty());
}

TEST_F(TreeViewTest, ATakenKeyIsRefusedAndTheTreeStaysAsItWas) {
  tree.AddChild(nullptr, "KEY", "one");
  EXPECT_EQ(ErrorNumberOf([&] { return &tree.AddChild(nullptr, "KEY", "two"); }), 35602);
  EXPECT_THAT(TextsOf(tree.roots()), ElementsAre("one"));
  TreeNode& other = tree.AddChild(nullptr, "OTHER", "three");
  EXPECT_EQ(ErrorNumberOf([&] { other.SetKey("KEY"); }), 35602);
  EXPECT_EQ(other.Key(), "OTHER");
  EXPECT_EQ(tree.FindNode("OTHER"), &other);
}

TEST_F(TreeViewTest, NodesWithoutKeysMayBeMany) {
  tree.AddChild(nullptr, "", "one");
  tree.AddChild(nullptr, "", "two");
  EXPECT_EQ(tree.nodes().size(), 2u);
  EXPECT_EQ(tree.FindNode(""), nullptr);
}

TEST_F(TreeViewTest, SelectingANodeOpensTheBranchesAboveIt) {
  TreeNode& root = tree.AddChild(nullptr, "ROOT", "Project");
  TreeNode& folder = tree.AddChild(&root, "FOLDER", "Modules");
  TreeNode& leaf = tree.AddChild(&folder, "LEAF", "main.vbs");
  tree.Select(&leaf);
  EXPECT_TRUE(root.Expanded());
  EXPECT_TRUE(folder.Expanded());
  EXPECT_FALSE(leaf.Expanded());
  EXPECT_TRUE(leaf.Selected());
  EXPECT_EQ(tree.SelectedItem(), &leaf);
}

TEST_F(TreeViewTest, TheSelectionGoesWithItsBranch) {
  TreeNode& root = tree.AddChild(nullptr, "ROOT", "Project");
  tree.Select(&tree.AddChild(&root, "LEAF", "main.vbs"));
  tree.Remove(root);
  EXPECT_EQ(tree.SelectedItem(), nullptr);
}

TEST_F(TreeViewTest, AReferenceToARemovedNodeGivesError424) {
  const Ref<TreeNode> kept(&tree.AddChild(nullptr, "KEY", "text"));
  tree.Clear();
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(*kept, "Text"); }), error::kObjectRequired);
}

TEST_F(TreeViewTest, AReferenceToANodeOfAClosedFormGivesError424) {
  const Ref<TreeNode> kept(&tree.AddChild(nullptr, "KEY", "text"));
  const Ref<Object> nodes = Nodes();
  form = nullptr;
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(*kept, "Text"); }), error::kObjectRequired);
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(*nodes, "Count"); }), error::kObjectRequired);
}

TEST_F(TreeViewTest, ScriptsAddNodesAndReadThemBack) {
  const Variant root = CallMember(*Nodes(), "Add", {Variant::Missing(), Variant::Missing(), "ROOT", "Project", 1});
  CallMember(*Nodes(), "Add", {"ROOT", 4, "LEAF", "main.vbs", "mod"});
  EXPECT_EQ(ToLong(GetMember(*Nodes(), "Count")), 2);
  const Variant leaf = GetMember(*Nodes(), "Item", {"LEAF"});
  EXPECT_EQ(ToText(GetMember(*leaf.object(), "Text")), "main.vbs");
  EXPECT_EQ(ToText(GetMember(*leaf.object(), "Image")), "mod");
  EXPECT_EQ(GetMember(*leaf.object(), "Parent").object(), root.object());
  EXPECT_EQ(GetMember(*Nodes(), "Item", {2}).object(), leaf.object());
  PutMember(*leaf.object(), "Selected", true);
  EXPECT_EQ(GetMember(tree, "SelectedItem").object(), leaf.object());
  CallMember(*Nodes(), "Remove", {"ROOT"});
  EXPECT_EQ(ToLong(GetMember(*Nodes(), "Count")), 0);
}

TEST_F(TreeViewTest, ScriptsGetTheCollectionsErrors) {
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(*Nodes(), "Item", {"NOBODY"}); }), 35601);
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(*Nodes(), "Item", {1}); }), 35600);
  EXPECT_EQ(ErrorNumberOf([&] {
              return CallMember(*Nodes(), "Add", {Variant::Missing(), 5});
            }),
            error::kInvalidPropertyValue);
  const Ref<frmtree> other = MakeRef<frmtree>();
  const Variant stranger(&other->Tree.AddChild(nullptr, "KEY", "text"));
  EXPECT_EQ(ErrorNumberOf([&] { PutMember(tree, "SelectedItem", stranger); }), error::kInvalidPropertyValue);
}

TEST_F(TreeViewTest, ForEachWalksTheNodesThatWereThereAtItsStart) {
  for (const char* key : {"A", "B", "C"}) tree.AddChild(nullptr, key, key);
  const auto walk = Nodes()->Enumerate();
  std::string seen;
  for (Variant node; walk->Next(node);) {
    seen += ToText(GetMember(*node.object(), "Text"));
    if (seen == "A") tree.AddChild(nullptr, "D", "D");
  }
  EXPECT_EQ(seen, "ABC");
}

TEST_F(TreeViewTest, ImagesAreFoundByNumberAndByKey) {
  const auto picture = [] { return MakeRef<Picture>(1, 1, std::vector<uint32_t>{0xFF000000}); };
  EXPECT_EQ(form->Pictures.AddImage("", picture()), 1);
  EXPECT_EQ(form->Pictures.AddImage("mod", picture()), 2);
  EXPECT_EQ(form->Pictures.NumberOf("mod"), 2);
  EXPECT_EQ(form->Pictures.NumberOf(2), 2);
  EXPECT_EQ(form->Pictures.NumberOf(3), 0);
  EXPECT_EQ(form->Pictures.NumberOf("nobody"), 0);
  EXPECT_EQ(form->Pictures.NumberOf(Variant()), 0);
  EXPECT_EQ(ErrorNumberOf([&] { return form->Pictures.AddImage("mod", picture()); }), 35602);
  EXPECT_EQ(ErrorNumberOf([&] { return form->Pictures.Image(3); }), 35600);
  PutMember(tree, "ImageList", &form->Pictures);
  EXPECT_EQ(tree.Images(), &form->Pictures);
}

TEST_F(TreeViewTest, ThePeerHearsOfNodesOfBranchesAndOfTheSelection) {
  form->Show();
  desktop.windowing().record_calls = true;
  TreeNode& root = tree.AddChild(nullptr, "ROOT", "Project");
  TreeNode& leaf = tree.AddChild(&root, "LEAF", "main.vbs");
  root.SetExpanded(true);
  root.SetExpanded(true);
  tree.Select(&leaf);
  const auto count = [&](PeerCall::Kind kind, PropertyId property) {
    return std::count_if(desktop.windowing().calls.begin(), desktop.windowing().calls.end(),
                         [&](const PeerCall& call) { return call.kind == kind && call.property == property; });
  };
  EXPECT_EQ(count(PeerCall::Kind::kListChanged, PropertyId{}), 2);
  EXPECT_EQ(count(PeerCall::Kind::kUpdate, PropertyId::kChecked), 1);
  EXPECT_EQ(count(PeerCall::Kind::kUpdate, PropertyId::kSelection), 1);
}

TEST_F(TreeViewTest, ATreeOfAThousandLevelsIsAllThereIs) {
  TreeNode* node = nullptr;
  for (int level = 0; level < 1000; ++level) node = &tree.AddChild(node, "", "n");
  EXPECT_EQ(ErrorNumberOf([&] { tree.AddChild(node, "", "n"); }), error::kInvalidProcedureCall);
}

}  // namespace
}  // namespace kestrun
