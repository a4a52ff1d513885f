// A window as data: its own properties and its controls. A class of windows derives from Form, declares its controls as
//   Label& lblWarn = Add<Label>("lblWarn");
// and registers its factory under its name (window_registry.h).
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/drawable_control.h"

namespace kestrun {

class MenuItem;

// Height and width in twips of what surrounds a form's client area, the same on every screen: a form's Width and Height
// are nominal, and the peer makes the client area exactly Width - kFrameWidth by Height - kFrameHeight (- kMenuHeight).
// A form without a frame is all client area.
inline constexpr int kFrameWidth = 120;
inline constexpr int kFrameHeight = 405;
inline constexpr int kMenuHeight = 285;

enum class FormBorder { kNone = 0, kFixedSingle = 1, kSizable = 2, kFixedDialog = 3 };
enum class StartPosition { kManual = 0, kCenterOwner = 1, kCenterScreen = 2, kWindowsDefault = 3 };

class Form : public DrawableControl {
 public:
  explicit Form(std::string name);
  ~Form() override;

  Property<std::string> Caption{*this, PropertyId::kCaption};
  Property<int> BorderStyle{*this, PropertyId::kBorderStyle, static_cast<int>(FormBorder::kSizable)};
  Property<int> StartUpPosition{*this, PropertyId::kNone, static_cast<int>(StartPosition::kWindowsDefault)};
  // 0 normal, 1 minimized, 2 maximized.
  Property<int> WindowState{*this, PropertyId::kWindowState};
  Property<bool> MinButton{*this, PropertyId::kBoxes, true};
  Property<bool> MaxButton{*this, PropertyId::kBoxes, true};
  Property<bool> ControlBox{*this, PropertyId::kBoxes, true};
  Property<bool> ShowInTaskbar{*this, PropertyId::kBoxes, true};
  // The form sees keys before its controls do.
  Property<bool> KeyPreview{*this, PropertyId::kNone};
  Property<Ref<kestrun::Picture>> Icon{*this, PropertyId::kIcon};

  // The user or the program closes the form; a handler that sets the flag keeps it open.
  Event<bool&> QueryUnload;
  Event<> Resize;
  // The mouse has left the window and all that stands in it.
  Event<> MouseLeave;
  // Full paths of files and folders that were dropped on the window. Only a form whose handler is set before it is
  // shown takes them; others show the user that they do not.
  Event<const std::vector<std::string>&> FilesDropped;

  [[nodiscard]] int ScaleWidth() const override;
  [[nodiscard]] int ScaleHeight() const override;
  void SetClientSize(int width_twips, int height_twips);
  // The client area that a user cannot make smaller, but for the size of the screen; 0 at first.
  void SetLeastClientSize(int width_twips, int height_twips);
  [[nodiscard]] int LeastScaleWidth() const { return least_scale_width_; }
  [[nodiscard]] int LeastScaleHeight() const { return least_scale_height_; }

  // Runs the load handler once; showing or the registry does it. A form whose load handler fails is closed.
  void EnsureLoaded();
  [[nodiscard]] bool IsLoaded() const { return loaded_; }
  void Show();
  // Returns when the form has been hidden or closed.
  void ShowModal();
  [[nodiscard]] bool IsModal() const { return modal_; }
  void Hide();
  // Asks QueryUnload, runs the unload handler, takes the form off the screen and out of the registry. The object lives
  // until the present event is over or the last reference to it goes. False when a handler kept it open. A failure of
  // the unload handler is reported and keeps nothing open.
  bool Unload();
  [[nodiscard]] bool IsShown() const { return shown_; }
  // Left or Top was assigned: the form stands there, wherever StartUpPosition would put it.
  [[nodiscard]] bool IsPlaced() const { return placed_; }
  void PopupMenu(MenuItem& item);

  // All controls in the order of their making. In stacking order, from back to front, also those that other controls
  // are made of.
  [[nodiscard]] const std::vector<Ref<Control>>& controls() const { return controls_; }
  [[nodiscard]] std::vector<Control*> StackingOrder() const;
  // Null when there is none. Names compare without regard to case.
  [[nodiscard]] Control* FindControl(std::string_view name, int index = -1) const;
  [[nodiscard]] std::vector<MenuItem*> TopMenus() const;
  [[nodiscard]] bool HasMenu() const;
  // The control that had the focus last, as the peer reports it; null when none.
  [[nodiscard]] Control* ActiveControl() const { return active_control_; }
  void SetActiveControl(Control* control) { active_control_ = control; }
  // Visible, enabled tab stops in tab order.
  [[nodiscard]] std::vector<Control*> TabOrder() const;

  // Adds a control at run time or at construction. The form owns it.
  template <class T>
  T& Add(std::string name, int index = -1) {
    Ref<T> control = MakeRef<T>(this, std::move(name), index);
    T& made = *control;
    AddControl(std::move(control));
    return made;
  }
  // Takes a control away again, as for a menu list that shrinks; references to it go dead.
  void Remove(Control& control);

  [[nodiscard]] std::string TypeName() const override { return Name(); }
  [[nodiscard]] bool TakesFocus() const override { return false; }
  [[nodiscard]] const MemberTable& Members() const override { return kFormMembers; }
  // The collection of its controls: Form("Command1").
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Controls"); }
  [[nodiscard]] MemberId FindMember(std::string_view name) const override;
  [[nodiscard]] const void* MemberLayout() const override { return nullptr; }
  [[nodiscard]] std::vector<MemberInfo> ListMembers() const override;
  [[nodiscard]] std::string_view ParameterNames(MemberId member) const override;
  Variant Get(MemberId member, Arguments arguments) override;
  void Put(MemberId member, Arguments arguments, const Variant& value) override;
  static const MemberTable kFormMembers;

  [[nodiscard]] FormPeer* form_peer() const { return peer_.get(); }
  // Makes the window, which stays hidden until the form is shown. Hiding the form ends it.
  void EnsurePeer();

 protected:
  // The window's load handler: runs once, before the form is first shown or used.
  virtual void Load() {}
  // The window is on the screen: for what would only hold it up before. Runs each time that it is shown.
  virtual void Shown() {}
  // The window's unload handler.
  virtual void Unloading() {}

  void PropertyChanged(PropertyId id) override;

 private:
  friend class Control;

  void AddControl(Ref<Control> control);
  void Discard();
  void ClosePeer();
  void Restack(Control& control, bool in_front);
  [[nodiscard]] Variant ControlByMember(size_t position, Arguments arguments) const;

  std::vector<Ref<Control>> controls_;
  std::vector<Control*> stacking_;  // back to front
  std::shared_ptr<FormPeer> peer_;
  Control* active_control_ = nullptr;
  int least_scale_width_ = 0;
  int least_scale_height_ = 0;
  bool loaded_ = false;
  bool shown_ = false;
  bool modal_ = false;
  bool unloading_ = false;
  bool placed_ = false;
};

// Reports the failure in flight in a box, "Error: " + number + CR LF + description.
void ReportEventFault();

// Runs what a user's action or a timer set off. A failure that no handler took is reported, and the message loop goes
// on. The form stays in memory until the action is over.
template <class Action>
void DispatchEvent(Form* form, Action&& action) {
  const Ref<Form> keep(form);
  try {
    action();
  } catch (const std::exception&) {
    ReportEventFault();
  }
}

}  // namespace kestrun
