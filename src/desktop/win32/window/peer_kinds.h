// The makers of the control kinds' peers.
#pragma once

#include <memory>

namespace kestrun {

class Control;
class ControlPeer;
class FormWindow;

std::unique_ptr<ControlPeer> MakeTextBoxPeer(FormWindow& form, Control& control);
std::unique_ptr<ControlPeer> MakeCommandButtonPeer(FormWindow& form, Control& control);
std::unique_ptr<ControlPeer> MakeCheckBoxPeer(FormWindow& form, Control& control);
std::unique_ptr<ControlPeer> MakeOptionButtonPeer(FormWindow& form, Control& control);
std::unique_ptr<ControlPeer> MakeListBoxPeer(FormWindow& form, Control& control);
std::unique_ptr<ControlPeer> MakeFileListBoxPeer(FormWindow& form, Control& control);
std::unique_ptr<ControlPeer> MakeComboBoxPeer(FormWindow& form, Control& control);
std::unique_ptr<ControlPeer> MakeTreeViewPeer(FormWindow& form, Control& control);
// One that its container draws, or a link with a window when it answers clicks.
std::unique_ptr<ControlPeer> MakeLabelPeer(FormWindow& form, Control& control);
std::unique_ptr<ControlPeer> MakeImagePeer(FormWindow& form, Control& control);
std::unique_ptr<ControlPeer> MakeLinePeer(FormWindow& form, Control& control);
std::unique_ptr<ControlPeer> MakeShapePeer(FormWindow& form, Control& control);

}  // namespace kestrun
