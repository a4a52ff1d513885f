#include "windows/previews/previews_fixture.h"

#include "maps/map_picture.h"
#include "maps/preview_search.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using PreviewManagerTest = PreviewsTest;

// ---- words ---------------------------------------------------------------------------------------------------------

TEST_F(PreviewManagerTest, TheWordsOfTheWindow) {
  const frmpicture& window = Manager(MapPath("Oasis.bms"));
  EXPECT_EQ(window.Caption.get(), "Kestrun - Preview Manager");
  EXPECT_EQ(window.lblmap.Caption.get(), MapPath("Oasis.bms"));
  struct Row {
    const Button& button;
    const char* caption;
    const char* tip;
  };
  for (const Row& row : {Row{window.CmdDownload, "Search preview", "Search the internet for a preview"},
                         Row{window.Command3, "Browse", "Browse for a file on your computer"},
                         Row{window.CmdPaste, "Paste", "Paste a image from clipboard"},
                         Row{window.Command4, "Edit picture", "Save the link and open the picture in its program."},
                         Row{window.Command1, "Save", "Store this picture for the map."},
                         Row{window.Command2, "Cancel", "Close the window and change nothing."}}) {
    EXPECT_EQ(row.button.Caption.get(), row.caption);
    EXPECT_EQ(row.button.ToolTipText.get(), row.tip);
  }
  EXPECT_EQ(window.Frame1.Caption.get(), "Select how you want to load a screen shot:");
  EXPECT_EQ(window.Frame2.Caption.get(), "Path options:");
  EXPECT_EQ(window.LblCurrent.Caption.get(), "Current screen shot set for this map:");
  EXPECT_EQ(window.LblMapPath.Caption.get(), "Map path:");
  EXPECT_EQ(window.LblImagePath.Caption.get(), "Image path:");
  EXPECT_EQ(window.ImgPrev.ToolTipText.get(), "Large preview");
  EXPECT_EQ(window.OptFullPath.Caption.get(), "Use full path");
  EXPECT_EQ(window.OptFullPath.ToolTipText.get(), "If checked Kestrun will link the image to the entire file path.");
  EXPECT_EQ(window.OptNameOnly.Caption.get(), "Use filename only");
  EXPECT_EQ(
      window.OptNameOnly.ToolTipText.get(),
      "If checked Kestrun will only use the file name to link the image (all \"mymap.bms\" files get this image)");
}

TEST_F(PreviewManagerTest, TheMenus) {
  const frmpicture& window = Manager(MapPath("Oasis.bms"));
  std::vector<std::string> captions;
  for (const MenuItem* item : {&window.mnu_file, &window.mnu_setimagepath, &window.mnu_saveimageas, &window.mnu_exit,
                               &window.mnu_edit, &window.mnu_paste, &window.mnu_copyclip, &window.mnu_copymapname}) {
    captions.push_back(item->Caption);
  }
  EXPECT_THAT(captions, ElementsAre("File", "Set default image path", "Save Image as", "Exit", "Edit",
                                    "Paste from clipboard", "Copy to clipboard", "Copy map name"));
}

TEST_F(PreviewManagerTest, TheTabKeyGoesThroughTheWindowInReadingOrder) {
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  EXPECT_THAT(window.TabOrder(), ElementsAre(&window.txtimage, &window.CmdDownload, &window.Command3, &window.CmdPaste,
                                             &window.OptFullPath, &window.OptNameOnly, &window.Command4,
                                             &window.Command1, &window.Command2));
}

// ---- the link ------------------------------------------------------------------------------------------------------

TEST_F(PreviewManagerTest, AMapWithoutAPictureShowsNone) {
  const frmpicture& window = Manager(MapPath("Oasis.bms"));
  EXPECT_EQ(window.txtimage.Text.get(), "");
  EXPECT_FALSE(window.ImgPrev.Picture.get());
  EXPECT_TRUE(window.LblNoPicture.Visible);
  EXPECT_FALSE(window.mnu_saveimageas.Enabled);
  EXPECT_FALSE(window.mnu_copyclip.Enabled);
}

TEST_F(PreviewManagerTest, ThePictureThatIsSetIsShown) {
  WriteFile(MapPath("oasis.bmp"), Bitmap(4, 3));
  WriteNumberedSetting(setting::kPreviewPicture, "Oasis.bms", MapPath("oasis.bmp"));
  const frmpicture& window = Manager(MapPath("Oasis.bms"));
  EXPECT_EQ(window.txtimage.Text.get(), MapPath("oasis.bmp"));
  ASSERT_TRUE(window.ImgPrev.Picture.get());
  EXPECT_EQ(window.ImgPrev.Picture.get()->width_pixels(), 4);
  EXPECT_TRUE(window.OptNameOnly.Value);
  EXPECT_FALSE(window.LblNoPicture.Visible);
}

