#include "addin/replicas/replicas.h"

#include <algorithm>
#include <optional>

#include "addin/ground/presence.h"
#include "addin/ground/settings.h"
#include "addin/ground/status_windows.h"
#include "addin/ground/steps.h"
#include "addin/host/host_events.h"
#include "addin/records/database.h"
#include "addin/records/property_filters.h"
#include "addin/records/stamp.h"

namespace addin::replicas {

using automation::Object;
using automation::Text;
using automation::TextView;
using host::outlook::Folder;
using host::outlook::Inspectors;
using host::outlook::Item;
using host::outlook::Items;
using host::outlook::UserProperties;
using host::outlook::UserProperty;
namespace property = records::property;

namespace {

/// What the options that turn replicas off hold. Any other content, none as well, leaves them on.
constexpr TextView option_off = u"0";

constexpr records::Name task_properties[] = {
    property::account_manager, property::account_name,   property::account_id,       property::alignment,
    property::contact_name,    property::contact_id,     property::inquiry_id,       property::inquiry_type,
    property::note_id,         property::opportunity_id, property::opportunity_name, property::team,
    property::task_id};

/// Keeps the copy of one replication known to all others, until the replication has done with it.
class CopyUnderWay {
  public:
    CopyUnderWay(State& state, const Item& source)
        : steps_(state.session),
          copies_(state.copies_under_way),
          entry_(copies_.insert(copies_.end(), {.source = source})) {}
    ~CopyUnderWay() { copies_.erase(entry_); }
    CopyUnderWay(const CopyUnderWay&) = delete;
    CopyUnderWay& operator=(const CopyUnderWay&) = delete;

    /// Nothing if it couldn't be made.
    void is_made(Item copy) {
        entry_->in_the_making = false;
        entry_->copy = std::move(copy);
        learn_id();
    }

    /// A copy that was not yet saved may have no id.
    void learn_id() {
        steps_.set(entry_->entry_id, [&] { return entry_->copy.EntryID(); });
    }

  private:
    Steps steps_;
    std::list<ReplicaCopy>& copies_;
    std::list<ReplicaCopy>::iterator entry_;
};

/// The text of a property; empty where the item has none. Throws `Failure` if it can't be read.
Text property_text(const Item& item, records::Name name) {
    const UserProperty found = item.UserProperties().Find(name);
    return found ? found.value().to_text() : Text();
}

/// Whether an item may be a copy, as far as it can be told without the copy's id: nothing that they have in
/// common is different. As long as the copy isn't at hand, its source stands for it; hosts put a word of
/// theirs before a copy's subject.
bool may_be_copy(const Session& session, const ReplicaRow& row, const ReplicaCopy& one, const Item& item,
                 const Text& id) {
    const Steps steps(session);
    const Item& like = one.copy ? one.copy : one.source;
    const auto property_differs = [&](records::Name name) {
        return steps.certainly([&] { return property_text(item, name) != property_text(like, name); });
    };
    if (steps.certainly([&] { return !id.empty() && id == one.source.EntryID(); }))
        return false;  // the source itself
    if (steps.certainly([&] { return item.MessageClass() != row.message_class; })) return false;
    if (property_differs(row.key) || property_differs(property::account_id) ||
        property_differs(property::contact_id)) {
        return false;
    }
    return steps.possibly([&] { return item.Subject().ends_with(like.Subject()); });
}

/// Whether an event tells of the copy that a replication under way has made, and not of the user's doing. The
/// host tells of that copy as of any other item: while it is made, at the next yield, or when it is saved. A
/// handler that took it for a second item would delete it before it comes to the shared folder or, where no
/// key tells the two apart, copy the copy without end.
bool is_under_way(const State& state, const ReplicaRow& row, const Item& item) {
    const std::list<ReplicaCopy>& copies = state.copies_under_way;
    if (copies.empty()) return false;
    const Steps steps(state.session);
    Text id;
    steps.set(id, [&] { return item.EntryID(); });
    return std::ranges::any_of(copies, [&](const ReplicaCopy& one) {
        if (!one.copy && !one.in_the_making) return false;
        Text copy_id = one.entry_id;
        if (copy_id.empty() && one.copy) steps.set(copy_id, [&] { return one.copy.EntryID(); });
        if (!id.empty() && !copy_id.empty()) return id == copy_id;
        return may_be_copy(state.session, row, one, item, id);
    });
}

/// One item's way to its shared folder, once the handler's guard has let it pass.
class Replication {
  public:
    Replication(State& state, const ReplicaRow& row, const Item& item, TextView folder_name)
        : here_(state.session),
          state_(state),
          session_(state.session),
          row_(row),
          item_(item),
          folder_name_(folder_name) {}

