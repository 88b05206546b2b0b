#include "forms/windows/form_list.h"

#include <exception>
#include <utility>

#include "automation/com/failure.h"
#include "automation/failure.h"
#include "forms/windows/drop_target.h"
#include "forms/windows/form_window.h"

namespace windows {

using automation::Failure;
using automation::Text;
using automation::TextView;

namespace {

wchar_t* writable(Text& text) { return reinterpret_cast<wchar_t*>(text.data()); }

constexpr std::size_t first_size = 260;  // characters; more are asked for where they are needed

/// The order of words in the user's language, as the system's own sorted lists have it.
int compare_words(TextView left, TextView right) {
    const auto units = [](TextView text) { return reinterpret_cast<const wchar_t*>(text.data()); };
    const int order =
        CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, units(left), static_cast<int>(left.size()),
                       units(right), static_cast<int>(right.size()));
    return order == 0 ? automation::compare_ignoring_case(left, right) : order - CSTR_EQUAL;
}

}  // namespace

FormRows::FormRows(FormWindow& form, const forms::ControlRow& row, HWND window)
    : form_(form), row_(row), window_(window) {
    int index = 0;
    for (const forms::Column& column : row.columns) {
        Text heading(column.heading);
        LVCOLUMNW made{};
        made.mask = LVCF_FMT | LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        made.fmt = LVCFMT_LEFT;
        made.cx = form.to_pixels(column.width);
        made.pszText = writable(heading);
        made.iSubItem = index;
        send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&made));
        ++index;
    }
    header_ = reinterpret_cast<HWND>(send(LVM_GETHEADER, 0, 0));
    if (HIMAGELIST images = form.images(row.image_list)) {
        SendMessageW(header_, HDM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images));
    }
}

FormRows::~FormRows() {
    if (takes_drops_) RevokeDragDrop(window_);
}

LRESULT FormRows::send(UINT message, WPARAM first, LPARAM second) const {
    return SendMessageW(window_, message, first, second);
}

void FormRows::expect_row(int row) const {
    if (row < 0 || row >= count()) throw Failure(automation::result::bad_index, u"The list has no such row.");
}

void FormRows::expect_column(int column) const {
    if (column < 0 || column >= columns()) {
        throw Failure(automation::result::bad_index, u"The list has no such column.");
    }
}

// Rows

void FormRows::clear() {
    send(LVM_DELETEALLITEMS, 0, 0);
    count_ = 0;
}

void FormRows::hold_painting() {
    if (holds_painting_ || !IsWindowVisible(window_)) return;
    const ULONGLONG now = GetTickCount64();
    const ULONGLONG since = painted_ ? now - *painted_ : painting_interval;
    const UINT wait = since < painting_interval ? static_cast<UINT>(painting_interval - since) : 0;
    holds_painting_ = SetTimer(window_, FormControl::own_timer, wait, nullptr) != 0;
    if (holds_painting_) send(WM_SETREDRAW, FALSE, 0);
}

void FormRows::paint_again() {
    if (!std::exchange(holds_painting_, false)) return;
    KillTimer(window_, FormControl::own_timer);
    send(WM_SETREDRAW, TRUE, 0);
    InvalidateRect(window_, nullptr, TRUE);
    painted_ = GetTickCount64();
}

int FormRows::place_of(TextView key) const {
    int place = count_, first = 0;
    while (first < place) {
        const int middle = (first + place) / 2;
        if (compare(read_text(middle, key_), key) > 0) {
            place = middle;
        } else {
            first = middle + 1;
        }
    }
    return place;
}

int FormRows::add(std::span<const Text> cells) {
    const auto cell = [&](int column) {
        const auto place = static_cast<std::size_t>(column);
        return place < cells.size() ? TextView(cells[place]) : TextView();
    };
    if (!cells.empty()) expect_column(static_cast<int>(cells.size()) - 1);
    const int place = sorted_ ? place_of(cell(key_)) : count_;
    hold_painting();
    Text shown(cell(0));
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = place;
    item.pszText = writable(shown);
    item.lParam = made_ + 1;
    const auto row = static_cast<int>(send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    if (row < 0) throw Failure(automation::result::fail, u"A row could not be added.");
    ++made_;
    ++count_;
    for (int column = 1; column < static_cast<int>(cells.size()); ++column) {
        if (!cell(column).empty()) write_text(row, column, cell(column));
    }
    return row;
}

Text FormRows::read_text(int row, int column) const {
    Text text(first_size, u'\0');
    for (;;) {
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = writable(text);
        item.cchTextMax = static_cast<int>(text.size());
        const auto length = static_cast<std::size_t>(
            send(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item)));
        if (length + 1 < text.size()) {
            text.resize(length);
            return text;
        }
        text.resize(text.size() * 2);
    }
}