TEST_F(PreviewManagerTest, AnotherMapTakesTheWindowOver) {
  WriteFile(MapPath("oasis.bmp"), Bitmap(4, 3));
  WriteNumberedSetting(setting::kPreviewPicture, "Oasis.bms", MapPath("oasis.bmp"));
  const frmpicture& window = Manager(MapPath("Towers.bms"));
  EXPECT_FALSE(window.ImgPrev.Picture.get());
  static_cast<void>(Manager(MapPath("Oasis.bms")));
  EXPECT_TRUE(window.ImgPrev.Picture.get());
}

TEST_F(PreviewManagerTest, BrowsingTakesAFileAndSavingLinksIt) {
  WriteFile(MapPath("shot.bmp"), Bitmap(4, 3));
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  desktop.dialogs()
      .ExpectFile(MapPath("shot.bmp"))
      .WithTitle("Select image.")
      .WithFilter(
          "All image files|*.jpg;*.jpeg;*.bmp;*.dib;*.gif;*.wmf;*.emf;*.cur;*.ico|Bitmaps (*.bmp)|*.bmp|JPEG files "
          "(*.jpg;*.jpeg)|*.jpg;*.jpeg|Gif files (*.gif)|*.gif|Meta files (*.wmf;*.emf)|*.wmf;*.emf|Icons "
          "(*.ico;*.cur)|*.ico;*.cur|All files (*.*)|*.*");
  window.Command3.Press();
  EXPECT_EQ(window.txtimage.Text.get(), MapPath("shot.bmp"));
  EXPECT_TRUE(window.ImgPrev.Picture.get());
  EXPECT_EQ(Ini("IMAGE", MapPath("Oasis.bms")), "(none)");  // only at save
  window.Command1.Press();
  EXPECT_EQ(Ini("IMAGE", MapPath("Oasis.bms")), MapPath("shot.bmp"));
  EXPECT_EQ(LoadedWindow("frmpicture"), nullptr);
}

TEST_F(PreviewManagerTest, CancelSavesNothing) {
  WriteFile(MapPath("shot.bmp"), Bitmap(4, 3));
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  DropFiles(window, {MapPath("shot.bmp")});
  window.Command2.Press();
  EXPECT_EQ(Ini("IMAGE", MapPath("Oasis.bms")), "(none)");
  EXPECT_EQ(LoadedWindow("frmpicture"), nullptr);
}

TEST_F(PreviewManagerTest, ALinkUnderTheNameServesEveryMapOfThatNameAndAWholePathWins) {
  WriteFile(MapPath("name.bmp"), Bitmap(4, 3));
  WriteFile(MapPath("path.bmp"), Bitmap(5, 3));
  frmpicture* window = &Manager(MapPath("Oasis.bms"));
  DropFiles(*window, {MapPath("name.bmp")});
  window->OptNameOnly.Value = true;
  window->Command1.Press();
  EXPECT_EQ(GetMapPath(Path("elsewhere\\Oasis.bms")), MapPath("name.bmp"));
  window = &Manager(MapPath("Oasis.bms"));
  DropFiles(*window, {MapPath("path.bmp")});
  window->OptFullPath.Value = true;
  window->Command1.Press();
  EXPECT_EQ(GetMapPath(MapPath("Oasis.bms")), MapPath("path.bmp"));
  EXPECT_EQ(GetMapPath(Path("elsewhere\\Oasis.bms")), MapPath("name.bmp"));
}

TEST_F(PreviewManagerTest, AZipAndItsMapShareOneLink) {
  WriteFile(MapPath("shot.bmp"), Bitmap(4, 3));
  frmpicture& window = Manager(MapPath("Oasis.zip"));
  DropFiles(window, {MapPath("shot.bmp")});
  window.Command1.Press();
  EXPECT_EQ(Ini("IMAGE", MapPath("Oasis.bms")), MapPath("shot.bmp"));
  EXPECT_EQ(GetMapPath(MapPath("Oasis.zip")), MapPath("shot.bmp"));
  EXPECT_EQ(GetMapPath(MapPath("Oasis.bms")), MapPath("shot.bmp"));
}

// ---- pasting -------------------------------------------------------------------------------------------------------

