// The fields of items, written in their windows: by lines, the system's controls for dates, boxes and
// choices.
#include "desk/outlook/item.h"
#include "forms/windows/common_controls.h"
#include "tests/windows/support/desk_windows_fixture.h"

namespace desk_tests {
namespace {

class DeskFields : public DeskWindowsTest {
  protected:
    void open(TextView message_class, const std::vector<std::pair<TextView, Value>>& fields = {}) {
        desk::ItemData data;
        data.message_class = Text(message_class);
        for (const auto& [name, value] : fields) data.fields[Text(name)] = value;
        item = std::make_shared<desk::Item>(desk, desk.default_folder(inbox), std::move(data));
        item->save();
        item->inspector()->display();
        run_messages();
    }
    /// The control behind a title, on the page that is shown.
    static HWND control(TextView title) {
        const std::vector<HWND> all = desk::windows_inside(inspector_window());
        for (std::size_t place = 0; place + 1 < all.size(); ++place) {
            if (!IsWindowVisible(all[place])) continue;
            if (desk::class_name(all[place]) == u"Button" && window_text(all[place]) == title)
                return all[place];
            if (desk::class_name(all[place]) == u"Static" && window_text(all[place]) == title)
                return all[place + 1];
        }
        return nullptr;
    }
    void type(TextView title, const wchar_t* text) {
        SendMessageW(control(title), EM_SETSEL, 0, -1);
        SendMessageW(control(title), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
        run_messages();
    }
    void leave(TextView title) {
        SendMessageW(inspector_window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control(title)), EN_KILLFOCUS),
                     reinterpret_cast<LPARAM>(control(title)));
        run_messages();
    }
    /// As the system's control does when a person has chosen a date in it.
    void choose(TextView title, const SYSTEMTIME& time) {
        SendMessageW(control(title), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
        NMDATETIMECHANGE change{};
        change.nmhdr = {control(title), static_cast<UINT_PTR>(GetDlgCtrlID(control(title))),
                        DTN_DATETIMECHANGE};
        SendMessageW(inspector_window(), WM_NOTIFY, change.nmhdr.idFrom, reinterpret_cast<LPARAM>(&change));
        run_messages();
    }
    static SYSTEMTIME time(int year, int month, int day, int hour = 0, int minute = 0) {
        SYSTEMTIME made{};
        made.wYear = static_cast<WORD>(year), made.wMonth = static_cast<WORD>(month);
        made.wDay = static_cast<WORD>(day), made.wHour = static_cast<WORD>(hour);
        made.wMinute = static_cast<WORD>(minute);
        return made;
    }
    /// What a control for dates shows; nothing for no date.
    static std::optional<Text> date_in(TextView title) {
        SYSTEMTIME shown{};
        if (SendMessageW(control(title), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown)) != GDT_VALID)
            return std::nullopt;
        return automation::to_text(
            automation::to_date({shown.wYear, shown.wMonth, shown.wDay, shown.wHour, shown.wMinute, 0}));
    }
    void turn_page() {
        const HWND tabs = windows_of_class(u"SysTabControl32", inspector_window()).front();
        RECT box{};
        TabCtrl_GetItemRect(tabs, 1 - TabCtrl_GetCurSel(tabs), &box);
        const LPARAM point = MAKELPARAM((box.left + box.right) / 2, (box.top + box.bottom) / 2);
        SendMessageW(tabs, WM_LBUTTONDOWN, MK_LBUTTON, point);
        SendMessageW(tabs, WM_LBUTTONUP, 0, point);
        run_messages();
    }
    static bool is_told(TextView sentence) {
        return std::ranges::any_of(windows_of_class(u"Static", inspector_window()), [&](HWND each) {
            return IsWindowVisible(each) && window_text(each) == sentence;
        });
    }
    void press(TextView caption) {
        const HWND bar = toolbar(inspector_window(), u"Standard");
        const std::vector<Text> all = captions(bar);
        click(bar, static_cast<int>(std::ranges::find(all, caption) - all.begin()));
    }
    Value property(TextView name) const {
        const Object properties = item->self().get(u"UserProperties").to_object();
        return properties.call(u"Item", {Value(name)}).to_object().get(u"Value");
    }

