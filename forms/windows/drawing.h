// Ownership of what is drawn with, and the drawing of pictures.
#pragma once

#include <memory>
#include <type_traits>
#include <vector>

#include "forms/form_table.h"
#include "forms/windows/common_controls.h"

namespace windows {

struct DeleteDrawingObject {
    template <class T>
    void operator()(T* object) const {
        DeleteObject(object);
    }
};
template <class Handle>
using DrawingObject = std::unique_ptr<std::remove_pointer_t<Handle>, DeleteDrawingObject>;

struct DestroyImageList {
    void operator()(HIMAGELIST list) const { ImageList_Destroy(list); }
};
using ImageListHandle = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, DestroyImageList>;

/// The screen's device context while it lives.
class ScreenContext {
  public:
    ScreenContext() : context_(GetDC(nullptr)) {}
    ScreenContext(const ScreenContext&) = delete;
    ScreenContext& operator=(const ScreenContext&) = delete;
    ~ScreenContext() { ReleaseDC(nullptr, context_); }
    HDC get() const { return context_; }

  private:
    HDC context_;
};

/// An object selected into a context while it lives.
class Selected {
  public:
    Selected(HDC context, HGDIOBJ object) : context_(context), former_(SelectObject(context, object)) {}
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;
    ~Selected() { SelectObject(context_, former_); }

  private:
    HDC context_;
    HGDIOBJ former_;
};

constexpr COLORREF to_color(forms::Color color) { return RGB(color.red, color.green, color.blue); }

/// A colour of ours as it is shown: with high contrast, the system's of texts and of what is behind them.
COLORREF shown_color(forms::Color color, bool high_contrast);

/// The fonts of a form at its resolution; each is made once.
class Fonts {
  public:
    explicit Fonts(int dots_per_inch) : dots_per_inch_(dots_per_inch) {}
    HFONT get(const forms::Font& font);

  private:
    struct Made {
        forms::Font font;
        DrawingObject<HFONT> handle;
    };
    int dots_per_inch_;
    std::vector<Made> made_;
};

/// Draws a picture into the largest square in the middle of a box.
void draw_picture(HDC context, const RECT& box, const forms::Picture& picture, bool high_contrast);

/// The pictures on the grey that a list of images takes for its background, each so many pixels wide and
/// high.
ImageListHandle make_image_list(std::span<const forms::Picture* const> pictures, int pixels,
                                bool high_contrast);

}  // namespace windows
