// The world that an acceptance test acts in: a desk with a database, the family, and the add-in loaded into
// it.
//
// Each test is written once against this and runs twice: natively, with add-in and desk in one process, and
// under Wine, with the real DLL in the real desk, driven by automation from another process.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "addin/host/desktop.h"
#include "addin/host/outlook.h"
#include "desk/base/options.h"

namespace acceptance {

using Lines = std::vector<std::string>;

/// How the world is to be before the desk starts.
struct WorldSetup {
    std::string database = "empty";  ///< "empty" or "sample"
    automation::Text host_version = u"16.0.0.0";
    bool instant_search = false;
    desk::EventOrder event_order = desk::EventOrder::host;
    std::vector<std::string> without{};  ///< siblings by ProgID, or programs by file name, that are not there
    bool add_in = true;                  ///< the add-in is registered
    bool started = true;                 ///< the desk is started at once; else by `start`
};

class World {
  public:
    virtual ~World() = default;

    // A new world has its database, and no option. Of the family's values only `SpecialFolder` and
    // `ProgramFolder` are stored, two folders in which the family's programs can be started; its lists are
    // empty.

    /// Starts the desk on the database, as it is. Settings and the family's values stay.
    virtual void start() = 0;
    /// Ends it as a user would, and waits until it has gone.
    virtual void quit() = 0;

    virtual host::outlook::Application application() = 0;

    /// The system's registry, or what stands for it.
    virtual host::Registry& registry() = 0;
    virtual host::Desktop& desktop() = 0;

    /// The folder that the add-in's file lies in.
    virtual automation::Text add_in_folder() = 0;

    /// A file's name, for `Deliver` and its like, in a folder that is empty at first; `bytes` are written to
    /// it.
    virtual automation::Text write_file(const std::string& name, const std::string& bytes) = 0;
    /// A file's name in the folder that the desktop search knows, beside those of the database's own
    /// documents.
    virtual automation::Text write_document(const std::string& name, const std::string& bytes) = 0;
    virtual bool file_exists(automation::TextView path) = 0;
    virtual void remove_file(automation::TextView path) = 0;

    /// A world fails its test at the end if the program made a mistake of its own meanwhile: something was
    /// thrown that no routine takes, or it crashed. A test that lets it make some says how many.
    void expect_faults(std::size_t faults) { expected_faults_ = faults; }

    // what every test needs, the same for both

    automation::Object desk() { return application().get(u"Desk").to_object(); }
    automation::Object connect();  ///< the add-in's published object
    host::outlook::NameSpace name_space() { return application().GetNamespace(u"MAPI"); }
    host::outlook::Folder inbox() {
        return name_space().GetDefaultFolder(host::outlook::default_folder::inbox);
    }
    host::outlook::Folder account_profiles();
    host::outlook::Folder below(automation::TextView name) { return account_profiles().Folders().Item(name); }

    /// An option of the user, as text or as a number.
    void option(automation::TextView name, automation::TextView value);
    void option(automation::TextView name, std::int32_t value);
    /// A value of the add-in's own key, which is read when it is loaded.
    void own_option(automation::TextView name, automation::TextView value);
    /// A value that the family's stand-ins answer.
    void family(automation::TextView name, automation::TextView value);
    automation::Text family(automation::TextView name);
    /// What the family's stand-ins were told and only noted, in order, as "MainAddIn.reloadtoolbar(UNLOAD)".
    std::vector<automation::Text> family_calls();

    /// Delivers a mail of these lines; "From", "To" and so on are given as in the file.
    host::outlook::Item deliver(const std::string& message);

    /// What the user does who reads a mail.
    static void read(const host::outlook::Item& mail);

    /// A member's value as text.
    automation::Text text(const automation::Object& object, automation::TextView member);
    static automation::Text property(const host::outlook::Item& item, automation::TextView name);

    /// Makes the calls of a member fail: the next one, or `times` calls after as many as `after` more.
    void fail(automation::TextView member, std::int32_t after = 0, std::int32_t times = 1);

    /// How many items have been shown in windows of their own so far; those that have come since a count; and
    /// their ids.
    std::int32_t displayed();
    std::vector<host::outlook::Item> displayed_since(std::int32_t before);
    Lines ids_displayed_since(std::int32_t before);

    /// Lets waiting events come, until the condition holds or a generous time has passed.
    bool wait_until(const std::function<bool()>& condition);
    /// Lets the events come that wait.
    void settle();
    /// Waits until nobody handles an event any more; not for a handler that waits in a modal window.
    bool wait_for_handlers();

  protected:
    std::size_t expected_faults() const { return expected_faults_; }

  private:
    std::size_t expected_faults_ = 0;
    automation::Text anchor_id_, anchor_store_;  ///< of "Account Profiles", once it was found
};

/// Made by whichever build the test runs in.
std::unique_ptr<World> make_world(const WorldSetup& setup);

class Acceptance : public testing::Test {
  protected:
    /// Another world than the usual one; the first thing that a test does.
    World& with(const WorldSetup& setup) {
        world_.reset();
        world_ = make_world(setup);
        return *world_;
    }
    World& world() {
        if (!world_) world_ = make_world({});
        return *world_;
    }

  private:
    std::unique_ptr<World> world_;
};

}  // namespace acceptance