    std::shared_ptr<desk::Item> item;
    static constexpr std::int32_t inbox = 6;
};

TEST_F(DeskFields, OfAContactHoldWhereItLives) {
    open(u"IPM.Contact");
    type(u"Full name:", L"Ann Lee");
    type(u"Postal code:", L"EC1A 1BB");
    type(u"City:", L"London");
    press(u"Save");
    EXPECT_TRUE(item->is_saved());
    EXPECT_EQ(item->field(u"BusinessAddressPostalCode"), Value(u"EC1A 1BB"));
    EXPECT_EQ(item->field(u"BusinessAddressCity"), Value(u"London"));
    EXPECT_EQ(window_text(control(u"File as:")), u"Lee, Ann") << "it follows the name";
}

TEST_F(DeskFields, OfAnAppointmentAreDatesOfTheSystemsControls) {
    open(u"IPM.Appointment", {{u"Start", automation::to_date({2026, 3, 5, 9, 0, 0})},
                              {u"End", automation::to_date({2026, 3, 5, 9, 30, 0})}});
    type(u"Subject:", L"Visit");
    EXPECT_EQ(date_in(u"Start:"), u"2026-03-05 09:00:00");
    choose(u"Start:", time(2026, 3, 6, 10, 30));
    EXPECT_EQ(item->field(u"Start"), Value(automation::to_date({2026, 3, 6, 10, 30, 0})));
    EXPECT_EQ(date_in(u"End:"), u"2026-03-06 11:00:00") << "the end follows the start";
    PostMessageW(control(u"All day event"), BM_CLICK, 0, 0);
    run_messages();
    EXPECT_EQ(item->field(u"AllDayEvent"), Value(true));
    EXPECT_EQ(date_in(u"Start:"), u"2026-03-06 00:00:00");
    EXPECT_EQ(date_in(u"End:"), u"2026-03-07 00:00:00");
}

TEST_F(DeskFields, OfAnAppointmentDoNotEndBeforeTheyStart) {
    const auto end = automation::to_date({2026, 3, 5, 9, 30, 0});
    open(u"IPM.Appointment", {{u"Start", automation::to_date({2026, 3, 5, 9, 0, 0})}, {u"End", end}});
    choose(u"End:", time(2026, 3, 5, 8, 0));
    EXPECT_EQ(date_in(u"End:"), u"2026-03-05 08:00:00") << "it stays as it was entered";
    EXPECT_EQ(item->field(u"End"), Value(end));
    const Text told = u"The end can't be taken: the appointment would be over before it starts.";
    EXPECT_TRUE(is_told(told));
    choose(u"End:", time(2026, 3, 5, 10, 0));
    EXPECT_FALSE(is_told(told));
    EXPECT_EQ(item->field(u"End"), Value(automation::to_date({2026, 3, 5, 10, 0, 0})));
}

TEST_F(DeskFields, OfEveryClassHaveATextThatCanBeWritten) {
    for (const TextView message_class : {u"IPM.Post", u"IPM.StickyNote", u"IPM.Activity", u"IPM.Contact",
                                         u"IPM.Task", u"IPM.Appointment", u"IPM.Note"}) {
        SCOPED_TRACE(automation::to_utf8(message_class));
        open(message_class);
        const HWND text = windows_of_class(u"Edit", inspector_window()).back();
        SendMessageW(text, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"One\r\nTwo"));
        run_messages();
        EXPECT_EQ(item->field(u"Body"), Value(u"One\r\nTwo"));
        item->inspector()->close(desk::save_mode::discard);
        run_messages();
    }
}

TEST_F(DeskFields, OfATaskAreItsDueDateAndStatus) {
    open(u"IPM.Task", {{u"StartDate", automation::Value(desk::no_date)}});
    EXPECT_EQ(date_in(u"Due:"), std::nullopt);
    choose(u"Due:", time(2026, 3, 9));
    EXPECT_EQ(item->field(u"DueDate"), Value(automation::to_date({2026, 3, 9})));
    const HWND status = control(u"Status:");
    SendMessageW(status, CB_SETCURSEL, 2, 0);
    SendMessageW(inspector_window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(status), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(status));
    run_messages();
    EXPECT_EQ(item->field(u"Status"), Value(2));
    EXPECT_EQ(SendMessageW(control(u"Complete"), BM_GETCHECK, 0, 0), BST_CHECKED) << "it is done then";
}

