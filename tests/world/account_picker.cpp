#include "tests/world/account_picker.h"

#include "tests/world/people.h"

namespace acceptance {

using automation::Object;
using automation::TextView;
using automation::Value;

namespace {
constexpr TextView account_list = u"Account List", entries = u"lstItems";
}

bool AccountPicker::is_open() const { return is_shown(window_of(world_, account_list)); }

bool AccountPicker::opens() const {
    return world_.wait_until([this] { return is_open(); });
}

Object AccountPicker::control(TextView name) const {
    return window_of(world_, account_list).call(u"Control", {Value(name)}).to_object();
}

std::int32_t AccountPicker::count() const { return control(entries).get(u"Count").to_integer(); }

void AccountPicker::choose(TextView account) const {
    const Object list = control(entries);
    const std::int32_t entry_count = count();
    for (std::int32_t i = 1; i <= entry_count; ++i) {
        if (list.call(u"Item", {i}).to_object().get(u"Text").to_text() != account) continue;
        list.call(u"Select", {i});
        control(u"cmdOK").call(u"Click");
        return;
    }
    ADD_FAILURE() << "there is no account " << shown(account);
}

void AccountPicker::cancel() const { control(u"cmdCancel").call(u"Click"); }

}  // namespace acceptance
