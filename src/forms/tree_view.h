// A tree of texts with small pictures, whose branches open and close. Each node may have a key, by which it is found.
#pragma once

#include <unordered_map>
#include <vector>

#include "forms/control.h"
#include "forms/image_list.h"

namespace kestrun {

class TreeView;

// One node. A reference to a node that was removed is dead: every access gives error 424.
class TreeNode final : public TableObject {
 public:
  explicit TreeNode(TreeView& tree, TreeNode* parent) : tree_(&tree), parent_(parent) {}

  [[nodiscard]] const std::string& Key() const { return key_; }
  // Error 35602 for a key that another node has; an empty key names nothing.
  void SetKey(std::string key);
  [[nodiscard]] const std::string& Text() const { return text_; }
  void SetText(std::string text);
  // The number or the key of a picture of the tree's image list; empty for none.
  [[nodiscard]] const Variant& Image() const { return image_; }
  void SetImage(Variant image);
  [[nodiscard]] const std::string& Tag() const { return tag_; }
  void SetTag(std::string tag) { tag_ = std::move(tag); }
  // Whether its children show. A node without any may be open too: those that come show at once.
  [[nodiscard]] bool Expanded() const { return expanded_; }
  void SetExpanded(bool expanded);
  [[nodiscard]] bool Selected() const;
  void SetSelected(bool selected);

  // Its number among all nodes in the order of their adding, from 1.
  [[nodiscard]] int Index() const;
  // How many children it has.
  [[nodiscard]] int Children() const { return static_cast<int>(children_.size()); }
  [[nodiscard]] const std::vector<TreeNode*>& children() const { return children_; }
  // These are null where there is no such node.
  [[nodiscard]] TreeNode* Parent() const { return parent_; }
  [[nodiscard]] TreeNode* Child() const { return children_.empty() ? nullptr : children_.front(); }
  [[nodiscard]] TreeNode* Next() const { return Neighbour(1); }
  [[nodiscard]] TreeNode* Previous() const { return Neighbour(-1); }
  // The node at the top of its branch, which may be itself.
  [[nodiscard]] TreeNode* Root();
  // Null once it has been removed.
  [[nodiscard]] TreeView* tree() const { return tree_; }

  [[nodiscard]] std::string TypeName() const override { return "Node"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Text"); }

 protected:
  [[nodiscard]] bool IsAlive() const override;

 private:
  friend class TreeView;
  [[nodiscard]] TreeNode* Neighbour(int step) const;

  TreeView* tree_;
  TreeNode* parent_;
  std::vector<TreeNode*> children_;
  std::string key_;
  std::string text_;
  std::string tag_;
  Variant image_;
  bool expanded_ = false;
};

// Where a new node stands beside the one that it is added to.
enum class TreeRelation { kFirst = 0, kLast = 1, kNext = 2, kPrevious = 3, kChild = 4 };

class TreeView final : public Control {
 public:
  TreeView(Form* form, std::string name, int index);
  ~TreeView() override;
  TreeView(const TreeView&) = delete;
  TreeView& operator=(const TreeView&) = delete;

  Property<int> BorderStyle{*this, PropertyId::kBorderStyle, 1};
  // 0 flat, 1 sunken: how the border looks.
  Property<int> Appearance{*this, PropertyId::kAppearance, 1};

  // What a user's choice of another node fires is Click; DblClick, which Enter fires too, is for the selected node.

  // Adds a node as the last child, or as the last at the top for null. Error 35602 for a key that is taken.
  TreeNode& AddChild(TreeNode* parent, std::string key, std::string text, Variant image = {});
  // Adds a node beside another or below it; at the top where that is null.
  TreeNode& Add(TreeNode* relative, TreeRelation relation, std::string key, std::string text, Variant image);
  // Takes a node away with all below it. A selection in there goes with them.
  void Remove(TreeNode& node);
  void Clear();

  // Null for a key that no node has.
  [[nodiscard]] TreeNode* FindNode(const std::string& key) const;
  // By key or by number. Errors: 35601 for a key that no node has, 35600 for a number outside of the collection.
  [[nodiscard]] TreeNode& NodeAt(const Variant& which) const;
  // All nodes in the order of their adding.
  [[nodiscard]] const std::vector<Ref<TreeNode>>& nodes() const { return nodes_; }
  [[nodiscard]] const std::vector<TreeNode*>& roots() const { return roots_; }

  [[nodiscard]] TreeNode* SelectedItem() const { return selected_; }
  // Opens the branches above the node, so that it can be seen; null selects nothing.
  void Select(TreeNode* node);

  // Null when the nodes have no pictures.
  [[nodiscard]] ImageList* Images() const { return images_.get(); }
  void SetImages(Ref<ImageList> images);

  [[nodiscard]] std::string TypeName() const override { return "TreeView"; }
  [[nodiscard]] const MemberTable& Members() const override;

 private:
  friend class TreeNode;
  [[nodiscard]] std::vector<TreeNode*>& SiblingsIn(TreeNode* parent) { return parent ? parent->children_ : roots_; }
  void NodesChanged();
  void Tell(PropertyId property);
  void Cut(TreeNode& branch);

  std::vector<Ref<TreeNode>> nodes_;
  std::vector<TreeNode*> roots_;
  std::unordered_map<std::string, TreeNode*> keys_;
  TreeNode* selected_ = nullptr;
  Ref<ImageList> images_;
};

// The nodes as scripts see them: Nodes.Add, Nodes(key), For Each.
class TreeNodes final : public TableObject {
 public:
  explicit TreeNodes(Ref<TreeView> tree) : tree_(std::move(tree)) {}

  [[nodiscard]] TreeView& tree() const { return *tree_; }
  [[nodiscard]] int Count() const { return static_cast<int>(tree_->nodes().size()); }

  [[nodiscard]] std::string TypeName() const override { return "Nodes"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Item"); }
  [[nodiscard]] std::unique_ptr<Enumeration> Enumerate() override;

 protected:
  [[nodiscard]] bool IsAlive() const override { return tree_->form() != nullptr; }

 private:
  Ref<TreeView> tree_;
};

}  // namespace kestrun
