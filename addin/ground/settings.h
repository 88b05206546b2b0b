// The user's options: one registry key, read anew at each use, so that a change takes effect at the next
// event.
#pragma once

#include "addin/ground/session.h"
#include "addin/host/desktop.h"

namespace addin {

/// Names of the values below the options' key.
namespace setting {
inline constexpr automation::TextView enable_global_calendar = u"EnableGlobalCalendar";
inline constexpr automation::TextView global_calendar = u"GlobalCalendar";
inline constexpr automation::TextView enable_global_tasks = u"EnableGlobalTasks";
inline constexpr automation::TextView global_tasks = u"GlobalTasks";
inline constexpr automation::TextView enable_quick_view = u"EnableQuickView";
inline constexpr automation::TextView enable_power_panel = u"EnablePowerPanel";
inline constexpr automation::TextView enable_desktop_search = u"EnableDesktopSearch";
inline constexpr automation::TextView auto_file_sent_emails = u"AutoFileSentEmails";
inline constexpr automation::TextView save_exchange_email = u"SaveExchangeEmail";
inline constexpr automation::TextView saved_email_folder = u"SavedEmailFolder";
inline constexpr automation::TextView no_contact_buttons = u"NoContactButtons";
inline constexpr automation::TextView pda_contact_sync = u"PDAContactSync";
inline constexpr automation::TextView store_id = u"TarnwellStoreID";
inline constexpr automation::TextView folder_id = u"AccountProfileFolderID";
inline constexpr automation::TextView folder_name = u"AccountProfileFolderName";
inline constexpr automation::TextView user_name = u"UserName";
inline constexpr automation::TextView trace_file = u"TraceFile";
inline constexpr automation::TextView trace_content = u"TraceContent";
}  // namespace setting

/// What an option that is on holds.
inline constexpr automation::TextView option_on = u"1";

/// The registry as the add-in and its siblings use it. The "9.0" stays in the key's path on every host
/// version.
class Settings {
  public:
    static constexpr automation::TextView key_name =
        u"Software\\Microsoft\\Office\\9.0\\Outlook\\Options\\Tarnwell";

    /// The key of what concerns this add-in alone, and is read once at its load.
    static constexpr automation::TextView own_key_name = u"Software\\Tarnwell\\Note";

    explicit Settings(const Session& session) : Settings(session.desktop, session.step_observer) {}
    explicit Settings(host::Desktop& desktop, StepObserver* observer = nullptr)
        : desktop_(desktop), observer_(observer) {}

    /// Reads a value of an open key into `vValue`: a text with its terminator, if one is stored, or an
    /// integer. Answers 0, the registry's status, or -1 for a type that isn't supported; on failure `vValue`
    /// stays as it was, or becomes empty when only the second reading of a text failed.
    std::int32_t QueryValueEx(host::KeyHandle lhKey, automation::TextView szValueName,
                              automation::Value& vValue);

    /// A value without its terminator: a text, an integer, or empty if it can't be read for whatever reason.
    automation::Value GetKeyValueEx(std::int32_t lKey, automation::TextView sKeyName,
                                    automation::TextView sValueName);

    /// Writes a text (without terminator; numbers and dates as the user writes them) or an integer to an open
    /// key. Answers the registry's status; 0 for any other type, of which nothing is written.
    std::int32_t SetValueEx(host::KeyHandle hKey, automation::TextView sValueName, std::uint32_t lType,
                            const automation::Value& vValue);

    /// Makes the key if it is missing and writes the value. False, and nothing done, for an empty key name; a
    /// leading backslash is dropped.
    bool SetKeyValue(std::int32_t lKey, automation::TextView sKeyName, automation::TextView sValueName,
                     const automation::Value& vValueSetting, std::uint32_t lValueType);

    /// An option as text; empty if it isn't there.
    automation::Text option(automation::TextView name);

    /// Stores an option as text.
    void store(automation::TextView name, automation::TextView value);

  private:
    host::Desktop& desktop_;
    StepObserver* observer_;
};

}  // namespace addin
