#include "desk/driver/control_driver.h"

#include <algorithm>
#include <array>

#include "automation/com/com_ptr.h"
#include "automation/failure.h"
#include "desk/driver/dragged.h"
#include "desk/driver/named_window.h"
#include "forms/windows/common_controls.h"
#include "forms/windows/form_control.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::TextView;
using windows::ComPtr;
using windows::window_text;
namespace result = automation::result;

namespace {

constexpr std::size_t longest_text = 4096;  // characters of an entry or tool tip

/// Where the system keeps a window's drop target.
constexpr const wchar_t* drop_target_property = L"OleDropTargetInterface";

LPARAM point_parameter(POINT point) { return MAKELPARAM(point.x, point.y); }

void press_mouse(HWND window, POINT point) {
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, point_parameter(point));
    if (IsWindow(window)) SendMessageW(window, WM_LBUTTONUP, 0, point_parameter(point));
}

void press_mouse_twice(HWND window, POINT point) {
    press_mouse(window, point);
    if (!IsWindow(window)) return;
    SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, point_parameter(point));
    if (IsWindow(window)) SendMessageW(window, WM_LBUTTONUP, 0, point_parameter(point));
}

POINT middle(const RECT& box) { return {(box.left + box.right) / 2, (box.top + box.bottom) / 2}; }

POINT middle_of(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return middle(client);
}

bool is_reachable(HWND window) {
    return IsWindow(window) && IsWindowVisible(window) && IsWindowEnabled(window) &&
           IsWindowEnabled(GetAncestor(window, GA_ROOT));
}

class RealControl : public ControlDriver {
  public:
    RealControl(HWND window, Post post) : window_(window), post_(std::move(post)) {}

    Kind kind() const override {
        constexpr LONG_PTR type_bits = 0xF;
        if (!automation::same_ignoring_case(class_name(there()), u"Button")) return Kind::plain;
        switch (GetWindowLongPtrW(window_, GWL_STYLE) & type_bits) {
            case BS_CHECKBOX:
            case BS_AUTOCHECKBOX:
            case BS_RADIOBUTTON:
            case BS_AUTORADIOBUTTON:
            case BS_3STATE:
            case BS_AUTO3STATE:
                return Kind::toggle;
            default:
                return Kind::plain;
        }
    }
    Text text() const override { return window_text(there()); }
    void type(TextView text) override { type_into(there(), text); }
    bool visible() const override { return IsWindowVisible(there()) != FALSE; }
    bool enabled() const override { return IsWindowEnabled(there()) != FALSE; }
    Text tool_tip() const override;
    void click() override {
        act([](HWND window) {
            if (automation::same_ignoring_case(class_name(window), u"Button")) {
                SendMessageW(window, BM_CLICK, 0, 0);
            } else {
                press_mouse(window, middle_of(window));
            }
        });
    }
    void double_click() override {
        act([](HWND window) { press_mouse_twice(window, middle_of(window)); });
    }
    void key(int code) override {
        act([code](HWND window) {
            SetFocus(window);
            const HWND focus = GetFocus();  // of a combo box the part with the text
            post_key(focus && IsChild(window, focus) ? focus : window, code);
        });
    }
    bool is_checked() const override { return SendMessageW(there(), BM_GETCHECK, 0, 0) == BST_CHECKED; }

    int count() const override { throw no_entries(); }
    Text item(int, int) const override { throw no_entries(); }
    int selected() const override { throw no_entries(); }
    void select(int) override { throw no_entries(); }
    int columns() const override { throw no_entries(); }
    ShownColumn column(int) const override { throw no_entries(); }
    void column_click(int) override { throw no_entries(); }
    void drop(int, int) override { throw no_entries(); }

  protected:
    static Failure no_entries() {
        return Failure(result::member_not_found, u"The control has no such entries.");
    }
    HWND there() const {
        if (!IsWindow(window_)) throw Failure(result::object_deleted, u"The window has been closed.");
        return window_;
    }
    LRESULT send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return SendMessageW(there(), message, first, second);
    }
    /// Has something done to the control as a person would; nothing if it can't be reached by then.
    void act(std::function<void(HWND)> deed) const {
        post_([window = there(), deed = std::move(deed)] {
            if (is_reachable(window)) deed(window);
        });
    }
    /// In place of the text that is there.
    static void type_into(HWND field, TextView text) {
        const bool is_field = automation::same_ignoring_case(class_name(field), u"Edit");
        if (!is_field || !is_reachable(field) || GetWindowLongPtrW(field, GWL_STYLE) & ES_READONLY) {
            throw Failure(result::fail, u"Nothing can be typed there.");
        }
        const Text typed(text);
        SetFocus(field);
        SendMessageW(field, EM_SETSEL, 0, -1);
        SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(windows::wide(typed)));
    }

  private:
    HWND window_;
    Post post_;
};

