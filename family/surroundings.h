// What the stand-ins need from outside, and what they keep for the life of the process.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>

#include "family/named_properties.h"
#include "forms/view.h"
#include "host/object.h"

namespace family {

/// The settings, by the names under which they are stored. They are read anew at each call.
namespace setting {
inline constexpr host::TextView user_name = u"UserName";
inline constexpr host::TextView current_user_name = u"CurrentUserName";
inline constexpr host::TextView alignment = u"Alignment";
inline constexpr host::TextView email_auto_file = u"EmailAutoFile";
inline constexpr host::TextView special_folder = u"SpecialFolder";
inline constexpr host::TextView program_folder = u"ProgramFolder";
inline constexpr host::TextView store_id = u"StoreID";
/// Members that fail, separated by ";": "GetFolderId;SafeMailItem.Fields".
inline constexpr host::TextView fail = u"Fail";
}  // namespace setting

/// Where a folder was found.
struct FolderPlace {
    host::Text entry_id;
    host::Text store_id;
};

/// What is kept from call to call. All of it can be lost without harm: it is found anew.
struct Memory {
    std::map<host::Text, FolderPlace> folders;  ///< by what was searched for
    /// Names of wrapped objects' members, by the wrapper's name and their dispatch ids.
    std::map<std::pair<host::TextView, std::int32_t>, host::Text> names;
    NamedProperties named_properties;
};

class TemplateList;

/// A window of templates, with what makes it.
struct ShownTemplates {
    std::shared_ptr<addin::forms::Engine> engine;  // outlives the window
    std::shared_ptr<TemplateList> window;
};

class Surroundings {
  public:
    Surroundings() = default;
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;
    virtual ~Surroundings() = default;

    virtual std::optional<host::Text> read_setting(host::TextView name) = 0;

    /// The host's application object. Throws `Failure` if there is none.
    virtual host::Object application() = 0;

    /// What makes windows. It is there as long as somebody holds it, and is to outlive its windows.
    virtual std::shared_ptr<addin::forms::Engine> engine() = 0;

    /// Notes a call that would open a window, or change one, of the family.
    virtual void record(host::Text call) = 0;

    /// Fills with random bytes of the system's own source.
    virtual void random_bytes(std::span<std::uint8_t> bytes);

    /// A number as text, with the decimal sign of the user's regional settings: what is shown is formatted by
    /// these, too.
    virtual host::Text number_text(double number) { return host::Value(number).to_text(); }

    /// A setting, empty if it is missing.
    host::Text setting(host::TextView name) { return read_setting(name).value_or(host::Text()); }

    /// Throws `Failure` if the setting `Fail` lists the member, alone or behind its object's name and a dot.
    void check(host::TextView object, host::TextView member);

    Memory& memory() { return memory_; }

    /// The windows that stay after the call that has shown them, by the kind of what they list.
    std::map<host::Text, ShownTemplates>& shown_templates() { return shown_templates_; }
    bool shows_windows() const;
    void close_windows();  ///< at the latest before the engine ends

  private:
    Memory memory_;
    std::map<host::Text, ShownTemplates> shown_templates_;
};

}  // namespace family
