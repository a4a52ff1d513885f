#include "controls/quick_link/quick_link.h"

#include "controls/quick_link/help_picture.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr int kLinkGap = 10;       // between a link and what stands below it
constexpr int kRightMargin = 200;  // right of the links
constexpr int kCloseOffset = 200;  // from the right edge to the left of LblClose
constexpr int kBottomMargin = 150;
constexpr int kShowNormal = 1;
// The keyboard comes to them behind the links.
constexpr int kShowTabIndex = 32766;
constexpr int kCloseTabIndex = 32767;

QuickLink& Self(Object& object) { return static_cast<QuickLink&>(object); }

// One of the two fonts, as a font object and as a value to take over.
template <auto kHolder>
constexpr Member SharedFontRow(std::string_view name) {
  return {name,
          MemberKind::kReadWrite,
          0,
          0,
          [](Object& object, Arguments arguments) { return GetFont((Self(object).*kHolder)(), arguments); },
          [](Object& object, Arguments arguments, const Variant& value) {
            PutFont((Self(object).*kHolder)(), arguments, value);
          }};
}

template <auto kLabel>
constexpr Member LabelRow(std::string_view name) {
  return {name,
          MemberKind::kReadOnly,
          0,
          0,
          [](Object& object, Arguments) -> Variant { return &(Self(object).*kLabel)(); },
          nullptr};
}

constexpr Member kRows[]{
    PropertyRow<&Control::BackColor>("BackColor"),
    PropertyRow<&Control::ForeColor>("ForeColor"),
    PropertyRow<&Control::Enabled>("Enabled"),
    PropertyRow<&CompositeControl::BackStyle>("BackStyle"),
    PropertyRow<&CompositeControl::BorderStyle>("BorderStyle"),
    SharedFontRow<&QuickLink::NormalFontHolder>("NormalFont"),
    SharedFontRow<&QuickLink::LinkFontHolder>("LinkFont"),
    PropertyRow<&QuickLink::MouseLinkIcon>("MouseLinkIcon"),
    PropertyRow<&QuickLink::FontColor>("FontColor"),
    PropertyRow<&QuickLink::LinkFontColor>("LinkFontColor"),
    MethodRow<&QuickLink::AddLink>("AddLink", "Link, Caption"),
    LabelRow<&QuickLink::CloseLabel>("CloseLabel"),
    LabelRow<&QuickLink::ChStartup>("ChStartup"),
    ReadOnlyRow<&QuickLink::LinkCount>("LinkCount"),
};
const MemberTable kTable{&Control::kWindowedMembers, kRows};

std::string DefaultHelpFile() { return platform().program().Folder() + "\\" + platform().program().ExeName() + ".chm"; }

}  // namespace

QuickLink::QuickLink(Form* form, std::string name, int index) : CompositeControl(form, std::move(name), index) {
  const FontDescription font = ContainerFont(*this);
  Font.StoreQuietly(font);
  normal_font_.on_change = [this] { ApplyNormalFont(); };
  link_font_.on_change = [this] { ApplyLinkFont(); };
  LoadLabel().Caption = "Link 1";
  PlaceConstituents();
  NormalFont = font;
  LinkFont = font;
  Move(0, 0, 3600, 3000);
  PassPanelEvents();
  LblClose.Click = [this] { LblCloseClick(); };
  ChShow.Click = [this] { ChStartupClick(); };
  Image1.Click = [this] { OpenHelp(); };
}

const MemberTable& QuickLink::Members() const { return kTable; }

void QuickLink::PlaceConstituents() {
  Image1.Move(120, 90, 480, 480);
  Image1.Stretch = true;
  Image1.Picture = HelpPicture();
  Image1.ToolTipText = "Help";
  Label1.Caption = "What do you want to do?";
  Label1.Move(720, 210, 2400, 240);
  Label& first = *labels_.front();
  first.Move(720, 720, 2400, 240);
  ChShow.Caption = "Show at startup";
  ChShow.Move(720, first.Top + first.Height + kLinkGap, 2400, 240);
  LblClose.Caption = "Close";
  LblClose.ToolTipText = "Close";
  LblClose.Move(0, 60, 480, 240);
  ChShow.TabIndex = kShowTabIndex;
  LblClose.TabIndex = kCloseTabIndex;
  for (Label* label : {&Label1, &first, &ChShow, &LblClose}) label->BackStyle = 0;
}

void QuickLink::PassPanelEvents() {
  Control::Click = [this] { Click(); };
  Control::DblClick = [this] { DblClick(); };
  Control::MouseDown = [this](int button, int shift_state, int x, int y) { MouseDown(button, shift_state, x, y); };
  Control::MouseUp = [this](int button, int shift_state, int x, int y) { MouseUp(button, shift_state, x, y); };
  Control::MouseMove = [this](int button, int shift_state, int x, int y) {
    Highlight(-1);
    MouseMove(button, shift_state, x, y);
  };
}

// ---- links ---------------------------------------------------------------------------------------------------------

void QuickLink::AddLink(std::string link, std::string caption) {
  const int count = LinkCount();
  links_.push_back({std::move(link), caption});
  if (count == 0) {
    labels_.front()->Font = LinkFont.get();
    labels_.front()->MouseIcon = MouseLinkIcon.get();
  } else {
    const Label& above = *labels_.back();
    Label& loaded = LoadLabel();
    loaded.Font = above.Font.get();
    loaded.Top = above.Top + above.Height + kLinkGap;
  }
  Label& added = *labels_.back();
  added.Caption = std::move(caption);
  added.Visible = true;
  ChShow.Top = added.Top + added.Height + kLinkGap;
}

