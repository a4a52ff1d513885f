#include "desktop/win32/drawing/win32_pictures.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/win32/com/foreign_object.h"
#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/system/com_owner.h"
#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/ole_start.h"
#include "desktop/win32/system/wide_text.h"
// These need the Windows headers above.
#include <olectl.h>
#include <wincodec.h>

namespace kestrun {
namespace {

using Decoded = std::optional<DecodedPicture>;

// The first version of the factory, which Windows 7 has as well.
constexpr GUID kImagingFactory = {0xCACAF262, 0x9370, 0x4615, {0xA1, 0x3B, 0x9F, 0x55, 0x39, 0xDA, 0x4C, 0x0A}};
constexpr GUID kFormat32Bgra = {0x6FDDC324, 0x4E03, 0x4BFE, {0xB1, 0x85, 0x3D, 0x77, 0x76, 0x8D, 0xC9, 0x0F}};
constexpr uint32_t kWhite = 0xFFFFFF;
constexpr uint32_t kOpaque = 0xFF000000;

ComOwner<IStream> StreamOf(ByteView file) {
  ComOwner<IStream> stream;
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, file.size());
  if (!block) return stream;
  std::memcpy(GlobalLock(block), file.data(), file.size());
  GlobalUnlock(block);
  // The stream frees the block at its end.
  if (FAILED(KESTRUN_LATE(L"ole32.dll", CreateStreamOnHGlobal)(block, TRUE, stream.Receive()))) GlobalFree(block);
  return stream;
}

ComOwner<IWICImagingFactory> MakeFactory() {
  ComOwner<IWICImagingFactory> factory;
  KESTRUN_LATE(L"ole32.dll", CoCreateInstance)
  (kImagingFactory, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IWICImagingFactory), factory.ReceiveAny());
  return factory;
}

DecodedPicture BlankPicture(int width, int height) {
  return {width, height, std::vector<uint32_t>(static_cast<size_t>(width) * static_cast<size_t>(height))};
}

bool HasAllowedSize(IWICBitmapSource& source) {
  UINT width = 0;
  UINT height = 0;
  return SUCCEEDED(source.GetSize(&width, &height)) && IsPictureSizeAllowed(width, height);
}

// Any source of an allowed size as the pixels of this program.
Decoded ReadSource(IWICImagingFactory& factory, IWICBitmapSource& source) {
  UINT width = 0;
  UINT height = 0;
  if (FAILED(source.GetSize(&width, &height))) return std::nullopt;
  ComOwner<IWICFormatConverter> converter;
  if (FAILED(factory.CreateFormatConverter(converter.Receive())) ||
      FAILED(converter->Initialize(&source, kFormat32Bgra, WICBitmapDitherTypeNone, nullptr, 0,
                                   WICBitmapPaletteTypeCustom))) {
    return std::nullopt;
  }
  DecodedPicture picture = BlankPicture(static_cast<int>(width), static_cast<int>(height));
  const UINT row_bytes = width * 4;
  if (FAILED(converter->CopyPixels(nullptr, row_bytes, row_bytes * height,
                                   reinterpret_cast<BYTE*>(picture.pixels.data())))) {
    return std::nullopt;
  }
  return picture;
}

// `refused` is set when the component knows the picture and its size is not allowed: no other loader is to try.
Decoded DecodeByImaging(ByteView file, bool& refused) {
  const ComOwner<IWICImagingFactory> factory = MakeFactory();
  const ComOwner<IStream> stream = StreamOf(file);
  ComOwner<IWICBitmapDecoder> decoder;
  ComOwner<IWICBitmapFrameDecode> frame;
  if (!factory || !stream) return std::nullopt;
  if (FAILED(
          factory->CreateDecoderFromStream(stream.get(), nullptr, WICDecodeMetadataCacheOnDemand, decoder.Receive())) ||
      FAILED(decoder->GetFrame(0, frame.Receive()))) {
    return std::nullopt;
  }
  refused = !HasAllowedSize(*frame.get());
  return refused ? std::nullopt : ReadSource(*factory.get(), *frame.get());
}

// Himetric units, hundredths of a millimetre, at 96 pixels to the inch.
int64_t ToPixels(long himetric) { return (static_cast<int64_t>(himetric) * 96 + 1270) / 2540; }

// The picture painted over one colour; empty when that fails.
std::vector<uint32_t> RenderOver(IPicture& picture, int width, int height, uint32_t background) {
  PixelBitmap target = MakePixelBitmap(width, height);
  if (!target.pixels) return {};
  const size_t count = static_cast<size_t>(width) * static_cast<size_t>(height);
  std::fill_n(target.pixels, count, background);
  OLE_XSIZE_HIMETRIC source_width = 0;
  OLE_YSIZE_HIMETRIC source_height = 0;
  picture.get_Width(&source_width);
  picture.get_Height(&source_height);
  const MemoryDevice device(CreateCompatibleDC(nullptr));
  const HGDIOBJ previous = SelectObject(device.get(), target.bitmap.get());
  const RECT whole{0, 0, width, height};
  // The source's origin is its lower left corner.
  const HRESULT rendered =
      picture.Render(device.get(), 0, 0, width, height, 0, source_height, source_width, -source_height, &whole);
  GdiFlush();
  std::vector<uint32_t> pixels;
  if (SUCCEEDED(rendered)) pixels.assign(target.pixels, target.pixels + count);
  SelectObject(device.get(), previous);
  return pixels;
}

