#include "styles/check/unseen_windowing.h"

#include <utility>

#include "forms/form.h"

namespace kestrun {
namespace {

constexpr int kTwipsPerInch = 1440;

// Nothing is drawn on it; its number is one that no other has.
class UnseenSurface final : public DrawingSurface {
 public:
  UnseenSurface(PixelSize size, int32_t number) : size_(size), number_(number) {}
  PixelSize Size() const override { return size_; }
  void Draw(const std::function<void(Canvas&)>&) override {}
  void Resize(PixelSize size, const std::function<void(Canvas&)>&) override { size_ = size; }
  int32_t ContextNumber() const override { return number_; }

 private:
  PixelSize size_;
  int32_t number_;
};

}  // namespace

class UnseenWindowing::Peer final : public FormPeer {
 public:
  explicit Peer(UnseenWindowing& windowing) : windowing_(windowing) {}

  void Show() override {}
  void Close() override {}
  void Update(Control& control, PropertyId property) override {
    if (windowing_.on_change) windowing_.on_change(control, property);
  }
  void ControlsChanged() override {}
  void MenuChanged() override {}
  void ListChanged(Control&) override {}
  void SetFocus(Control&) override {}
  void Repaint(Control&) override {}
  void PopUpMenu(MenuItem&) override {}
  void BringToFront() override {}
  int32_t WindowNumber(const Control& control) override {
    int32_t& number = numbers_[&control];
    if (number == 0) number = ++windowing_.last_number_;
    return number;
  }
  int Dpi() override { return kTwipsPerInch / windowing_.Screen().twips_per_pixel; }
  void ShowPopup(Control&, const PixelRect&, std::function<void(Canvas&)>) override {}
  void HidePopup(Control&) override {}
  PixelPoint ScreenPosition(const Control&) override { return {}; }
  PixelRect ScreenArea(const Control&) override {
    const ScreenSize screen = windowing_.Screen();
    return {0, 0, screen.width_twips / screen.twips_per_pixel, screen.height_twips / screen.twips_per_pixel};
  }
  void TellAccessibility(Control&, AccessibleEvent, int) override {}

 private:
  UnseenWindowing& windowing_;
  std::map<const Control*, int32_t> numbers_;
};

std::shared_ptr<FormPeer> UnseenWindowing::MakePeer(Form&) { return std::make_shared<Peer>(*this); }

void UnseenWindowing::RunModal(Form& form) { form.Hide(); }

std::unique_ptr<DrawingSurface> UnseenWindowing::MakeSurface(PixelSize size, int) {
  return std::make_unique<UnseenSurface>(size, ++last_number_);
}

}  // namespace kestrun
