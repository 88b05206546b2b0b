// A whole day of one user, driven from outside, and then every item of all folders against what is expected.
#include <algorithm>
#include <array>
#include <span>

#include "tests/world/bars.h"
#include "tests/world/host_numbers.h"
#include "tests/world/item_state.h"
#include "tests/world/note_dialog.h"
#include "tests/world/outgoing.h"
#include "tests/world/whole_day.h"

namespace acceptance {
namespace {

using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Folders;
using host::outlook::Item;
using host::outlook::Items;
namespace default_folder = host::outlook::default_folder;

constexpr std::int32_t save_and_close = 0;

/// Ids that the day itself gives; any other one was made by the family.
constexpr std::array<std::string_view, 5> given_ids = {"", "A-100", "C-200", "AP-1", "TA-1"};

/// Dates that the day itself gives, those of its mails, and the host's "None"; any other one is the time of
/// the test.
constexpr std::array<std::string_view, 7> given_dates = {
    "4501-01-01 00:00:00", "2026-03-03 09:15:00", "2026-03-05 10:00:00", "2026-03-05 10:30:00",
    "2026-03-06 14:00:00", "2026-03-06 14:30:00", "2026-03-06 00:00:00"};

bool is_one_of(std::span<const std::string_view> all, std::string_view value) {
    return std::ranges::find(all, value) != all.end();
}

bool is_date(std::string_view value) {
    constexpr std::string_view form = "0000-00-00 00:00:00";
    return value.size() == form.size() && std::ranges::equal(value, form, [](char left, char right) {
               return right == '0' ? left >= '0' && left <= '9' : left == right;
           });
}

/// All items as text, the folders in the host's order. What differs from day to day is told by its kind; an
/// id that the family has made is told by a number, the same wherever it stands.
class Listing {
  public:
    explicit Listing(World& world) : world_(world) {}

    std::string of(const Folders& folders, const std::string& path = {}) {
        std::string all;
        const std::int32_t count = folders.Count();
        for (std::int32_t i = 1; i <= count; ++i) {
            const Folder folder = folders.Item(i);
            const std::string name = path.empty() ? shown(folder.Name()) : path + "/" + shown(folder.Name());
            all += of(folder.Items(), name) + of(folder.Folders(), name);
        }
        return all;
    }

  private:
    std::string of(const Items& items, const std::string& path) {
        std::string all;
        const std::int32_t count = items.Count();
        for (std::int32_t i = 1; i <= count; ++i) {
            all += path + "\n";
            std::string lines = shown(world_.desk().call(u"Describe", {Value(items.Item(i))}).to_text());
            for (std::size_t end = lines.find('\n'); end != std::string::npos; end = lines.find('\n')) {
                all += told(lines.substr(0, end));
                lines.erase(0, end + 1);
            }
        }
        return all;
    }

    /// A line of an item; nothing for what is empty or only repeats the mail's file.
    std::string told(const std::string& line) {
        const std::size_t colon = line.find(": ");
        // what an attached mail holds is shown where it is made
        if (line.starts_with("attachment ")) return "    " + line.substr(0, line.find(" \\n")) + "\n";
        if (colon == std::string::npos) return "    " + line + "\n";
        const std::string name = line.substr(0, colon);
        std::string value = line.substr(colon + 2);
        if (value.empty() || name.starts_with("Internet")) return {};
        const bool is_id = name.find("ID") != std::string::npos;
        if (is_id && !is_one_of(given_ids, value)) value = number_of(value);
        if (is_date(value) && !is_one_of(given_dates, value)) value = "(the time of the test)";
        return "    " + name + ": " + value + "\n";
    }

    /// One and the same id with and without the letter before it is told as such.
    std::string number_of(const std::string& id) {
        auto known = std::ranges::find(ids_, id);
        if (known == ids_.end()) known = ids_.insert(known, id);
        return "(id " + std::to_string(known - ids_.begin() + 1) + ")";
    }

    World& world_;
    std::vector<std::string> ids_;
};

class WholeDay : public WithNoteDialog {
  protected:
    World& company();

    void mails_come_in();
    void a_note_is_made();
    void mails_go_out();
    void contacts_are_made();
    void an_appointment_is_made_moved_and_deleted();
    void a_task_is_done();
    void a_template_is_saved();

