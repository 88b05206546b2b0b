#include "desk/windows/attachment_row.h"

#include <algorithm>

#include "automation/com/com_ptr.h"
#include "desk/base/base.h"
#include "desk/outlook/attached_files.h"
#include "desk/outlook/item_kinds.h"
#include "forms/windows/common_controls.h"

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

constexpr int most_lines = 2, line_pixels = 20, edge_pixels = 5, title_pixels = 22;
constexpr std::int32_t mail_face = 1978, person_face = 1993, calendar_face = 583, note_face = 2041,
                       document_face = 567, sheet_face = 566;

struct KindFace {
    std::int32_t number, face;
};
constexpr KindFace kind_faces[] = {{object_class::mail, mail_face},
                                   {object_class::contact, person_face},
                                   {object_class::appointment, calendar_face},
                                   {object_class::task, calendar_face}};

constexpr TextView sheet_endings[] = {u"xls", u"xlsx", u"csv", u"ods"};

std::int32_t face_of(const AttachmentData& attachment) {
    if (attachment.item) {
        const std::int32_t number = kind_of(attachment.item->message_class).number;
        const auto* const found = std::ranges::find(kind_faces, number, &KindFace::number);
        return found == std::end(kind_faces) ? note_face : found->face;
    }
    const Text ending = ending_of(attachment.file_name);
    if (ending == u"eml") return mail_face;
    const bool is_sheet = std::ranges::find(sheet_endings, TextView(ending)) != std::end(sheet_endings);
    return is_sheet ? sheet_face : document_face;
}

}  // namespace

DWORD AttachmentRow::list_style() {
    return WS_TABSTOP | LVS_SMALLICON | LVS_AUTOARRANGE | LVS_SHAREIMAGELISTS | LVS_SHOWSELALWAYS |
           LVS_SINGLESEL;
}

AttachmentRow::AttachmentRow(HWND title, HWND list, const Faces& faces)
    : title_(title), list_(list), faces_(faces) {
    ListView_SetImageList(list_, faces.images(), LVSIL_SMALL);
}

AttachmentRow::Shown AttachmentRow::shown_as(const AttachmentData& attachment) const {
    const Text& name = attachment.display_name.empty() ? attachment.file_name : attachment.display_name;
    return {name.empty() ? Text(u"(no name)") : name, faces_.image(face_of(attachment))};
}

bool AttachmentRow::show(const std::vector<AttachmentData>& attachments) {
    std::vector<Shown> now;
    for (const AttachmentData& attachment : attachments) now.push_back(shown_as(attachment));
    if (now == shown_) return false;
    shown_ = std::move(now);
    ListView_DeleteAllItems(list_);
    for (int place = 0; const Shown& each : shown_) {
        LVITEMW row{};
        row.mask = LVIF_TEXT | LVIF_IMAGE;
        row.iItem = place++;
        row.iImage = each.image;
        row.pszText = const_cast<wchar_t*>(windows::wide(each.name));
        SendMessageW(list_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&row));
    }
    return true;
}

int AttachmentRow::selected() const { return ListView_GetNextItem(list_, -1, LVNI_SELECTED); }

void AttachmentRow::select_any() const {
    constexpr UINT chosen = LVIS_FOCUSED | LVIS_SELECTED;
    if (selected() < 0) ListView_SetItemState(list_, 0, chosen, chosen);
}

POINT AttachmentRow::below_selected() const {
    RECT box{};
    ListView_GetItemRect(list_, selected(), &box, LVIR_LABEL);
    POINT place{box.left, box.bottom};
    ClientToScreen(list_, &place);
    return place;
}

int AttachmentRow::height(int list_width) const {
    const int item_width = std::max(1, static_cast<int>(LOWORD(ListView_GetItemSpacing(list_, TRUE))));
    const int in_a_line = std::max(1, list_width / item_width);
    const int count = static_cast<int>(shown_.size());
    const int lines = std::clamp((count + in_a_line - 1) / in_a_line, 1, most_lines);
    return lines * line_pixels + edge_pixels;
}

void AttachmentRow::place(int left, int top, int title_width, int list_left, int list_width) const {
    MoveWindow(title_, left, top + 1, title_width, title_pixels, TRUE);
    MoveWindow(list_, list_left, top, list_width, height(list_width), TRUE);
    ListView_Arrange(list_, LVA_DEFAULT);
    for (const HWND part : {title_, list_}) ShowWindow(part, SW_SHOWNA);
}

void AttachmentRow::hide() const {
    for (const HWND part : {title_, list_}) ShowWindow(part, SW_HIDE);
}

}  // namespace desk
