#include "addin/conversions/new_contacts.h"

#include <functional>

#include "addin/ground/settings.h"
#include "addin/ground/steps.h"
#include "addin/records/database.h"
#include "addin/records/names.h"
#include "addin/records/stamp.h"

namespace addin::conversions {

using automation::Value;
using host::outlook::Item;
using host::outlook::Selection;
namespace message_class = records::message_class;
namespace property = records::property;

namespace {

constexpr automation::TextView option_off = u"0";

/// The arrival of one contact.
class Arrival {
  public:
    Arrival(Session& session, const Item& item) : session_(session), item_(item) {}

    void run();

  private:
    void of_one_selected();
    void of_several_selected();
    void stamp();
    bool is_source(const std::function<Item()>& selected);
    void tie_source();  ///< it learns the id of its record, where contacts are synchronised
    void switch_on() { Settings(session_).store(setting::pda_contact_sync, option_on); }

    Session& session_;
    const Item& item_;
    Steps steps_{session_};
    host::family::MainAddIn main_add_in_;
    Selection selection_;
    Item source_;  ///< what the contact was copied from
    bool source_is_known_ = false;
    bool synchronised_ = false;
};

void Arrival::run() {
    if (steps_.certainly([&] {
            const bool contact = message_class::is_contact(item_.MessageClass());
            return item_.MessageClass() == message_class::account_contact || !contact;
        })) {
        return;
    }
    steps_.set(main_add_in_, [&] { return records::make_main_add_in(session_.desktop); });
    Settings settings(session_);
    synchronised_ = settings.option(setting::pda_contact_sync) == option_on;
    if (synchronised_) settings.store(setting::pda_contact_sync, option_off);

    steps_.set(selection_, [&] {
        return host::outlook::Application(session_.desktop.application()).ActiveExplorer().Selection();
    });
    if (steps_.possibly([&] { return selection_.Count() == 1; })) {
        of_one_selected();
    } else {
        of_several_selected();
    }
    main_add_in_.reset();
    if (!synchronised_) return;
    switch_on();
    // nobody else would switch it on again
    if (settings.option(setting::pda_contact_sync) != option_on) switch_on();
}

void Arrival::of_one_selected() {
    // a failure tells that the contact has no id
    if (steps_.run([&] { item_.UserProperties().Item(property::contact_id).value(); })) return;

    steps_.set(source_, [&] { return selection_.Item(1); });
    if (is_source([&] { return source_; })) {
        stamp();
        steps_.run([&] { item_.Save(); });
        tie_source();
    } else if (synchronised_) {
        switch_on();
        stamp();
        steps_.run([&] { item_.Save(); });
    }
}

void Arrival::of_several_selected() {
    std::int32_t count = 0;
    steps_.set(count, [&] { return selection_.Count(); });
    for (std::int32_t i = 1; i <= count; ++i) {
        if (!is_source([&] { return selection_.Item(i); })) continue;
        steps_.set(source_, [&] { return selection_.Item(i); });
        stamp();
        tie_source();
        steps_.run([&] { item_.Save(); });
    }
    if (synchronised_) switch_on();
}

void Arrival::stamp() {
    struct Stamped {
        records::Name name;
        Value (*value)(const Arrival&);
    };
    constexpr Stamped all[] = {
        {property::contact_id, [](const Arrival& a) { return Value(a.main_add_in_.generateid()); }},
        {property::account_manager, [](const Arrival& a) { return Value(a.main_add_in_.GetUserName()); }},
        {property::team, [](const Arrival& a) { return Value(a.main_add_in_.GetUserName()); }},
        {property::alignment, [](const Arrival& a) { return Value(a.main_add_in_.GetAlignment()); }},
        {property::account_name, [](const Arrival& a) { return Value(a.item_.CompanyName()); }},
    };
    steps_.run([&] { item_.MessageClass(message_class::account_contact); });
    for (const Stamped& one : all) {
        steps_.run([&] { item_.UserProperties().Add(one.name, host::outlook::text_property, false); });
        records::write_property(session_, item_, one.name, [&] { return one.value(*this); });
    }
}

bool Arrival::is_source(const std::function<Item()>& selected) {
    source_is_known_ = false;
    return steps_.possibly([&] {
        const bool same = item_.Subject() == selected().Subject();
        source_is_known_ = true;
        return same;
    });
}

void Arrival::tie_source() {
    // where it couldn't be told whose copy the contact is, what is selected may be anything of the user's
    if (!synchronised_ || !source_is_known_) return;
    steps_.run([&] {
        const Value id = item_.UserProperties().Item(property::contact_id).value();
        source_.CustomerID(id.to_text());
    });
    steps_.run([&] { source_.Save(); });
}

}  // namespace

void goContacts_ItemAdd(Session& session, const Item& Item) { Arrival(session, Item).run(); }

}  // namespace addin::conversions