Label& QuickLink::LoadLabel() {
  const int index = static_cast<int>(labels_.size());
  Label& label = AddConstituent<Label>("LblLink", index, [&](Label& made) { WatchLabel(made, index); });
  labels_.push_back(&label);
  if (index == 0) return label;
  const Label& first = *labels_.front();
  label.Move(first.Left, first.Top, first.Width, first.Height);
  label.BackStyle = first.BackStyle.get();
  label.ForeColor = first.ForeColor.get();
  label.MouseIcon = first.MouseIcon.get();
  return label;
}

void QuickLink::WatchLabel(Label& label, int index) {
  label.TabIndex = index;
  label.Click = [this, index] { ClickLink(index); };
  label.MouseMove = [this, index](int, int, int, int) { Highlight(index); };
}

Label& QuickLink::LblLink(int index) const {
  if (index < 0 || static_cast<size_t>(index) >= labels_.size()) Raise(error::kSubscriptOutOfRange);
  return *labels_[static_cast<size_t>(index)];
}

void QuickLink::ClickLink(int index) {
  if (index >= LinkCount()) return;  // the first label before any link was added
  LinkClick(links_[static_cast<size_t>(index)].Link, index);
}

void QuickLink::Highlight(int index) {
  for (Label* label : labels_) label->Emphasize(label->Index() == index);
}

void QuickLink::OpenHelp() const {
  const std::string file = help_file.empty() ? DefaultHelpFile() : help_file;
  static_cast<void>(platform().shell().Open("open", file, "", "", kShowNormal));
}

// ---- properties ----------------------------------------------------------------------------------------------------

void QuickLink::ApplyNormalFont() {
  Label1.Font = NormalFont.get();
  ChShow.Font = NormalFont.get();
  MarkChanged("NormalFont");
}

void QuickLink::ApplyLinkFont() {
  for (Label* label : labels_) label->Font = LinkFont.get();
  MarkChanged("LinkFont");
}

void QuickLink::ApplyFontColor() {
  Label1.ForeColor = FontColor.get();
  ChShow.ForeColor = FontColor.get();
  MarkChanged("FontColor");
}

void QuickLink::ApplyLinkFontColor() {
  for (Label* label : labels_) label->ForeColor = LinkFontColor.get();
  MarkChanged("LinkFontColor");
}

void QuickLink::ApplyMouseLinkIcon() {
  for (Label* label : labels_) label->MouseIcon = MouseLinkIcon.get();
  MarkChanged("MouseLinkIcon");
}

void QuickLink::Resized() {
  for (Label* label : labels_) label->Width = Width - label->Left - kRightMargin;
  LblClose.Left = Width - kCloseOffset;
  is_fully_open_ = ChShow.Top + ChShow.Height + kBottomMargin < Height;
}

void QuickLink::PropertyChanged(PropertyId id) {
  CompositeControl::PropertyChanged(id);
  switch (id) {
    case PropertyId::kBackColor: return MarkChanged("BackColor");
    case PropertyId::kForeColor: LblClose.ForeColor = ForeColor.get(); return MarkChanged("ForeColor");
    case PropertyId::kEnabled: return MarkChanged("Enabled");
    case PropertyId::kBackStyle: return MarkChanged("BackStyle");
    case PropertyId::kBorderStyle: return MarkChanged("BorderStyle");
    case PropertyId::kFont: return MarkChanged("Font");
    default: return;
  }
}

void QuickLink::WriteProperties(PropertyBag& bag) const {
  const Variant container_font = StoredFont(ContainerFont(*this));
  bag.WriteProperty("BackColor", StoredColor(BackColor), StoredColor(color::kButtonFace));
  bag.WriteProperty("ForeColor", StoredColor(ForeColor), StoredColor(color::kButtonText));
  bag.WriteProperty("Enabled", Enabled.get(), true);
  bag.WriteProperty("BackStyle", BackStyle.get(), 1);
  bag.WriteProperty("BorderStyle", BorderStyle.get(), 0);
  bag.WriteProperty("Font", StoredFont(Font), container_font);
  bag.WriteProperty("NormalFont", StoredFont(NormalFont), container_font);
  bag.WriteProperty("LinkFont", StoredFont(LinkFont), container_font);
  bag.WriteProperty("MouseLinkIcon", MouseLinkIcon.get(), Variant::Nothing());
  bag.WriteProperty("FontColor", StoredColor(FontColor), StoredColor(color::kButtonText));
  bag.WriteProperty("LinkFontColor", StoredColor(LinkFontColor), StoredColor(color::kButtonText));
}

void QuickLink::ReadProperties(const PropertyBag& bag) {
  const Reading reading(*this);
  const Variant container_font = StoredFont(ContainerFont(*this));
  BackColor = ColorFrom(bag.ReadProperty("BackColor", StoredColor(color::kButtonFace)));
  ForeColor = ColorFrom(bag.ReadProperty("ForeColor", StoredColor(color::kButtonText)));
  Enabled = ToBoolean(bag.ReadProperty("Enabled", true));
  BackStyle = ToLong(bag.ReadProperty("BackStyle", 1));
  BorderStyle = ToLong(bag.ReadProperty("BorderStyle", 0));
  Font = FontFrom(bag.ReadProperty("Font", container_font));
  NormalFont = FontFrom(bag.ReadProperty("NormalFont", container_font));
  LinkFont = FontFrom(bag.ReadProperty("LinkFont", container_font));
  MouseLinkIcon = VariantTraits<Ref<Picture>>::From(bag.ReadProperty("MouseLinkIcon", Variant::Nothing()));
  FontColor = ColorFrom(bag.ReadProperty("FontColor", StoredColor(color::kButtonText)));
  LinkFontColor = ColorFrom(bag.ReadProperty("LinkFontColor", StoredColor(color::kButtonText)));
}

}  // namespace kestrun
