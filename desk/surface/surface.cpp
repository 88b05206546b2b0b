#include "desk/surface/surface.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/office/command_bars.h"
#include "desk/outlook/application.h"
#include "desk/outlook/explorers.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/item.h"
#include "desk/surface/description.h"
#include "desk/surface/surface_window.h"

namespace desk {

using automation::Arguments;
using automation::Failure;
using automation::Object;
using automation::Takes;
using automation::Text;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

/// Most items that `Select` takes in one call.
constexpr std::size_t most_selected = 20;

Value as_text(const Value& value) {
    if (value.is(Value::Type::array) || value.is(Value::Type::object)) {
        throw Failure(result::type_mismatch, u"The value can't be shown as text.");
    }
    return value.is(Value::Type::null) ? Value(u"") : Value(value.to_text());
}

/// The options that the desk can be asked for, as the outside spells them.
struct OptionRow {
    automation::TextView name;
    Value (*read)(const Options&);
    void (*write)(Options&, const Value&);
    bool from_next_start;
};

template <EventOrder order>
Value is_order(const Options& options) {
    return options.at_once == AtOnce::of(order);
}
template <EventOrder order>
void set_order(Options& options, const Value& value) {
    if (value.to_boolean()) {
        options.at_once = AtOnce::of(order);
    } else if (options.at_once == AtOnce::of(order)) {
        options.at_once = AtOnce::of(EventOrder::host);
    }
}

template <bool AtOnce::*events>
Value come_at_once(const Options& options) {
    return options.at_once.*events;
}
template <bool AtOnce::*events>
void have_come_at_once(Options& options, const Value& value) {
    options.at_once.*events = value.to_boolean();
}

constexpr OptionRow option_rows[] = {
    {u"InstantSearch", [](const Options& o) { return Value(o.instant_search); },
     [](Options& o, const Value& v) { o.instant_search = v.to_boolean(); }, false},
    {u"Language", [](const Options& o) { return Value(o.language); },
     [](Options& o, const Value& v) { o.language = v.to_integer(); }, false},
    {u"DeferredEvents", is_order<EventOrder::deferred>, set_order<EventOrder::deferred>, false},
    {u"EventsAtOnce", is_order<EventOrder::at_once>, set_order<EventOrder::at_once>, false},
    {u"AddsAtOnce", come_at_once<&AtOnce::adds>, have_come_at_once<&AtOnce::adds>, false},
    {u"ChangesAtOnce", come_at_once<&AtOnce::changes>, have_come_at_once<&AtOnce::changes>, false},
    {u"RemovalsAtOnce", come_at_once<&AtOnce::removals>, have_come_at_once<&AtOnce::removals>, false},
    {u"WordMail", [](const Options& o) { return Value(o.word_mail); },
     [](Options& o, const Value& v) { o.word_mail = v.to_boolean(); }, false},
    {u"HostVersion", [](const Options& o) { return Value(o.host_version); }, nullptr, true},
};

const OptionRow& option_row(const Text& name) {
    const auto found = std::ranges::find_if(
        option_rows, [&](const OptionRow& row) { return automation::same_ignoring_case(row.name, name); });
    if (found == std::end(option_rows)) {
        throw Failure(result::invalid_argument, u"The desk has no option \"" + name + u"\".");
    }
    return *found;
}

}  // namespace

Object Listing::parent() const { return desk().application()->surface(); }

Value Listing::at(std::int32_t place) const {
    if (place < 1 || static_cast<std::size_t>(place) > count_()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return element_(static_cast<std::size_t>(place - 1));
}

const automation::Members<Listing>& Listing::members() {
    static const automation::Members<Listing> table{
        {u"Count", automation::no_id, Use::get,
         [](Listing& self, const Arguments&) { return Value(static_cast<std::int32_t>(self.count())); }},
        {u"Item",
         automation::no_id,
         Use::method,
         {{u"Index", Takes::integer}},
         [](Listing& self, const Arguments& a) { return self.at(a[0].to_integer()); }},
    };
    return table;
}

Object Entry::parent() const { return desk().application()->surface(); }

const automation::Members<Entry>& Entry::members() {
    static const automation::Members<Entry> none{};
    return none;
}

Value Entry::other_member(automation::Request& request) {
    constexpr std::int32_t first = 1;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const std::int32_t id = first + static_cast<std::int32_t>(i);
        const bool meant = request.id == automation::default_member && request.member.empty() ? i == 0
                           : request.member.empty()
                               ? request.id == id
                               : automation::same_ignoring_case(fields_[i].first, request.member);
        if (!meant) continue;
        const automation::MemberFacts facts{fields_[i].first, id, Use::get, {}};
        if (request.access == automation::Access::identify) return automation::identify(facts, request);
        const std::vector<Value> rest = automation::arrange(facts, request);
        return rest.empty() ? fields_[i].second : automation::ask_default_member(fields_[i].second, rest);
    }
    automation::throw_no_member(request);
}

