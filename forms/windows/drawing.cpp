#include "forms/windows/drawing.h"

#include <algorithm>
#include <cmath>

#include "automation/failure.h"

namespace windows {

using automation::Failure;
using automation::Text;
using forms::Picture;

namespace {

/// What is transparent in a list of images.
constexpr COLORREF background = RGB(0xC0, 0xC0, 0xC0);

constexpr double points_per_inch = 72;

/// Faces that come as bitmaps of a few sizes only, and the like ones of the same width that are drawn at any
/// size.
struct FaceRow {
    automation::TextView bitmap, scalable;
};
constexpr FaceRow scalable_faces[] = {{u"MS Sans Serif", u"Tahoma"}};

automation::TextView scalable(automation::TextView face) {
    const auto found = std::ranges::find(scalable_faces, face, &FaceRow::bitmap);
    return found == std::end(scalable_faces) ? face : found->scalable;
}

}  // namespace

HFONT Fonts::get(const forms::Font& font) {
    const auto same = [&](const Made& made) {
        return made.font.face == font.face && made.font.points == font.points &&
               made.font.underlined == font.underlined && made.font.bold == font.bold;
    };
    if (const auto found = std::ranges::find_if(made_, same); found != made_.end()) {
        return found->handle.get();
    }
    LOGFONTW wanted{};
    wanted.lfHeight = -static_cast<LONG>(std::lround(font.points * dots_per_inch_ / points_per_inch));
    wanted.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    wanted.lfUnderline = font.underlined;
    wanted.lfCharSet = DEFAULT_CHARSET;
    const Text face(scalable(font.face));
    std::ranges::copy_n(wide(face), std::min<std::ptrdiff_t>(std::ssize(face), LF_FACESIZE - 1),
                        wanted.lfFaceName);
    DrawingObject<HFONT> handle(CreateFontIndirectW(&wanted));
    if (!handle) throw Failure(automation::result::fail, u"A font could not be made.");
    made_.push_back({font, std::move(handle)});
    return made_.back().handle.get();
}

COLORREF shown_color(forms::Color color, bool high_contrast) {
    if (color == forms::black) return GetSysColor(COLOR_BTNTEXT);
    if (!high_contrast) return to_color(color);
    constexpr int brightest = 3 * 255;
    const bool is_ground = color.red + color.green + color.blue > brightest * 9 / 10;
    return GetSysColor(is_ground ? COLOR_BTNFACE : COLOR_BTNTEXT);
}

void draw_picture(HDC context, const RECT& box, const Picture& picture, bool high_contrast) {
    const int size = static_cast<int>(std::min(box.right - box.left, box.bottom - box.top));
    const int left = static_cast<int>(box.left + box.right - size) / 2;
    const int top = static_cast<int>(box.top + box.bottom - size) / 2;
    const Selected no_outline(context, GetStockObject(NULL_PEN));
    std::vector<POINT> corners;
    for (const forms::Shape& shape : picture.shapes) {
        corners.clear();
        for (const forms::Point corner : shape.corners) {
            corners.push_back(
                {left + MulDiv(corner.x, size, picture.grid), top + MulDiv(corner.y, size, picture.grid)});
        }
        const DrawingObject<HBRUSH> fill(CreateSolidBrush(shown_color(shape.fill, high_contrast)));
        const Selected filled(context, fill.get());
        Polygon(context, corners.data(), static_cast<int>(corners.size()));
    }
}

ImageListHandle make_image_list(std::span<const Picture* const> pictures, int pixels, bool high_contrast) {
    ImageListHandle list(
        ImageList_Create(pixels, pixels, ILC_COLOR24 | ILC_MASK, static_cast<int>(pictures.size()), 0));
    const ScreenContext screen;
    const std::unique_ptr<std::remove_pointer_t<HDC>, decltype(&DeleteDC)> context(
        CreateCompatibleDC(screen.get()), &DeleteDC);
    const DrawingObject<HBRUSH> grey(CreateSolidBrush(background));
    // all in one strip: each call that adds to the list costs
    const RECT strip{0, 0, pixels * static_cast<LONG>(pictures.size()), pixels};
    const DrawingObject<HBITMAP> bitmap(CreateCompatibleBitmap(screen.get(), strip.right, strip.bottom));
    {
        const Selected drawn_on(context.get(), bitmap.get());
        FillRect(context.get(), &strip, grey.get());
        RECT box{0, 0, pixels, pixels};
        for (const Picture* picture : pictures) {
            draw_picture(context.get(), box, *picture, high_contrast);
            OffsetRect(&box, pixels, 0);
        }
    }
    if (!list || !bitmap || ImageList_AddMasked(list.get(), bitmap.get(), background) == -1) {
        throw Failure(automation::result::fail, u"A list of images could not be made.");
    }
    return list;
}

}  // namespace windows
