// What the desk's model needs from where it runs: the real desk under Wine, or a native test.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "automation/object.h"
#include "desk/base/dates.h"
#include "desk/base/window_driver.h"
#include "desk/store/item_data.h"

namespace desk {

/// A program that was started: its command line and the folder that it started in.
struct StartedProgram {
    automation::Text command_line;
    automation::Text folder;
};

/// A file that the desktop search knows.
struct IndexedFile {
    automation::Text folder;  ///< path, without a backslash at its end
    automation::Text name;
    automation::Date created, modified;  ///< local time
    std::string content;                 ///< its beginning: as much as is searched
};

/// How many of the desk's objects of one kind are held from outside.
struct LiveCount {
    std::string kind;
    std::int32_t count = 0;
};

/// How often one member was asked for from outside, and how often its name had to be resolved.
struct CallCount {
    std::string member;
    std::int64_t invocations = 0;
    std::int64_t name_lookups = 0;
};

class Surroundings {
  public:
    virtual ~Surroundings() = default;

    virtual automation::Date now() = 0;                           ///< local time
    virtual automation::Date to_utc(automation::Date local) = 0;  ///< of a local time, the same in UTC

    /// How the user writes dates.
    virtual DateManners date_manners() { return {}; }

    /// What the user writes between the entries of a list.
    virtual automation::Text list_separator() { return u","; }

    /// Random bytes for ids that are unique over processes and machines.
    virtual std::string random_bytes(std::size_t count) = 0;

    /// Reads a mail file. Throws `automation::Failure` with one clear sentence.
    virtual ItemData read_mail(automation::TextView path) = 0;

    /// The text that a reader sees of a page of HTML, the same as of a mail with that page.
    virtual automation::Text page_text(automation::TextView html) = 0;

    /// Events wait for the next turn of the message loop.
    virtual void wake() = 0;

    /// Runs an action at the next turn of the message loop, whoever's loop that is: this comes back at once.
    virtual void post(std::function<void()> action) = 0;

    /// Lets the message loop run for that time.
    virtual void pump(std::int32_t milliseconds) = 0;

    /// The add-in's window with that caption, a visible one before a hidden one; null if there is none.
    virtual std::unique_ptr<WindowDriver> window(automation::TextView caption) = 0;

    /// Shows a message box of the host's own and answers its button.
    virtual int ask(automation::TextView text, automation::TextView title, std::uint32_t style) = 0;

    /// Makes an automation object by its name.
    virtual automation::Object create_object(automation::TextView prog_id) = 0;

    /// Whether a class of that name is registered.
    virtual bool has_class(automation::TextView prog_id) = 0;

    /// The files that the desktop search knows, folder by folder, in the order of their names.
    virtual std::vector<IndexedFile> indexed_files() = 0;

    virtual std::vector<StartedProgram> programs() = 0;
    virtual std::vector<automation::Text> opened() = 0;  ///< paths of the files handed to the shell, in order
    virtual std::vector<LiveCount> live() = 0;
    virtual std::vector<CallCount> calls() = 0;
    virtual void reset_calls() = 0;

    /// Writes a picture of the screen, PNG.
    virtual void snapshot(automation::TextView path) = 0;

    /// Connects or disconnects the add-in of that name.
    virtual void connect_add_in(automation::TextView prog_id, bool connect) = 0;

    /// The host is told to end.
    virtual void quit() = 0;

    /// The windows follow the model: something that they show has changed.
    virtual void changed() = 0;

    /// A window comes to the front, one that was just opened too. It is there when this comes back.
    virtual void came_up() { changed(); }

    /// An option that holds from the next start on is remembered.
    virtual void remember_option(automation::TextView name, automation::TextView value) = 0;
};

}  // namespace desk
