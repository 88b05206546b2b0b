#include "desk/outlook/inspectors.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/base/host_event_tables.h"
#include "desk/base/kept.h"
#include "desk/office/command_bars.h"
#include "desk/outlook/application.h"
#include "desk/outlook/written_people.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Ignored;
using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

/// What a window calls its item, by the number of the item's class.
struct WindowName {
    std::int32_t number;
    automation::TextView name;
};
constexpr WindowName window_names[] = {
    {object_class::mail, u"Message"},    {object_class::appointment, u"Appointment"},
    {object_class::contact, u"Contact"}, {object_class::dist_list, u"Distribution List"},
    {object_class::task, u"Task"},       {object_class::journal, u"Journal Entry"},
    {object_class::note, u"Note"},       {object_class::post, u"Post"}};

constexpr std::int32_t editor_text = 1, editor_page = 2, editor_word = 4;  // OlEditorType

std::int32_t editor_of(const Inspector& inspector) {
    if (inspector.is_word_mail()) return editor_word;
    return inspector.item()->data().fields.contains(u"HTMLBody") ? editor_page : editor_text;
}

/// A button that the host itself has on the bar "Standard" of an inspector.
struct OwnButton {
    std::int32_t id;  ///< also its face
    TextView caption;
    bool (*is_on)(const Item&);
    void (*action)(Inspector&);
};

bool is_mail(const Item& item) { return item.kind().number == object_class::mail; }
bool is_sent_mail(const Item& item) { return is_mail(item) && item.field(u"Sent").to_boolean(); }
bool is_unsent_mail(const Item& item) { return is_mail(item) && !is_sent_mail(item); }

/// What a person has written goes out where everybody can be reached; a script may send to any address.
void send_written(Inspector& inspector) {
    const Text refusal = unreachable(inspector.item()->data());
    if (!refusal.empty()) throw Failure(result::fail, refusal);
    inspector.item()->send();
}

/// There is none if somebody who was told of it does not want it.
void show_answer(const std::shared_ptr<Item>& answer) {
    if (answer) answer->inspector()->display();
}

constexpr OwnButton own_buttons[] = {
    {own_button::send, u"Send", is_unsent_mail, send_written},
    {own_button::save_and_close, u"Save and Close", [](const Item& item) { return !is_mail(item); },
     [](Inspector& inspector) { inspector.close(save_mode::save); }},
    {own_button::save, u"Save", [](const Item& item) { return !is_sent_mail(item); },
     [](Inspector& inspector) { inspector.item()->save(); }},
    {own_button::reply, u"Reply", is_sent_mail,
     [](Inspector& inspector) { show_answer(inspector.item()->reply(false)); }},
    {own_button::reply_all, u"Reply All", is_sent_mail,
     [](Inspector& inspector) { show_answer(inspector.item()->reply(true)); }},
    {own_button::forward, u"Forward", is_sent_mail,
     [](Inspector& inspector) { show_answer(inspector.item()->forward()); }},
    {own_button::remove, u"Delete", [](const Item&) { return true; },
     [](Inspector& inspector) { inspector.item()->remove(); }},
};

constexpr std::uint32_t warning = 0x30, yes_no_cancel_warning = 0x33;  // MB_ICONWARNING, | MB_YESNOCANCEL
constexpr int answer_yes = 6, answer_no = 7;

/// Runs what a button of the host does. A person is told what fails.
void run_button(Desk& desk, const std::weak_ptr<CommandBars>& bars, const OwnButton& button) {
    const auto there = bars.lock();
    const auto inspector = there ? desk.inspectors()->with(*there) : nullptr;
    if (!inspector || !button.is_on(*inspector->item())) return;  // bars that are shared have those of all
    try {
        button.action(*inspector);
    } catch (const Failure& failure) {
        desk.surroundings().ask(failure.description(), u"Outlook", warning);
    }
}

}  // namespace

Inspector::Inspector(Desk& desk, std::shared_ptr<Item> item)
    : ModelObject(desk),
      item_(std::move(item)),
      is_word_mail_(desk.options().word_mail && item_->kind().number == object_class::mail) {
    left = 400, top = 240, width = 640, height = 500;
    if (is_word_mail_) {
        bars_ = desk.inspectors()->word_bars();
    } else {
        bars_ = CommandBars::with_own_bars(desk, {CommandBars::menu_bar, CommandBars::standard});
    }
    add_own_controls();
}

void Inspector::add_own_controls() {
    CommandBar& standard = *bars_->named(CommandBars::standard);
    const std::weak_ptr<CommandBars> bars = bars_;
    for (const OwnButton& button : own_buttons) {
        if (!button.is_on(*item_) || standard.find({.id = button.id})) continue;
        standard.add_own(button.id, button.caption,
                         [&desk = desk(), bars, &button] { run_button(desk, bars, button); });
    }
}

Object Inspector::parent() const { return desk().application()->self(); }

EventInterfaces Inspector::event_interfaces() const { return events::inspector; }

Text Inspector::caption() const {
    const Text subject = item_->subject();
    return (subject.empty() ? Text(u"Untitled") : subject) + u" - " +
           Text(std::ranges::find(window_names, item_->kind().number, &WindowName::number)->name);
}

