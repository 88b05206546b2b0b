#include "desk/windows/reading_pane.h"

#include <algorithm>

#include "automation/com/failure.h"
#include "desk/windows/shown_value.h"

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

constexpr const wchar_t* pane_class = L"TarnwellDeskPane";
constexpr int pane_margin = 10, gap_below_headline = 4, gap_below_lines = 8;  // pixels

/// Longer texts are read in the item's own window: a control takes long to arrange them.
constexpr std::size_t longest_pane_text = 100'000;
constexpr TextView rest_of_text = u"\r\n\r\n[The rest is shown when the item is opened.]";

/// The lines below the headline; those that an item has nothing for are left out.
struct PaneLine {
    TextView title, field;
};
constexpr PaneLine pane_lines[] = {
    {u"From", u"SenderName"},
    {u"To", u"To"},
    {u"Cc", u"CC"},
    {u"Sent", u"SentOn"},
    {u"Company", u"CompanyName"},
    {u"E-mail", u"Email1Address"},
    {u"Start", u"Start"},
    {u"End", u"End"},
    {u"Where", u"Location"},
    {u"Due", u"DueDate"},
    {u"Account", u"Account Name"},
    {u"Contact", u"Contact Name"},
    {u"Type", u"Type"},
};

/// Each line ends as the system's controls want it.
Text with_system_line_ends(const Text& text) {
    return automation::replaced(automation::replaced(text, u"\r\n", u"\n"), u"\n", u"\r\n");
}

Text shown_text(const Item& item) {
    Text text = shown_value(item.data(), u"Body");
    if (text.size() > longest_pane_text) {
        text.resize(longest_pane_text);
        text += rest_of_text;
    }
    return with_system_line_ends(text);
}

windows::DrawingObject<HFONT> large_bold_font() {
    LOGFONTW font{};
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
    font.lfWeight = FW_BOLD;
    font.lfHeight = font.lfHeight * 5 / 4;
    return windows::DrawingObject<HFONT>(CreateFontIndirectW(&font));
}

int line_height_of(HDC context) {
    TEXTMETRICW measures{};
    GetTextMetricsW(context, &measures);
    return static_cast<int>(measures.tmHeight);
}

/// Writes a line into the upper part of a box, and takes that part off.
void draw_line_of(HDC context, const Text& text, RECT& box) {
    constexpr UINT one_line = DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;
    DrawTextW(context, windows::wide(text), static_cast<int>(text.size()), &box, one_line);
    box.top += line_height_of(context);
}

}  // namespace

PaneContents pane_contents(Item& item) {
    PaneContents contents{item.subject(), {}, shown_text(item)};
    if (contents.headline.empty()) contents.headline = shown_value(item.data(), u"FullName");
    if (contents.headline.empty()) contents.headline = u"(no subject)";
    const auto add = [&](TextView title, const Text& value) {
        if (!value.empty()) contents.lines.push_back(Text(title) + u":  " + value);
    };
    for (const PaneLine& line : pane_lines) add(line.title, shown_value(item.data(), line.field));
    Text attached;
    for (const AttachmentData& attachment : item.whole().attachments) {
        attached += (attached.empty() ? u"" : u"; ") + attachment.display_name;
    }
    add(u"Attached", attached);
    return contents;
}

