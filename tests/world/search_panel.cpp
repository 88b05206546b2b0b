#include "tests/world/search_panel.h"

#include "tests/world/note_dialog.h"

namespace acceptance {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

namespace {

constexpr TextView list_name = u"lstItems";
constexpr int columns_of_panel = 7;

std::string joined_cells(const Lines& cells) {
    std::string line = cells.front();
    for (std::size_t i = 1; i < cells.size(); ++i) line += "|" + cells[i];
    return line;
}

void write_field(const Item& record, TextView name, const Text& value) {
    constexpr std::int32_t text = 1;  // OlUserPropertyType
    record.UserProperties().Add(name, text, false).value(value);
}

}  // namespace

PanelTarget contacts_target() { return {.folder = u"\\Account Contacts"}; }

PanelTarget accounts_target() {
    return {.name = u"Accounts",
            .definition = u"Accounts by id",
            .key = u"AccountID",
            .record_class = u"IPM.Post.Tarnwell_2000",
            .folder = {}};
}

PanelTarget inquiries_target() {
    return {.name = u"Inquiries",
            .definition = u"Inquiries by id",
            .key = u"Inquiry ID",
            .record_class = u"IPM.Post.CustomerService",
            .folder = u"\\Customer Service"};
}

void install_panel(World& world, const std::vector<PanelTarget>& targets) {
    std::string file;
    for (const PanelTarget& target : targets) {
        file += "[" + shown(target.name) + "]\r\nDisplay in=" + target.display_in +
                "\r\nFindDefinition=" + shown(target.definition) +
                "\r\nFolder Name=" + shown(Text(accounts_path) + target.folder) + "\r\n\r\n";
        const Item entry = add_drop_down(world, target.name, target.definition);
        write_field(entry, u"RecordType", u"Folder Drop Down");
        write_field(entry, u"MessageClass", target.record_class);
        entry.Save();
        const Item definition = system_items(world).Add(u"IPM.Post.ListDefinition");
        definition.Subject(target.definition);
        write_field(definition, u"RecordType", u"List Definition");
        write_field(definition, u"KeyColumnName", target.key);
        definition.Save();
    }
    write_targets_file(world, file);
}

Item add_record(const host::outlook::Folder& folder, TextView message_class, const Text& subject,
                const Fields& properties) {
    const Item record = folder.Items().Add(message_class);
    record.Subject(subject);
    for (const auto& [name, value] : properties) write_field(record, name, value);
    record.Save();
    return record;
}

Item add_note(World& world, const Text& subject, const Fields& properties) {
    return add_record(world.below(u"Notes"), u"IPM.Post.Note", subject, properties);
}

Item add_full_account(World& world, const Text& name, const Text& id) {
    return add_account(world,
                       {{u"AccountID", id},
                        {u"Account Name", name},
                        {u"AccountAddress1", u"1 Mill Lane"},
                        {u"AccountCity", u"York"},
                        {u"AccountState", u"NY"},
                        {u"Accountzip", u"12345"},
                        {u"AccountPhone", u"555 100"},
                        {u"AccountFax", u"555 101"}},
                       name);
}

Item add_full_contact(World& world, const Text& company) {
    return add_contact(
        world,
        {.company = company,
         .fields = {{u"Email1Address", u"ann.lee@northmill.example"},
                    {u"BusinessAddressStreet", u"2 Mill Lane"},
                    {u"BusinessAddressCity", u"Leeds"},
                    {u"BusinessAddressState", u"WA"},
                    {u"BusinessAddressPostalCode", u"98765"},
                    {u"BusinessTelephoneNumber", u"555 200"},
                    {u"BusinessFaxNumber", u"555 201"}},
         .properties = {{u"AccountID", u"A-100"}, {u"ContactID", u"C-200"}, {u"Account Name", company}}});
}

// The panel

SearchPanel::~SearchPanel() {
    try {
        for (int i = 0; i < 3 && is_open(); ++i) close();
    } catch (const automation::Failure&) {
        // the host has gone, and the window with it
    }
}

void SearchPanel::open() const {
    world_.connect().call(u"PowerPanel");
    world_.settle();
}

void SearchPanel::open_new(const Item& item) const {
    world_.connect().call(u"ShowItemsMenu", {Value(item)});
    world_.settle();
}

void SearchPanel::open_second(const Item& item) const {
    world_.connect().call(u"ShowItemsMenu2", {Value(item)});
    world_.settle();
}

void SearchPanel::search_for(const Item& item) const {
    if (!is_open()) open_second(Item());
    open_second(item);
    control(u"SearchMe").call(u"Select", {1});
    EXPECT_TRUE(ends());
}

bool SearchPanel::ends() const {
    // The status line is empty before the first folder, too, but not for several looks.
    constexpr int looks = 4;
    int quiet = 0;
    return world_.wait_until([&] {
        world_.settle();
        quiet = text(u"StoreID").empty() ? quiet + 1 : 0;
        return quiet >= looks;
    });
}

bool SearchPanel::is_open() const { return is_shown(window()); }

void SearchPanel::close() const {
    window().call(u"Close");
    world_.settle();
}

Object SearchPanel::window() const { return window_of(world_, panel_caption); }

Object SearchPanel::control(TextView name) const {
    return window().call(u"Control", {Value(name)}).to_object();
}

std::string SearchPanel::text(TextView name) const { return shown(control(name).get(u"Text").to_text()); }

Lines SearchPanel::entries() const {
    const Object box = control(u"SearchMe");
    const std::int32_t entry_count = box.get(u"Count").to_integer();
    Lines all;
    for (std::int32_t i = 1; i <= entry_count; ++i) all.push_back(shown(box.call(u"Item", {i}).to_text()));
    return all;
}

void SearchPanel::choose(TextView entry) const {
    const Lines all = entries();
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i] != shown(entry)) continue;
        control(u"SearchMe").call(u"Select", {static_cast<std::int32_t>(i) + 1});
        return;
    }
    ADD_FAILURE() << "there is no entry " << shown(entry);
}

