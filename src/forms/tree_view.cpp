#include "forms/tree_view.h"

#include <algorithm>

#include "base/convert.h"
#include "forms/form.h"
#include "forms/keyed_items.h"

namespace kestrun {

namespace {

// What walks the tree goes down once for each level.
constexpr int kDeepestNode = 1000;

int DepthOf(const TreeNode* node) {
  int depth = 0;
  for (; node; node = node->Parent()) ++depth;
  return depth;
}

}  // namespace

// ---- a node --------------------------------------------------------------------------------------------------------

void TreeNode::SetKey(std::string key) {
  if (key == key_) return;
  if (!key.empty() && !tree_->keys_.try_emplace(key, this).second) RaiseKeyNotUnique();
  tree_->keys_.erase(key_);
  key_ = std::move(key);
}

void TreeNode::SetText(std::string text) {
  text_ = std::move(text);
  tree_->NodesChanged();
}

void TreeNode::SetImage(Variant image) {
  image_ = std::move(image);
  tree_->NodesChanged();
}

void TreeNode::SetExpanded(bool expanded) {
  if (std::exchange(expanded_, expanded) != expanded) tree_->Tell(PropertyId::kChecked);
}

bool TreeNode::Selected() const { return tree_ && tree_->selected_ == this; }

void TreeNode::SetSelected(bool selected) {
  if (selected != Selected()) tree_->Select(selected ? this : nullptr);
}

int TreeNode::Index() const {
  const auto& all = tree_->nodes_;
  const auto found = std::find_if(all.begin(), all.end(), [this](const auto& node) { return node.get() == this; });
  return static_cast<int>(found - all.begin()) + 1;
}

TreeNode* TreeNode::Neighbour(int step) const {
  const std::vector<TreeNode*>& siblings = tree_->SiblingsIn(parent_);
  const auto found = std::find(siblings.begin(), siblings.end(), this);
  const auto at = (found - siblings.begin()) + step;
  return at < 0 || at >= static_cast<std::ptrdiff_t>(siblings.size()) ? nullptr : siblings[static_cast<size_t>(at)];
}

TreeNode* TreeNode::Root() {
  TreeNode* top = this;
  while (top->parent_) top = top->parent_;
  return top;
}

bool TreeNode::IsAlive() const { return tree_ && tree_->form(); }

// ---- the tree ------------------------------------------------------------------------------------------------------

TreeView::TreeView(Form* form, std::string name, int index) : Control(form, std::move(name), index) {
  TakeWindowColors();
}

TreeView::~TreeView() {
  for (const Ref<TreeNode>& node : nodes_) node->tree_ = nullptr;
}

TreeNode& TreeView::AddChild(TreeNode* parent, std::string key, std::string text, Variant image) {
  return Add(parent, parent ? TreeRelation::kChild : TreeRelation::kLast, std::move(key), std::move(text),
             std::move(image));
}

TreeNode& TreeView::Add(TreeNode* relative, TreeRelation relation, std::string key, std::string text, Variant image) {
  const bool is_below = relative && relation == TreeRelation::kChild;
  TreeNode* const parent = is_below || !relative ? relative : relative->parent_;
  if (DepthOf(parent) >= kDeepestNode) Raise(error::kInvalidProcedureCall);
  auto made = MakeRef<TreeNode>(*this, parent);
  made->SetKey(std::move(key));
  made->text_ = std::move(text);
  made->image_ = std::move(image);
  std::vector<TreeNode*>& siblings = SiblingsIn(parent);
  auto place = siblings.end();
  if (relative && relation == TreeRelation::kFirst) place = siblings.begin();
  if (relative && (relation == TreeRelation::kNext || relation == TreeRelation::kPrevious)) {
    place = std::find(siblings.begin(), siblings.end(), relative) + (relation == TreeRelation::kNext ? 1 : 0);
  }
  siblings.insert(place, made.get());
  nodes_.push_back(made);
  NodesChanged();
  return *made;
}

// The branch's nodes stand in no list of the tree from now on but that of all nodes.
void TreeView::Cut(TreeNode& branch) {
  for (TreeNode* child : branch.children_) Cut(*child);
  if (&branch == selected_) selected_ = nullptr;
  keys_.erase(branch.key_);
  branch.children_.clear();
  branch.parent_ = nullptr;
  branch.tree_ = nullptr;
}

void TreeView::Remove(TreeNode& node) {
  if (node.tree_ != this) RaiseElementNotFound();
  std::erase(SiblingsIn(node.parent_), &node);
  Cut(node);
  std::erase_if(nodes_, [](const Ref<TreeNode>& one) { return one->tree_ == nullptr; });
  NodesChanged();
}

void TreeView::Clear() {
  for (TreeNode* root : roots_) Cut(*root);
  roots_.clear();
  nodes_.clear();
  NodesChanged();
}

TreeNode* TreeView::FindNode(const std::string& key) const {
  const auto found = keys_.find(key);
  return found == keys_.end() ? nullptr : found->second;
}

TreeNode& TreeView::NodeAt(const Variant& which) const {
  if (which.Is(VarType::kString)) {
    TreeNode* const found = FindNode(ToText(which));
    if (!found) RaiseElementNotFound();
    return *found;
  }
  const int number = ToLong(which);
  if (number < 1 || number > static_cast<int>(nodes_.size())) RaiseIndexOutOfBounds();
  return *nodes_[static_cast<size_t>(number - 1)];
}

void TreeView::Select(TreeNode* node) {
  if (node && node->tree_ != this) RaiseElementNotFound();
  if (std::exchange(selected_, node) == node) return;
  for (TreeNode* above = node ? node->parent_ : nullptr; above; above = above->parent_) above->SetExpanded(true);
  Tell(PropertyId::kSelection);
}

void TreeView::SetImages(Ref<ImageList> images) {
  images_ = std::move(images);
  Tell(PropertyId::kPicture);
}

void TreeView::NodesChanged() {
  if (FormPeer* shown = peer()) shown->ListChanged(*this);
}

void TreeView::Tell(PropertyId property) {
  if (FormPeer* shown = peer()) shown->Update(*this, property);
}

}  // namespace kestrun
