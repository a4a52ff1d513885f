// Which peer a control gets.
#include <algorithm>
#include <array>
#include <string_view>

#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/panel_peer.h"
#include "desktop/win32/window/peer_kinds.h"
#include "desktop/win32/window/user_control_peer.h"
#include "forms/composite_control.h"
#include "forms/user_control.h"

namespace kestrun {
namespace {

struct PeerRow {
  std::string_view type_name;
  std::unique_ptr<ControlPeer> (*make)(FormWindow& form, Control& control);
};

constexpr std::array kPeers{
    PeerRow{"TextBox", &MakeTextBoxPeer},
    PeerRow{"CommandButton", &MakeCommandButtonPeer},
    PeerRow{"CheckBox", &MakeCheckBoxPeer},
    PeerRow{"OptionButton", &MakeOptionButtonPeer},
    PeerRow{"ListBox", &MakeListBoxPeer},
    PeerRow{"FileListBox", &MakeFileListBoxPeer},
    PeerRow{"ComboBox", &MakeComboBoxPeer},
    PeerRow{"TreeView", &MakeTreeViewPeer},
    PeerRow{"Label", &MakeLabelPeer},
    PeerRow{"Image", &MakeImagePeer},
    PeerRow{"Line", &MakeLinePeer},
    PeerRow{"Shape", &MakeShapePeer},
    PeerRow{"Frame", &MakePeerOfKind<FramePeer>},
    PeerRow{"PictureBox", &MakePeerOfKind<PictureBoxPeer>},
};

}  // namespace

std::unique_ptr<ControlPeer> MakeControlPeer(FormWindow& form, Control& control) {
  if (!control.HasBody()) return nullptr;
  const std::string type = control.TypeName();
  const auto* row = std::find_if(kPeers.begin(), kPeers.end(),
                                 [&type](const PeerRow& candidate) { return candidate.type_name == type; });
  if (row != kPeers.end()) return row->make(form, control);
  if (dynamic_cast<UserControl*>(&control)) return MakePeerOfKind<UserControlPeer>(form, control);
  if (dynamic_cast<CompositeControl*>(&control)) return MakePeerOfKind<CompositePeer>(form, control);
  return nullptr;
}

}  // namespace kestrun
