// The options that can be read and written from outside.
#include <algorithm>

#include "desk/base/desk.h"
#include "desk/surface/surface.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::Value;
namespace result = automation::result;

namespace {

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

}  // namespace desk
