// The peers of containers: a window of ours that draws its own background and the controls that have no window.
#pragma once

#include "desktop/win32/window/accessible_control.h"
#include "desktop/win32/window/control_peer.h"

namespace kestrun {

class PanelPeer : public WindowedPeer {
 public:
  using WindowedPeer::WindowedPeer;
  void Update(PropertyId property) override;

 protected:
  void CreatePanel();
  bool HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) override;
};

class FramePeer final : public PanelPeer {
 public:
  using PanelPeer::PanelPeer;
  void Create() override { CreatePanel(); }
  void DrawBackground(HDC target, const RECT& area) override;
};

class PictureBoxPeer final : public PanelPeer {
 public:
  using PanelPeer::PanelPeer;
  void Create() override { CreatePanel(); }
  void DrawBackground(HDC target, const RECT& area) override;

 protected:
  [[nodiscard]] EdgeKind Edge() const override;
};

// A control that is made of other controls.
class CompositePeer final : public PanelPeer {
 public:
  using PanelPeer::PanelPeer;
  ~CompositePeer() override;
  void Create() override { CreatePanel(); }
  void Update(PropertyId property) override;
  // With its links, which show its background.
  void Repaint() override;
  void DrawBackground(HDC target, const RECT& area) override;

 protected:
  bool HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) override;
  [[nodiscard]] EdgeKind Edge() const override;

 private:
  Ref<AccessibleControl> accessible_;
};

}  // namespace kestrun
