#include "tests/native/native_desktop.h"

#include <algorithm>
#include <filesystem>

#include "addin/ground/product.h"
#include "addin/host/shell.h"
#include "desk/cdo/cdo.h"
#include "desk/outlook/application.h"
#include "desk/search/ado.h"
#include "family/create.h"
#include "tests/native/formats.h"
#include "tests/native/ini_file.h"
#include "tests/native/memory_controls.h"
#include "tests/native/temporary_folder.h"

namespace native {

using automation::Failure;
using automation::Object;
using automation::Text;
using automation::TextView;
using host::KeyHandle;
namespace result = automation::result;

namespace {

constexpr TextView outlook_prog_id = u"Outlook.Application";
constexpr TextView cdo_prog_id = u"MAPI.Session";
/// What the system's shell starts in.
constexpr TextView working_folder = u"C:\\desk";

/// The answer of a box that is closed unanswered: Cancel where there is such a button, or the only one.
int answer_of_closing(std::uint32_t style) {
    constexpr std::uint32_t kind_bits = 0xF;
    switch (style & kind_bits) {
        case host::box::ok:
            return host::box::answer_ok;
        case host::box::yes_no_cancel:
            return host::box::answer_cancel;
        default:
            return 0;
    }
}

}  // namespace

NativeDesktop::NativeDesktop(std::shared_ptr<Boundary> boundary, MemoryRegistry& registry, Programs& programs,
                             Text own_folder, std::vector<Text> without, forms::Engine& engine)
    : boundary_(std::move(boundary)),
      watched_(*boundary_, registry),
      programs_(programs),
      own_folder_(std::move(own_folder)),
      without_(std::move(without)),
      family_(std::make_shared<FamilyContext>(
          registry, [this] { return make(outlook_prog_id); },
          [this](TextView text) { message_box(text, addin::product_title, host::box::information); },
          engine)) {}

void NativeDesktop::attach(desk::Desk* desk) {
    if (!desk) family_->close_windows();
    desk_ = desk;
}

desk::Desk& NativeDesktop::running() const {
    if (!desk_) throw Failure(result::no_such_class, u"The host does not run.");
    return *desk_;
}

bool NativeDesktop::left_out(TextView prog_id) const {
    return std::ranges::any_of(
        without_, [&](const Text& name) { return automation::same_ignoring_case(name, prog_id); });
}

template <class T>
Object NativeDesktop::object_of_the_desk() const {
    return std::make_shared<T>(running())->self();
}

Object NativeDesktop::make(TextView prog_id) {
    if (const Object other = stand_in(prog_id)) return other;
    struct Maker {
        TextView prog_id;
        Object (NativeDesktop::*make)() const;
    };
    constexpr Maker makers[] = {
        {cdo_prog_id, &NativeDesktop::object_of_the_desk<desk::CdoSession>},
        {desk::AdoConnection::prog_id, &NativeDesktop::object_of_the_desk<desk::AdoConnection>},
        {desk::AdoRecordset::prog_id, &NativeDesktop::object_of_the_desk<desk::AdoRecordset>}};
    if (!left_out(prog_id)) {
        if (automation::same_ignoring_case(prog_id, outlook_prog_id)) return running().application()->self();
        for (const Maker& maker : makers) {
            if (automation::same_ignoring_case(prog_id, maker.prog_id)) return (this->*maker.make)();
        }
        if (automation::same_ignoring_case(prog_id, host::WshShell::prog_id)) {
            return Object(std::make_shared<Shell>(programs_, Text(working_folder)));
        }
        if (Object sibling = family::create(prog_id, family_)) return sibling;
    }
    throw Failure(result::bad_prog_id, Text(prog_id));
}

Object NativeDesktop::create(TextView prog_id) {
    boundary_->pass("create " + automation::to_utf8(prog_id));
    return boundary_->to_add_in(make(prog_id));
}

Object NativeDesktop::application() {
    boundary_->pass("application");
    return boundary_->to_add_in(running().application()->self());
}

int NativeDesktop::message_box(TextView text, TextView title, std::uint32_t style) {
    constexpr int not_shown = 0;
    return passes("message_box") ? ask(text, title, style) : not_shown;
}

int NativeDesktop::ask(TextView text, TextView title, std::uint32_t style) {
    on_message_box();
    const int answer = running().take_answer(title, text);
    running().messages.push_back({Text(title), Text(text), style, answer});
    return answer != 0 ? answer : answer_of_closing(style);
}

void NativeDesktop::yield() { on_yield(); }

Text NativeDesktop::find_file(TextView path) {
    boundary_->pass("find_file");
    const std::filesystem::path file = local_path(path);
    return std::filesystem::is_regular_file(file) ? file.filename().u16string() : Text();
}

void NativeDesktop::delete_file(TextView path) {
    boundary_->pass("delete_file");
    if (!std::filesystem::remove(local_path(path))) throw Failure(result::file_not_found, Text(path));
}

std::intptr_t NativeDesktop::shell_execute(const host::ShellRequest& request) {
    boundary_->pass("shell_execute");
    const Text file = Text(request.directory) + u"\\" + Text(request.file);
    constexpr std::intptr_t file_not_found = 2, success = 33;
    if (!std::filesystem::exists(local_path(file))) return file_not_found;
    programs_.opened.push_back(file);
    return success;
}

Text NativeDesktop::section_names(TextView path, std::uint32_t size) {
    if (!passes("section_names")) return {};
    return ini_section_names(local_path(path), size);
}

Text NativeDesktop::profile_text(TextView path, TextView section, TextView key, std::uint32_t size) {
    if (!passes("profile_text")) return {};
    return ini_text(local_path(path), section, key, size);
}

Text NativeDesktop::text_of(const automation::Value& value) {
    boundary_->pass("text_of");
    return written(value);
}

automation::Date NativeDesktop::date_of(TextView text) {
    boundary_->pass("date_of");
    return date_or_time(text);
}

Text NativeDesktop::format(TextView value, TextView named_format) {
    boundary_->pass("format");
    return formatted(value, named_format);
}

// the 8-bit form is UTF-8 here

std::string NativeDesktop::narrow(TextView text) { return automation::to_utf8(text); }
Text NativeDesktop::widen(const std::string& bytes) { return automation::from_utf8(bytes); }

bool NativeDesktop::passes(const char* call) {
    return goes_through([this](const char* name) { boundary_->pass(name); }, call);
}

std::int32_t NativeDesktop::WatchedRegistry::passed(const char* call) {
    constexpr std::int32_t access_denied = 5;
    try {
        boundary_.pass(call);
    } catch (const Failure&) {
        return access_denied;
    }
    return host::registry_status::success;
}

std::int32_t NativeDesktop::WatchedRegistry::open_key(KeyHandle root, const std::string& path,
                                                      KeyHandle& key) {
    const std::int32_t status = passed("registry.open_key");
    return status != 0 ? status : inner_.open_key(root, path, key);
}

std::int32_t NativeDesktop::WatchedRegistry::create_key(KeyHandle root, const std::string& path,
                                                        KeyHandle& key) {
    const std::int32_t status = passed("registry.create_key");
    return status != 0 ? status : inner_.create_key(root, path, key);
}

std::int32_t NativeDesktop::WatchedRegistry::query_value(KeyHandle key, const std::string& name,
                                                         std::uint32_t& type, void* data,
                                                         std::uint32_t& size) {
    const std::int32_t status = passed("registry.query_value");
    return status != 0 ? status : inner_.query_value(key, name, type, data, size);
}

std::int32_t NativeDesktop::WatchedRegistry::set_value(KeyHandle key, const std::string& name,
                                                       std::uint32_t type, const void* data,
                                                       std::uint32_t size) {
    const std::int32_t status = passed("registry.set_value");
    return status != 0 ? status : inner_.set_value(key, name, type, data, size);
}

std::int32_t NativeDesktop::WatchedRegistry::close_key(KeyHandle key) {
    const std::int32_t status = inner_.close_key(key);  // a key is closed even if that is said to have failed
    const std::int32_t failed = passed("registry.close_key");
    return failed != 0 ? failed : status;
}

}  // namespace native
