// Which targets the dialog offers, and the definition of the chosen one.
#include <span>

#include "addin/createnote/dlg_send.h"
#include "addin/createnote/search_targets.h"
#include "addin/ground/product.h"
#include "addin/host/cdo.h"
#include "addin/records/database.h"
#include "addin/records/names.h"

namespace addin::createnote {

using automation::Text;
using automation::TextView;
using host::family::MainAddIn;
using host::outlook::Folder;
using host::outlook::Item;

namespace {

constexpr TextView not_there = u"Invalid List Definition Record in the Tarnwell System Folder";

// the records of the "System Folder" by class and subject
constexpr TextView class_start = u"@SQL=\"", class_property = u"mapi/proptag/0x001a001e\" = '",
                   subject_start = u"' AND \"urn:schemas:httpmail:subject\" = '", filter_end = u"'";

/// The same search in the words of the host's language. What stands at 2067 belongs to another language, and
/// stays: that one has no row, so it makes no such search.
struct LanguageRow {
    std::span<const std::int32_t> locales;
    TextView filter;
};
constexpr std::int32_t english[] = {1033, 2057}, dutch[] = {1043}, belgian[] = {2067},
                       french[] = {1036, 2060, 3084}, german[] = {1031}, italian[] = {1040},
                       spanish[] = {1034, 2058, 3082};
constexpr LanguageRow languages[] = {
    {english, u"[Message Class] = 'IPM.Post.ListDefinition' AND [Subject] = '"},
    {dutch, u"[BerichtKlasse] = 'IPM.Post.ListDefinition' AND [Onderwerp] = '"},
    {belgian, u"[MeddelelsesKlasse] = 'IPM.Post.ListDefinition' AND [Emne] = '"},
    {french, u"[ClasseDuMessage] = 'IPM.Post.ListDefinition' AND [Objet] = '"},
    {german, u"[Nachrichtenklasse] = 'IPM.Post.ListDefinition' AND [Betreff] = '"},
    {italian, u"[ClasseMessaggio] = 'IPM.Post.ListDefinition' AND [Oggetto] = '"},
    {spanish, u"[ClaseMensaje] = 'IPM.Post.ListDefinition' AND [Asunto] = '"},
};

/// The filter head for a language; null if there is none.
const LanguageRow* row_of(std::int32_t locale) {
    for (const LanguageRow& row : languages) {
        for (const std::int32_t known : row.locales) {
            if (known == locale) return &row;
        }
    }
    return nullptr;
}

Text numbered(TextView name, std::size_t place) {
    return Text(name) + automation::to_text(static_cast<long long>(place) + 1);
}

Text text_of(const Item& item, const Text& name) {
    return item.UserProperties().Item(name).value().to_text();
}

/// Reads the definition's values, each into its place; one that can't be read keeps the value of before.
void read_definition(const Session& session, const Item& item,
                     const host::family::SafeRecordItem& safe_record, records::ListDefinition& definition) {
    const Steps steps(session);
    const auto read = [&](Text& target, const Text& name) {
        steps.set(target, [&] { return text_of(item, name); });
    };
    const auto read_all = [&](auto& targets, TextView name) {
        for (std::size_t i = 0; i < targets.size(); ++i) read(targets[i], numbered(name, i));
    };
    read_all(definition.ColumnName, u"ColumnName");
    read(definition.KeyColumnName, u"KeyColumnName");
    read_all(definition.FieldName, u"FieldName");
    read(definition.KeyFieldName, u"KeyFieldName");
    steps.set(definition.filter_template, [&] { return records::as_template(safe_record.Body()); });
    read_all(definition.FieldType, u"FieldType");
    read(definition.SearchFolder, u"SearchFolder");
}

/// The "System Folder": by its own id, or beside or inside the accounts' folder.
Folder open_system_folder(Session& session, const MainAddIn& main_add_in, const host::cdo::Folder& accounts) {
    const Steps steps(session);
    Folder system;
    steps.set(system,
              [&] { return records::open_folder(session.desktop, main_add_in, records::folder::system); });
    if (system) return system;
    steps.set(system, [&] {
        return host::outlook::Application(session.desktop.application())
            .GetNamespace(u"MAPI")
            .GetFolderFromID(accounts.ID(), accounts.StoreID());
    });
    const Folder profiles = system;
    steps.set(system, [&] { return Folder(profiles.Parent()).Folders().Item(records::folder::system); });
    steps.set(system, [&] { return system.Folders().Item(records::folder::system); });
    return system;
}

}  // namespace

void dlgSend::LoadFindDefinitions() {
    const MainAddIn main_add_in = records::make_main_add_in(session_.desktop);
    const Text folder = main_add_in.getspecialfolderlocation();
    forms::Choice& targets = choice(u"Combo2");
    for (const SearchTarget& target : read_targets(session_.desktop, folder, in_create_note)) {
        targets.add(target.name);
    }
    targets.add(search_by_email);
}

void dlgSend::GetListDef() {
    host::Desktop& desktop = session_.desktop;
    const Steps steps(session_);
    MainAddIn main_add_in;
    Text special_folder;
    steps.set(main_add_in, [&] { return records::make_main_add_in(desktop); });
    steps.set(special_folder, [&] { return main_add_in.getspecialfolderlocation(); });
    if (!state_.cdo) {
        steps.set(state_.cdo,
                  [&] { return host::cdo::CdoSession(desktop.create(host::cdo::session_prog_id)); });
        steps.run([&] { state_.cdo.Logon(); });
    }
    desktop.pointer(forms::Pointer::hourglass);

    host::outlook::Application application;
    steps.set(application, [&] { return host::outlook::Application(desktop.application()); });
    host::cdo::Folder accounts;
    steps.set(accounts, [&] {
        const Text id = main_add_in.GetFolderId(records::folder::account_profiles);
        return state_.cdo.GetFolder(id, main_add_in.GetStoreId());
    });
    const Folder system = open_system_folder(session_, main_add_in, accounts);
    const auto found = [&](records::Name message_class, const Text& subject) {
        const Text filter = Text(class_start) + Text(records::schema_root) + Text(class_property) +
                            Text(message_class) + Text(subject_start) + subject + Text(filter_end);
        return system.Items().Restrict(filter).Item(1);
    };
    Text chosen, definition;
    steps.set(chosen, [&] { return control(u"Combo2").text(); });
    const Presence here(session_, *this);
    steps.set(definition, [&] {
        return text_of(found(records::message_class::folder_drop_down, chosen),
                       Text(records::property::find_definition));
    });
    Item record;
    steps.set(record, [&] { return found(records::message_class::list_definition, definition); });
    host::family::SafeRecordItem safe_record;
    if (record) {
        steps.set(safe_record, [&] { return host::family::SafeRecordItem::of_post(desktop); });
        steps.run([&] { safe_record.Item(record); });
    } else {
        std::int32_t locale = 0;
        steps.set(locale, [&] {
            return application.LanguageSettings().LanguageID(host::office::language_of_windows);
        });
        if (const LanguageRow* const row = row_of(locale)) {
            steps.set(record,
                      [&] { return system.Items().Find(Text(row->filter) + definition + Text(filter_end)); });
        }
    }
    if (!record) desktop.message_box(not_there, product_title, host::box::critical);

    Folder unused;  // asked for, though nothing uses it
    steps.set(unused,
              [&] { return Folder(main_add_in.ReturnFolderFromPath(text_of(record, u"SearchFolder"))); });
    read_definition(session_, record, safe_record, state_.list_definition);

    if (here.lasts()) show_headings(record);  // a box gives way, too
    if (here.give_way()) list().clear();
    const bool lasts = here.give_way();
    desktop.pointer(forms::Pointer::standard);
    if (lasts) control(u"SearchString").focus();
    state_.cdo.reset();
}

void dlgSend::show_headings(const Item& definition) {
    const Steps steps(session_);
    for (std::size_t i = 0; i < records::shown_fields; ++i) {
        list().heading(static_cast<int>(i), state_.list_definition.ColumnName[i]);
    }
    steps.run([&] { list().heading(column::key, text_of(definition, u"KeyColumnName")); });
}

}  // namespace addin::createnote