Object Surface::parent() const { return desk().application()->self(); }

Object Surface::messages() {
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [&all] { return all.messages.size(); },
               [&all](std::size_t i) {
                   const ShownMessage& message = all.messages.at(i);
                   return Value(std::make_shared<Entry>(
                                    all, Entry::Fields{{u"Text", message.text},
                                                       {u"Title", message.title},
                                                       {u"Style", static_cast<std::int32_t>(message.style)},
                                                       {u"Answer", std::int32_t{message.answer}}})
                                    ->self());
               })
        ->self();
}

Object Surface::programs() {
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [&all] { return all.surroundings().programs().size(); },
               [&all](std::size_t i) {
                   const StartedProgram program = all.surroundings().programs().at(i);
                   return Value(
                       std::make_shared<Entry>(all, Entry::Fields{{u"CommandLine", program.command_line},
                                                                  {u"Folder", program.folder}})
                           ->self());
               })
        ->self();
}

Object Surface::calls() {
    const auto taken = std::make_shared<const std::vector<CallCount>>(desk().surroundings().calls());
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [taken] { return taken->size(); },
               [&all, taken](std::size_t i) {
                   const CallCount& call = taken->at(i);
                   return Value(
                       std::make_shared<Entry>(
                           all, Entry::Fields{{u"Member", automation::from_utf8(call.member)},
                                              {u"Invocations", static_cast<std::int32_t>(call.invocations)},
                                              {u"NameLookups", static_cast<std::int32_t>(call.name_lookups)}})
                           ->self());
               })
        ->self();
}

Object Surface::statuses() {
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [&all] { return all.statuses.size(); },
               [&all](std::size_t i) { return Value(all.statuses.at(i)); })
        ->self();
}

Object Surface::filters() {
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [&all] { return all.filters.size(); },
               [&all](std::size_t i) { return Value(all.filters.at(i)); })
        ->self();
}

Object Surface::opened() {
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [&all] { return all.surroundings().opened().size(); },
               [&all](std::size_t i) { return Value(all.surroundings().opened().at(i)); })
        ->self();
}

Value Surface::live(const Value& kind) {
    const auto counts = std::make_shared<const std::vector<LiveCount>>(desk().surroundings().live());
    std::int32_t all = 0;
    for (const LiveCount& count : *counts) all += count.count;
    if (!kind.is_missing()) {
        const Text wanted = kind.to_text();
        for (const LiveCount& count : *counts) {
            if (automation::same_ignoring_case(automation::from_utf8(count.kind), wanted)) return count.count;
        }
        return 0;
    }
    Desk& owner = desk();
    const Object kinds =
        std::make_shared<Listing>(
            owner, [counts] { return counts->size(); },
            [&owner, counts](std::size_t i) {
                const LiveCount& count = counts->at(i);
                return Value(
                    std::make_shared<Entry>(owner, Entry::Fields{{u"Kind", automation::from_utf8(count.kind)},
                                                                 {u"Count", count.count}})
                        ->self());
            })
            ->self();
    return Value(
        std::make_shared<Entry>(owner, Entry::Fields{{u"Total", all},
                                                     {u"Count", static_cast<std::int32_t>(counts->size())},
                                                     {u"Item", Value(kinds)},
                                                     {u"Kinds", Value(kinds)}})
            ->self());
}

Value Surface::option(const Text& option_name) const {
    return option_row(option_name).read(desk().options());
}

void Surface::option(const Text& option_name, const Value& value) {
    const OptionRow& row = option_row(option_name);
    if (row.from_next_start) {
        desk().surroundings().remember_option(row.name, value.to_text());
    } else {
        row.write(desk().options(), value);
    }
}

void Surface::select(const std::vector<Value>& items) {
    std::vector<Object> selected;
    RowId folder = 0;
    for (const Value& value : items) {
        const Object object = value.to_object();
        const auto item = std::dynamic_pointer_cast<desk::Item>(object.target());
        if (!item) throw Failure(result::type_mismatch, u"Only items can be selected.");
        folder = item->folder();
        selected.push_back(object);
    }
    Explorer& explorer = active_explorer();
    const Object alive = explorer.self();
    if (folder != 0) explorer.show_folder(folder);  // one can only click what is shown
    explorer.select(std::move(selected));
}