Text RealControl::tool_tip() const {
    const HWND control = there();
    const HWND parent = GetParent(control);
    const auto id = static_cast<UINT_PTR>(GetDlgCtrlID(control));
    for (const HWND tips : windows_of_thread()) {
        if (!automation::same_ignoring_case(class_name(tips), u"tooltips_class32")) continue;
        const auto tools = static_cast<int>(SendMessageW(tips, TTM_GETTOOLCOUNT, 0, 0));
        for (int i = 0; i < tools; ++i) {
            std::array<wchar_t, longest_text> buffer{};
            TOOLINFOW tool{};
            tool.cbSize = sizeof tool;
            tool.lpszText = buffer.data();
            if (!SendMessageW(tips, TTM_ENUMTOOLSW, static_cast<WPARAM>(i),
                              reinterpret_cast<LPARAM>(&tool))) {
                continue;
            }
            const bool by_window = tool.uFlags & TTF_IDISHWND && reinterpret_cast<HWND>(tool.uId) == control;
            const bool by_id = !(tool.uFlags & TTF_IDISHWND) && tool.hwnd == parent && tool.uId == id;
            if (!by_window && !by_id) continue;
            buffer.fill(L'\0');
            tool.lpszText = buffer.data();
            SendMessageW(tips, TTM_GETTEXTW, buffer.size(), reinterpret_cast<LPARAM>(&tool));
            return Text(reinterpret_cast<const char16_t*>(buffer.data()));
        }
    }
    return {};
}

class RealCombo final : public RealControl {
  public:
    using RealControl::RealControl;

    Kind kind() const override { return Kind::combo; }
    void type(TextView text) override {
        COMBOBOXINFO parts{};
        parts.cbSize = sizeof parts;
        if (GetComboBoxInfo(there(), &parts) && parts.hwndItem && parts.hwndItem != parts.hwndCombo) {
            return type_into(parts.hwndItem, text);
        }
        const Text wanted(text);
        const auto found = static_cast<int>(send(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                                 reinterpret_cast<LPARAM>(windows::wide(wanted))));
        if (found < 0) throw Failure(result::fail, u"The list has no entry \"" + wanted + u"\".");
        select(found);
    }
    int count() const override { return static_cast<int>(send(CB_GETCOUNT)); }
    Text item(int row, int) const override {
        const auto index = static_cast<WPARAM>(row);
        const LRESULT length = send(CB_GETLBTEXTLEN, index);
        if (length < 0) throw Failure(result::bad_index, u"Array index out of bounds.");
        Text text(static_cast<std::size_t>(length) + 1, u'\0');
        send(CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        return text;
    }
    int selected() const override { return static_cast<int>(send(CB_GETCURSEL)); }
    void select(int row) override {
        // CBN_SELENDOK comes with every choice, that of the same entry again, too
        act([row](HWND window) {
            SetFocus(window);
            SendMessageW(window, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
            SendMessageW(GetParent(window), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), CBN_SELENDOK),
                         reinterpret_cast<LPARAM>(window));
        });
    }
};

class RealList final : public RealControl {
  public:
    RealList(HWND window, windows::Module& module, const Post& post)
        : RealControl(window, post), module_(module) {}