TEST_F(PreviewManagerTest, PastingAndSavingWritesABitmap) {
  clipboard = DecodedPicture{2, 1, {0xFFFF0000, 0xFF0000FF}};
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  window.CmdPaste.Press();
  EXPECT_EQ(window.txtimage.Text.get(), "");
  window.Command1.Press();
  EXPECT_EQ(Ini("IMAGE", MapPath("Oasis.bms")), MapPath("Oasis.bms.bmp"));
  const std::string file = ReadFile(MapPath("Oasis.bms.bmp"));
  EXPECT_EQ(file.substr(0, 2), "BM");
  EXPECT_EQ(file.substr(54, 6), std::string("\x00\x00\xFF\xFF\x00\x00", 6));
}

TEST_F(PreviewManagerTest, NoToOverwritingSavesNothing) {
  WriteFile(MapPath("Oasis.bms.bmp"), "older");
  clipboard = DecodedPicture{1, 1, {0xFFFF0000}};
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  window.CmdPaste.Press();
  const std::string question =
      "This screen shot already exists do you want to overwrite the file " + MapPath("Oasis.bms.bmp") + "?";
  desktop.dialogs().ExpectBox(question, BoxAnswer::kNo);
  window.Command1.Press();
  EXPECT_EQ(ReadFile(MapPath("Oasis.bms.bmp")), "older");
  EXPECT_EQ(Ini("IMAGE", MapPath("Oasis.bms")), "(none)");
  EXPECT_EQ(window.txtimage.Text.get(), "");
  desktop.dialogs().ExpectBox(question, BoxAnswer::kYes);
  window.Command1.Press();
  EXPECT_EQ(ReadFile(MapPath("Oasis.bms.bmp")).substr(0, 2), "BM");
}

TEST_F(PreviewManagerTest, AnEmptyClipboardIsTold) {
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox("There is no picture on the clipboard.");
  window.mnu_paste.Click();
  EXPECT_FALSE(window.ImgPrev.Picture.get());
}

TEST_F(PreviewManagerTest, SavingWithoutAPictureIsTold) {
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox("There is no picture to save. Browse for one, paste one or search the internet.");
  window.Command1.Press();
  EXPECT_NE(LoadedWindow("frmpicture"), nullptr);
}

TEST_F(PreviewManagerTest, WhatIsDroppedAndNoPictureChangesNothing) {
  WriteFile(MapPath("notes.txt"), "no picture");
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox("Error: 481\r\nInvalid picture");
  DropFiles(window, {MapPath("notes.txt")});
  EXPECT_EQ(window.txtimage.Text.get(), "");
}

// ---- other commands ------------------------------------------------------------------------------------------------

TEST_F(PreviewManagerTest, EditingSavesFirstAndOpensThePicture) {
  WriteFile(MapPath("shot.bmp"), Bitmap(4, 3));
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  DropFiles(window, {MapPath("shot.bmp")});
  window.Command4.Press();
  EXPECT_EQ(Ini("IMAGE", MapPath("Oasis.bms")), MapPath("shot.bmp"));
  ASSERT_EQ(desktop.shell().openings.size(), 1U);
  EXPECT_EQ(desktop.shell().openings[0].operation, "open");
  EXPECT_EQ(desktop.shell().openings[0].file, MapPath("shot.bmp"));
}

TEST_F(PreviewManagerTest, APictureIsSavedElsewhereAfterAQuestion) {
  WriteFile(MapPath("shot.bmp"), Bitmap(4, 3));
  WriteFile(MapPath("copy.bmp"), "older");
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  DropFiles(window, {MapPath("shot.bmp")});
  desktop.dialogs().ExpectFile(MapPath("copy.bmp")).WithTitle("Select file").WithFilter("Bitmaps (*.BMP)|*.BMP");
  desktop.dialogs().ExpectBox("This file already exists do you want to overwrite it?", BoxAnswer::kNo);
  window.mnu_saveimageas.Click();
  EXPECT_EQ(ReadFile(MapPath("copy.bmp")), "older");
  desktop.dialogs().ExpectFile(MapPath("copy.bmp")).WithTitle("Select file").WithFilter("Bitmaps (*.BMP)|*.BMP");
  desktop.dialogs().ExpectBox("This file already exists do you want to overwrite it?", BoxAnswer::kYes);
  window.mnu_saveimageas.Click();
  EXPECT_EQ(ReadFile(MapPath("copy.bmp")), BitmapText(4, 3));
}