void Surface::drag(const Value& folder, bool copies) {
    const RowId target = folder_of(folder).id();
    const Object alive = active_explorer().self();
    active_explorer().drop_selection_on(target, copies);
}

Explorer& Surface::active_explorer() {
    const auto& open = desk().explorers()->open;
    if (open.empty()) throw Failure(result::fail, u"There is no explorer.");
    return *open.back();
}

void Surface::press(const Value& control) {
    const auto button = std::dynamic_pointer_cast<CommandBarControl>(control.to_object().target());
    if (!button) throw Failure(result::type_mismatch, u"A control of a command bar is expected.");
    if (!button->is_there()) throw Failure(result::object_deleted, u"The control was deleted.");
    desk().surroundings().post([button] {
        if (button->is_there()) button->press();
    });
}

Object Surface::context_menu() { return active_explorer().context_menu()->self(); }

Object Surface::window(const Text& caption) {
    std::unique_ptr<WindowDriver> found = desk().surroundings().window(caption);
    if (!found) return {};
    return std::make_shared<SurfaceWindow>(desk(), std::move(found))->self();
}

void Surface::meanwhile(const Text& moment, const Object& object, const Text& member, const Value& value) {
    if (moment.empty()) throw Failure(result::invalid_argument, u"The moment needs a name.");
    desk().when(moment, [object, member, value] {
        if (value.is_missing()) {
            object.call(member);
            return;
        }
        if (value.is(Value::Type::array)) {  // a method with several arguments
            const automation::Array& all = value.to_array();
            automation::Request request{.access = automation::Access::call, .member = member};
            const automation::Array::Bounds bounds = all.dimensions().front();
            for (std::int32_t i = 0; i < bounds.count; ++i)
                request.arguments.push_back(all.at(bounds.lower + i));
            object.invoke(request);
            return;
        }
        try {
            object.put(member, value);
        } catch (const Failure& failure) {
            if (failure.number() != result::member_not_found) throw;
            object.call(member, {value});  // a method with one argument
        }
    });
}

void Surface::copies(const Object& original, std::int32_t count, const Text& field) {
    const auto item = std::dynamic_pointer_cast<Item>(original.target());
    if (!item) throw Failure(result::type_mismatch, u"Copies are made of an item.");
    const auto place = [&field](Item& of) {
        const Object property =
            of.self().get(u"UserProperties").to_object().call(u"Find", {Value(field)}).to_object();
        return property ? std::pair(property, Text(u"Value")) : std::pair(of.self(), field);
    };
    const auto [object, member] = place(*item);
    const Text text = object.get(member).to_text();
    const std::size_t digits = automation::to_text(count).size();
    for (std::int32_t i = 1; i <= count; ++i) {
        const std::shared_ptr<Item> twin = item->copy();
        const Text number = automation::to_text(i);
        const auto [twin_object, twin_member] = place(*twin);
        twin_object.put(twin_member, Value(text + u" " + Text(digits - number.size(), u'0') + number));
        twin->save();
    }
}

