#include "replicas/replicas.h"

#include <algorithm>

#include "core/settings.h"
#include "core/status_windows.h"
#include "core/steps.h"
#include "host/host_events.h"
#include "records/database.h"
#include "records/property_filters.h"
#include "records/stamp.h"

namespace addin::replicas {

using host::Object;
using host::Text;
using host::TextView;
using host::outlook::Folder;
using host::outlook::Inspectors;
using host::outlook::Item;
using host::outlook::Items;
using host::outlook::UserProperties;
namespace property = records::property;

namespace {

/// What the options that turn replicas off hold. Any other content, none as well, leaves them on.
constexpr TextView option_off = u"0";

constexpr records::Name task_properties[] = {
    property::account_manager, property::account_name,   property::account_id,       property::alignment,
    property::contact_name,    property::contact_id,     property::inquiry_id,       property::inquiry_type,
    property::note_id,         property::opportunity_id, property::opportunity_name, property::team,
    property::task_id};

/// Keeps the copy of one replication known in the session, until the replication has done with it.
class CopyUnderWay {
  public:
    explicit CopyUnderWay(Session& session)
        : copies_(session.copies_under_way), entry_(copies_.emplace(copies_.end())) {}
    ~CopyUnderWay() { copies_.erase(entry_); }
    CopyUnderWay(const CopyUnderWay&) = delete;
    CopyUnderWay& operator=(const CopyUnderWay&) = delete;

    void is_made(Text entry_id) {
        entry_->in_the_making = false;
        entry_->entry_id = std::move(entry_id);
    }

  private:
    std::list<ReplicaCopy>& copies_;
    std::list<ReplicaCopy>::iterator entry_;
};

/// Whether an event tells of the copy that a replication under way has made, and not of the user's doing. The
/// host tells of that copy as of any other item: while it is made, at the next yield, or when it is saved. A
/// handler that took it for a second item would delete it before it comes to the shared folder or, where no
/// key tells the two apart, copy the copy without end.
bool is_under_way(const Session& session, const Item& item) {
    const std::list<ReplicaCopy>& copies = session.copies_under_way;
    if (copies.empty()) return false;
    if (std::ranges::any_of(copies, &ReplicaCopy::in_the_making)) return true;
    Steps steps;
    Text id;
    steps.set(id, [&] { return item.EntryID(); });
    return !id.empty() && std::ranges::find(copies, id, &ReplicaCopy::entry_id) != copies.end();
}

/// One item's way to its shared folder, once the handler's guard has let it pass.
class Replication {
  public:
    Replication(Session& session, const ReplicaRow& row, const Item& item, TextView folder_name)
        : session_(session), row_(row), item_(item), folder_name_(folder_name) {}

    void run(Ending ending);

  private:
    bool is_linked();
    bool open_shared_folder();

    /// Deletes what bears the item's key: in its own folder all but the first, in the shared one all but the
    /// first `kept`. An item without a key is left as it is.
    void clean(std::int32_t kept);
    void delete_all_but(std::int32_t kept, const Folder& folder, const Text& filter);

    void copy_to_shared_folder(Ending ending);

