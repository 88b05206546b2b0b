// The user's options: one registry key, read anew at each use, so that a change takes effect at the next
// event.
#pragma once

#include "host/desktop.h"

namespace addin {

/// Names of the values below the options' key.
namespace setting {
inline constexpr host::TextView enable_global_calendar = u"EnableGlobalCalendar";
inline constexpr host::TextView global_calendar = u"GlobalCalendar";
inline constexpr host::TextView enable_global_tasks = u"EnableGlobalTasks";
inline constexpr host::TextView global_tasks = u"GlobalTasks";
inline constexpr host::TextView enable_quick_view = u"EnableQuickView";
inline constexpr host::TextView enable_power_panel = u"EnablePowerPanel";
inline constexpr host::TextView enable_desktop_search = u"EnableDesktopSearch";
inline constexpr host::TextView auto_file_sent_emails = u"AutoFileSentEmails";
inline constexpr host::TextView save_exchange_email = u"SaveExchangeEmail";
inline constexpr host::TextView saved_email_folder = u"SavedEmailFolder";
inline constexpr host::TextView no_contact_buttons = u"NoContactButtons";
inline constexpr host::TextView pda_contact_sync = u"PDAContactSync";
inline constexpr host::TextView store_id = u"TarnwellStoreID";
inline constexpr host::TextView folder_id = u"AccountProfileFolderID";
inline constexpr host::TextView folder_name = u"AccountProfileFolderName";
inline constexpr host::TextView user_name = u"UserName";
}  // namespace setting

/// What an option that is on holds.
inline constexpr host::TextView option_on = u"1";

/// The registry as the add-in and its siblings use it. The "9.0" stays in the key's path on every host
/// version.
class Settings {
  public:
    static constexpr host::TextView key_name =
        u"Software\\Microsoft\\Office\\9.0\\Outlook\\Options\\Tarnwell";

    explicit Settings(host::Desktop& desktop) : desktop_(desktop) {}

    /// Reads a value of an open key into `vValue`: a text with its terminator, if one is stored, or an
    /// integer. Answers 0, the registry's status, or -1 for a type that isn't supported; on failure `vValue`
    /// stays as it was, or becomes empty when only the second reading of a text failed.
    std::int32_t QueryValueEx(host::KeyHandle lhKey, host::TextView szValueName, host::Value& vValue);

    /// A value without its terminator: a text, an integer, or empty if it can't be read for whatever reason.
    host::Value GetKeyValueEx(std::int32_t lKey, host::TextView sKeyName, host::TextView sValueName);

    /// Writes a text (without terminator; numbers and dates as the user writes them) or an integer to an open
    /// key. Answers the registry's status; 0 for any other type, of which nothing is written.
    std::int32_t SetValueEx(host::KeyHandle hKey, host::TextView sValueName, std::uint32_t lType,
                            const host::Value& vValue);

    /// Makes the key if it is missing and writes the value. False, and nothing done, for an empty key name; a
    /// leading backslash is dropped.
    bool SetKeyValue(std::int32_t lKey, host::TextView sKeyName, host::TextView sValueName,
                     const host::Value& vValueSetting, std::uint32_t lValueType);

    /// An option as text; empty if it isn't there.
    host::Text option(host::TextView name);

    /// Stores an option as text.
    void store(host::TextView name, host::TextView value);

  private:
    host::Desktop& desktop_;
};

}  // namespace addin