Text FormRows::text(int row, int column) const {
    expect_row(row);
    expect_column(column);
    if (sorting_) {
        return sorting_->rows[static_cast<std::size_t>(row)].texts[static_cast<std::size_t>(column)];
    }
    return read_text(row, column);
}

void FormRows::write_text(int row, int column, TextView text) {
    Text shown(text);
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = writable(shown);
    send(LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

bool FormRows::in_order(int row) const {
    const Text key = read_text(row, key_);
    return (row == 0 || compare(read_text(row - 1, key_), key) <= 0) &&
           (row == count_ - 1 || compare(key, read_text(row + 1, key_)) <= 0);
}

int FormRows::text(int row, int column, TextView text) {
    expect_row(row);
    expect_column(column);
    hold_painting();
    write_text(row, column, text);
    if (!sorted_ || column != key_ || in_order(row)) return row;
    const std::intptr_t changed = parameter(row);
    sort();
    return find(changed);
}

int FormRows::selected() const {
    return static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void FormRows::select(int row) {
    if (row != -1) expect_row(row);
    paint_again();  // what isn't painted can't be brought into sight
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    if (row == -1) return;
    item.stateMask = item.state = LVIS_SELECTED | LVIS_FOCUSED;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

// Columns

Text FormRows::heading(int column) const {
    expect_column(column);
    Text text(first_size, u'\0');
    HDITEMW item{};
    item.mask = HDI_TEXT;
    item.pszText = writable(text);
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(header_, HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
    text.resize(text.find(u'\0'));
    return text;
}

void FormRows::heading(int column, TextView text) {
    expect_column(column);
    Text shown(text);
    LVCOLUMNW changed{};
    changed.mask = LVCF_TEXT;
    changed.pszText = writable(shown);
    send(LVM_SETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&changed));
}

int FormRows::width(int column) const {
    expect_column(column);
    const auto pixels = static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    return forms::to_twips(pixels, form_.dots_per_inch());
}

void FormRows::width(int column, int twips) {
    expect_column(column);
    send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(form_.to_pixels(twips), 0));
}

void FormRows::header_item(int column, const forms::HeaderItem& item) {
    expect_column(column);
    static_assert(forms::header::text == HDI_TEXT && forms::header::format == HDI_FORMAT &&
                  forms::header::image == HDI_IMAGE);
    Text shown = item.text;
    HDITEMW changed{};
    changed.mask = item.mask;
    changed.fmt = item.format;
    changed.pszText = writable(shown);
    changed.iImage = item.image;
    SendMessageW(header_, HDM_SETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&changed));
}

// Order

std::intptr_t FormRows::parameter(int row) const {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    send(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return item.lParam;
}

int FormRows::find(std::intptr_t parameter) const {
    if (sorting_) {
        const bool known = parameter > 0 && parameter <= made_;
        return known ? sorting_->places[static_cast<std::size_t>(parameter)] : -1;
    }
    LVFINDINFOW wanted{};
    wanted.flags = LVFI_PARAM;
    wanted.lParam = parameter;
    return static_cast<int>(send(LVM_FINDITEMW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&wanted)));
}

FormRows::Snapshot FormRows::snapshot() const {
    Snapshot taken;
    taken.places.assign(static_cast<std::size_t>(made_) + 1, -1);
    for (int row = 0; row < count(); ++row) {
        taken.rows.push_back({parameter(row), {}});
        Snapshot::Row& copy = taken.rows.back();
        for (int column = 0; column < columns(); ++column) copy.texts.push_back(read_text(row, column));
        taken.places[static_cast<std::size_t>(copy.parameter)] = row;
    }
    return taken;
}

/// What a comparison throws comes out only after the system's sort.
struct FormRows::Comparison {
    const std::function<int(std::intptr_t, std::intptr_t)>& compare;
    std::exception_ptr failure;
};

int CALLBACK FormRows::compare_rows(LPARAM first, LPARAM second, LPARAM data) {
    auto& comparison = *reinterpret_cast<Comparison*>(data);
    if (comparison.failure) return 0;
    try {
        return comparison.compare(first, second);
    } catch (...) {
        comparison.failure = std::current_exception();
        return 0;
    }
}

void FormRows::sort_by(const std::function<int(std::intptr_t, std::intptr_t)>& compare) {
    Comparison comparison{compare, nullptr};
    hold_painting();
    send(LVM_SORTITEMS, reinterpret_cast<WPARAM>(&comparison), reinterpret_cast<LPARAM>(compare_rows));
    sorting_ = nullptr;
    if (comparison.failure) std::rethrow_exception(comparison.failure);
}

void FormRows::sort_rows(const std::function<int(std::intptr_t, std::intptr_t)>& compare) {
    const Snapshot rows = snapshot();
    sorting_ = &rows;
    sort_by(compare);
}

int FormRows::compare(TextView left, TextView right) const {
    const int rising = compare_words(left, right);
    return order_ == 0 ? rising : -rising;
}

void FormRows::sort() {
    if (!sorted_) return;
    std::vector<Text> keys(static_cast<std::size_t>(made_) + 1);  // by parameter
    for (int row = 0; row < count(); ++row) {
        keys[static_cast<std::size_t>(parameter(row))] = read_text(row, key_);
    }
    sort_by([&](std::intptr_t first, std::intptr_t second) {
        return compare(keys[static_cast<std::size_t>(first)], keys[static_cast<std::size_t>(second)]);
    });
}

void FormRows::sort_order(int order) {
    order_ = order;
    sort();
}

void FormRows::sort_key(int column) {
    expect_column(column);
    key_ = column;
    sort();
}

void FormRows::sorted(bool sorted) {
    sorted_ = sorted;
    sort();
}

// What its user does

void FormRows::extended_style(std::uint32_t mask, std::uint32_t value) {
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, mask, static_cast<LPARAM>(value));
}

forms::Hit FormRows::hit(int x, int y) const {
    LVHITTESTINFO test{};
    test.pt = {x, y};
    test.flags = LVHT_ONITEM;
    send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&test));
    if (test.iItem < 0) return {};
    return {test.iItem, test.iSubItem};
}

