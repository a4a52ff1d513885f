// The pictures that windows show in their menus, and the arrow that shows a new player where to click.
#pragma once

#include "forms/picture.h"

namespace kestrun {

// Points down. 24 by 24 pixels.
[[nodiscard]] Ref<Picture> ArrowPicture();

// 32 by 32 pixels each, for menu items of half that size.
[[nodiscard]] Ref<Picture> PutInPicture();    // an arrow into a box
[[nodiscard]] Ref<Picture> SwapPicture();     // two arrows, one each way
[[nodiscard]] Ref<Picture> InfoPicture();     // an i on a disc
[[nodiscard]] Ref<Picture> PreviewPicture();  // a landscape in a frame
[[nodiscard]] Ref<Picture> SearchPicture();   // a magnifying glass
[[nodiscard]] Ref<Picture> CopyPicture();     // two sheets
[[nodiscard]] Ref<Picture> PencilPicture();
[[nodiscard]] Ref<Picture> CrossPicture();
[[nodiscard]] Ref<Picture> FolderPicture();
[[nodiscard]] Ref<Picture> RefreshPicture();  // an arrow in a circle
[[nodiscard]] Ref<Picture> OptionsPicture();  // three sliders
[[nodiscard]] Ref<Picture> PlayPicture();
[[nodiscard]] Ref<Picture> ListPicture();
[[nodiscard]] Ref<Picture> SpeechPicture();  // a speech bubble
[[nodiscard]] Ref<Picture> GlobePicture();
[[nodiscard]] Ref<Picture> DownPicture();  // an arrow onto a line
[[nodiscard]] Ref<Picture> UpPicture();    // an arrow off a line
[[nodiscard]] Ref<Picture> DiskPicture();
[[nodiscard]] Ref<Picture> ReplacePicture();  // two letters, and an arrow from one to the other
[[nodiscard]] Ref<Picture> DoorPicture();
[[nodiscard]] Ref<Picture> HelpMarkPicture();  // a question mark on a disc

// A sheet with a zip fastener, for a map inside a zip. 64 by 64 pixels.
[[nodiscard]] Ref<Picture> ZipPicture();

}  // namespace kestrun
