#include "forms/composite_control.h"

#include "platform/windowing.h"

namespace kestrun {

void CompositeControl::PropertyChanged(PropertyId id) {
  if (id == PropertyId::kWidth || id == PropertyId::kHeight) Resized();
}

void CompositeControl::RemoveConstituent(Control& constituent) {
  const Ref<Control> keep(&constituent);
  std::erase(constituents_, keep);
  if (FormPeer* shown = peer()) shown->ControlsChanged();
  constituent.Disconnect();
}

void CompositeControl::Disconnect() {
  for (const Ref<Control>& constituent : constituents_) constituent->Disconnect();
  Control::Disconnect();
}

}  // namespace kestrun
