#include "tests/world/note_dialog.h"
#include "tests/world/host_numbers.h"

namespace acceptance {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;
using host::outlook::Items;

namespace {

constexpr TextView caption = u"Tarnwell Create Note";
constexpr TextView list = u"lstRecipients";
constexpr int columns = 8;

std::string number(std::size_t value) { return std::to_string(value); }

}  // namespace

NoteDialog::NoteDialog(World& world) : AddInWindow(world, caption, list, columns) {}

NoteDialog::~NoteDialog() {
    try {
        if (is_open()) click(u"cmdCancel");
        EXPECT_TRUE(closes());
    } catch (const automation::Failure&) {
        // the host has gone, and the window with it
    }
}

bool NoteDialog::open(const OpenedItem& opened) {
    const Object button = find_control(opened.window, u"TarnwellCreateNote", u"CreateNoteButton");
    if (!button) return false;
    world_.desk().call(u"Press", {Value(button)});
    const bool up = world_.wait_until([&] { return is_open(); });
    world_.settle();
    return up;
}

bool NoteDialog::open_from_explorer() {
    world_.desk().get(u"ContextMenu");
    const Object explorer = world_.application().Explorers().Item(1);
    const Object entry = find_control(explorer, u"Context Menu", u"Tarnwell Create Note");
    if (!entry) return false;
    world_.desk().call(u"Press", {Value(entry)});
    const bool up = world_.wait_until([&] { return is_open(); });
    world_.settle();
    return up;
}

bool NoteDialog::header_becomes(TextView text) const {
    return world_.wait_until([&] { return control(u"lblHeader").get(u"Text").to_text() == text; });
}

void NoteDialog::search(TextView target, TextView text) const {
    choose(u"Combo2", target);
    type(u"SearchString", text);
    click(u"cmdSearch");
    EXPECT_TRUE(header_becomes(u"Search Complete for " + Text(text)));
}

void NoteDialog::create() const {
    const std::int32_t before = count_messages(world_), displayed_before = world_.displayed();
    world_.desk().call(u"Answer", {u"Tarnwell", u"Done - creating Note for ", ok});
    click(u"cmdSend");
    EXPECT_TRUE(world_.wait_until([&] { return count_messages(world_) > before; }));
    world_.settle();
    EXPECT_EQ(world_.displayed(), displayed_before) << "a note is posted without being shown";
}

NoteDialog& WithNoteDialog::opened(const Item& item) {
    close_dialog();
    mail_ = std::make_unique<OpenedItem>(item);
    mail_->show();
    dialog_ = std::make_unique<NoteDialog>(world());
    EXPECT_TRUE(dialog_->open(*mail_));
    return *dialog_;
}

NoteDialog& WithNoteDialog::opened_from_explorer(const Item& item) {
    close_dialog();
    world().desk().call(u"Select", {Value(item)});
    dialog_ = std::make_unique<NoteDialog>(world());
    EXPECT_TRUE(dialog_->open_from_explorer());
    return *dialog_;
}

void WithNoteDialog::close_dialog() {
    dialog_.reset();
    mail_.reset();
}

// Targets

Text named_field(TextView property) { return u"{00020329-0000-0000-C000-000000000046}," + Text(property); }

void write_targets_file(World& world, const std::string& bytes) {
    const Text path = world.write_file("twsystemfolder.ini", bytes);
    world.family(u"SpecialFolder", path.substr(0, path.find_last_of(u"\\/")));
}

Items system_items(World& world) {
    const host::outlook::Folder database(world.account_profiles().Parent());
    return database.Folders().Item(u"System Folder").Items();
}

namespace {

void write(const Item& record, TextView name, const Text& value) {
    constexpr std::int32_t text = 1;  // OlUserPropertyType
    record.UserProperties().Add(name, text, false).value(value);
}

}  // namespace

Item add_drop_down(World& world, const Text& name, const Text& definition) {
    const Item record = system_items(world).Add(u"IPM.Post.Folder Drop Down");
    record.Subject(name);
    write(record, u"FindDefinition", definition);
    record.Save();
    return record;
}

Item add_definition(World& world, const SearchTarget& target) {
    const Item record = system_items(world).Add(u"IPM.Post.ListDefinition");
    record.Subject(target.definition);
    for (std::size_t i = 0; i < target.fields.size(); ++i) {
        const Text place = automation::from_utf8(number(i + 1));
        write(record, u"ColumnName" + place, target.headings.at(i));
        write(record, u"FieldName" + place, target.fields.at(i));
        write(record, u"FieldType" + place, target.types.at(i));
    }
    write(record, u"KeyColumnName", target.key_heading);
    write(record, u"KeyFieldName", target.key_field);
    write(record, u"SearchFolder", target.folder);
    record.Body(target.filter);
    record.Save();
    return record;
}

void install(World& world, const std::vector<SearchTarget>& targets) {
    std::string file;
    for (const SearchTarget& target : targets) {
        file += "[" + shown(target.name) + "]\r\nDisplay in=" + target.display_in +
                "\r\nFindDefinition=" + shown(target.definition) + "\r\nFolder Name=" + shown(target.folder) +
                "\r\n\r\n";
        add_drop_down(world, target.name, target.definition);
        add_definition(world, target);
    }
    write_targets_file(world, file);
}

void install_many_records(World& world, std::int32_t count) {
    const Item first = world.below(u"Opportunities").Items().Add(u"IPM.Post.Opportunity");
    first.Subject(u"Mill");
    first.Save();
    world.desk().call(u"Copies", {Value(first), count - 1, u"Subject"});
    SearchTarget target{.folder = Text(accounts_path) + u"\\Opportunities",
                        .filter = u"[Subject] >= '<<mString>>' AND [Subject] < '<<UpperLimit>>'"};
    target.fields[0] = u"&H0037001E";
    install(world, {target});
}

// Records, notes and mails

Item add_account(World& world, const Fields& properties, const Text& subject) {
    const Item account = world.account_profiles().Items().Add(u"IPM.Post.Tarnwell_2000");
    account.Subject(subject);
    for (const auto& [name, value] : properties) write(account, name, value);
    account.Save();
    return account;
}

Item add_mill(World& world, const Text& manager, const Text& alignment) {
    return add_account(world,
                       {{u"AccountID", u"A-7"},
                        {u"Account Name", u"North Mill Ltd"},
                        {u"Account Manager", manager},
                        {u"Team", u"Sales"},
                        {u"Alignment", alignment},
                        {u"AccountAddress1", u"1 Mill Lane"},
                        {u"AccountCity", u"York"},
                        {u"Accountzip", u"YO1"},
                        {u"AccountState", u"Yorkshire"},
                        {u"AccountPhone", u"111"},
                        {u"Account Fax", u"222"}},
                       u"North Mill");
}

bool is_marked_by_user(const Item& mail) {
    return mail.get(u"FlagStatus").to_integer() == 1 &&
           mail.get(u"FlagRequest").to_text() == u"TW User Filed" &&
           mail.BillingInformation() == u"TW Auto Filed";
}

Lines message_texts(World& world, std::int32_t from) {
    const Object messages = world.desk().get(u"Messages").to_object();
    const std::int32_t count = messages.get(u"Count").to_integer();
    Lines texts;
    for (std::int32_t i = from + 1; i <= count; ++i) {
        texts.push_back(shown(messages.call(u"Item", {i}).to_object().get(u"Text").to_text()));
    }
    return texts;
}

}  // namespace acceptance