ReadingPane::ReadingPane(HWND parent) : headline_font_(large_bold_font()) {
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = pane_class;
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    window_class.style = CS_HREDRAW | CS_VREDRAW;
    RegisterClassW(&window_class);  // a second time it is refused, which does no harm
    constexpr DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
    window_ = CreateWindowExW(WS_EX_CLIENTEDGE | WS_EX_CONTROLPARENT, pane_class, L"", style, 0, 0, 0, 0,
                              parent, nullptr, window_class.hInstance, nullptr);
    if (!window_) throw automation::Failure(automation::result::fail, u"The reading pane could not be made.");
    constexpr DWORD text_style =
        WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_READONLY;
    text_ = CreateWindowExW(0, WC_EDITW, L"", text_style, 0, 0, 0, 0, window_, nullptr,
                            window_class.hInstance, nullptr);
    SendMessageW(text_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    SendMessageW(text_, EM_SETLIMITTEXT, 0, 0);  // as much as there is
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    show_contents({u"Nothing is selected", {}, {}});
}

ReadingPane::~ReadingPane() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

void ReadingPane::follow(const std::vector<automation::Object>& selected) {
    if (!shown_) return;
    const auto item =
        selected.size() == 1 ? std::dynamic_pointer_cast<Item>(selected.front().target()) : nullptr;
    if (item && !item->is_gone()) {
        if (item == item_.lock() && item->version() == version_) return;
        item_ = item;
        version_ = item->version();
        return show_contents(pane_contents(*item));
    }
    item_.reset();
    version_ = -1;
    const Text count = automation::to_text(static_cast<long long>(selected.size()));
    show_contents(
        {selected.size() > 1 ? count + u" items are selected" : Text(u"Nothing is selected"), {}, {}});
}

void ReadingPane::show_contents(PaneContents contents) {
    if (contents == contents_) return;
    const bool other_text = contents.text != contents_.text;
    contents_ = std::move(contents);
    // who asks the window for its text, a screen reader, say, hears what is painted
    Text head = contents_.headline;
    for (const Text& line : contents_.lines) head += u"\r\n" + line;
    SetWindowTextW(window_, windows::wide(head));
    if (other_text) SetWindowTextW(text_, windows::wide(contents_.text));
    ShowWindow(text_, item_.expired() ? SW_HIDE : SW_SHOWNA);
    lay_out();
    InvalidateRect(window_, nullptr, TRUE);
}

void ReadingPane::place(const RECT& box) {
    MoveWindow(window_, box.left, box.top, box.right - box.left, box.bottom - box.top, TRUE);
    lay_out();
}

void ReadingPane::show(bool shown) {
    shown_ = shown;
    ShowWindow(window_, shown ? SW_SHOWNA : SW_HIDE);
}

int ReadingPane::head_height() const {
    const windows::ScreenContext screen;
    int height = pane_margin + gap_below_headline + gap_below_lines;
    {
        const windows::Selected large(screen.get(), headline_font_.get());
        height += line_height_of(screen.get());
    }
    const windows::Selected usual(screen.get(), GetStockObject(DEFAULT_GUI_FONT));
    return height + static_cast<int>(contents_.lines.size()) * line_height_of(screen.get());
}

void ReadingPane::lay_out() {
    RECT client{};
    GetClientRect(window_, &client);
    const int top = head_height() + 1;
    MoveWindow(text_, pane_margin, top + gap_below_lines / 2,
               std::max(static_cast<int>(client.right) - pane_margin, 0),
               std::max(static_cast<int>(client.bottom) - top - gap_below_lines / 2, 0), TRUE);
}

void ReadingPane::paint(HDC context) const {
    RECT box{};
    GetClientRect(window_, &box);
    const int line = head_height();
    box = {box.left + pane_margin, pane_margin, box.right - pane_margin, line};
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    {
        const windows::Selected large(context, headline_font_.get());
        draw_line_of(context, contents_.headline, box);
    }
    box.top += gap_below_headline;
    const windows::Selected usual(context, GetStockObject(DEFAULT_GUI_FONT));
    for (const Text& text : contents_.lines) draw_line_of(context, text, box);
    if (item_.expired()) return;
    const RECT rule{box.left, line - 1, box.right, line};
    FillRect(context, &rule, GetSysColorBrush(COLOR_BTNFACE));
}

LRESULT CALLBACK ReadingPane::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    const auto* const self = reinterpret_cast<const ReadingPane*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && message == WM_PAINT) {
        PAINTSTRUCT painting{};
        const HDC context = BeginPaint(window, &painting);
        windows::contained([&] { self->paint(context); });
        EndPaint(window, &painting);
        return 0;
    }
    if (message == WM_CTLCOLORSTATIC) {  // a text that is only read is asked for as a label is
        const auto context = reinterpret_cast<HDC>(first);
        SetBkColor(context, GetSysColor(COLOR_WINDOW));
        SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    }
    return DefWindowProcW(window, message, first, second);
}

}  // namespace desk