// A bitmap has pixels of its own; what is measured in himetric alone gets those of 96 to the inch.
SIZE SizeInPixels(IPicture& picture, OLE_XSIZE_HIMETRIC width, OLE_YSIZE_HIMETRIC height) {
  SHORT type = PICTYPE_NONE;
  OLE_HANDLE handle = 0;
  BITMAP bitmap{};
  const bool is_bitmap = SUCCEEDED(picture.get_Type(&type)) && type == PICTYPE_BITMAP &&
                         SUCCEEDED(picture.get_Handle(&handle)) &&
                         GetObjectW(LongToHandle(static_cast<LONG>(handle)), sizeof bitmap, &bitmap);
  if (is_bitmap) return {bitmap.bmWidth, bitmap.bmHeight};
  return {static_cast<LONG>(ToPixels(width)), static_cast<LONG>(ToPixels(height))};
}

// What comes out the same over black and over white was painted; the rest of the sheet stayed free.
Decoded RenderPicture(IPicture& picture) {
  OLE_XSIZE_HIMETRIC source_width = 0;
  OLE_YSIZE_HIMETRIC source_height = 0;
  if (FAILED(picture.get_Width(&source_width)) || FAILED(picture.get_Height(&source_height))) return std::nullopt;
  const SIZE size = SizeInPixels(picture, source_width, source_height);
  if (!IsPictureSizeAllowed(size.cx, size.cy)) return std::nullopt;
  DecodedPicture decoded{static_cast<int>(size.cx), static_cast<int>(size.cy), {}};
  decoded.pixels = RenderOver(picture, decoded.width, decoded.height, 0);
  const std::vector<uint32_t> over_white = RenderOver(picture, decoded.width, decoded.height, kWhite);
  if (decoded.pixels.empty() || over_white.empty()) return std::nullopt;
  for (size_t at = 0; at < over_white.size(); ++at) {
    const uint32_t painted = decoded.pixels[at] & kWhite;
    decoded.pixels[at] = painted == (over_white[at] & kWhite) ? kOpaque | painted : 0;
  }
  return decoded;
}

Decoded DecodeByOle(ByteView file) {
  const ComOwner<IStream> stream = StreamOf(file);
  ComOwner<IPicture> picture;
  if (!stream || FAILED(KESTRUN_LATE(L"oleaut32.dll", OleLoadPicture)(
                     stream.get(), static_cast<LONG>(file.size()), FALSE, __uuidof(IPicture), picture.ReceiveAny()))) {
    return std::nullopt;
  }
  return RenderPicture(*picture.get());
}

}  // namespace

std::optional<DecodedPicture> Win32Pictures::Decode(ByteView file) {
  if (file.empty() || file.size() > static_cast<size_t>(LONG_MAX)) return std::nullopt;
  StartOle();
  bool refused = false;
  Decoded decoded = DecodeByImaging(file, refused);
  return decoded || refused ? decoded : DecodeByOle(file);
}

std::optional<DecodedPicture> Win32Pictures::FromObject(Object& object) {
  const auto* foreign = dynamic_cast<const ForeignObject*>(&object);
  ComOwner<IPicture> picture;
  if (!foreign || FAILED(foreign->target()->QueryInterface(__uuidof(IPicture), picture.ReceiveAny()))) {
    return std::nullopt;
  }
  SHORT type = PICTYPE_NONE;
  if (FAILED(picture->get_Type(&type))) Raise(error::kInvalidPicture);
  if (type == PICTYPE_NONE || type == PICTYPE_UNINITIALIZED) return DecodedPicture{};
  Decoded decoded = RenderPicture(*picture.get());
  if (!decoded) Raise(error::kInvalidPicture);
  return decoded;
}

std::optional<DecodedPicture> Win32Pictures::FileIcon(std::string_view path, uint32_t flags) {
  StartOle();
  SHFILEINFOW info{};
  const std::wstring name = ToWide(ReplaceAll(path, "/", "\\"));
  if (!KESTRUN_LATE(L"shell32.dll", SHGetFileInfoW)(name.c_str(), 0, &info, sizeof info, SHGFI_ICON | flags)) {
    return std::nullopt;
  }
  const IconHandle icon(info.hIcon);
  const ComOwner<IWICImagingFactory> factory = MakeFactory();
  ComOwner<IWICBitmap> bitmap;
  if (!factory || !icon.IsValid() || FAILED(factory->CreateBitmapFromHICON(icon.get(), bitmap.Receive())) ||
      !HasAllowedSize(*bitmap.get())) {
    return std::nullopt;
  }
  return ReadSource(*factory.get(), *bitmap.get());
}

}  // namespace kestrun
