#include "forms/composite_control.h"

namespace kestrun {

void CompositeControl::PropertyChanged(PropertyId id) {
  if (id == PropertyId::kWidth || id == PropertyId::kHeight) Resized();
}

void CompositeControl::Disconnect() {
  for (const Ref<Control>& constituent : constituents_) constituent->Disconnect();
  Control::Disconnect();
}

}  // namespace kestrun