TEST_F(PreviewManagerTest, PictureAndNameAreCopied) {
  WriteFile(MapPath("shot.bmp"), Bitmap(4, 3));
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  DropFiles(window, {MapPath("shot.bmp")});
  window.mnu_copyclip.Click();
  ASSERT_TRUE(clipboard.has_value());
  EXPECT_EQ(clipboard->width, 4);
  window.mnu_copymapname.Click();
  EXPECT_EQ(desktop.clipboard().Text(), "Oasis.bms");
}

TEST_F(PreviewManagerTest, TheFolderForPicturesIsChosen) {
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectFolder("Select a folder", "C:\\pictures\\");
  window.mnu_setimagepath.Click();
  EXPECT_EQ(Ini("LAUNCHER", "IMAGEPATH"), "C:\\pictures");
}

TEST_F(PreviewManagerTest, TheLargePreviewIsAsLargeAsItsPicture) {
  WriteFile(MapPath("shot.bmp"), Bitmap(400, 300));
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  DropFiles(window, {MapPath("shot.bmp")});
  desktop.windowing().ExpectModal("frmLargeprev", [](Form& form) {
    auto& large = static_cast<frmLargeprev&>(form);
    EXPECT_EQ(large.Caption.get(), "Kestrun - Map Preview");
    EXPECT_EQ(large.Picture1.Width.get(), 400 * 15);
    EXPECT_EQ(large.Width.get(), large.Picture1.Left + large.Picture1.Width + 250);
    EXPECT_EQ(large.Height.get(), large.Picture1.Top + large.Picture1.Height + 500);
    int escape = 27;
    large.KeyDown(escape, 0);
  });
  window.ImgPrev.Click();
  EXPECT_EQ(LoadedWindow("frmLargeprev"), nullptr);
}

// ---- the search ----------------------------------------------------------------------------------------------------

TEST_F(PreviewManagerTest, TheSearchNameHasItsDigitsBetweenPercentSigns) {
  EXPECT_EQ(PreviewSearchName("C:\\maps\\Big2.bms"), "Big%2%");
  EXPECT_EQ(PreviewSearchName("C:\\maps\\Map12.bms"), "Map%1%%2%");
  EXPECT_EQ(PreviewSearchName("http://x.example/it's [new].zip"), "its new");
  EXPECT_EQ(PreviewSearchName("a.b"), "");
}

TEST_F(PreviewManagerTest, TheSearchIsPostedToTheServiceOfTheSiteFile) {
  PutService("no map");
  frmpicture& window = Manager(MapPath("Big2.bms"));
  desktop.windowing().ExpectModal("FrmpictureSelect", [](Form& form) { form.Unload(); });
  window.CmdDownload.Press();
  ASSERT_EQ(desktop.internet().requests.size(), 2U);
  const SentRequest& sent = desktop.internet().requests[1];
  EXPECT_EQ(sent.method, "POST");
  EXPECT_EQ(sent.url, std::string(kService) + "/script.php");
  EXPECT_EQ(sent.body,
            "--Xu02=$\r\nContent-Disposition: form-data; name=\"action\"\r\nContent-type: file\r\nContent-Length: "
            "11\r\n\r\nbestpreview\r\n--Xu02=$--\r\n"
            "--Xu02=$\r\nContent-Disposition: form-data; name=\"mapname\"\r\nContent-type: file\r\nContent-Length: "
            "6\r\n\r\nBig%2%\r\n--Xu02=$--\r\n");
}

TEST_F(PreviewManagerTest, AReplyOfNoMapShowsTheWindowWithAnEmptyListAndNoMessage) {
  PutService("no map");
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  desktop.windowing().ExpectModal("FrmpictureSelect", [](Form& form) {
    auto& select = static_cast<FrmpictureSelect&>(form);
    EXPECT_EQ(select.Caption.get(), "Select Picture");
    EXPECT_EQ(select.LstPictures.ListCount(), 0);
    EXPECT_EQ(select.LblNoPicture.Caption.get(), "Nothing was found");
    EXPECT_FALSE(select.Command1.Enabled);
    EXPECT_EQ(select.LblMsg.Caption.get(),
              "Kestrun found the following pictures for Oasis on the Mapping Center. Please select the best one and "
              "click 'OK'.");
    select.Command2.Press();
  });
  window.CmdDownload.Press();
}

TEST_F(PreviewManagerTest, AnEmptyReplyIsToldAndTheWindowShownAllTheSame) {
  PutService("");
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox("Unable to download any previews or no previews were found. Please try again later.");
  desktop.windowing().ExpectModal("FrmpictureSelect", [](Form& form) { form.Unload(); });
  window.CmdDownload.Press();
}