    Session& session_;
    const ReplicaRow& row_;
    const Item& item_;
    TextView folder_name_;
    Steps steps_;
    Folder shared_;
};

void Replication::run(Ending ending) {
    if (!is_linked() || !open_shared_folder()) return;
    clean(0);
    steps_.run([&] { session_.SearchForm.show(); });
    steps_.run([&] { session_.SearchForm.window()->status(row_.status); });
    steps_.run([&] { session_.desktop.yield(); });
    copy_to_shared_folder(ending);
    steps_.run([&] { session_.SearchForm.hide(); });
    clean(1);  // a handler that ran in one of the yields may have put its own copy there
}

bool Replication::is_linked() {
    // both halves of a test are always asked, and one that can't be answered counts as passed
    return steps_.holds([&] {
        const bool is_of_class = item_.MessageClass() == row_.message_class;
        const bool is_elsewhere = Folder(item_.Parent()).Name() != folder_name_;
        return is_of_class && is_elsewhere;
    }) && steps_.holds([&] {
        const UserProperties properties = item_.UserProperties();
        const Text account = properties.Item(property::account_id).value().to_text();
        const Text contact = properties.Item(property::contact_id).value().to_text();
        return !host::trimmed(account + contact).empty();
    });
}

bool Replication::open_shared_folder() {
    const Folder account_profiles = records::open_database(steps_, session_.desktop).account_profiles;
    steps_.set(shared_, [&] { return Folder(account_profiles.Parent()).Folders().Item(folder_name_); });
    return static_cast<bool>(shared_);
}

void Replication::clean(std::int32_t kept) {
    Text filter;  // stays empty if the key can't be read, and the host refuses an empty one: nothing is found
    if (!steps_.holds([&] {
            const Text key = item_.UserProperties().Find(row_.key).value().to_text();
            filter = records::equality(row_.key, key);
            return !key.empty();
        })) {
        return;
    }
    Folder own;
    steps_.set(own, [&] { return Folder(item_.Parent()); });
    delete_all_but(1, own, filter);
    delete_all_but(kept, shared_, filter);
}

void Replication::delete_all_but(std::int32_t kept, const Folder& folder, const Text& filter) {
    Items found;
    steps_.set(found, [&] { return folder.Items().Restrict(filter); });
    if (kept > 0 && !steps_.holds([&] { return found.Count() > kept; })) return;
    std::int32_t last = 0;
    steps_.set(last, [&] { return found.Count(); });
    for (; last > kept; --last) steps_.run([&] { found.Item(last).call(u"Delete"); });
}

void Replication::copy_to_shared_folder(Ending ending) {
    const auto yield = [&] { steps_.run([&] { session_.desktop.yield(); }); };
    CopyUnderWay under_way(session_);
    Item copy;
    Text id;
    steps_.set(copy, [&] { return item_.Copy(); });
    steps_.set(id, [&] { return copy.EntryID(); });
    under_way.is_made(std::move(id));
    for (const records::Name name : row_.copied) {
        records::write_property(steps_, copy, name,
                                [&] { return item_.UserProperties().Item(name).value(); });
    }
    if (ending == Ending::save_and_delete) {
        steps_.run([&] { copy.Save(); });
        yield();
        steps_.run([&] { copy.call(u"Delete"); });
        return;
    }
    if (ending == Ending::yield_and_move) yield();
    steps_.run([&] { copy.Move(shared_); });
    yield();
}

bool is_off(const Session& session, const ReplicaRow& row) {
    return Settings(session.desktop).option(row.enabled) == option_off;
}

Text folder_name(const Session& session, const ReplicaRow& row) {
    const Text named = Settings(session.desktop).option(row.folder_option);
    return named.empty() ? Text(row.default_folder) : named;
}

/// Holds an object as the last inspector. Only what has an inspector's events can be held: for anything else
/// this fails, and the inspector that is held stays.
void hold_as_inspector(Connect& connect, const Object& object) {
    host::Sink trial;
    trial.connect(host::events::inspector, object, {});
    connect.watch_inspector(object);
}

/// Sets the guard if a window is open on a linked item. At a handler's end the item itself is offered as the
/// last inspector, too, which it is not.
enum class Offer { nothing, item };
void look_at_open_windows(Connect& connect, const ReplicaRow& row, Offer offer) {
    Steps steps;
    Inspectors open;
    std::int32_t count = 0;
    steps.set(open, [&] {
        return host::outlook::Application(connect.session().desktop.application()).Inspectors();
    });
    steps.set(count, [&] { return open.Count(); });
    for (std::int32_t i = 1; i <= count; ++i) {
        if (!steps.holds([&] { return open.Item(i).CurrentItem().MessageClass() == row.message_class; })) {
            continue;
        }
        connect.*row.guard = true;
        if (offer == Offer::item) steps.run([&] { hold_as_inspector(connect, open.Item(i).CurrentItem()); });
    }
}

}  // namespace

constinit const ReplicaRow calendar = {
    .guard = &Connect::GlobalCalendar,
    .enabled = setting::enable_global_calendar,
    .folder_option = setting::global_calendar,
    .default_folder = records::folder::global_calendar,
    .message_class = records::message_class::appointment,
    .key = property::appointment_id,
    .status = u"Updating Global Calendar ",
    .copied = {},
    .on_add = Ending::move,
    .on_change = Ending::move,
};

constinit const ReplicaRow tasks = {
    .guard = &Connect::GlobalTask,
    .enabled = setting::enable_global_tasks,
    .folder_option = setting::global_tasks,
    .default_folder = records::folder::global_tasks,
    .message_class = records::message_class::task,
    .key = property::task_id,
    .status = u"Updating Global Tasks ",
    .copied = task_properties,
    .on_add = Ending::save_and_delete,
    .on_change = Ending::yield_and_move,
};

void ItemAdd(Connect& connect, const ReplicaRow& row, const Item& item) {
    Session& session = connect.session();
    if (is_under_way(session, item) || is_off(session, row)) return;
    const Text name = folder_name(session, row);
    if (connect.*row.guard) Replication(session, row, item, name).run(row.on_add);
}

void ItemChange(Connect& connect, const ReplicaRow& row, const Item& item) {
    Session& session = connect.session();
    if (is_under_way(session, item) || is_off(session, row)) return;
    look_at_open_windows(connect, row, Offer::nothing);
    if (!(connect.*row.guard)) return;
    const Text name = folder_name(session, row);
    Replication(session, row, item, name).run(row.on_change);
    connect.*row.guard = false;
    look_at_open_windows(connect, row, Offer::item);
}

void goCalendar_ItemRemove() {}

}  // namespace addin::replicas
