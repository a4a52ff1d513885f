// The style editor on a headless desktop, with project files for it.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "formats/pff/cls_pff.h"
#include "support/headless_fixture.h"
#include "windows/style_editor/frmedit.h"
#include "windows/style_editor/frmeditselectfile.h"

namespace kestrun {

using ArchiveContent = std::vector<std::pair<std::string, std::string>>;

class EditorTest : public HeadlessTest {
 protected:
  static FrmEdit& editor() { return Window<FrmEdit>(); }

  // A style file with these entries.
  std::string MakeStyle(const std::string& name, const ArchiveContent& content) {
    const std::string path = Path(name);
    ClsPFF archive;
    archive.NewPffFile(path);
    for (const auto& [entry, text] : content) archive.PackFile(AsBytes(text), entry);
    archive.SavePffFile();
    return path;
  }
  // What an archive holds, without its deleted entries.
  static ArchiveContent ContentOf(const std::string& path) {
    ClsPFF archive;
    ArchiveContent content;
    if (!archive.LoadPff(path)) return content;
    for (int32_t number = 0; number < archive.PFFTotalFiles(); ++number) {
      if (archive.FileDeleted(number)) continue;
      Bytes bytes;
      archive.ExtractFile(number, bytes, "");
      content.emplace_back(archive.FileName(number), std::string(AsChars(bytes)));
    }
    return content;
  }
  static std::string WorkingCopy(const std::string& file) { return StyleProject::WorkingCopyOf(file); }

  // A style with a manifest and a module, open in the editor.
  std::string OpenSample() {
    const std::string path = MakeStyle("night.stl", {{"assembly.txt", "include main.vbs"}, {"main.vbs", "old code"}});
    editor().LoadStyle(path);
    return path;
  }

  // A double click on the node of that text.
  static void DoubleClick(TreeView& tree, const std::string& text) {
    for (const Ref<TreeNode>& node : tree.nodes()) {
      if (node->Text() != text) continue;
      tree.Select(node.get());
      tree.DblClick();
      return;
    }
    FAIL() << "no node " << text;
  }
  static void OpenEntry(const std::string& name) { DoubleClick(editor().TreeView, name); }
  static void Type(const std::string& text) { editor().TxtCode.Text = text; }

  // The keys of all nodes with their texts, in the order of their adding.
  static std::vector<std::string> Nodes(const TreeView& tree) {
    std::vector<std::string> lines;
    for (const Ref<TreeNode>& node : tree.nodes()) lines.push_back(node->Key() + ": " + node->Text());
    return lines;
  }
  static std::vector<std::string> EntryTexts() {
    std::vector<std::string> texts;
    for (const Ref<TreeNode>& node : editor().TreeView.nodes()) {
      if (node->Parent() && node->Parent()->Key() != "PFF") texts.push_back(node->Text());
    }
    return texts;
  }

  static std::string RecoveryQuestion(const std::string& file) {
    return "It looks like the project " + file +
           " is already open or not closed correctly last time do you want to try loading the last version?";
  }
  static std::string Padded(const std::string& name) { return name + std::string(20, ' '); }

  HeadlessDialogs& dialogs() { return desktop.dialogs(); }
};

}  // namespace kestrun