TEST_F(PreviewManagerTest, ASiteThatCannotBeReachedIsTold) {
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox(
      "Unable to load map center location. Make sure you are connected to the internet and kestrun can access it.");
  window.CmdDownload_Click();
}

TEST_F(PreviewManagerTest, EscDuringTheSearchEndsItWithoutAWord) {
  PutService("no map");
  frmpicture& window = Manager(MapPath("Oasis.bms"));
  desktop.internet().leave_after_bytes = 0;
  window.CmdDownload.Press();
}

// ---- the choice ----------------------------------------------------------------------------------------------------

class SelectPictureTest : public PreviewsTest {
 protected:
  static constexpr const char* kFirst = "http://center.example/shots/my%20map.bmp";
  static constexpr const char* kSecond = "http://center.example/shots/other.bmp";

  // Opens the search of a map and lets the user act in the window of the choice.
  void Search(const std::function<void(FrmpictureSelect& select)>& act) {
    PutService(std::string(kFirst) + "\n" + kSecond + "\r\n\nfile:///c:/secret.bmp\n");
    frmpicture& window = Manager(MapPath("Oasis.bms"));
    desktop.windowing().ExpectModal("FrmpictureSelect", [&](Form& form) {
      act(static_cast<FrmpictureSelect&>(form));
      if (form.IsLoaded()) form.Unload();
    });
    window.CmdDownload.Press();
  }
  static frmpicture& Shown() { return Window<frmpicture>(); }
};

TEST_F(SelectPictureTest, TheListHasTheNamesAndNothingThatIsNoWebAddress) {
  Search([](FrmpictureSelect& select) {
    ASSERT_EQ(select.LstPictures.ListCount(), 2);
    EXPECT_EQ(select.LstPictures.List(0), "my map.bmp");
    EXPECT_EQ(select.LstPictures.List(1), "other.bmp");
  });
}

TEST_F(SelectPictureTest, AClickShowsThePicture) {
  desktop.internet().Reply(kFirst, BitmapText(4, 3));
  Search([&](FrmpictureSelect& select) {
    select.LstPictures.ListIndex = 0;
    ASSERT_TRUE(select.ImgPreview.Picture.get());
    EXPECT_EQ(select.ImgPreview.Picture.get()->width_pixels(), 4);
    EXPECT_TRUE(select.Command1.Enabled);
    EXPECT_TRUE(FileIsThere(Path("temp\\preview.jpg")));
  });
}

TEST_F(SelectPictureTest, APictureThatCannotBeFetchedIsTold) {
  desktop.internet().Reply(kSecond, "<html>no picture</html>");
  Search([&](FrmpictureSelect& select) {
    desktop.dialogs().ExpectBox("Unable to download picture.");
    select.LstPictures.ListIndex = 0;
    desktop.dialogs().ExpectBox("Unable to download picture.");
    select.LstPictures.ListIndex = 1;
    EXPECT_FALSE(select.ImgPreview.Picture.get());
  });
}

TEST_F(SelectPictureTest, OkKeepsThePictureAndTellsToSave) {
  desktop.internet().Reply(kFirst, BitmapText(4, 3));
  desktop.dialogs().ExpectBox("The picture has been downloaded to '" + MapPath("Oasis.jpg") +
                              "' Click the 'save' button to save the settings.");
  Search([](FrmpictureSelect& select) {
    select.LstPictures.ListIndex = 0;
    select.Command1.Press();
  });
  EXPECT_EQ(ReadFile(MapPath("Oasis.jpg")), BitmapText(4, 3));
  EXPECT_EQ(Shown().txtimage.Text.get(), MapPath("Oasis.jpg"));
  EXPECT_TRUE(Shown().ImgPrev.Picture.get());
  EXPECT_EQ(Ini("IMAGE", MapPath("Oasis.bms")), "(none)");
}

TEST_F(SelectPictureTest, WhatIsNoPictureIsNotKept) {
  WriteFile(MapPath("Oasis.jpg"), "the user's");
  desktop.internet().Reply(kFirst, "<html>");
  Search([&](FrmpictureSelect& select) {
    desktop.dialogs().ExpectBox("Unable to download picture.");
    select.LstPictures.ListIndex = 0;
    desktop.dialogs().ExpectBox("Failed to download picture.");
    select.Command1.Press();
    EXPECT_TRUE(select.IsLoaded());
  });
  EXPECT_EQ(ReadFile(MapPath("Oasis.jpg")), "the user's");
  EXPECT_EQ(Shown().txtimage.Text.get(), "");
}

}  // namespace
}  // namespace kestrun
