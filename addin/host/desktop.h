// What is not automation: the narrow interface to the system, at the level of the platform's own calls.
#pragma once

#include <cstdint>
#include <string>

#include "automation/object.h"
#include "automation/text.h"
#include "forms/pointer.h"

namespace addin {
class Presence;
namespace trace {
class WatchedDesktop;
}
}  // namespace addin

namespace host {

using namespace automation;  // what the faces are written in

/// A registry key as the platform names it: a predefined root (sign-extended from 32 bits) or an open key.
using KeyHandle = std::intptr_t;

inline constexpr KeyHandle no_key = 0;
inline constexpr std::int32_t current_user = static_cast<std::int32_t>(0x80000001);  // HKEY_CURRENT_USER

/// Status codes of the registry calls. Values: the platform's winerror.h.
namespace registry_status {
inline constexpr std::int32_t success = 0;
inline constexpr std::int32_t file_not_found = 2;
inline constexpr std::int32_t invalid_handle = 6;
inline constexpr std::int32_t more_data = 234;
}  // namespace registry_status

/// Types of registry values.
namespace registry_type {
inline constexpr std::uint32_t text = 1;    // REG_SZ
inline constexpr std::uint32_t binary = 3;  // REG_BINARY
inline constexpr std::uint32_t dword = 4;   // REG_DWORD
}  // namespace registry_type

/// The registry through its 8-bit interface. Sizes are in bytes and terminators count where they were stored.
class Registry {
  public:
    virtual ~Registry() = default;

    virtual std::int32_t open_key(KeyHandle root, const std::string& path, KeyHandle& key) = 0;
    virtual std::int32_t create_key(KeyHandle root, const std::string& path, KeyHandle& key) = 0;

    /// With null `data` only type and size are told. `size` is the buffer's size going in.
    virtual std::int32_t query_value(KeyHandle key, const std::string& name, std::uint32_t& type, void* data,
                                     std::uint32_t& size) = 0;
    virtual std::int32_t set_value(KeyHandle key, const std::string& name, std::uint32_t type,
                                   const void* data, std::uint32_t size) = 0;
    virtual std::int32_t close_key(KeyHandle key) = 0;
};

/// Styles and answers of message boxes. Values: the platform's winuser.h.
namespace box {
inline constexpr std::uint32_t ok = 0, yes_no_cancel = 3, yes_no = 4, critical = 16, question = 32,
                               information = 64;
inline constexpr int answer_ok = 1, answer_cancel = 2, answer_yes = 6, answer_no = 7;
}  // namespace box

/// What the shell is asked to do with a file (ShellExecuteA).
struct ShellRequest {
    std::intptr_t window = 0;  ///< owns what the shell shows, as the platform names windows
    TextView operation, file, parameters, directory;
    int show_mode = 1;  // SW_SHOWNORMAL
};

class Desktop {
  public:
    virtual ~Desktop() = default;

    virtual Registry& registry() = 0;

    /// Makes an automation object. Throws `Failure` with `result::bad_prog_id` for an unknown name.
    virtual Object create(TextView prog_id) = 0;

    /// The host's process-wide application object.
    virtual Object application() = 0;

    virtual int message_box(TextView text, TextView title, std::uint32_t style) = 0;

    virtual void sleep(std::uint32_t milliseconds) = 0;
    virtual void pointer(forms::Pointer pointer) = 0;

    /// Dots per inch across, by the device capabilities of the desktop window.
    virtual int dots_per_inch() = 0;

    /// The first file of that name or pattern, as the system's `Dir` with default attributes; empty if none.
    virtual Text find_file(TextView path) = 0;
    virtual void delete_file(TextView path) = 0;  ///< throws `Failure` if the file can't be deleted

    /// Hands a file to the shell. Answers what the shell answers: above 32 for success.
    virtual std::intptr_t shell_execute(const ShellRequest& request) = 0;

    /// The names of an ini file's sections as the platform gives them: each with a terminator, cut off at
    /// `size` characters; empty for a file that isn't there (GetPrivateProfileSectionNamesA).
    virtual Text section_names(TextView path, std::uint32_t size) = 0;

    /// A value of an ini file, cut off at `size` characters with its terminator; empty if it isn't there
    /// (GetPrivateProfileStringA).
    virtual Text profile_text(TextView path, TextView section, TextView key, std::uint32_t size) = 0;

    virtual void beep() = 0;

    /// The folder that the add-in's own file lies in, without a backslash at its end.
    virtual Text own_folder() = 0;

    /// A value as text: numbers and dates as the user's regional settings write them (the platform's
    /// VariantChangeType), so that `format` can read them. Throws `Failure` for what has no text.
    virtual Text text_of(const Value& value) = 0;

    /// The date that a text tells, as the user's regional settings write dates: what `text_of` made of one
    /// comes back (the platform's VarDateFromStr). Throws `Failure` for a text that is no date.
    virtual Date date_of(TextView text) = 0;

    /// A value's text in one of the system's named formats ("Currency", "Short Date", "General Date",
    /// "Percent"), by the user's regional settings, first day of the week and first week of the year given as
    /// 1 (the platform's VarFormat). Throws `Failure` for a text that can't be read as a number or date.
    virtual Text format(TextView value, TextView named_format) = 0;

    /// The 8-bit form that the registry and ini interfaces take, and back.
    virtual std::string narrow(TextView text) = 0;
    virtual Text widen(const std::string& bytes) = 0;

  private:
    /// Gives way to the host's message queue until it is empty. Only who can tell afterwards what is still
    /// there may do so.
    friend class addin::Presence;
    friend class addin::trace::WatchedDesktop;  // which only passes it on
    virtual void yield() = 0;
};

}  // namespace host