TEST_F(DeskFields, OfARecordAreItsKeysAndOnASecondPageAllItsProperties) {
    open(u"IPM.Post.Opportunity");
    type(u"Subject:", L"Silo");
    type(u"AccountID:", L"A1");
    EXPECT_FALSE(control(u"Amount:"));
    turn_page();
    EXPECT_FALSE(control(u"Subject:"));
    EXPECT_EQ(window_text(control(u"AccountID:")), u"A1") << "both pages show the same";
    type(u"Amount:", L"1200");
    type(u"Close Date:", L"2026-04-01");
    leave(u"Close Date:");
    turn_page();
    EXPECT_TRUE(control(u"Subject:"));
    press(u"Save");
    EXPECT_EQ(item->subject(), u"Silo");
    EXPECT_EQ(property(u"AccountID"), Value(u"A1"));
    EXPECT_EQ(property(u"Amount"), Value(1200.0));
    EXPECT_EQ(property(u"Close Date"), Value(automation::to_date({2026, 4, 1})));
}

TEST_F(DeskFields, KeepWhatCannotBeReadAndTellIt) {
    struct Case {
        TextView title;
        const wchar_t *entered, *mended;
        Text told;
        Value value;
    };
    const Case cases[] = {
        {u"Close Date:", L"next week", L"2026-04-01",
         u"\"next week\" can't be read as a date: write it as 2026-03-05 10:30.",
         automation::to_date({2026, 4, 1})},
        {u"Amount:", L"a lot", L"12.5", u"\"a lot\" can't be read as a number.", Value(12.5)}};
    open(u"IPM.Post.Opportunity");
    turn_page();
    for (const Case& one : cases) {
        SCOPED_TRACE(automation::to_utf8(one.title));
        const Value before = property(one.title.substr(0, one.title.size() - 1));
        type(one.title, one.entered);
        EXPECT_FALSE(is_told(one.told)) << "who is still writing isn't told";
        leave(one.title);
        EXPECT_EQ(Text(reinterpret_cast<const char16_t*>(one.entered)), window_text(control(one.title)));
        EXPECT_TRUE(is_told(one.told));
        EXPECT_EQ(property(one.title.substr(0, one.title.size() - 1)), before);
        type(one.title, one.mended);
        leave(one.title);
        EXPECT_FALSE(is_told(one.told));
        EXPECT_EQ(property(one.title.substr(0, one.title.size() - 1)), one.value);
    }
}

TEST_F(DeskFields, ThatCannotBeReadAreNeitherPassedOverNorLostUnasked) {
    constexpr int yes = 6, no = 7;
    open(u"IPM.Post.Opportunity");
    turn_page();
    type(u"Amount:", L"1200");
    type(u"Close Date:", L"next week");
    turn_page();
    press(u"Save");
    EXPECT_FALSE(item->is_saved());
    EXPECT_EQ(window_text(control(u"Close Date:")), u"next week") << "its page is shown";
    surroundings.answer = no;
    PostMessageW(inspector_window(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(wait_until([&] { return !surroundings.questions.empty(); }));
    EXPECT_EQ(surroundings.questions,
              std::vector<Text>{u"\"next week\" can't be read as a date: write it as 2026-03-05 10:30.\n\n"
                                u"Do you want to close the window without it?"});
    run_messages();
    EXPECT_TRUE(inspector_window());
    type(u"Close Date:", L"2026-04-01");
    press(u"Save");
    EXPECT_TRUE(item->is_saved());
    type(u"Close Date:", L"some day");
    surroundings.answer = yes;
    PostMessageW(inspector_window(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(wait_until([] { return inspector_window() == nullptr; }));
}

}  // namespace
}  // namespace desk_tests