void Inspector::kept_changed() { desk().surroundings().changed(); }

void Inspector::display() {
    if (was_closed_) throw Failure(result::object_deleted, u"The window has been closed.");
    auto& open = desk().inspectors()->open;
    const auto own = std::ranges::find(open, this, &std::shared_ptr<Inspector>::get);
    if (own != open.end()) {
        std::rotate(own, own + 1, open.end());
        come_up();
        return;
    }
    if (item_->id() != 0) item_->raise(u"Read");
    std::vector<Value> cancel{false};
    item_->raise_with_answer(u"Open", cancel);
    if (cancel[0].to_boolean()) return;
    open.push_back(shared_from_this());
    enter_back();
    desk().inspectors()->raise(u"NewInspector", {Value(self())});
    if (is_open()) come_up();
}

bool Inspector::take_care_of_changes(std::int32_t mode) {
    if (mode == save_mode::save) {
        item_->save();
    } else if (mode == save_mode::discard) {
        item_->revert();
    } else if (mode == save_mode::ask) {
        if (!item_->has_changes()) return true;
        const bool is_draft = is_unsent_mail(*item_) && item_->id() == 0;
        const int answer = desk().surroundings().ask(
            is_draft ? u"Do you want to keep this mail in Drafts?" : u"Do you want to save changes?",
            u"Outlook", yes_no_cancel_warning);
        if (answer == answer_yes) item_->save();
        if (answer == answer_no) item_->revert();
        return answer == answer_yes || answer == answer_no;
    } else {
        throw Failure(result::invalid_argument, u"There is no such mode of saving.");
    }
    return true;
}

void Inspector::close(std::int32_t mode) {
    const std::shared_ptr<Inspector> alive = shared_from_this();
    if (!take_care_of_changes(mode) || !is_open()) return;
    std::vector<Value> cancel{false};
    item_->raise_with_answer(u"Close", cancel);
    if (!cancel[0].to_boolean()) close_window();
}

void Inspector::close_by_user() {
    try {
        close(save_mode::ask);
    } catch (const Failure& failure) {  // it could not be saved, so it stays open
        desk().surroundings().ask(failure.description(), u"Outlook", warning);
    }
}

void Inspector::close_window() {
    const std::shared_ptr<Inspector> alive = shared_from_this();
    if (std::erase(desk().inspectors()->open, alive) == 0) return;
    was_closed_ = true;
    item_->shown_by.reset();
    leave(!is_word_mail_);
}

const automation::Members<Inspector>& Inspector::members() {
    static const automation::Members<Inspector> table{
        {u"CommandBars", 0x2100, Use::get, [](Inspector& self) { return self.bars()->self(); }},
        {u"CurrentItem", 0x2102, Use::get, [](Inspector& self) { return self.item()->self(); }},
        {u"Caption", 0x2111, Use::get, calls<&Inspector::caption>},
        {u"IsWordMail", 0x2105, Use::method, calls<&Inspector::is_word_mail>},
        {u"EditorType", 0x2110, Use::get, editor_of},
        {u"Left", 0x2115, kept<&Inspector::left, Inspector>},
        {u"Top", 0x2116, kept<&Inspector::top, Inspector>},
        {u"Width", 0x2117, kept<&Inspector::width, Inspector>},
        {u"Height", 0x2114, kept<&Inspector::height, Inspector>},
        {u"WindowState", 0x2112, kept<&Inspector::window_state, Inspector>},
        {u"Display", 0x2104, Use::method, {u"Modal"}, [](Inspector& self, Ignored) { self.display(); }},
        {u"Activate", 0x2113, Use::method, calls<&Inspector::display>},
        {u"Close", 0x2103, Use::method, {u"SaveMode"}, calls<&Inspector::close>},
    };
    return table;
}

Object Inspectors::parent() const { return desk().application()->self(); }

EventInterfaces Inspectors::event_interfaces() const { return events::inspectors; }

Object Inspectors::active() const { return open.empty() ? Object() : open.back()->self(); }

const std::shared_ptr<CommandBars>& Inspectors::word_bars() {
    if (!word_bars_) {
        word_bars_ = CommandBars::with_own_bars(desk(), {CommandBars::menu_bar, CommandBars::standard});
    }
    return word_bars_;
}

std::shared_ptr<Inspector> Inspectors::with(const CommandBars& bars) const {
    const auto found = std::find_if(open.rbegin(), open.rend(),
                                    [&](const auto& inspector) { return inspector->bars().get() == &bars; });
    return found == open.rend() ? nullptr : *found;
}

const automation::Members<Inspectors>& Inspectors::members() {
    static const automation::Members<Inspectors> table{
        {u"Count", 0x50, Use::get, [](Inspectors& self) { return self.open.size(); }},
        {u"Item",
         0x51,
         Use::method,
         {u"Index"},
         [](Inspectors& self, const Value& index) { return numbered(self.open, index)->self(); }},
        {u"Add",
         0x5F,
         Use::method,
         {u"Item"},
         [](Inspectors&, const Object& given) {
             const auto item = std::dynamic_pointer_cast<desk::Item>(given.target());
             if (!item) throw Failure(result::type_mismatch, u"An item is expected.");
             return item->inspector()->self();
         }},
    };
    return table;
}

}  // namespace desk