    /// What the user does who fills in a form and presses "Save and Close".
    void save_form(const Item& item) {
        item.get(u"GetInspector").to_object().call(u"Close", {save_and_close});
        world().wait_for_handlers();
    }
};

World& WholeDay::company() {
    World& made = with({});
    made.family(u"EmailAutoFile", u"1");
    made.family(u"UserName", u"Tom Prior");
    made.family(u"Alignment", u"South");
    made.option(u"AutoFileSentEmails", u"1");
    made.option(u"PDAContactSync", u"1");
    add_account(made, {{u"AccountID", u"A-100"}, {u"Account Name", u"North Mill Ltd"}, {u"Team", u"Sales"}},
                u"North Mill Ltd");
    add_contact(made);
    return made;
}

void WholeDay::mails_come_in() {
    World& w = world();
    const Item from_ann = w.deliver(message({.subject = "Delivery dates"}));
    const Item stranger =
        w.deliver(message({.from = "Zoe Quill <zoe@quill.example>", .subject = "Who are you?"}));
    World::read(from_ann);
    World::read(stranger);
    EXPECT_TRUE(w.wait_for_handlers());
    const Item unread = w.deliver(message({.subject = "Not yet read"}));
    EXPECT_TRUE(unread.UnRead());
}

void WholeDay::a_note_is_made() {
    const Item mail = world().deliver(message({.subject = "A question by the way"}));
    NoteDialog& dialog = opened(mail);
    dialog.type(u"txtNote", u"She asks by the way");
    dialog.select(1);
    dialog.create();
    close_dialog();
    EXPECT_TRUE(is_marked_by_user(mail));
}

void WholeDay::mails_go_out() {
    World& w = world();
    new_mail(w).call(u"Send");
    new_mail(w, {.to = u"Zoe Quill <zoe@quill.example>", .subject = u"We are Tarnwell"}).call(u"Send");
    EXPECT_TRUE(w.wait_for_handlers());
}

void WholeDay::contacts_are_made() {
    World& w = world();
    // one is dragged into the shared folder
    const Item bob = new_item(w, contacts, u"IPM.Contact");
    bob.FullName(u"Bob Ray");
    bob.CompanyName(u"Ray & Sons");
    bob.Email1Address(u"bob@ray.example");
    bob.Save();
    w.desk().call(u"Select", {Value(bob)});
    w.settle();
    bob.Copy().Move(w.below(u"Account Contacts"));
    EXPECT_TRUE(w.wait_for_handlers());

    // another is converted to a lead
    const Item zoe = new_item(w, contacts, u"IPM.Contact");
    zoe.FullName(u"Zoe Quill");
    zoe.Email1Address(u"zoe@quill.example");
    zoe.Save();
    OpenedItem window(zoe);
    window.show();
    answer(w, u"Would you like to convert this contact to a Tarnwell Lead? ", yes);
    press(w, window.window, item_bar, u"ConvertLeadButton");
}

void WholeDay::an_appointment_is_made_moved_and_deleted() {
    World& w = world();
    const auto make = [&](TextView subject) {
        const Item item = new_item(w, default_folder::calendar, u"IPM.Appointment.TarnwellAppt");
        item.Display();
        item.Subject(subject);
        item.put(u"Start", automation::to_date({.year = 2026, .month = 3, .day = 5, .hour = 10}));
        item.UserProperties().Item(u"ApptID").value(Value(u"AP-1"));
        item.UserProperties().Item(u"AccountID").value(Value(u"A-100"));
        item.UserProperties().Item(u"ContactID").value(Value(u"C-200"));
        save_form(item);
        return item;
    };
    const Item item = make(u"Visit to the mill");
    item.Display();
    item.put(u"Start", automation::to_date({.year = 2026, .month = 3, .day = 6, .hour = 14}));
    save_form(item);
    item.call(u"Delete");
    EXPECT_TRUE(w.wait_for_handlers());
}

void WholeDay::a_task_is_done() {
    World& w = world();
    const Item task = new_item(w, default_folder::tasks, u"IPM.Task.TarnwellTask");
    task.Display();
    task.Subject(u"Send the price list");
    task.put(u"DueDate", automation::to_date({.year = 2026, .month = 3, .day = 6}));
    task.UserProperties().Item(u"TaskID").value(Value(u"TA-1"));
    task.UserProperties().Item(u"AccountID").value(Value(u"A-100"));
    save_form(task);
    task.Display();
    task.call(u"MarkComplete");
    save_form(task);
}

void WholeDay::a_template_is_saved() {
    World& w = world();
    OpenedItem window(w.deliver(
        message({.from = "Zoe Quill <zoe@quill.example>", .subject = "A greeting", .body = "Dear all\n"})));
    window.show();
    answer(w, u"Are you sure you want to create an email template from this email?", yes);
    answer(w, u"Email Template '", ok);
    press(w, window.window, item_bar, u"SaveAsTemplateButton");
}

TEST_F(WholeDay, LeavesEveryItemAsItIsMeant) {
    World& w = company();
    mails_come_in();
    a_note_is_made();
    mails_go_out();
    contacts_are_made();
    an_appointment_is_made_moved_and_deleted();
    a_task_is_done();
    a_template_is_saved();
    EXPECT_TRUE(w.wait_for_handlers());
    EXPECT_EQ(Listing(w).of(w.name_space().Folders()), whole_day);
    EXPECT_EQ(boxes(w), whole_day_boxes);
}

}  // namespace
}  // namespace acceptance
