// PNG files are decoded with the Windows Imaging Component.
#include "window/resources.h"

#include <objbase.h>
#include <wincodec.h>

#include <memory>

namespace lacquer::examples {

namespace {

struct ReleaseObject {
    void operator()(IUnknown *object) const { object->Release(); }
};

template <typename Interface>
using ComPointer = std::unique_ptr<Interface, ReleaseObject>;

/// The object that a call returns through its last argument; throws when the call fails.
template <typename Interface, typename Call>
ComPointer<Interface> Get(Call call, const char *what) {
    Interface *object = nullptr;
    if (FAILED(call(&object)) || object == nullptr) throw std::runtime_error(std::string(what) + " failed");
    return ComPointer<Interface>(object);
}

}  // namespace

std::string_view ReadResource(const std::string &name) {
    const HRSRC resource = FindResourceA(nullptr, name.c_str(), MAKEINTRESOURCEA(10));  // RCDATA
    const HGLOBAL loaded = resource != nullptr ? LoadResource(nullptr, resource) : nullptr;
    const void *data = loaded != nullptr ? LockResource(loaded) : nullptr;
    if (data == nullptr) throw std::runtime_error("there is no resource " + name);
    return {static_cast<const char *>(data), SizeofResource(nullptr, resource)};
}

Image ReadPngResource(const std::string &name, Alpha alpha) {
    const std::string_view bytes = ReadResource(name);
    const auto factory = Get<IWICImagingFactory>(
        [](IWICImagingFactory **out) {
            return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                    reinterpret_cast<void **>(out));
        },
        "creating the imaging factory");
    const auto stream = Get<IWICStream>([&](auto **out) { return factory->CreateStream(out); }, "CreateStream");
    auto *data = reinterpret_cast<BYTE *>(const_cast<char *>(bytes.data()));  // is only read
    if (FAILED(stream->InitializeFromMemory(data, static_cast<DWORD>(bytes.size()))))
        throw std::runtime_error("reading a resource failed");
    const auto decoder = Get<IWICBitmapDecoder>(
        [&](auto **out) {
            return factory->CreateDecoderFromStream(stream.get(), nullptr, WICDecodeMetadataCacheOnDemand, out);
        },
        "CreateDecoderFromStream");
    const auto frame = Get<IWICBitmapFrameDecode>([&](auto **out) { return decoder->GetFrame(0, out); }, "GetFrame");
    const auto converter = Get<IWICFormatConverter>([&](auto **out) { return factory->CreateFormatConverter(out); },
                                                    "CreateFormatConverter");
    UINT width = 0;
    UINT height = 0;
    if (FAILED(converter->Initialize(frame.get(), GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone, nullptr, 0.0,
                                     WICBitmapPaletteTypeCustom)) ||
        FAILED(converter->GetSize(&width, &height)))
        throw std::runtime_error("converting " + name + " failed");

    Image image;
    image.width = static_cast<int>(width);
    image.height = static_cast<int>(height);
    image.pixels.resize(image.rowBytes() * height);
    if (FAILED(converter->CopyPixels(nullptr, width * 4, static_cast<UINT>(image.pixels.size()), image.pixels.data())))
        throw std::runtime_error("decoding " + name + " failed");
    if (alpha == Alpha::kPremultiplied) Premultiply(image);
    return image;
}

}  // namespace lacquer::examples
