// What the stand-ins need from outside, and what they keep for the life of the process.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>

#include "automation/object.h"
#include "family/menu.h"
#include "family/named_properties.h"
#include "forms/view.h"

namespace family {

/// The settings, by the names under which they are stored. They are read anew at each call.
namespace setting {
inline constexpr automation::TextView user_name = u"UserName";
inline constexpr automation::TextView current_user_name = u"CurrentUserName";
inline constexpr automation::TextView alignment = u"Alignment";
inline constexpr automation::TextView email_auto_file = u"EmailAutoFile";
inline constexpr automation::TextView special_folder = u"SpecialFolder";
inline constexpr automation::TextView program_folder = u"ProgramFolder";
inline constexpr automation::TextView store_id = u"StoreID";
/// "1": the family's menu is put into the host's main windows when the family is first asked for.
inline constexpr automation::TextView menu = u"Menu";
/// Members that fail, separated by ";": "GetFolderId;SafeMailItem.Fields".
inline constexpr automation::TextView fail = u"Fail";
}  // namespace setting

/// Where a folder was found.
struct FolderPlace {
    automation::Text entry_id;
    automation::Text store_id;
};

/// What is kept from call to call. All of it can be lost without harm: it is found anew.
struct Memory {
    std::map<automation::Text, FolderPlace> folders;  ///< by what was searched for
    /// Names of wrapped objects' members, by the wrapper's name and their dispatch ids.
    std::map<std::pair<automation::TextView, std::int32_t>, automation::Text> names;
    NamedProperties named_properties;
};

class TemplateList;

/// A window of templates, with what makes it.
struct ShownTemplates {
    std::shared_ptr<forms::Engine> engine;  // outlives the window
    std::shared_ptr<TemplateList> window;
};

class FiledToday;

struct ShownFiledToday {
    std::shared_ptr<forms::Engine> engine;  // outlives the window
    std::shared_ptr<FiledToday> window;
};

class SettingsForm;
class SettingsLayout;

/// The window of the settings, with what it is made of and what makes it.
struct ShownSettings {
    std::shared_ptr<forms::Engine> engine;  // outlive the window
    std::shared_ptr<const SettingsLayout> layout;
    std::shared_ptr<SettingsForm> window;
};

class Context {
  public:
    Context() = default;
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    virtual ~Context() = default;

    virtual std::optional<automation::Text> read_setting(automation::TextView name) = 0;

    /// The host's application object. Throws `Failure` if there is none.
    virtual automation::Object application() = 0;

    /// What makes windows. It is there as long as somebody holds it, and is to outlive its windows.
    virtual std::shared_ptr<forms::Engine> engine() = 0;

    /// Tells a person something, in a box that waits until it was read.
    virtual void tell(automation::TextView text) = 0;

    /// Notes a call that would open a window, or change one, of the family.
    virtual void record(automation::Text call) = 0;

    /// Fills with random bytes of the system's own source.
    virtual void random_bytes(std::span<std::uint8_t> bytes);

    /// A number as text, with the decimal sign of the user's regional settings: what is shown is formatted by
    /// these, too.
    virtual automation::Text number_text(double number) { return automation::Value(number).to_text(); }

    /// A setting, empty if it is missing.
    automation::Text setting(automation::TextView name) {
        return read_setting(name).value_or(automation::Text());
    }

    /// Throws `Failure` if the setting `Fail` lists the member, alone or behind its object's name and a dot.
    void check(automation::TextView object, automation::TextView member);

    /// The time of a day as text, as the user's regional settings write it.
    virtual automation::Text time_text(automation::Date date);

    /// Starts `TarnwellAdmin.exe check` in a window of its own, and comes back at once. Throws `Failure` with
    /// a sentence for a person if that program isn't there.
    virtual void start_check();

    Memory& memory() { return memory_; }

    /// The windows that stay after the call that has shown them, by the kind of what they list.
    std::map<automation::Text, ShownTemplates>& shown_templates() { return shown_templates_; }
    ShownSettings& shown_settings() { return shown_settings_; }
    ShownFiledToday& shown_filed_today() { return shown_filed_today_; }
    bool shows_windows() const;
    Menu& menu() { return menu_; }
    void close_windows();  ///< at the latest before the engine ends

  private:
    Memory memory_;
    Menu menu_{*this};
    std::map<automation::Text, ShownTemplates> shown_templates_;
    ShownSettings shown_settings_;
    ShownFiledToday shown_filed_today_;
};

}  // namespace family
