#include "desk/driver/screen_picture.h"

#include <wincodec.h>

#include <memory>
#include <vector>

#include "automation/com/com_ptr.h"
#include "automation/com/failure.h"

namespace desk {

using automation::Failure;
using automation::Text;
using windows::check;
using windows::ComPtr;

namespace {

constexpr UINT bytes_per_pixel = 4;

struct Picture {
    UINT width = 0, height = 0;
    std::vector<BYTE> pixels;  ///< rows from the top, blue, green, red, unused
};

struct WindowContext {
    HWND window;
    HDC handle;
    explicit WindowContext(HWND of) : window(of), handle(GetDC(of)) {}
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    ~WindowContext() { ReleaseDC(window, handle); }
};

/// What a window shows, or the screen for null.
Picture take_picture(HWND window, int width, int height) {
    Picture picture;
    picture.width = static_cast<UINT>(width);
    picture.height = static_cast<UINT>(height);
    const WindowContext screen(window);
    const std::unique_ptr<std::remove_pointer_t<HDC>, decltype(&DeleteDC)> memory(
        CreateCompatibleDC(screen.handle), &DeleteDC);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = static_cast<LONG>(picture.width);
    info.bmiHeader.biHeight = -static_cast<LONG>(picture.height);  // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    const std::unique_ptr<std::remove_pointer_t<HBITMAP>, decltype(&DeleteObject)> bitmap(
        CreateDIBSection(memory.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0), &DeleteObject);
    if (!bitmap) throw Failure(automation::result::fail, u"There is no memory for a picture of the screen.");
    const HGDIOBJ former = SelectObject(memory.get(), bitmap.get());
    const BOOL copied = BitBlt(memory.get(), 0, 0, width, height, screen.handle, 0, 0, SRCCOPY);
    GdiFlush();
    const auto* const first = static_cast<const BYTE*>(bits);
    picture.pixels.assign(first, first + std::size_t{picture.width} * picture.height * bytes_per_pixel);
    SelectObject(memory.get(), former);
    if (!copied) throw Failure(automation::result::fail, u"The screen could not be read.");
    return picture;
}

void save(Picture picture, const Text& path) {
    ComPtr<IWICImagingFactory> factory;
    check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                           factory.put_void()));
    ComPtr<IWICStream> stream;
    check(factory->CreateStream(stream.put()));
    check(stream->InitializeFromFilename(windows::wide(path), GENERIC_WRITE), path);
    ComPtr<IWICBitmapEncoder> encoder;
    check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.put()));
    check(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache));
    ComPtr<IWICBitmapFrameEncode> frame;
    check(encoder->CreateNewFrame(frame.put(), nullptr));
    check(frame->Initialize(nullptr));
    check(frame->SetSize(picture.width, picture.height));
    WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGR;
    check(frame->SetPixelFormat(&format));
    const UINT stride = picture.width * bytes_per_pixel;
    check(frame->WritePixels(picture.height, stride, static_cast<UINT>(picture.pixels.size()),
                             picture.pixels.data()));
    check(frame->Commit());
    check(encoder->Commit());
}

}  // namespace

void save_screen_picture(const Text& path) {
    save(take_picture(nullptr, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)), path);
}

void save_window_picture(HWND window, const Text& path) {
    RECT client{};
    GetClientRect(window, &client);
    save(take_picture(window, static_cast<int>(client.right), static_cast<int>(client.bottom)), path);
}

}  // namespace desk