    Kind kind() const override { return Kind::list; }
    void click() override {
        act([](HWND window) { press_mouse(window, point_of(window, selected_in(window))); });
    }
    void double_click() override {
        act([](HWND window) { press_mouse_twice(window, point_of(window, selected_in(window))); });
    }
    int count() const override { return static_cast<int>(send(LVM_GETITEMCOUNT)); }
    Text item(int row, int column) const override {
        if (row < 0 || row >= count()) throw Failure(result::bad_index, u"Array index out of bounds.");
        std::array<wchar_t, longest_text> buffer{};
        LVITEMW cell{};
        cell.iSubItem = column;
        cell.pszText = buffer.data();
        cell.cchTextMax = static_cast<int>(buffer.size());
        send(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&cell));
        return Text(reinterpret_cast<const char16_t*>(cell.pszText));
    }
    int selected() const override { return selected_in(there()); }
    void select(int row) override {
        act([row](HWND window) { press_mouse(window, point_of(window, row)); });
    }

    int columns() const override {
        return static_cast<int>(SendMessageW(header_of(there()), HDM_GETITEMCOUNT, 0, 0));
    }
    ShownColumn column(int index) const override {
        std::array<wchar_t, longest_text> buffer{};
        HDITEMW item{};
        item.mask = HDI_FORMAT | HDI_IMAGE | HDI_WIDTH | HDI_TEXT;
        item.pszText = buffer.data();
        item.cchTextMax = static_cast<int>(buffer.size());
        SendMessageW(header_of(there()), HDM_GETITEMW, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&item));
        return {Text(reinterpret_cast<const char16_t*>(buffer.data())), item.cxy,
                item.fmt & HDF_IMAGE ? item.iImage : -1};
    }
    void column_click(int index) override {
        act([index](HWND window) {
            const HWND header = header_of(window);
            RECT box{}, client{};
            SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&box));
            GetClientRect(window, &client);
            // the header moves with its list, whose left edge is 0 in the header's place
            const int left = box.left + place_in(window, header).x;
            const int beyond = left + (box.right - box.left) - client.right;
            const int scroll = left < 0 ? left : std::max(beyond, 0);
            if (scroll != 0) SendMessageW(window, LVM_SCROLL, static_cast<WPARAM>(scroll), 0);
            SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&box));
            press_mouse(header, middle(box));
        });
    }
    void drop(int row, int column) override {
        if (!GetPropW(there(), drop_target_property)) {
            throw Failure(result::fail, u"The list takes no drops.");
        }
        act([row, column, &module = module_](HWND window) {
            const ComPtr<IDropTarget> target(
                static_cast<IDropTarget*>(GetPropW(window, drop_target_property)));
            if (!target) return;
            const ComPtr<IDataObject> dragged = Dragged::create(module);
            POINT place = column == 0 ? point_of(window, row) : point_in_cell(window, row, column);
            ClientToScreen(window, &place);
            const POINTL point{place.x, place.y};
            DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
            target->DragEnter(dragged.get(), MK_LBUTTON, point, &effect);
            effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
            target->DragOver(MK_LBUTTON, point, &effect);
            if (effect == DROPEFFECT_NONE) {
                target->DragLeave();
                return;
            }
            effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
            target->Drop(dragged.get(), 0, point, &effect);
        });
    }

  private:
    static HWND header_of(HWND window) {
        return reinterpret_cast<HWND>(SendMessageW(window, LVM_GETHEADER, 0, 0));
    }
    static POINT place_in(HWND window, HWND child) {
        POINT place{};
        MapWindowPoints(child, window, &place, 1);
        return place;
    }
    static int selected_in(HWND window) {
        return static_cast<int>(
            SendMessageW(window, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    }
    /// A point on a row's first column, in sight; below all rows for -1.
    static POINT point_of(HWND window, int row) {
        RECT client{};
        GetClientRect(window, &client);
        if (row < 0) return {client.right / 2, client.bottom - 1};
        SendMessageW(window, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
        RECT box{};
        box.left = LVIR_LABEL;
        SendMessageW(window, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&box));
        constexpr LONG into_label = 4;  // pixels
        return {(box.left > 0 ? box.left : 0) + into_label, (box.top + box.bottom) / 2};
    }

    static POINT point_in_cell(HWND window, int row, int column) {
        POINT place = point_of(window, row);
        const auto left = [&] {
            RECT box{};
            box.top = column;
            box.left = LVIR_LABEL;
            SendMessageW(window, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
                         reinterpret_cast<LPARAM>(&box));
            return box.left;
        };
        RECT client{};
        GetClientRect(window, &client);
        constexpr LONG into_cell = 4;  // pixels
        const LONG beyond = left() + 2 * into_cell - client.right;
        if (beyond > 0) SendMessageW(window, LVM_SCROLL, static_cast<WPARAM>(beyond), 0);
        place.x = left() + into_cell;
        return place;
    }

    windows::Module& module_;
};

}  // namespace

std::unique_ptr<ControlDriver> drive_control(HWND control, windows::Module& module, const Post& post) {
    const Text name = class_name(control);
    if (automation::same_ignoring_case(name, u"ComboBox")) return std::make_unique<RealCombo>(control, post);
    if (automation::same_ignoring_case(name, u"SysListView32")) {
        return std::make_unique<RealList>(control, module, post);
    }
    return std::make_unique<RealControl>(control, post);
}

void post_key(HWND window, int code) {
    constexpr LPARAM once = 1, was_down = LPARAM{1} << 30, goes_up = LPARAM{1} << 31;
    const LPARAM scan = LPARAM{MapVirtualKeyW(static_cast<UINT>(code), MAPVK_VK_TO_VSC)} << 16;
    PostMessageW(window, WM_KEYDOWN, static_cast<WPARAM>(code), once | scan);
    PostMessageW(window, WM_KEYUP, static_cast<WPARAM>(code), once | scan | was_down | goes_up);
}

}  // namespace desk
