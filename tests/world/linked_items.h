// Linked appointments and tasks of the user's own, and the shared folders that hold their replicas.
#pragma once

#include "tests/world/item_state.h"
#include "tests/world/people.h"

namespace acceptance {

/// What a test has to know of one of the two kinds.
struct LinkedKind {
    const char* name;
    std::int32_t own_folder;  ///< the number of the default folder
    automation::TextView message_class, plain_class, key;
    automation::TextView shared_folder, guard, enabled, folder_option;
    const char* status;
};
inline constexpr LinkedKind appointments = {"appointments",
                                            host::outlook::default_folder::calendar,
                                            u"IPM.Appointment.TarnwellAppt",
                                            u"IPM.Appointment",
                                            u"ApptID",
                                            u"Global Calendar",
                                            u"GlobalCalendar",
                                            u"EnableGlobalCalendar",
                                            u"GlobalCalendar",
                                            "Updating Global Calendar "};
inline constexpr LinkedKind linked_tasks = {"tasks",
                                            host::outlook::default_folder::tasks,
                                            u"IPM.Task.TarnwellTask",
                                            u"IPM.Task",
                                            u"TaskID",
                                            u"Global Tasks",
                                            u"GlobalTask",
                                            u"EnableGlobalTasks",
                                            u"GlobalTasks",
                                            "Updating Global Tasks "};
inline constexpr const LinkedKind* linked_kinds[] = {&appointments, &linked_tasks};

/// A linked item, complete unless a test wants it otherwise.
struct LinkedPlan {
    automation::Text subject = u"Plan of the new line";
    automation::Text key = u"K-1";
    automation::Text account_id = u"A-100", contact_id = u"C-200";
    automation::TextView message_class{};  ///< if it isn't the kind's own
    bool opened = true;                    ///< its form is open from when it was saved
};

class Replicas : public Acceptance {
  protected:
    /// Where the user's own items and their replicas lie.
    static host::outlook::Folder own(World& world, const LinkedKind& kind);
    static host::outlook::Folder shared(World& world, const LinkedKind& kind);
    static host::outlook::Folder shared(World& world, automation::TextView name);

    /// An item of the user's own, saved while its class had no window open.
    host::outlook::Item add(World& world, const LinkedKind& kind, const LinkedPlan& plan = {});

    /// Shows an item's form, until the test or `close_forms`.
    void open(const host::outlook::Item& item);
    void close_forms() { opened_.clear(); }

    /// What the user does who changes an item.
    static void change(World& world, const host::outlook::Item& item, automation::TextView subject);

    /// The same world again without windows, items of a kind and options: for the next of several cases.
    World& emptied(const LinkedKind& kind);

    static bool guard(World& world, const LinkedKind& kind);
    static void guard(World& world, const LinkedKind& kind, bool value);

    /// An item as a whole, a line for each of its properties.
    static std::string described(World& world, const host::outlook::Item& item);
    static std::vector<std::string> described(World& world, const host::outlook::Folder& folder);
    static std::vector<std::string> subjects(const host::outlook::Folder& folder);

    /// The shared folder holds one item, the same as the user's own in every property, and the user's own
    /// folder holds that alone.
    static void expect_one_replica(World& world, const LinkedKind& kind, const host::outlook::Item& item);

    /// An item that bears the same key, in a folder.
    static host::outlook::Item add_twin(const LinkedKind& kind, const host::outlook::Folder& folder,
                                        automation::TextView subject, automation::TextView key = u"K-1");

    /// Plans a call for the next yield after a moment: an event, or a text of the status window.
    static void meanwhile(World& world, automation::TextView moment, const automation::Object& object,
                          automation::TextView member,
                          const automation::Value& value = automation::Missing{});

  private:
    std::vector<std::unique_ptr<OpenedItem>> opened_;
};

}  // namespace acceptance