const automation::Members<Surface>& Surface::members() {
    static const auto select_parameters = [] {
        std::vector<automation::Parameter> parameters;
        for (std::size_t i = 0; i < most_selected; ++i) parameters.push_back({u"Item", Takes::value, true});
        return parameters;
    }();
    static const automation::Members<Surface> table{
        {u"Deliver",
         automation::no_id,
         Use::method,
         {{u"Path", Takes::text}},
         [](Surface& self, const Arguments& a) {
             return Value(self.desk().deliver(a[0].to_text())->self());
         }},
        {u"Answer",
         automation::no_id,
         Use::method,
         {{u"Title", Takes::text}, {u"Fragment", Takes::text}, {u"Button", Takes::integer}},
         [](Surface& self, const Arguments& a) {
             self.desk().answers.push_back({a[0].to_text(), a[1].to_text(), a[2].to_integer()});
             return Value();
         }},
        {u"Messages", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.messages()); }},
        {u"Statuses", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.statuses()); }},
        {u"Opened", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.opened()); }},
        {u"Programs", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.programs()); }},
        {u"Displayed", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) {
             Desk& desk = self.desk();
             return Value(std::make_shared<Listing>(
                              desk, [&desk] { return desk.displayed.size(); },
                              [&desk](std::size_t i) { return Value(desk.displayed.at(i)); })
                              ->self());
         }},
        {u"Pump",
         automation::no_id,
         Use::method,
         {{u"Milliseconds", Takes::integer}},
         [](Surface& self, const Arguments& a) {
             self.desk().surroundings().pump(a[0].to_integer());
             return Value();
         }},
        {u"Select", automation::no_id, Use::method, select_parameters,
         [](Surface& self, const Arguments& a) {
             std::vector<Value> items;
             for (std::size_t i = 0; i < most_selected && a.has(i); ++i) items.push_back(a[i]);
             self.select(items);
             return Value();
         }},
        {u"Drag",
         automation::no_id,
         Use::method,
         {{u"Folder", Takes::object}, {u"Copies", Takes::boolean, true}},
         [](Surface& self, const Arguments& a) {
             self.drag(a[0], a.has(1) && a[1].to_boolean());
             return Value();
         }},
        {u"Press",
         automation::no_id,
         Use::method,
         {{u"Control", Takes::object}},
         [](Surface& self, const Arguments& a) {
             self.press(a[0]);
             return Value();
         }},
        {u"ContextMenu", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.context_menu()); }},
        {u"Window",
         automation::no_id,
         Use::method,
         {{u"Caption", Takes::text}},
         [](Surface& self, const Arguments& a) { return Value(self.window(a[0].to_text())); }},
        {u"Options",
         automation::no_id,
         Use::get_put,
         {{u"Name", Takes::text}},
         [](Surface& self, const Arguments& a) {
             if (a.is_put()) self.option(a[0].to_text(), a.assigned());
             return a.is_put() ? Value() : self.option(a[0].to_text());
         }},
        {u"Live",
         automation::no_id,
         Use::get,
         {{u"Kind", Takes::text, true}},
         [](Surface& self, const Arguments& a) { return self.live(a[0]); }},
        {u"Text",
         automation::no_id,
         Use::method,
         {{u"Object", Takes::object}, {u"Member", Takes::text}},
         [](Surface&, const Arguments& a) { return as_text(a[0].to_object().get(a[1].to_text())); }},
        {u"Snapshot",
         automation::no_id,
         Use::method,
         {{u"Path", Takes::text}},
         [](Surface& self, const Arguments& a) {
             self.desk().surroundings().snapshot(a[0].to_text());
             return Value();
         }},
        // beyond the contract: for the desk's own tests and benchmarks
        {u"Fail",
         automation::no_id,
         Use::method,
         {{u"Member", Takes::text},
          {u"After", Takes::integer, true},
          {u"Times", Takes::integer, true},
          {u"Number", Takes::integer, true}},
         [](Surface& self, const Arguments& a) {
             self.desk().faults.push_back({a[0].to_text(), a.has(1) ? a[1].to_integer() : 0,
                                           a.has(2) ? a[2].to_integer() : 1,
                                           a.has(3) ? a[3].to_integer() : result::fail});
             return Value();
         }},
        {u"Meanwhile",
         automation::no_id,
         Use::method,
         {{u"Moment", Takes::text},
          {u"Object", Takes::object},
          {u"Member", Takes::text},
          {u"Value", Takes::value, true}},
         [](Surface& self, const Arguments& a) {
             self.meanwhile(a[0].to_text(), a[1].to_object(), a[2].to_text(), a[3]);
             return Value();
         }},
        {u"Copies",
         automation::no_id,
         Use::method,
         {{u"Item", Takes::object}, {u"Count", Takes::integer}, {u"Field", Takes::text}},
         [](Surface& self, const Arguments& a) {
             self.copies(a[0].to_object(), a[1].to_integer(), a[2].to_text());
             return Value();
         }},
        {u"Describe",
         automation::no_id,
         Use::method,
         {{u"Item", Takes::object}},
         [](Surface&, const Arguments& a) { return Value(description(a[0].to_object())); }},
        {u"Filters", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.filters()); }},
        {u"Raise",
         automation::no_id,
         Use::method,
         {{u"Event", Takes::text}},
         [](Surface& self, const Arguments& a) {
             self.desk().application()->raise(a[0].to_text());  // one of the application's, alone
             return Value();
         }},
        {u"Calls", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.calls()); }},
        {u"Telling", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.desk().telling()); }},
        {u"ResetCalls", automation::no_id, Use::method,
         [](Surface& self, const Arguments&) {
             self.desk().surroundings().reset_calls();
             return Value();
         }},
    };
    return table;
}

}  // namespace desk
