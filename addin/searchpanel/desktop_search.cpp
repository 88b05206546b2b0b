// What the system's search index knows of the shown record: mail of the mailbox, and files.
#include "addin/host/search.h"
#include "addin/searchpanel/panel_search.h"
#include "addin/searchpanel/result_texts.h"

namespace addin::searchpanel {

using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

constexpr TextView status = u"Searching Mailbox and Files... ";
constexpr TextView question_start =
    u"SELECT system.document.lastauthor,system.message.sendername,system.message.conversationIndex,"
    u"System.ItemURL,System.SourceItem,system.subject,system.Search.entryid,System.FileName,"
    u"System.ItemFolderPathDisplay,System.DateCreated,system.datemodified FROM SYSTEMINDEX WHERE Contains('";
constexpr TextView question_end = u"')";

constexpr TextView path_field = u"System.ItemFolderPathDisplay";
constexpr TextView file_folder = u"File Search";
constexpr char16_t separator = u'/';
constexpr TextView mailbox = u"/Mailbox";

/// Where a row's cells come from: files, and mail.
struct CellRow {
    int column;
    TextView field;
};
constexpr CellRow file_cells[] = {{column::subject, u"System.FileName"},
                                  {column::creator, path_field},
                                  {column::created, u"System.DateCreated"},
                                  {column::modified, u"System.DateModified"},
                                  {column::key, path_field}};
constexpr CellRow mail_cells[] = {{column::subject, u"System.Subject"},
                                  {column::creator, u"System.message.sendername"},
                                  {column::created, u"System.DateCreated"},
                                  {column::modified, u"System.DateModified"},
                                  {column::key, path_field}};

/// The folders inside of the store, of "/Mailbox - Pat/Inbox"; the whole where there is no second separator.
Text path_in_store(TextView path) {
    const TextView rest = path.substr(1);
    return Text(rest.substr(rest.find(separator) + 1));
}

}  // namespace

void PanelSearch::ask_index() {
    Text text;
    steps_.set(text, [&] { return automation::replaced(shown_.Subject(), u"'", u"''"); });
    caption(u"StoreID", status);
    if (!here_.give_way() || text.empty()) return;

    host::search::Connection connection;
    host::search::Recordset rows;
    steps_.set(connection, [&] {
        return host::search::Connection(session_.desktop.create(host::search::connection_prog_id));
    });
    steps_.set(rows, [&] {
        return host::search::Recordset(session_.desktop.create(host::search::recordset_prog_id));
    });
    steps_.run([&] { connection.Open(host::search::provider); });
    steps_.run(
        [&] { rows.Open(Text(question_start) + u'"' + text + u'"' + Text(question_end), connection); });
    steps_.run([&] { rows.MoveFirst(); });
    // where the rows' end can't be seen there are none, and where the next one can't be reached no further
    // ones
    bool more = true;
    const auto stands_on_one = [&] { return steps_.certainly([&] { return !rows.at_end(); }); };
    while (more && !gone() && stands_on_one()) {
        add_index_row([&](TextView name) { return rows.Fields().Item(name).value(); });
        more = steps_.run([&] { rows.MoveNext(); });
    }
    steps_.run([&] { rows.Close(); });
    steps_.run([&] { connection.Close(); });
}

void PanelSearch::add_index_row(const std::function<Value(TextView)>& field) const {
    Text path;
    steps_.set(path, [&] { return field(path_field).to_text(); });
    const bool is_mail = path.starts_with(separator);
    if (is_mail && !path.starts_with(mailbox)) return;  // another store's
    Cells cells;
    cells[column::folder] = is_mail ? path_in_store(path) : Text(file_folder);
    for (const CellRow& cell : is_mail ? std::span<const CellRow>(mail_cells) : file_cells) {
        fill(cells[static_cast<std::size_t>(cell.column)],
             [&] { return cell.field == path_field ? Value(path) : field(cell.field); });
    }
    steps_.run([&] { list().add(cells); });
}

}  // namespace addin::searchpanel