void FormRows::takes_drops(bool takes) {
    if (takes == takes_drops_) return;
    if (takes) {
        const auto target = DropTarget::create(form_.parts().module, window_, [this](int x, int y) {
            form_.raise([&](forms::Events& events) { events.on_drop(row_.name, x, y); });
        });
        check(RegisterDragDrop(window_, target.get()));
    } else {
        RevokeDragDrop(window_);
    }
    takes_drops_ = takes;
}

void FormRows::follow_look(int former_dots_per_inch) {
    const int dots = form_.dots_per_inch();
    for (int column = 0; dots != former_dots_per_inch && column < columns(); ++column) {
        const auto pixels = static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
        const int designed = row_.columns[static_cast<std::size_t>(column)].width;
        const bool as_designed = pixels == forms::to_pixels(designed, former_dots_per_inch);
        send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column),
             as_designed ? form_.to_pixels(designed) : MulDiv(pixels, dots, former_dots_per_inch));
    }
    if (HIMAGELIST images = form_.images(row_.image_list)) {
        SendMessageW(header_, HDM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images));
    }
    send(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_WINDOW)));
    send(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_WINDOW)));
    send(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_WINDOWTEXT)));
}

// The control

FormList::FormList(FormWindow& form, const forms::ControlRow& row, int id)
    : FormControl(form, row, id), rows_(form, row, handle()) {}

void FormList::follow_look(int former_dots_per_inch) {
    FormControl::follow_look(former_dots_per_inch);
    rows_.follow_look(former_dots_per_inch);
}

void FormList::on_notify(const NMHDR& header) {
    const TextView name = table_row().name;
    if (header.code == LVN_COLUMNCLICK) {
        const int column = reinterpret_cast<const NMLISTVIEW&>(header).iSubItem;
        form().raise([&](forms::Events& events) { events.on_column_click(name, column); });
    } else if (header.code == NM_DBLCLK) {
        form().raise([&](forms::Events& events) { events.on_double_click(name); });
    }
}

}  // namespace windows
