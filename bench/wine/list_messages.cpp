// The messages that a list of a real window takes while it fills, whoever fills it.
#include <iostream>
#include <stdexcept>
#include <vector>

#include "addin/createnote/dlg_send.h"
#include "addin/quickview/quick_view.h"
#include "addin/searchpanel/show_items.h"
#include "bench/table.h"
#include "bench/wine/measures.h"
#include "bench/wine/server_work.h"
#include "family/list_picker_form.h"
#include "forms/form.h"
#include "forms/windows/common_controls.h"
#include "forms/windows/form_engine.h"

namespace bench {
namespace {

using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;

constexpr int row_count = 500;

/// Beside one for each cell.
constexpr double most_more = 2;

LRESULT CALLBACK count_message(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                               DWORD_PTR count) {
    ++*reinterpret_cast<int*>(count);
    return DefSubclassProc(window, message, first, second);
}

const ControlRow& list_of(const FormTable& table) {
    for (const ControlRow& row : table.controls) {
        if (row.kind == ControlKind::report_list) return row;
    }
    throw std::runtime_error("there is no list");
}

/// The messages for a row, as the windows fill theirs.
double messages_of_a_row(const FormTable& table) {
    windows::Module module;
    windows::FormEngine engine(module, [] { return 96; });
    const auto form = std::make_shared<forms::Form>(engine, table);
    form->show();
    const ControlRow& row = list_of(table);
    forms::List& list = form->control(row.name).list();
    const auto parent = reinterpret_cast<HWND>(form->view().system_handle());
    const HWND window = FindWindowExW(parent, nullptr, WC_LISTVIEWW, nullptr);
    int count = 0;
    SetWindowSubclass(window, count_message, 1, reinterpret_cast<DWORD_PTR>(&count));
    const std::vector<automation::Text> cells(row.columns.size(), u"some text");
    for (int i = 0; i < row_count; ++i) list.add(cells);
    RemoveWindowSubclass(window, count_message, 1);
    form->unload();
    return static_cast<double>(count) / row_count;
}

}  // namespace

bool list_messages() {
    struct Measured {
        const char* name;
        const FormTable& table;
    };
    const Measured lists[] = {{"Create Note search", addin::createnote::dialog_table()},
                              {"Search Panel", addin::searchpanel::panel_table()},
                              {"Quick View", addin::quickview::quick_view_table()},
                              {"the family's picker", family::list_picker_table(family::Choice::one)}};
    bool right = true;
    Table table("Messages to a list for a row of it", {"list", "cells", "messages", "aim"});
    for (const Measured& list : lists) {
        const auto cells = static_cast<double>(list_of(list.table).columns.size());
        const double messages = messages_of_a_row(list.table);
        table.add_row({list.name, decimal(cells, 0), decimal(messages, 1), decimal(cells + most_more, 0)});
        right = right && messages <= cells + most_more;
    }
    table.print(std::cout);
    if (!right) std::cout << "WRONG: a list takes more messages than the aim\n\n";
    return right;
}

}  // namespace bench
