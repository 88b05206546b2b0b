// Sizes at the usual resolutions, and what is left over when windows end.
#include <gtest/gtest.h>

#include <array>

#include "addin/commands/small_windows.h"
#include "addin/createnote/dlg_send.h"
#include "addin/ground/status_windows.h"
#include "addin/quickview/quick_view.h"
#include "addin/searchpanel/show_items.h"
#include "tests/forms/support/gallery.h"
#include "tests/windows/support/forms_layout.h"
#include "tests/windows/support/forms_stage.h"

namespace forms_test {
namespace {

using forms::FormTable;

/// A window, and what its own design cuts and puts over each other: places are given, not chosen.
struct Designed {
    const FormTable* table;
    std::vector<std::string> cut, over_each_other;
};

TEST(FormsLayout, NoTextIsCutAndNoControlsOverlapAtAnyResolution) {
    const Designed all[] = {
        {&gallery, {}, {}},
        {&with_keys, {}, {}},
        {&addin::createnote::dialog_table(), {}, {"SearchString and Combo1"}},
        {&addin::searchpanel::panel_table(),
         {},
         {"Contactname and CompanyName", "CompanyName and Phone", "Label1 and SearchMe", "Phone and Fax",
          "Fax and Street1", "Street1 and City", "Street1 and State", "Street1 and Zip"}},
        {&addin::quickview::quick_view_table(),
         {},
         {"Contactname and CompanyName", "CompanyName and Phone", "Phone and Fax", "Fax and Street1",
          "Street1 and City", "Street1 and State", "Street1 and Zip", "cmbFolders and cmdSearchpanel"}},
        {&addin::search_form_table(), {}, {}},
        {&addin::commands::tarnwell_table(), {}, {}},
        {&addin::commands::tarnwell_info_table(), {}, {}}};
    WindowsStage stage;
    for (const int dots : {96, 120, 144, 192}) {
        stage.dots_per_inch(dots);
        for (const auto& [table, cut, over_each_other] : all) {
            const auto form = std::make_shared<Noted>(stage.engine(), *table);
            form->show();
            pump();
            const HWND window = find_window(table->caption);
            SCOPED_TRACE(automation::to_utf8(table->name) + " at " + std::to_string(dots));
            EXPECT_EQ(cut_texts(window, *table), cut);
            EXPECT_EQ(overlaps(window, *table), over_each_other);
            save_picture(window, table->name, dots);  // for a person's eyes, if somebody asked for it
        }
    }
}

TEST(FormsLayout, ClientAreaIsTheTables) {
    WindowsStage stage;
    for (const int dots : {96, 120, 144, 192}) {
        stage.dots_per_inch(dots);
        const auto form = std::make_shared<Noted>(stage.engine(), with_keys);
        form->view();
        RECT client{};
        GetClientRect(find_window(with_keys_caption), &client);
        EXPECT_EQ(client.right, forms::to_pixels(with_keys.width, dots));
        EXPECT_EQ(client.bottom, forms::to_pixels(with_keys.height, dots));
    }
}

TEST(FormsLayout, CutTextIsFound) {
    static constexpr forms::ControlRow rows[] = {
        {.kind = forms::ControlKind::button,
         .name = u"small",
         .text = u"A text that is too long",
         .place = {0, 0, 600, 300}},
        {.kind = forms::ControlKind::button, .name = u"over", .place = {500, 100, 600, 300}}};
    static constexpr FormTable table{
        .name = u"Bad", .caption = u"Bad", .width = 3000, .height = 3000, .controls = rows};
    WindowsStage stage;
    const auto form = std::make_shared<Noted>(stage.engine(), table);
    form->show();
    EXPECT_EQ(cut_texts(find_window(u"Bad"), table), std::vector<std::string>{"small"});
    EXPECT_EQ(overlaps(find_window(u"Bad"), table), std::vector<std::string>{"small and over"});
}

/// What the process holds of the system's objects.
struct Held {
    DWORD windows = 0, drawing_objects = 0;
};

BOOL CALLBACK count_window(HWND window, LPARAM data) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId()) ++reinterpret_cast<Held*>(data)->windows;
    return TRUE;
}