    void run(Ending ending);

  private:
    bool is_linked();
    bool open_shared_folder();

    /// Deletes what bears the item's key: in its own folder all but the first, in the shared one all but the
    /// first `kept`. An item without a key, or whose key can't be read, is left as it is.
    void clean(std::int32_t kept);
    void delete_all_but(std::int32_t kept, const Folder& folder, const Text& key);

    /// Whether an item is known to bear a key. The key is foreign text: as a part of a filter it may find
    /// what doesn't bear it.
    bool bears(const Item& item, const Text& key);

    void copy_to_shared_folder(Ending ending);

    Presence here_;  ///< goes last
    State& state_;
    Session& session_;
    const ReplicaRow& row_;
    const Item& item_;
    TextView folder_name_;
    Steps steps_{session_};
    Folder shared_;
};

void Replication::run(Ending ending) {
    if (!is_linked() || !open_shared_folder()) return;
    clean(0);
    steps_.run([&] { session_.SearchForm.show(); });
    steps_.run([&] { session_.SearchForm.window()->status(row_.status); });
    here_.give_way();
    copy_to_shared_folder(ending);
    steps_.run([&] { session_.SearchForm.hide(); });
    clean(1);  // a handler that ran in one of the yields may have put its own copy there
}

bool Replication::is_linked() {
    // both halves of a test are always asked, and one that can't be answered stops nothing
    return steps_.possibly([&] {
        const bool is_of_class = item_.MessageClass() == row_.message_class;
        const bool is_elsewhere = Folder(item_.Parent()).Name() != folder_name_;
        return is_of_class && is_elsewhere;
    }) && steps_.possibly([&] {
        const UserProperties properties = item_.UserProperties();
        const Text account = properties.Item(property::account_id).value().to_text();
        const Text contact = properties.Item(property::contact_id).value().to_text();
        return !automation::trimmed(account + contact).empty();
    });
}

bool Replication::open_shared_folder() {
    const Folder account_profiles = records::open_database(session_).account_profiles;
    steps_.set(shared_, [&] { return Folder(account_profiles.Parent()).Folders().Item(folder_name_); });
    return static_cast<bool>(shared_);
}

void Replication::clean(std::int32_t kept) {
    std::optional<Text> key;
    steps_.set(key, [&] { return item_.UserProperties().Find(row_.key).value().to_text(); });
    if (!key || key->empty()) return;  // no filter can be formed, and without one nothing is looked for
    Folder own;
    steps_.set(own, [&] { return Folder(item_.Parent()); });
    delete_all_but(1, own, *key);
    delete_all_but(kept, shared_, *key);
}

void Replication::delete_all_but(std::int32_t kept, const Folder& folder, const Text& key) {
    Items found;
    steps_.set(found, [&] { return folder.Items().Restrict(records::equality(row_.key, key)); });
    if (kept > 0 && steps_.certainly([&] { return found.Count() <= kept; })) return;
    std::int32_t last = 0, first = 1;
    steps_.set(last, [&] { return found.Count(); });
    const auto item_at = [&](std::int32_t place) {
        Item item;
        steps_.set(item, [&] { return found.Item(place); });
        return item;
    };
    for (; kept > 0 && first <= last; ++first) {
        if (bears(item_at(first), key)) --kept;
    }
    for (; last >= first; --last) {
        const Item item = item_at(last);
        if (bears(item, key)) steps_.run([&] { item.call(u"Delete"); });
    }
}

bool Replication::bears(const Item& item, const Text& key) {
    return steps_.certainly([&] { return item.UserProperties().Find(row_.key).value().to_text() == key; });
}

void Replication::copy_to_shared_folder(Ending ending) {
    CopyUnderWay under_way(state_, item_);
    Item copy;
    steps_.set(copy, [&] { return item_.Copy(); });
    under_way.is_made(copy);
    for (const records::Name name : row_.copied) {
        records::write_property(session_, copy, name,
                                [&] { return item_.UserProperties().Item(name).value(); });
    }
    if (ending == Ending::save_and_delete) {
        steps_.run([&] { copy.Save(); });
        under_way.learn_id();
        here_.give_way();
        steps_.run([&] { copy.call(u"Delete"); });
        return;
    }
    if (ending == Ending::yield_and_move) here_.give_way();
    steps_.run([&] { copy.Move(shared_); });
    here_.give_way();
}

bool is_off(const Session& session, const ReplicaRow& row) {
    return Settings(session).option(row.enabled) == option_off;
}

Text folder_name(const Session& session, const ReplicaRow& row) {
    const Text named = Settings(session).option(row.folder_option);
    return named.empty() ? Text(row.default_folder) : named;
}

/// Holds an object as the last inspector. Only what has an inspector's events can be held: for anything else
/// this fails, and the inspector that is held stays.
void hold_as_inspector(const HoldInspector& hold_inspector, const Object& object) {
    automation::Sink trial;
    trial.connect(host::events::inspector, object, {});
    hold_inspector(object);
}

/// Sets the guard if a window is open on a linked item. At a handler's end the item itself is offered as the
/// last inspector, too, which it is not.
void look_at_open_windows(const Session& session, Guards& guards, const ReplicaRow& row,
                          const HoldInspector& hold_inspector = {}) {
    const Steps steps(session);
    Inspectors open;
    std::int32_t count = 0;
    steps.set(open, [&] { return host::outlook::Application(session.desktop.application()).Inspectors(); });
    steps.set(count, [&] { return open.Count(); });
    for (std::int32_t i = 1; i <= count; ++i) {
        if (steps.certainly([&] { return open.Item(i).CurrentItem().MessageClass() != row.message_class; })) {
            continue;
        }
        guards.*row.guard = true;
        if (hold_inspector) {
            steps.run([&] { hold_as_inspector(hold_inspector, open.Item(i).CurrentItem()); });
        }
    }
}

}  // namespace

constinit const ReplicaRow calendar = {
    .guard = &Guards::GlobalCalendar,
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
    .guard = &Guards::GlobalTask,
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

void ItemAdd(State& state, const Guards& guards, const ReplicaRow& row, const Item& item) {
    if (is_under_way(state, row, item) || is_off(state.session, row)) return;
    const Text name = folder_name(state.session, row);
    if (guards.*row.guard) Replication(state, row, item, name).run(row.on_add);
}

void ItemChange(State& state, Guards& guards, const ReplicaRow& row, const Item& item,
                const HoldInspector& hold_inspector) {
    if (is_under_way(state, row, item) || is_off(state.session, row)) return;
    look_at_open_windows(state.session, guards, row);
    if (!(guards.*row.guard)) return;
    const Text name = folder_name(state.session, row);
    Replication(state, row, item, name).run(row.on_change);
    guards.*row.guard = false;
    look_at_open_windows(state.session, guards, row, hold_inspector);
}

void goCalendar_ItemRemove() {}

}  // namespace addin::replicas
