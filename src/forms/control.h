// What all controls have in common. A control belongs to one form; its geometry is in twips (1440 to the inch) relative
// to its container. Scripts may keep a reference after the form has gone: every access then gives error 424.
#pragma once

#include <span>
#include <string>

#include "base/object.h"
#include "forms/color.h"
#include "forms/picture.h"
#include "forms/property.h"
#include "platform/windowing.h"

namespace kestrun {

class Form;

// Mouse buttons and shift state as event handlers get them.
namespace mouse {
inline constexpr int kLeft = 1;
inline constexpr int kRight = 2;
inline constexpr int kMiddle = 4;
}  // namespace mouse
namespace shift {
inline constexpr int kShift = 1;
inline constexpr int kCtrl = 2;
inline constexpr int kAlt = 4;
}  // namespace shift

// What a sunken border takes of a control's width and height, both sides together.
inline constexpr int kSunkenEdgesTwips = 60;

class Control : public TableObject {
 public:
  // A control of the form under a name, with an index when it is an element of a control array, -1 otherwise.
  Control(Form* form, std::string name, int index);

  [[nodiscard]] const std::string& Name() const { return name_; }
  // Position in the control array; -1 when it is no element of an array.
  [[nodiscard]] int Index() const { return index_; }
  // Null once the form has gone.
  [[nodiscard]] Form* form() const { return form_; }
  // The form itself, a frame or a picture box; null for a form.
  [[nodiscard]] Control* Container() const { return container_; }
  void SetContainer(Control& container);

  Property<int> Left{*this, PropertyId::kLeft};
  Property<int> Top{*this, PropertyId::kTop};
  Property<int> Width{*this, PropertyId::kWidth};
  Property<int> Height{*this, PropertyId::kHeight};
  Property<bool> Visible{*this, PropertyId::kVisible, true};
  Property<bool> Enabled{*this, PropertyId::kEnabled, true};
  Property<std::string> ToolTipText{*this, PropertyId::kToolTipText};
  Property<std::string> Tag{*this, PropertyId::kTag};
  Property<int> TabIndex{*this, PropertyId::kTabIndex};
  Property<bool> TabStop{*this, PropertyId::kTabStop, true};
  Property<int> MousePointer{*this, PropertyId::kMousePointer};
  // The mouse's picture over the control while MousePointer is 0 or 99. Its hot spot is its top left corner.
  Property<Ref<kestrun::Picture>> MouseIcon{*this, PropertyId::kMousePointer};
  Property<FontDescription> Font{*this, PropertyId::kFont};
  Property<Color> ForeColor{*this, PropertyId::kForeColor, color::kButtonText};
  Property<Color> BackColor{*this, PropertyId::kBackColor, color::kButtonFace};

  Event<> Click;
  Event<> DblClick;
  // Button, shift state, x and y in twips inside the control.
  Event<int, int, int, int> MouseDown;
  Event<int, int, int, int> MouseMove;
  Event<int, int, int, int> MouseUp;
  // Virtual key code and shift state; a handler that sets the code to 0 swallows the key.
  Event<int&, int> KeyDown;
  Event<int&, int> KeyUp;
  // Character code; 0 swallows it.
  Event<int&> KeyPress;
  Event<> GotFocus;
  Event<> LostFocus;

  void Move(int left, int top, int width, int height);
  void SetFocus();
  void Refresh();
  // 0 brings the control in front of its siblings, 1 puts it behind them.
  void ZOrder(int position);
  // The number by which the system knows the control's window; the form's window is made for it when there is none yet.
  // 0 for a control that its container draws.
  [[nodiscard]] int32_t WindowNumber() const;

  // False for controls that are never seen: timers, dialogues, menu items.
  [[nodiscard]] virtual bool HasBody() const { return true; }
  // True for controls that a user can move the focus to.
  [[nodiscard]] virtual bool TakesFocus() const { return HasBody(); }
  // True for controls that other controls can stand in.
  [[nodiscard]] virtual bool IsContainer() const { return false; }
  // Controls that this one is made of, from back to front; the form does not list them.
  [[nodiscard]] virtual std::span<const Ref<Control>> Constituents() const { return {}; }
  // Scripts remove only what they have added themselves.
  [[nodiscard]] bool IsMadeByScript() const { return made_by_script_; }
  void MarkMadeByScript() { made_by_script_ = true; }
  // True when it is visible and enabled and all its containers are, so that a user can act on it.
  [[nodiscard]] bool IsUsable() const;

  [[nodiscard]] const MemberTable& Members() const override { return kControlMembers; }
  static const MemberTable kControlMembers;
  // The same and hWnd: of kinds that have a window of their own.
  static const MemberTable kWindowedMembers;

  // Twips of one unit in which this container's controls are placed, across and down.
  [[nodiscard]] virtual double UnitWidth() const { return 1; }
  [[nodiscard]] virtual double UnitHeight() const { return 1; }

 protected:
  friend void internal::NotifyPropertyChanged(Control& owner, PropertyId id);
  friend class Form;
  friend class CompositeControl;

  // For kinds that show content rather than a face, before anything is assigned to them.
  void TakeWindowColors();
  // Runs after a property was stored and before the peer hears of it: where a control keeps its own rules.
  virtual void PropertyChanged(PropertyId id) { static_cast<void>(id); }
  [[nodiscard]] bool IsAlive() const override { return form_ != nullptr; }
  // The form goes: from now on the control is only a shell that references keep in memory.
  virtual void Disconnect();
  [[nodiscard]] FormPeer* peer() const;

 private:
  Form* form_;
  Control* container_;
  std::string name_;
  int index_;
  bool made_by_script_ = false;
};

}  // namespace kestrun
