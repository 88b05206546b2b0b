#include "tests/world/quick_view.h"

namespace acceptance {

using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

namespace {

constexpr TextView labels[] = {u"Contactname", u"CompanyName", u"Phone",       u"Fax",
                               u"Street1",     u"City",        u"State",       u"Zip",
                               u"cmbFolders",  u"Alignment",   u"Team",        u"AccountManager",
                               u"AccountID",   u"ContactID",   u"MessageClass"};
constexpr std::size_t many_folders = 12;

}  // namespace

const Fields keys_of_ann = {
    {u"AccountID", u"A-100"}, {u"ContactID", u"C-200"}, {u"Account Name", u"North Mill Ltd"}};

QuickView::QuickView(World& world) : AddInWindow(world, u"TW Quick View", u"lstItems", 3) {}

Lines QuickView::told() const {
    Lines lines;
    for (const TextView name : labels) {
        const std::string value = text(name);
        if (!value.empty()) lines.push_back(shown(name) + ": " + value);
    }
    return lines;
}

bool QuickView::refuses_drops() const {
    return failure_of([&] { control(u"lstItems").call(u"Drop", {1}); }) == automation::result::fail;
}

void QuickView::drop(std::int32_t row, std::int32_t column) const {
    control(u"lstItems").call(u"Drop", {row, column});
    EXPECT_TRUE(world_.wait_for_handlers());
    EXPECT_TRUE(world_.wait_until([&] { return is_open(); })) << "its caption is the usual one again";
}

void QuickView::close() const {
    window().call(u"Close");
    EXPECT_TRUE(closes());
    world_.settle();
}

World& SideView::viewing(const WorldSetup& setup) {
    World& world = with(setup);
    world.option(u"EnableQuickView", u"1");
    world.family(u"UserName", u"Mia Hart");
    world.family(u"Alignment", u"North");
    show_folder(world, world.inbox());
    return world;
}

void SideView::select(const Item& mail) {
    world().desk().call(u"Select", {Value(mail)});
    EXPECT_TRUE(world().wait_for_handlers());
}

Object SideView::call(TextView operation) {
    return call(operation, Value(world().application().ActiveExplorer().Selection()));
}

Object SideView::call(TextView operation, const Value& selection) {
    automation::Request request{
        .access = automation::Access::call, .member = operation, .arguments = {selection}, .by_reference = 1};
    world().connect().invoke(request);
    EXPECT_TRUE(world().wait_for_handlers());
    return request.arguments.at(0).to_object();
}

void SideView::press_entry() {
    world().desk().get(u"ContextMenu");
    const Object entry =
        find_control(world().application().Explorers().Item(1), u"Context Menu", u"Tarnwell Quick View");
    ASSERT_TRUE(entry);
    world().desk().call(u"Press", {Value(entry)});
}

ContactPlan SideView::full_contact() {
    return {.fields = {{u"Email1Address", u"ann.lee@northmill.example"},
                       {u"BusinessAddressStreet", u"1 Mill Lane"},
                       {u"BusinessAddressCity", u"York"},
                       {u"BusinessAddressState", u"Yorkshire"},
                       {u"BusinessAddressPostalCode", u"YO1"},
                       {u"BusinessTelephoneNumber", u"111"},
                       {u"BusinessFaxNumber", u"222"}}};
}

Item SideView::show_ann(const ContactPlan& contact) {
    add_contact(world(), contact);
    const Item mail = world().deliver(message());
    select(mail);
    EXPECT_TRUE(view().is_open());
    return mail;
}

void SideView::add_folders() {
    const host::outlook::Folders folders = world().account_profiles().Folders();
    for (auto i = static_cast<std::size_t>(folders.Count()); i < many_folders; ++i) {
        folders.call(u"Add", {Value(u"More " + automation::to_text(static_cast<long long>(i)))});
    }
}

void SideView::answer(TextView question, std::int32_t button) {
    world().desk().call(u"Answer", {u"Tarnwell", Value(question), button});
}

Lines SideView::programs(std::int32_t at_least) {
    const Object all = world().desk().get(u"Programs").to_object();
    world().wait_until([&] { return all.get(u"Count").to_integer() >= at_least; });
    Lines lines;
    const std::int32_t count = all.get(u"Count").to_integer();
    for (std::int32_t i = 1; i <= count; ++i) {
        const Object program = all.call(u"Item", {i}).to_object();
        lines.push_back(shown(program.get(u"CommandLine").to_text()) + " in " +
                        shown(program.get(u"Folder").to_text()));
    }
    return lines;
}

Item add_record(World& world, TextView folder, TextView message_class, TextView subject,
                const Fields& properties) {
    const Item record = world.below(folder).Items().Add(message_class);
    record.Subject(subject);
    for (const auto& [name, value] : properties) record.UserProperties().Item(name).value(value);
    record.Save();
    return record;
}

}  // namespace acceptance