void SearchPanel::click(TextView name) const {
    control(name).call(u"Click");
    world_.settle();
}

std::string SearchPanel::header() const {
    Lines cells;
    for (const TextView name :
         {u"Contactname", u"CompanyName", u"Phone", u"Fax", u"Street1", u"City", u"State", u"Zip"}) {
        cells.push_back(text(name));
    }
    return joined_cells(cells);
}

std::string SearchPanel::ids() const { return text(u"AccountID") + "|" + text(u"ContactID"); }

std::int32_t SearchPanel::count() const { return control(list_name).get(u"Count").to_integer(); }

std::string SearchPanel::cell(std::int32_t row, int column) const {
    const Object there = control(list_name).call(u"Item", {row}).to_object();
    return shown(column == 1 ? there.get(u"Text").to_text() : there.get(u"SubItems", {column - 1}).to_text());
}

Lines SearchPanel::rows() const {
    Lines told;
    const std::int32_t row_count = count();
    for (std::int32_t row = 1; row <= row_count; ++row) {
        told.push_back(joined_cells({cell(row, 1), cell(row, 2), cell(row, 3)}));
    }
    return told;
}

Lines SearchPanel::column(int number) const {
    Lines cells;
    const std::int32_t row_count = count();
    for (std::int32_t row = 1; row <= row_count; ++row) cells.push_back(cell(row, number));
    return cells;
}

void SearchPanel::select(std::int32_t row) const {
    control(list_name).call(u"Select", {row});
    world_.settle();
}

void SearchPanel::double_click() const {
    control(list_name).call(u"DoubleClick");
    world_.settle();
}

void SearchPanel::click_column(int number) const {
    control(list_name).call(u"ColumnClick", {number});
    world_.settle();
}

std::vector<std::int32_t> SearchPanel::marks() const {
    std::vector<std::int32_t> images;
    for (int i = 1; i <= columns_of_panel; ++i) {
        images.push_back(control(list_name).get(u"Columns", {i}).to_object().get(u"Image").to_integer());
    }
    return images;
}

std::vector<std::int32_t> SearchPanel::widths() const {
    std::vector<std::int32_t> all;
    for (int i = 1; i <= columns_of_panel; ++i) {
        all.push_back(control(list_name).get(u"Columns", {i}).to_object().get(u"Width").to_integer());
    }
    return all;
}

// The picker

bool Picker::comes_up() const {
    const bool up = world_.wait_until([&] { return is_shown(window_of(world_, caption_)); });
    world_.settle();
    return up;
}

Object Picker::control(TextView name) const {
    return window_of(world_, caption_).call(u"Control", {Value(name)}).to_object();
}

void Picker::click(TextView name) const {
    control(name).call(u"Click");
    world_.settle();
}

void Picker::highlight(std::int32_t row) const {
    control(list_name).call(u"Select", {row});
    world_.settle();
}

bool Picker::goes() const {
    return world_.wait_until([&] { return !is_shown(window_of(world_, caption_)); });
}

}  // namespace acceptance