Held held() {
    pump();
    Held found;
    EnumWindows(count_window, reinterpret_cast<LPARAM>(&found));
    found.drawing_objects = drawing_objects();
    return found;
}

TEST(FormsEnd, DrawingObjectsAreReallyCounted) {
    const DWORD before = drawing_objects();
    const HGDIOBJ brush = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(drawing_objects(), before + 1);
    DeleteObject(brush);
    EXPECT_EQ(drawing_objects(), before);
}

TEST(FormsEnd, ThousandWindowsLeaveNothingBehind) {
    WindowsStage stage;
    const auto make_and_end = [&](const FormTable& table) {
        const auto form = std::make_shared<Noted>(stage.engine(), table);
        form->control(u"list").list().takes_drops(true);
        form->control(u"list").list().add(u"row");
        form->unload();
    };
    const auto some_of_each = [&](int times) {
        for (int round = 0; round < times; ++round) make_and_end(gallery);
        for (int round = 0; round < times * 9; ++round) make_and_end(with_keys);  // which is made faster
    };
    some_of_each(2);
    const Held before = held();
    some_of_each(100);
    const Held after = held();
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.drawing_objects, before.drawing_objects);
}

TEST(FormsEnd, ShownWindowsAndThoseThatEndInTheirEventsLeaveNothingBehind) {
    WindowsStage stage;
    const auto make_and_end = [&] {
        const auto form = std::make_shared<Noted>(stage.engine(), gallery);
        form->at = [&](const std::string& event) {
            if (event == "click go") form->unload();
        };
        form->show();
        EXPECT_TRUE(stage.click({gallery_caption, u"go"}));
    };
    for (int warm = 0; warm < 3; ++warm) make_and_end();
    const Held before = held();
    for (int round = 0; round < 50; ++round) make_and_end();
    const Held after = held();
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.drawing_objects, before.drawing_objects);
}

TEST(FormsEnd, EngineTakesItsClassAndItsLateWindowsWithIt) {
    WindowsStage stage;
    auto form = std::make_shared<Noted>(stage.engine(), gallery);
    form->show();
    const HWND window = find_window(gallery_caption);
    std::array<wchar_t, 64> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    const auto instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(window, GWLP_HINSTANCE));
    WNDCLASSW found{};
    EXPECT_TRUE(GetClassInfoW(instance, name.data(), &found));
    form->at = [&](const std::string& event) {
        if (event == "click go") form->unload();
    };
    SendMessageW(find_control(window, u"go"), BM_CLICK, 0, 0);  // nothing is taken from the queue meanwhile
    EXPECT_TRUE(IsWindow(window)) << "it waits for its end";
    stage.end_engine();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(GetClassInfoW(instance, name.data(), &found));
    EXPECT_TRUE(stage.module().idle());
}

TEST(FormsEnd, ModuleIsHeldUntilTheLastWindowHasGone) {
    WindowsStage stage;
    EXPECT_TRUE(stage.module().idle());
    auto form = std::make_shared<Noted>(stage.engine(), gallery);
    form->show();
    EXPECT_FALSE(stage.module().idle()) << "a window";
    bool held_in_event = false;
    form->at = [&](const std::string& event) {
        if (event != "click go") return;
        form->unload();
        held_in_event = !stage.module().idle();
    };
    const HWND window = find_window(gallery_caption);
    SendMessageW(find_control(window, u"go"), BM_CLICK, 0, 0);
    EXPECT_TRUE(held_in_event);
    EXPECT_FALSE(stage.module().idle()) << "a window that waits for its end";
    EXPECT_TRUE(wait_until([&] { return !IsWindow(window); }));
    EXPECT_TRUE(stage.module().idle());
}

}  // namespace
}  // namespace forms_test
