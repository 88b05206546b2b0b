#include "desk/windows/host_frame.h"

#include "desk/base/desk.h"
#include "desk/windows/new_items.h"

namespace desk {
namespace {

constexpr int close_command = 900;

/// Destroyed by the system with its window.
HMENU make_menu() {
    const HMENU menu = CreateMenu(), file = CreatePopupMenu();
    AppendMenuW(file, MF_POPUP, reinterpret_cast<UINT_PTR>(make_new_menu()), L"&New");
    AppendMenuW(file, MF_STRING, close_command, L"&Close\tAlt+F4");
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"&File");
    return menu;
}

}  // namespace

HostFrame::HostFrame(FrameContext& context, const wchar_t* class_name, HostWindow& window)
    : DeskWindow(class_name, window.caption(),
                 {window.left, window.top, window.left + window.width, window.top + window.height}),
      context_(context),
      window_(window),
      bars_(handle(), window.bars(), context.faces),
      bar_menus_(window.bars()),
      times_brought_up_(window.times_brought_up()) {}

void HostFrame::open() {
    const HMENU menu = make_menu();
    add_menus(menu);
    SetMenu(handle(), menu);  // tells the window a new size, so not before it is whole
    follow_menus();
    bars_.follow();
    lay_out_again();
    const auto& order = context_.desk.window_order;
    const bool is_active = !order.empty() && order.back() == &window_;
    if (is_active && window_.window_state == HostWindow::maximized) {
        ShowWindow(handle(), SW_SHOWMAXIMIZED);
    } else {
        ShowWindow(handle(), is_active ? SW_SHOW : SW_SHOWNA);
    }
}

void HostFrame::refresh() {
    caption(window_.caption());
    follow_menus();
    if (bars_.follow()) lay_out_again();
    show_contents();
    if (times_brought_up_ != window_.times_brought_up()) {
        times_brought_up_ = window_.times_brought_up();
        SetForegroundWindow(handle());
    }
}

void HostFrame::follow_menus() {
    if (bar_menus_.follow(GetMenu(handle()))) DrawMenuBar(handle());
}

void HostFrame::lay_out_again() {
    RECT client{};
    GetClientRect(handle(), &client);
    on_size(client.right, client.bottom);
}

void HostFrame::on_size(int width, int height) {
    const int top = bars_.place(width);
    lay_out(top, width, height);
}

void HostFrame::later(void (HostWindow::*what)()) {
    context_.desk.surroundings().post([held = window_.held(), window = &window_, what] {
        if (window->is_open()) (window->*what)();
    });
}

void HostFrame::on_close() {
    const automation::Text refused = refused_entry();
    if (refused.empty()) return later(&HostWindow::close_by_user);
    context_.desk.surroundings().post(
        [held = window_.held(), window = &window_, &desk = context_.desk, refused] {
            constexpr std::uint32_t warning_not_to = 0x134;  // MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2
            constexpr int yes = 6;
            const automation::Text question = refused + u"\n\nDo you want to close the window without it?";
            if (desk.surroundings().ask(question, u"Outlook", warning_not_to) != yes) return;
            if (window->is_open()) window->close_by_user();
        });
}

void HostFrame::on_activate() {
    if (context_.following) return;
    const auto& order = context_.desk.window_order;
    if (order.empty() || order.back() != &window_) later(&HostWindow::activate);
}

void HostFrame::on_command(int command, int code) {
    if (command == close_command) return on_close();
    auto control = bars_.control(command);
    if (!control) control = bar_menus_.control(command);
    if (control) {
        if (!may_press(*control)) return;
        // not here: the click may lead to the end of the toolbar, which still has work to do with it
        context_.desk.surroundings().post([control] {
            if (control->is_there()) control->press();
        });
        return;
    }
    if (make_new_item(context_.desk, command, shown_folder())) return;
    on_own_command(command, code);
}

LRESULT HostFrame::on_notify(NMHDR& notice) {
    if (notice.code == TTN_GETDISPINFOW) bars_.tell_tip(reinterpret_cast<NMTTDISPINFOW&>(notice));
    return 0;
}

}  // namespace desk
