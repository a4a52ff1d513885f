// A panel of text links, each with a key for its owner: the panel shows them and says which one was clicked, and knows
// nothing of what they mean. All places and sizes are twips.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/stored_control.h"
#include "forms/composite_control.h"
#include "forms/image.h"
#include "forms/label.h"

namespace kestrun {

// A font that several labels follow. Changing a part of it changes them all.
class SharedFont final : public Control {
 public:
  using Control::Control;
  std::function<void()> on_change;

  [[nodiscard]] bool HasBody() const override { return false; }
  [[nodiscard]] std::string TypeName() const override { return "Font"; }

 protected:
  void PropertyChanged(PropertyId id) override {
    if (id == PropertyId::kFont && on_change) on_change();
  }
};

class QuickLink final : public CompositeControl, public StoredControl {
 public:
  QuickLink(Form* form, std::string name, int index);

  // Those of the panel itself, passed on.
  Event<> Click;
  Event<> DblClick;
  Event<int, int, int, int> MouseDown;
  Event<int, int, int, int> MouseMove;
  Event<int, int, int, int> MouseUp;
  // Key and index of the link.
  Event<std::string, int> LinkClick;
  Event<> LblCloseClick;
  Event<> ChStartupClick;

  Label& Label1 = AddConstituent<Label>("Label1");
  Label& LblClose = AddConstituent<Label>("LblClose");
  Label& ChShow = AddConstituent<Label>("ChShow");
  Image& Image1 = AddConstituent<Image>("Image1");

 private:
  SharedFont& normal_font_ = AddConstituent<SharedFont>("NormalFont");
  SharedFont& link_font_ = AddConstituent<SharedFont>("LinkFont");

 public:
  // Of Label1 and ChShow, and of the links.
  Property<FontDescription>& NormalFont = normal_font_.Font;
  Property<FontDescription>& LinkFont = link_font_.Font;
  LetProperty<Color> FontColor{color::kButtonText, [this] { ApplyFontColor(); }};
  LetProperty<Color> LinkFontColor{color::kButtonText, [this] { ApplyLinkFontColor(); }};
  // The mouse's picture over a link; none for the usual arrow.
  LetProperty<Ref<Picture>> MouseLinkIcon{{}, [this] { ApplyMouseLinkIcon(); }};
  // What a click on the help picture opens; while it is empty, the file beside the program that has the program's name
  // and ".chm".
  std::string help_file;

  // Adds a link below the last, and moves ChShow below it.
  void AddLink(std::string link, std::string caption);
  [[nodiscard]] int LinkCount() const { return static_cast<int>(links_.size()); }
  // A link's label. Element 0 is there before the first link is. Error 9 for any other that has not been added.
  [[nodiscard]] Label& LblLink(int index) const;
  [[nodiscard]] Label& CloseLabel() const { return LblClose; }
  [[nodiscard]] Label& ChStartup() const { return ChShow; }
  // True when the panel is high enough for all that stands in it, as it was when its size changed last.
  [[nodiscard]] bool IsFullyOpen() const { return is_fully_open_; }

  void WriteProperties(PropertyBag& bag) const;
  void ReadProperties(const PropertyBag& bag);

  // Font objects of the two fonts, for late binding.
  [[nodiscard]] SharedFont& NormalFontHolder() const { return normal_font_; }
  [[nodiscard]] SharedFont& LinkFontHolder() const { return link_font_; }

  [[nodiscard]] std::string TypeName() const override { return "QuickLink"; }
  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Resized() override;
  void PropertyChanged(PropertyId id) override;

 private:
  struct LinkRecord {
    std::string Link;
    std::string Caption;
  };

  void PlaceConstituents();
  void PassPanelEvents();
  // Makes the label of the next link, a likeness of the first.
  Label& LoadLabel();
  void WatchLabel(Label& label, int index);
  void ClickLink(int index);
  // Bold and underlined is this link's label alone, or none's for -1.
  void Highlight(int index);
  void OpenHelp() const;
  void ApplyNormalFont();
  void ApplyLinkFont();
  void ApplyFontColor();
  void ApplyLinkFontColor();
  void ApplyMouseLinkIcon();

  std::vector<Label*> labels_;
  std::vector<LinkRecord> links_;
  bool is_fully_open_ = false;
};

}  // namespace kestrun
